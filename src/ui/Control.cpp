#include "ui/Control.h"

#include <utility>

#include "ui/Form.h"
#include "ui/Frame.h"

namespace pactora::ui {

Control::Control(Container& parent, ControlKind kind, std::string name)
    : parent_(parent), kind_(kind), name_(std::move(name)) {
  parent.children_.push_back(this);
  parent.OwnerForm().controls_.push_back(this);
}

void Control::SetEnabled(bool enabled) {
  if (enabled == enabled_) return;
  enabled_ = enabled;
  NotifyChanged(Property::Enabled);
}

void Control::SetVisible(bool visible) {
  if (visible == visible_) return;
  visible_ = visible;
  NotifyChanged(Property::Visible);
}

void Control::SetToolTip(std::string tool_tip) {
  if (tool_tip == tool_tip_) return;
  tool_tip_ = std::move(tool_tip);
  NotifyChanged(Property::ToolTip);
}

bool Control::HasFocus() const { return OwnerForm().Focus() == this; }

void Control::SetFocus() {
  if (TakesFocus() && Reach() == Obstacle::None) OwnerForm().MoveFocus(this, FocusCause::Program);
}

Obstacle Control::Reach() const {
  if (!visible_) return Obstacle::Hidden;
  if (!enabled_) return Obstacle::Disabled;
  for (const Frame* frame = parent_.AsFrame(); frame != nullptr;
       frame = frame->Parent().AsFrame()) {
    if (!frame->Visible()) return Obstacle::FrameHidden;
    if (frame->Behind()) return Obstacle::FrameBehind;
    if (!frame->Enabled()) return Obstacle::FrameDisabled;
  }
  return Obstacle::None;
}

void Control::NotifyChanged(Property property) const { OwnerForm().NotifyChanged(*this, property); }

bool Control::Dispatch(std::string_view event, const std::function<void()>& body) {
  return OwnerForm().Dispatch(name_ + "_" + std::string(event), body);
}

}  // namespace pactora::ui
