#include "definitions/number_text.h"

#include <charconv>
#include <string_view>
#include <system_error>

#include "platform/Error.h"
#include "platform/Text.h"

namespace pactora::definitions {

using platform::Locale;
using platform::Raise;
using platform::RuntimeError;

double NumberOf(const std::string& text, const Locale& locale) {
  const std::optional<double> number = platform::ParseNumber(text, locale);
  if (!number) Raise(RuntimeError::TypeMismatch);
  return *number;
}

double NumberOrZero(const std::string& text, const Locale& locale) {
  return text.empty() ? 0.0 : NumberOf(text, locale);
}

std::int32_t WholeNumberOf(const std::string& text) {
  const std::string_view digits = platform::Trim(text);
  if (digits.empty() || digits.find_first_not_of("0123456789") != std::string_view::npos) {
    Raise(RuntimeError::TypeMismatch);
  }
  std::int32_t number = 0;
  const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (result.ec == std::errc::result_out_of_range) Raise(RuntimeError::Overflow);
  return number;
}

std::string PlainText(const host::Value& value, const Locale& locale) {
  switch (value.GetKind()) {
    case host::Kind::Integer:
    case host::Kind::Long:
    case host::Kind::Double:
      return platform::FormatPlain(host::ToDouble(value), locale);
    default:
      return host::ToText(value);
  }
}

std::optional<double> ProductOf(const std::string& text, const Locale& locale) {
  double product = 1.0;
  std::size_t begin = 0;
  while (true) {
    const std::size_t end = text.find('*', begin);
    const std::optional<double> factor =
        platform::ParseNumber(std::string_view(text).substr(begin, end - begin), locale);
    if (!factor) return std::nullopt;
    product *= *factor;
    if (end == std::string::npos) return product;
    begin = end + 1;
  }
}

}  // namespace pactora::definitions
