// Keys as text boxes see them: the code of the character, 8 for backspace, 13 for
// the return key.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace pactora::ui {

inline constexpr std::int32_t kBackspace = 8;
inline constexpr std::int32_t kReturn = 13;
// What the return key writes into a box with several lines.
inline constexpr std::string_view kLineBreak = "\r\n";

// The keys that type a text; a line break (LF or CR LF) is the return key. A byte
// that is no valid UTF-8 types nothing.
std::vector<std::int32_t> KeysOf(std::string_view text);
// The character that a key types; empty for a code that is no printing character.
std::string CharacterOf(std::int32_t key);

}  // namespace pactora::ui
