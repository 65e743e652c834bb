#include "desktop/binding/binders.h"

namespace pactora::desktop {
namespace {

template <typename T>
T& As(ui::Control& control) {
  return dynamic_cast<T&>(control);
}

BinderPtr Make(ui::Control& control, PersonDoor& door, QWidget& parent) {
  switch (control.Kind()) {
    case ui::ControlKind::TextBox: {
      auto& box = As<ui::TextBox>(control);
      return box.MultiLine() ? BindMemo(box, door, parent) : BindTextBox(box, door, parent);
    }
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
      return BindLabel(As<ui::Label>(control), door, parent);
    case ui::ControlKind::Frame:
      return BindFrame(As<ui::Frame>(control), door, parent);
    case ui::ControlKind::Button:
      break;
  }
  return BindButton(As<ui::Button>(control), door, parent);
}

}  // namespace

BinderPtr Bind(ui::Control& control, PersonDoor& door, QWidget& parent) {
  BinderPtr binder = Make(control, door, parent);
  binder->Widget().setObjectName(QString::fromStdString(control.Name()));
  binder->ShowAll();
  return binder;
}

}  // namespace pactora::desktop
