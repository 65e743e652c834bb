// Dialogs of the add-on as windows of the system.
#pragma once

#include <windows.h>

#include "ui/Form.h"

namespace pactora::win32 {

// Shows the form above the owner, which may be null, and returns when it was hidden.
void ShowDialog(ui::Form& form, HWND owner);

}  // namespace pactora::win32
