#include "platform/Locale.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

#include "platform/Error.h"
#include "platform/Text.h"

namespace pactora::platform {
namespace {

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
