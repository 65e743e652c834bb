// Texts of the add-on (UTF-8) as texts of Windows (UTF-16).
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <string>
#include <string_view>

namespace pactora::component {

// A text keeps its length, characters of number 0 included; what is no valid text
// becomes the replacement character.
std::wstring Wide(std::string_view text);
std::string Narrow(std::wstring_view text);
// Null is the empty text.
std::string Narrow(BSTR text);

// A text for whoever frees it. Raises std::bad_alloc.
BSTR MakeText(std::wstring_view text);
inline BSTR MakeText(std::string_view text) { return MakeText(Wide(text)); }

}  // namespace pactora::component
