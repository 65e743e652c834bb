// Pictures of windows.
#pragma once

#include <windows.h>

#include <string>

namespace pactora::win32 {

// Writes what the screen shows of the window as PNG. Raises std::runtime_error.
void TakePicture(HWND window, const std::wstring& path);

}  // namespace pactora::win32
