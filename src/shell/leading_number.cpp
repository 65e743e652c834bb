#include "shell/leading_number.h"

#include <charconv>

namespace pactora::shell {

namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

}  // namespace

double LeadingNumber(std::string_view text) {
  while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
  bool negative = false;
  if (!text.empty() && (text.front() == '-' || text.front() == '+')) {
    negative = text.front() == '-';
    text.remove_prefix(1);
  }
  // What from_chars takes beyond this, such as "inf", is no number here.
  const bool starts_with_digit = !text.empty() && IsDigit(text.front());
  const bool starts_with_point = text.size() > 1 && text[0] == '.' && IsDigit(text[1]);
  if (!starts_with_digit && !starts_with_point) return 0.0;
  double number = 0.0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return negative ? -number : number;
}

}  // namespace pactora::shell
