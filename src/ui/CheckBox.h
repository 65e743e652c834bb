// A box that is ticked or not.
#pragma once

#include "ui/Control.h"

namespace pactora::ui {

class CheckBox final : public Control {
 public:
  static constexpr std::int32_t kUnchecked = 0;
  static constexpr std::int32_t kChecked = 1;

  CheckBox(Container& parent, std::string name, std::string caption)
      : Control(parent, ControlKind::CheckBox, std::move(name)), caption_(std::move(caption)) {}

  // The value changed.
  std::function<void()> Click;

  const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption);
  std::int32_t Value() const { return value_; }
  bool Checked() const { return value_ == kChecked; }
  // Raises error 5 for anything but 0 and 1.
  void SetValue(std::int32_t value);
  void SetChecked(bool checked) { SetValue(checked ? kChecked : kUnchecked); }

 private:
  std::string caption_;
  std::int32_t value_ = kUnchecked;
};

}  // namespace pactora::ui
