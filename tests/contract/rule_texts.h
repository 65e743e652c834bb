// Dates of the rules as texts that a failure can be read by.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/Date.h"

namespace pactora::contract {

// From "dd.MM.yyyy".
inline platform::Date Day(std::string_view text) {
  const auto number = [&](std::size_t from, std::size_t count) {
    return std::stoi(std::string(text.substr(from, count)));
  };
  return platform::FromCivil(number(6, 4), number(3, 2), number(0, 2));
}

inline std::string Text(platform::Date date) {
  return date == platform::kNoInvoiceDate ? "none" : FormatDate(date, platform::kGermanPattern);
}

}  // namespace pactora::contract
