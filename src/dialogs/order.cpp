#include "dialogs/order.h"

#include <algorithm>

#include "ui/OptionButton.h"

namespace pactora::dialogs {
namespace {

// One tab stop stands for all options that exclude each other: the chosen one.
bool ChosenElsewhere(const ui::Control& control) {
  const auto* option = dynamic_cast<const ui::OptionButton*>(&control);
  if (!option || option->Value()) return false;
  return std::ranges::any_of(control.Parent().Children(), [](const ui::Control* sibling) {
    const auto* other = dynamic_cast<const ui::OptionButton*>(sibling);
    return other && other->Value() && other->Reach() == ui::Obstacle::None;
  });
}

bool TakesLabel(const ui::Control& control) {
  switch (control.Kind()) {
    case ui::ControlKind::TextBox:
    case ui::ControlKind::ComboBox:
    case ui::ControlKind::ListBox:
    case ui::ControlKind::ListView:
    case ui::ControlKind::DTPicker:
      return true;
    default:
      return false;
  }
}

}  // namespace

ui::Control* NextStop(const ui::Form& form, bool forward) {
  const std::vector<ui::Control*>& controls = form.Controls();
  const auto count = static_cast<std::ptrdiff_t>(controls.size());
  const auto found = std::ranges::find(controls, form.Focus());
  std::ptrdiff_t place = found == controls.end() ? (forward ? -1 : 0) : found - controls.begin();
  for (std::ptrdiff_t i = 0; i < count; ++i) {
    place = (place + (forward ? 1 : count - 1)) % count;
    ui::Control* control = controls[static_cast<std::size_t>(place)];
    if (control->TakesFocus() && control->Reach() == ui::Obstacle::None &&
        !ChosenElsewhere(*control)) {
      return control;
    }
  }
  return nullptr;
}

const ui::Control* LabelledBy(const ui::Label& label) {
  const std::vector<ui::Control*>& controls = label.OwnerForm().Controls();
  const auto next = std::ranges::find(controls, &label) + 1;
  if (next == controls.end() || &(*next)->Parent() != &label.Parent()) return nullptr;
  return TakesLabel(**next) ? *next : nullptr;
}

const ui::Label* LabelOf(const ui::Control& control) {
  const std::vector<ui::Control*>& controls = control.OwnerForm().Controls();
  const auto found = std::ranges::find(controls, &control);
  if (found == controls.begin()) return nullptr;
  const auto* label = dynamic_cast<const ui::Label*>(*(found - 1));
  return label && LabelledBy(*label) ? label : nullptr;
}

}  // namespace pactora::dialogs
