#include "automation/formats/visible.h"

#include <fmt/format.h>

#include "platform/Locale.h"
#include "platform/Text.h"

namespace pactora::formats {

bool IsControl(std::uint32_t code) {
  const auto lies = [code](std::uint32_t first, std::uint32_t last) {
    return first <= code && code <= last;
  };
  return code < 0x20 || lies(0x7F, 0x9F) || code == 0x61C || lies(0x200E, 0x200F) ||
         lies(0x2028, 0x202E) || lies(0x2066, 0x2069);
}

std::string EscapeOf(std::uint32_t code) { return fmt::format("\\u{:04x}", code); }

std::string Visible(std::string_view text) {
  std::string shown;
  while (!text.empty()) {
    const std::string_view character = platform::FirstCharacters(text, 1);
    const auto code = platform::FirstCode(text);
    if (!code)
      shown += fmt::format("\\x{:02x}", static_cast<unsigned char>(text.front()));
    else if (IsControl(*code))
      shown += EscapeOf(*code);
    else
      shown += character;
    text.remove_prefix(character.size());
  }
  return shown;
}

std::string PlainCell(std::string_view text) {
  std::string cell = Visible(text);
  const std::string_view trimmed = platform::Trim(cell);
  const bool begins_formula =
      !trimmed.empty() && std::string_view("=+-@").find(trimmed.front()) != std::string_view::npos;
  const bool is_number = platform::ParseNumber(trimmed, platform::Locale{}).has_value();
  if (begins_formula && !is_number) cell.insert(cell.begin(), '\'');
  return cell;
}

}  // namespace pactora::formats
