#include "ui/keys.h"

#include <optional>

#include "platform/Text.h"

namespace pactora::ui {

std::vector<std::int32_t> KeysOf(std::string_view text) {
  std::vector<std::int32_t> keys;
  while (!text.empty()) {
    const std::optional<std::uint32_t> code = platform::FirstCode(text);
    text.remove_prefix(platform::FirstCharacters(text, 1).size());
    if (!code || (*code == U'\r' && text.starts_with('\n'))) continue;
    keys.push_back(*code == U'\n' ? kReturn : static_cast<std::int32_t>(*code));
  }
  return keys;
}

std::string CharacterOf(std::int32_t key) {
  if (key < 0x20 || key == 0x7F || key > 0x10FFFF || (key >= 0xD800 && key < 0xE000)) return {};
  std::string character;
  platform::AppendCharacter(character, static_cast<std::uint32_t>(key));
  return character;
}

}  // namespace pactora::ui
