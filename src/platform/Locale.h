// How numbers are written for and read from the user.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace pactora::platform {

// The part of the user's locale that the system depends on. The default is the
// German one; a value object, copied freely.
struct Locale {
  char decimal_separator = ',';
};

// "Fixed": at least one digit before the decimal separator, exactly two after
// it, no thousands separators. Halves of the number's shortest decimal text are
// rounded away from zero: 0.125 gives "0,13". What rounds to zero has no sign.
// Raises error 6 for a number that is not finite.
std::string FormatFixed(double value, const Locale& locale);

// The shortest decimal text that reads back to the same number, with the
// locale's separator and no exponent. Zero has no sign.
// Raises error 6 for a number that is not finite.
std::string FormatPlain(double value, const Locale& locale);

// Reads an optional sign, at least one digit and at most one decimal separator
// before, among or after the digits, blanks around it allowed. Nothing else is a
// number, thousands separators and exponents included, nor is a text whose
// number is too large for a double.
std::optional<double> ParseNumber(std::string_view text, const Locale& locale);

}  // namespace pactora::platform
