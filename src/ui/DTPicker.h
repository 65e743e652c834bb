// A box that holds a day. With a check box it can be unticked and holds none
// then; it still remembers the day for when it is ticked again.
#pragma once

#include <optional>

#include "platform/Date.h"
#include "ui/Control.h"

namespace pactora::ui {

class DTPicker final : public Control {
 public:
  enum class Null { No, WithCheckBox };

  DTPicker(Container& parent, std::string name, Null null = Null::No)
      : Control(parent, ControlKind::DTPicker, std::move(name)), null_(null) {}

  // The value changed, to or from none included.
  std::function<void()> Change;

  bool HasCheckBox() const { return null_ == Null::WithCheckBox; }
  bool IsNull() const { return !ticked_; }
  // Raises error 13 while the picker is unticked.
  platform::Date Value() const;
  // The day shown, greyed while the picker is unticked.
  platform::Date ShownDate() const { return date_; }

  // Takes the whole day of the date and ticks the picker.
  void SetValue(platform::Date date);
  // Unticks it. Raises error 5 for a picker without a check box.
  void SetNull();

 private:
  const Null null_;
  bool ticked_ = true;
  platform::Date date_ = platform::kNoDate;
};

}  // namespace pactora::ui
