// Numbers in boxes and list columns, where everything is text.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "host/Value.h"
#include "platform/Locale.h"

namespace pactora::definitions {

// The number that a text shows. Raises error 13 for a text that is none.
double NumberOf(const std::string& text, const platform::Locale& locale);

// Likewise for a column that a field which was never written left empty: 0.
double NumberOrZero(const std::string& text, const platform::Locale& locale);

// The whole number of a text of digits, blanks around it allowed. Raises error 13
// for any other text and error 6 for a number beyond 32 bits.
std::int32_t WholeNumberOf(const std::string& text);

// A stored value as text: a number as its shortest decimal text, the empty value
// as the empty text.
std::string PlainText(const host::Value& value, const platform::Locale& locale);

// The product of the numbers between the "*" of a text, a single number included;
// none when one of them is no number.
std::optional<double> ProductOf(const std::string& text, const platform::Locale& locale);

}  // namespace pactora::definitions
