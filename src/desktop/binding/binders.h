// The binder of each kind of control.
#pragma once

#include <memory>

#include "desktop/binding/Binder.h"
#include "ui/controls.h"

namespace pactora::desktop {

using BinderPtr = std::unique_ptr<Binder>;

// Each makes the widget, with the control's name, as a child of parent; the widget
// shows what the control holds. Door and control must outlive the binder.
BinderPtr BindTextBox(ui::TextBox& box, PersonDoor& door, QWidget& parent);
BinderPtr BindMemo(ui::TextBox& box, PersonDoor& door, QWidget& parent);  // several lines
BinderPtr BindComboBox(ui::ComboBox& box, PersonDoor& door, QWidget& parent);
BinderPtr BindListBox(ui::ListBox& box, PersonDoor& door, QWidget& parent);
BinderPtr BindListView(ui::ListView& view, PersonDoor& door, QWidget& parent);
BinderPtr BindOptionButton(ui::OptionButton& option, PersonDoor& door, QWidget& parent);
BinderPtr BindCheckBox(ui::CheckBox& box, PersonDoor& door, QWidget& parent);
BinderPtr BindDatePicker(ui::DTPicker& picker, PersonDoor& door, QWidget& parent);
BinderPtr BindLabel(ui::Label& label, PersonDoor& door, QWidget& parent);
BinderPtr BindFrame(ui::Frame& frame, PersonDoor& door, QWidget& parent);
BinderPtr BindButton(ui::Button& button, PersonDoor& door, QWidget& parent);

// The one for the control's kind.
BinderPtr Bind(ui::Control& control, PersonDoor& door, QWidget& parent);

}  // namespace pactora::desktop
