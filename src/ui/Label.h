// A text in a dialog that nobody can change but the program.
#pragma once

#include "ui/Control.h"

namespace pactora::ui {

class Label final : public Control {
 public:
  Label(Container& parent, std::string name, std::string caption = {})
      : Control(parent, ControlKind::Label, std::move(name)), caption_(std::move(caption)) {}

  const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption);
  bool Bold() const { return bold_; }
  void SetBold(bool bold);

 private:
  std::string caption_;
  bool bold_ = false;
};

}  // namespace pactora::ui
