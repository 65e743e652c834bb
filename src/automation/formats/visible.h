// Text of others where it must not act: on a terminal, in a spreadsheet.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace pactora::formats {

// Whether the character acts instead of being seen: the control characters, and those that
// break lines or turn the direction of the text around them.
bool IsControl(std::uint32_t code);

// "\u202e", as in JSON. Requires: IsControl(code).
std::string EscapeOf(std::uint32_t code);

// The text with the escape of each control character in its place, and "\xff" for a byte
// that is no valid UTF-8.
std::string Visible(std::string_view text);

// Visible, and with an apostrophe before what a spreadsheet would take for a formula.
std::string PlainCell(std::string_view text);

}  // namespace pactora::formats
