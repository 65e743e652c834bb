// Text is UTF-8; lengths, cuts and case are about characters, not bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace pactora::platform {

// Number of characters. A byte that is no valid UTF-8 counts as one character.
std::size_t Length(std::string_view text);
bool IsValidUtf8(std::string_view text);

// The number of the first character; none for a byte that is no valid UTF-8.
// Requires: the text is not empty.
std::optional<std::uint32_t> FirstCode(std::string_view text);
// Requires: code is the number of a character, thus no surrogate.
void AppendCharacter(std::string& out, std::uint32_t code);

// The first or last count characters, or all of a shorter text.
std::string_view FirstCharacters(std::string_view text, std::size_t count);
std::string_view LastCharacters(std::string_view text, std::size_t count);

// Unicode's simple case mapping, one character to one: "ß" stays "ß", and a byte
// that is no valid UTF-8 stays what it is.
std::string UpperCase(std::string_view text);
std::string LowerCase(std::string_view text);
// Appends UpperCase(text) to out.
void AppendUpperCase(std::string& out, std::string_view text);

// Without regard to case: equal when the upper-cased texts are equal.
bool EqualsIgnoringCase(std::string_view a, std::string_view b);

// Without blanks at both ends: spaces, tabs and line breaks.
std::string_view Trim(std::string_view text);

}  // namespace pactora::platform
