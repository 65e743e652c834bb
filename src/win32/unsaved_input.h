// The question before a dialog is left with what was entered in it.
#pragma once

#include <windows.h>

namespace pactora::win32 {

// Asks above the dialog; true when the input may go.
bool MayDiscardInput(HWND dialog);

}  // namespace pactora::win32
