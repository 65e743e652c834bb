#include "win32/binding/binders.h"

#include "win32/text.h"

namespace pactora::win32 {
namespace {

template <typename T>
T& As(ui::Control& control) {
  return dynamic_cast<T&>(control);
}

BinderPtr Make(ui::Control& control, PersonDoor& door, HWND parent, const Look& look) {
  switch (control.Kind()) {
    case ui::ControlKind::TextBox:
      return BindTextBox(As<ui::TextBox>(control), door, parent, look);
    case ui::ControlKind::ComboBox:
      return BindComboBox(As<ui::ComboBox>(control), door, parent);
    case ui::ControlKind::ListBox:
      return BindListBox(As<ui::ListBox>(control), door, parent);
    case ui::ControlKind::ListView:
      return BindListView(As<ui::ListView>(control), door, parent);
    case ui::ControlKind::OptionButton:
      return BindOptionButton(As<ui::OptionButton>(control), door, parent);
    case ui::ControlKind::CheckBox:
      return BindCheckBox(As<ui::CheckBox>(control), door, parent);
    case ui::ControlKind::DTPicker:
      return BindDatePicker(As<ui::DTPicker>(control), door, parent);
    case ui::ControlKind::Label:
      return BindLabel(As<ui::Label>(control), door, parent, look);
    case ui::ControlKind::Frame:
      return BindFrame(As<ui::Frame>(control), door, parent, look);
    case ui::ControlKind::Button:
      break;
  }
  return BindButton(As<ui::Button>(control), door, parent);
}

}  // namespace

BinderPtr Bind(ui::Control& control, PersonDoor& door, HWND parent, const Look& look) {
  BinderPtr binder = Make(control, door, parent, look);
  SetPropW(binder->Window(), Wide(control.Name()).c_str(), binder->Window());
  binder->ShowFont();
  binder->ShowAll();
  return binder;
}

}  // namespace pactora::win32
