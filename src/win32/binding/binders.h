// The binder of each kind of control.
#pragma once

#include <memory>

#include "ui/controls.h"
#include "win32/binding/Binder.h"

namespace pactora::win32 {

using BinderPtr = std::unique_ptr<Binder>;

// Each makes the window of the control as a child of parent. Door and control must outlive
// the binder.
BinderPtr BindTextBox(ui::TextBox& box, PersonDoor& door, HWND parent, const Look& look);
BinderPtr BindComboBox(ui::ComboBox& box, PersonDoor& door, HWND parent);
BinderPtr BindListBox(ui::ListBox& box, PersonDoor& door, HWND parent);
BinderPtr BindListView(ui::ListView& view, PersonDoor& door, HWND parent);
BinderPtr BindOptionButton(ui::OptionButton& option, PersonDoor& door, HWND parent);
BinderPtr BindCheckBox(ui::CheckBox& box, PersonDoor& door, HWND parent);
BinderPtr BindDatePicker(ui::DTPicker& picker, PersonDoor& door, HWND parent);
BinderPtr BindLabel(ui::Label& label, PersonDoor& door, HWND parent, const Look& look);
BinderPtr BindFrame(ui::Frame& frame, PersonDoor& door, HWND parent, const Look& look);
BinderPtr BindButton(ui::Button& button, PersonDoor& door, HWND parent);

// The one for the control's kind. The window shows what the control holds, and has a property
// of the control's name, by which programs find it.
BinderPtr Bind(ui::Control& control, PersonDoor& door, HWND parent, const Look& look);

}  // namespace pactora::win32
