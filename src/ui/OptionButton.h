// One of several choices; the others stand in the same container.
#pragma once

#include "ui/Control.h"

namespace pactora::ui {

class OptionButton final : public Control {
 public:
  OptionButton(Container& parent, std::string name, std::string caption)
      : Control(parent, ControlKind::OptionButton, std::move(name)), caption_(std::move(caption)) {}

  // The option became the selected one; the others of its container are off by
  // then and run nothing.
  std::function<void()> Click;

  const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption);
  bool Value() const { return value_; }
  // True runs Click if the option was off; False runs nothing.
  void SetValue(bool value);

 private:
  std::string caption_;
  bool value_ = false;
};

}  // namespace pactora::ui
