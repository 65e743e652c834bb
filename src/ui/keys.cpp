#include "ui/keys.h"

#include "platform/Text.h"

namespace pactora::ui {
namespace {

// Requires: character is one valid character.
std::int32_t CodeOf(std::string_view character) {
  constexpr std::uint32_t kLeadBits[] = {0x7F, 0x7F, 0x1F, 0x0F, 0x07};  // by length
  std::uint32_t code = static_cast<unsigned char>(character[0]) & kLeadBits[character.size()];
  for (const char byte : character.substr(1)) {
    code = code << 6 | (static_cast<unsigned char>(byte) & 0x3FU);
  }
  return static_cast<std::int32_t>(code);
}

}  // namespace

std::vector<std::int32_t> KeysOf(std::string_view text) {
  std::vector<std::int32_t> keys;
  while (!text.empty()) {
    const std::string_view character = platform::FirstCharacters(text, 1);
    text.remove_prefix(character.size());
    if (character == "\r" && text.starts_with('\n')) continue;
    if (character == "\n") {
      keys.push_back(kReturn);
    } else if (platform::IsValidUtf8(character)) {
      keys.push_back(CodeOf(character));
    }
  }
  return keys;
}

std::string CharacterOf(std::int32_t key) {
  if (key < 0x20 || key == 0x7F || key > 0x10FFFF || (key >= 0xD800 && key < 0xE000)) return {};
  const auto code = static_cast<std::uint32_t>(key);
  const auto trail = [code](int shift) {
    return static_cast<char>(0x80U | ((code >> shift) & 0x3FU));
  };
  if (code < 0x80) return {static_cast<char>(code)};
  if (code < 0x800) return {static_cast<char>(0xC0U | code >> 6), trail(0)};
  if (code < 0x10000) return {static_cast<char>(0xE0U | code >> 12), trail(6), trail(0)};
  return {static_cast<char>(0xF0U | code >> 18), trail(12), trail(6), trail(0)};
}

}  // namespace pactora::ui
