#include "platform/Text.h"

#include <algorithm>
#include <span>

#include "platform/case_tables.h"

namespace pactora::platform {
namespace {

// An invalid byte reads as a character of its own beyond Unicode's last one.
constexpr std::uint32_t kInvalidBase = 0x110000;

struct Character {
  std::uint32_t code = 0;
  std::size_t bytes = 1;
};

constexpr bool IsAscii(char byte) { return static_cast<unsigned char>(byte) < 0x80; }

constexpr char UpperAscii(char byte) {
  return byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - ('a' - 'A')) : byte;
}

constexpr char LowerAscii(char byte) {
  return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + ('a' - 'A')) : byte;
}

// The character at the start of a text that is not empty. Overlong forms,
// surrogates and numbers beyond U+10FFFF are invalid.
Character Decode(std::string_view text) {
  const auto byte = [&](std::size_t i) {
    return static_cast<std::uint32_t>(static_cast<unsigned char>(text[i]));
  };
  const std::uint32_t lead = byte(0);
  if (lead < 0x80) return {lead, 1};
  std::size_t bytes = 0;
  std::uint32_t code = 0;
  std::uint32_t smallest = 0;
  if (lead >= 0xC2 && lead < 0xE0) {
    bytes = 2, code = lead & 0x1F, smallest = 0x80;
  } else if (lead >= 0xE0 && lead < 0xF0) {
    bytes = 3, code = lead & 0x0F, smallest = 0x800;
  } else if (lead >= 0xF0 && lead < 0xF5) {
    bytes = 4, code = lead & 0x07, smallest = 0x10000;
  }
  const Character invalid{kInvalidBase + lead, 1};
  if (bytes == 0 || text.size() < bytes) return invalid;
  for (std::size_t i = 1; i < bytes; ++i) {
    if ((byte(i) & 0xC0) != 0x80) return invalid;
    code = code << 6 | (byte(i) & 0x3F);
  }
  const bool surrogate = code >= 0xD800 && code < 0xE000;
  if (code < smallest || surrogate || code >= kInvalidBase) return invalid;
  return {code, bytes};
}

std::uint32_t Map(std::uint32_t code, std::span<const CaseRange> ranges) {
  const auto range = std::lower_bound(
      ranges.begin(), ranges.end(), code,
      [](const CaseRange& candidate, std::uint32_t wanted) { return candidate.last < wanted; });
  if (range == ranges.end() || code < range->first || (code - range->first) % range->step != 0) {
    return code;
  }
  return static_cast<std::uint32_t>(static_cast<std::int64_t>(code) + range->delta);
}

template <char (*kMapAscii)(char)>
void AppendMapped(std::string& out, std::string_view text, std::span<const CaseRange> ranges) {
  out.reserve(out.size() + text.size());
  while (!text.empty()) {
    const auto run_end = std::find_if_not(text.begin(), text.end(), IsAscii);
    const auto run = static_cast<std::size_t>(run_end - text.begin());
    const std::size_t start = out.size();
    out.append(text.substr(0, run));
    for (std::size_t i = start; i < out.size(); ++i) out[i] = kMapAscii(out[i]);
    text.remove_prefix(run);
    if (text.empty()) break;
    const Character character = Decode(text);
    const std::uint32_t mapped = Map(character.code, ranges);
    if (mapped == character.code) {
      out.append(text.substr(0, character.bytes));
    } else {
      AppendCharacter(out, mapped);
    }
    text.remove_prefix(character.bytes);
  }
}

// The upper-case character at the start of a text, which is then cut off.
std::uint32_t TakeUpper(std::string_view& text) {
  const Character character = Decode(text);
  text.remove_prefix(character.bytes);
  if (character.code < 0x80) {
    return static_cast<std::uint32_t>(UpperAscii(static_cast<char>(character.code)));
  }
  return Map(character.code, kUpperRanges);
}

constexpr std::string_view kBlanks = " \t\r\n\v\f";

}  // namespace

std::size_t Length(std::string_view text) {
  std::size_t length = 0;
  while (!text.empty()) {
    text.remove_prefix(IsAscii(text.front()) ? 1 : Decode(text).bytes);
    ++length;
  }
  return length;
}

bool IsValidUtf8(std::string_view text) {
  while (!text.empty()) {
    const Character character = Decode(text);
    if (character.code >= kInvalidBase) return false;
    text.remove_prefix(character.bytes);
  }
  return true;
}

std::optional<std::uint32_t> FirstCode(std::string_view text) {
  const std::uint32_t code = Decode(text).code;
  return code < kInvalidBase ? std::optional(code) : std::nullopt;
}

void AppendCharacter(std::string& out, std::uint32_t code) {
  const auto put = [&](std::uint32_t byte) { out.push_back(static_cast<char>(byte)); };
  const auto tail = [&](unsigned shift) { put(0x80 | (code >> shift & 0x3F)); };
  if (code < 0x80) {
    put(code);
  } else if (code < 0x800) {
    put(0xC0 | code >> 6);
    tail(0);
  } else if (code < 0x10000) {
    put(0xE0 | code >> 12);
    tail(6);
    tail(0);
  } else {
    put(0xF0 | code >> 18);
    tail(12);
    tail(6);
    tail(0);
  }
}

std::string_view FirstCharacters(std::string_view text, std::size_t count) {
  std::string_view rest = text;
  for (; count > 0 && !rest.empty(); --count) rest.remove_prefix(Decode(rest).bytes);
  return text.substr(0, text.size() - rest.size());
}

std::string_view LastCharacters(std::string_view text, std::size_t count) {
  if (text.size() <= count) return text;
  const std::size_t length = Length(text);
  if (length <= count) return text;
  return text.substr(FirstCharacters(text, length - count).size());
}

void AppendUpperCase(std::string& out, std::string_view text) {
  AppendMapped<UpperAscii>(out, text, kUpperRanges);
}

std::string UpperCase(std::string_view text) {
  std::string upper;
  AppendUpperCase(upper, text);
  return upper;
}

std::string LowerCase(std::string_view text) {
  std::string lower;
  AppendMapped<LowerAscii>(lower, text, kLowerRanges);
  return lower;
}

bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
  const std::size_t shorter = std::min(a.size(), b.size());
  std::size_t run = 0;
  while (run < shorter && IsAscii(a[run]) && IsAscii(b[run])) {
    if (UpperAscii(a[run]) != UpperAscii(b[run])) return false;
    ++run;
  }
  a.remove_prefix(run);
  b.remove_prefix(run);
  while (!a.empty() && !b.empty()) {
    if (TakeUpper(a) != TakeUpper(b)) return false;
  }
  return a.empty() && b.empty();
}

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

}  // namespace pactora::platform
