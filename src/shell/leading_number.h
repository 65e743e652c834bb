// Numbers at the start of a text that may go on with something else.
#pragma once

#include <string_view>

namespace pactora::shell {

// The number that the text begins with: blanks before it, a sign, digits with at
// most one decimal point, an exponent. 0 for a text that begins with none.
double LeadingNumber(std::string_view text);

}  // namespace pactora::shell
