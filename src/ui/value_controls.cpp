#include <utility>

#include "platform/Error.h"
#include "ui/Button.h"
#include "ui/CheckBox.h"
#include "ui/DTPicker.h"
#include "ui/Frame.h"
#include "ui/Label.h"
#include "ui/ListBox.h"
#include "ui/OptionButton.h"

namespace pactora::ui {
namespace {

// False when the value is there already.
template <typename T>
bool Assign(T& target, T value) {
  if (target == value) return false;
  target = std::move(value);
  return true;
}

}  // namespace

void ListBox::SetBackColor(std::uint32_t back_color) {
  if (Assign(back_color_, back_color)) NotifyChanged(Property::BackColor);
}

void OptionButton::SetCaption(std::string caption) {
  if (Assign(caption_, std::move(caption))) NotifyChanged(Property::Caption);
}

void OptionButton::SetValue(bool value) {
  if (!Assign(value_, value)) return;
  NotifyChanged(Property::Value);
  if (!value) return;
  for (Control* sibling : Parent().Children()) {
    auto* option = dynamic_cast<OptionButton*>(sibling);
    if (option && option != this) option->SetValue(false);
  }
  Raise(Click, "Click");
}

void CheckBox::SetCaption(std::string caption) {
  if (Assign(caption_, std::move(caption))) NotifyChanged(Property::Caption);
}

void CheckBox::SetValue(std::int32_t value) {
  if (value != kUnchecked && value != kChecked) {
    platform::Raise(platform::RuntimeError::InvalidArgument);
  }
  if (!Assign(value_, value)) return;
  NotifyChanged(Property::Value);
  Raise(Click, "Click");
}

platform::Date DTPicker::Value() const {
  if (!ticked_) platform::Raise(platform::RuntimeError::TypeMismatch);
  return date_;
}

void DTPicker::SetValue(platform::Date date) {
  const platform::Date day{static_cast<double>(platform::WholeDay(date))};
  if (ticked_ && day == date_) return;
  date_ = day;
  ticked_ = true;
  NotifyChanged(Property::Value);
  Raise(Change, "Change");
}

void DTPicker::SetNull() {
  if (!HasCheckBox()) platform::Raise(platform::RuntimeError::InvalidArgument);
  if (!Assign(ticked_, false)) return;
  NotifyChanged(Property::Value);
  Raise(Change, "Change");
}

void Label::SetCaption(std::string caption) {
  if (Assign(caption_, std::move(caption))) NotifyChanged(Property::Caption);
}

void Label::SetBold(bool bold) {
  if (Assign(bold_, bold)) NotifyChanged(Property::Bold);
}

void Button::SetCaption(std::string caption) {
  if (Assign(caption_, std::move(caption))) NotifyChanged(Property::Caption);
}

void Frame::SetCaption(std::string caption) {
  if (Assign(caption_, std::move(caption))) NotifyChanged(Property::Caption);
}

void Frame::LieOver(Frame& behind) {
  overlapping_.push_back(&behind);
  behind.overlapping_.push_back(this);
  BringToFront();
}

void Frame::BringToFront() {
  for (Frame* frame : overlapping_) frame->SetBehind(true);
  SetBehind(false);
}

void Frame::SetBehind(bool behind) {
  if (Assign(behind_, behind)) NotifyChanged(Property::Order);
}

}  // namespace pactora::ui
