#include "platform/Locale.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>

#include "platform/Error.h"
#include "platform/Text.h"

namespace pactora::platform {
namespace {

constexpr Locale kGerman{','};
constexpr Locale kPoint{'.'};

// Languages that write a decimal point, and the countries that differ from their
// language.
constexpr std::array<std::string_view, 24> kPointLanguages = {
    "am", "bn", "cy", "en", "ga", "gu", "he", "hi", "ja", "km", "kn", "ko",
    "ml", "mr", "ms", "mt", "my", "ne", "pa", "sw", "ta", "te", "th", "zh"};
constexpr std::array<std::string_view, 15> kPointCountries = {
    "de_CH", "de_LI", "es_DO", "es_GT", "es_HN",  "es_MX", "es_NI", "es_PA",
    "es_PE", "es_PR", "es_SV", "es_US", "gsw_CH", "it_CH", "rm_CH"};
constexpr std::array<std::string_view, 2> kCommaCountries = {"en_DK", "en_ZA"};

template <std::size_t kSize>
bool Holds(const std::array<std::string_view, kSize>& list, std::string_view name) {
  return std::find(list.begin(), list.end(), name) != list.end();
}

// Longest finite double without exponent: a sign, 309 digits; smallest: "0." and
// 1074 digits at most, of which the shortest form has far fewer.
constexpr std::size_t kPlainSize = 400;

void RequireFinite(double value) {
  if (!std::isfinite(value)) Raise(RuntimeError::Overflow);
}

// The significant digits of a number's shortest decimal text: 0.digits times ten
// to the power of point.
struct Decimal {
  std::array<char, 20> digits{};
  std::size_t count = 0;
  std::int32_t point = 0;
};

Decimal ShortestDecimal(double magnitude) {
  std::array<char, 32> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude,
                                 std::chars_format::scientific);
  const std::string_view text(buffer.data(), static_cast<std::size_t>(end.ptr - buffer.data()));
  const std::size_t e = text.find('e');
  Decimal decimal;
  for (const char c : text.substr(0, e)) {
    if (c != '.') decimal.digits[decimal.count++] = c;
  }
  const std::size_t exponent = e + (text[e + 1] == '+' ? 2 : 1);
  std::from_chars(text.data() + exponent, text.data() + text.size(), decimal.point);
  ++decimal.point;
  return decimal;
}

// Adds one to a decimal numeral; "99" becomes "100".
void Increment(std::string& numeral) {
  for (std::size_t i = numeral.size(); i-- > 0;) {
    if (numeral[i] != '9') {
      ++numeral[i];
      return;
    }
    numeral[i] = '0';
  }
  numeral.insert(numeral.begin(), '1');
}

}  // namespace

Locale NamedLocale(std::string_view name) {
  name = name.substr(0, name.find_first_of(".@"));
  if (Holds(kPointCountries, name)) return kPoint;
  if (Holds(kCommaCountries, name)) return kGerman;
  return Holds(kPointLanguages, name.substr(0, name.find('_'))) ? kPoint : kGerman;
}

Locale SystemLocale() {
  for (const char* variable : {"LC_ALL", "LC_NUMERIC", "LANG"}) {
    const char* name = std::getenv(variable);
    if (name != nullptr && *name != '\0') return NamedLocale(name);
  }
  return kGerman;
}

std::string FormatFixed(double value, const Locale& locale) {
  RequireFinite(value);
  const Decimal decimal = ShortestDecimal(std::abs(value));
  // The digits up to the second decimal, as one whole number of hundredths.
  const std::int32_t kept = decimal.point + 2;
  std::string hundredths;
  for (std::int32_t i = 0; i < kept; ++i) {
    const auto position = static_cast<std::size_t>(i);
    hundredths.push_back(position < decimal.count ? decimal.digits[position] : '0');
  }
  if (kept >= 0 && static_cast<std::size_t>(kept) < decimal.count &&
      decimal.digits[static_cast<std::size_t>(kept)] >= '5') {
    Increment(hundredths);
  }
  if (hundredths.size() < 3) hundredths.insert(0, 3 - hundredths.size(), '0');
  const bool zero = hundredths.find_first_not_of('0') == std::string::npos;
  hundredths.insert(hundredths.end() - 2, locale.decimal_separator);
  if (value < 0 && !zero) hundredths.insert(hundredths.begin(), '-');
  return hundredths;
}

std::string FormatPlain(double value, const Locale& locale) {
  RequireFinite(value);
  std::array<char, kPlainSize> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(),
                                 value == 0.0 ? 0.0 : value, std::chars_format::fixed);
  std::string text(buffer.data(), end.ptr);
  std::replace(text.begin(), text.end(), '.', locale.decimal_separator);
  return text;
}

std::optional<double> ParseNumber(std::string_view text, const Locale& locale) {
  text = Trim(text);
  bool negative = false;
  if (!text.empty() && (text.front() == '-' || text.front() == '+')) {
    negative = text.front() == '-';
    text.remove_prefix(1);
  }
  std::string numeral;
  numeral.reserve(text.size());
  bool has_digit = false;
  bool has_separator = false;
  bool whole_part_is_zero = true;
  for (const char c : text) {
    if (c >= '0' && c <= '9') {
      has_digit = true;
      if (!has_separator && c != '0') whole_part_is_zero = false;
      numeral.push_back(c);
    } else if (c == locale.decimal_separator && !has_separator) {
      has_separator = true;
      numeral.push_back('.');
    } else {
      return std::nullopt;
    }
  }
  if (!has_digit) return std::nullopt;
  double number = 0.0;
  const auto read = std::from_chars(numeral.data(), numeral.data() + numeral.size(), number);
  if (read.ec == std::errc::result_out_of_range) {
    if (!whole_part_is_zero) return std::nullopt;
    number = 0.0;  // too small to tell from nothing
  }
  return negative ? -number : number;
}

}  // namespace pactora::platform
