// A group of controls with a caption. Nobody can reach a control in a disabled
// or hidden frame, or in one that lies behind another.
#pragma once

#include "ui/Control.h"

namespace pactora::ui {

class Frame final : public Control, public Container {
 public:
  Frame(Container& parent, std::string name, std::string caption = {})
      : Control(parent, ControlKind::Frame, std::move(name)),
        Container(parent.OwnerForm(), this),
        caption_(std::move(caption)) {}

  // A frame is asked as the control that it is.
  using Control::OwnerForm;

  const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption);

  // The two frames lie on top of each other, this one in front. Only one of all
  // that overlap is in front at a time.
  void LieOver(Frame& behind);
  void BringToFront();
  bool Behind() const { return behind_; }
  const std::vector<Frame*>& Overlapping() const { return overlapping_; }

 private:
  void SetBehind(bool behind);

  std::string caption_;
  std::vector<Frame*> overlapping_;
  bool behind_ = false;
};

}  // namespace pactora::ui
