// Texts of the dialogs (UTF-8) as texts of Windows (UTF-16).
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "component/com/text.h"

namespace pactora::win32 {

using component::Narrow;
using component::Wide;

// In the code page of the system, for functions that take no others.
std::string Ansi(std::string_view text);

std::wstring TextOf(HWND window);

}  // namespace pactora::win32
