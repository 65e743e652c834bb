#include "ui/Form.h"

#include <algorithm>
#include <utility>

#include "platform/current_error.h"
#include "ui/Button.h"

namespace pactora::ui {
namespace {

Button* ButtonOfRole(const Form& form, Button::Role role) {
  for (Control* control : form.Controls()) {
    if (auto* button = dynamic_cast<Button*>(control); button && button->GetRole() == role) {
      return button;
    }
  }
  return nullptr;
}

class ValueGuard {
 public:
  ValueGuard(bool& target, bool value) : target_(target), before_(std::exchange(target, value)) {}
  ~ValueGuard() { target_ = before_; }
  ValueGuard(const ValueGuard&) = delete;
  ValueGuard& operator=(const ValueGuard&) = delete;

 private:
  bool& target_;
  const bool before_;
};

}  // namespace

Form::Form(std::string class_name)
    : Container(*this, nullptr), class_name_(std::move(class_name)) {}

void Form::SetCaption(std::string caption) {
  if (caption == caption_) return;
  caption_ = std::move(caption);
  for (FormObserver* observer : observers_) observer->CaptionChanged();
}

Control* Form::Find(std::string_view name) const {
  const auto found = std::ranges::find(controls_, name, &Control::Name);
  return found == controls_.end() ? nullptr : *found;
}

Button* Form::CancelButton() const { return ButtonOfRole(*this, Button::Role::Cancel); }
Button* Form::DefaultButton() const { return ButtonOfRole(*this, Button::Role::Default); }

void Form::Hide() {
  if (!visible_) return;
  visible_ = false;
  const std::vector<FormObserver*> observers = observers_;
  for (FormObserver* observer : observers) observer->Hidden();
}

void Form::BeginModal() {
  visible_ = true;
  const auto can_have_focus = [](const Control* control) {
    return control->TakesFocus() && control->Reach() == Obstacle::None;
  };
  if (focus_ == nullptr || !can_have_focus(focus_)) {
    const auto first = std::ranges::find_if(controls_, can_have_focus);
    MoveFocus(first == controls_.end() ? nullptr : *first, FocusCause::Person);
  }
  if (!Activate) return;
  const ValueGuard person_acts(person_acts_, true);
  Dispatch("Form_Activate", Activate);
}

void Form::EndModal() { Hide(); }

void Form::AddObserver(FormObserver& observer) { observers_.push_back(&observer); }

void Form::RemoveObserver(FormObserver& observer) { std::erase(observers_, &observer); }

bool Form::Dispatch(const std::string& procedure, const std::function<void()>& body) {
  if (!person_acts_) {
    body();
    return true;
  }
  const ValueGuard handler_runs(person_acts_, false);
  try {
    body();
    return true;
  } catch (...) {
    if (!OnError) throw;
    OnError(procedure, platform::CurrentError());
  }
  return false;
}

void Form::MoveFocus(Control* control, FocusCause cause) {
  if (control == focus_ && cause != FocusCause::Kept) return;
  focus_ = control;
  for (FormObserver* observer : observers_) observer->FocusChanged(control, cause);
}

void Form::NotifyChanged(const Control& control, Property property) const {
  for (FormObserver* observer : observers_) observer->ControlChanged(control, property);
}

}  // namespace pactora::ui
