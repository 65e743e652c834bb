#include "dialogs/typed_date.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/Text.h"

namespace pactora::dialogs {
namespace {

constexpr std::int32_t kFirstShortYear = 50;  // of the last century
constexpr std::size_t kMostDigits = 8;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsSeparator(char c) { return std::string_view(".,/- ").find(c) != std::string_view::npos; }

// The groups of digits, with exactly one separator between two of them and at most
// one point at the end; none for anything else.
std::vector<std::string> Groups(std::string_view text) {
  std::vector<std::string> groups(1);
  for (const char c : text) {
    if (IsDigit(c)) {
      groups.back() += c;
    } else if (IsSeparator(c) && !groups.back().empty()) {
      groups.emplace_back();
    } else {
      return {};
    }
  }
  if (groups.back().empty()) groups.pop_back();
  const bool long_group = std::any_of(groups.begin(), groups.end(),
                                      [](const auto& g) { return g.size() > kMostDigits; });
  return long_group ? std::vector<std::string>() : groups;
}

std::optional<std::int32_t> YearOf(const std::string& digits) {
  const std::int32_t year = std::stoi(digits);
  if (digits.size() == 4) return year;
  if (digits.size() == 2) return year < kFirstShortYear ? 2000 + year : 1900 + year;
  return std::nullopt;
}

}  // namespace

std::optional<platform::Date> ReadTypedDate(std::string_view text, platform::Date shown) {
  std::vector<std::string> groups = Groups(platform::Trim(text));
  if (groups.size() == 1 && (groups[0].size() == 8 || groups[0].size() == 6)) {
    const std::string all = groups[0];
    groups = {all.substr(0, 2), all.substr(2, 2), all.substr(4)};
  }
  if (groups.size() == 3 && groups[0].size() == 4) std::swap(groups[0], groups[2]);
  if (groups.size() == 2) groups.push_back(platform::FormatDate(shown, "yyyy"));
  if (groups.size() != 3 || groups[0].size() > 2 || groups[1].size() > 2) return std::nullopt;
  const auto year = YearOf(groups[2]);
  if (!year) return std::nullopt;
  const platform::CivilDate civil{*year, std::stoi(groups[1]), std::stoi(groups[0])};
  if (!platform::IsValid(civil)) return std::nullopt;
  return platform::FromCivil(civil.year, civil.month, civil.day);
}

}  // namespace pactora::dialogs
