// Fields of a table's current row by name.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "host/HostTable.h"
#include "platform/Date.h"

namespace pactora::newcontract {

inline void Set(host::HostTable& row, std::string_view name, const host::Value& value) {
  row.Fields().Item(name).SetValue(value);
}

// What a date field is given; the host takes the whole number 0 for "no date".
inline host::Value DateOrNone(platform::Date date) {
  if (date == platform::kNoDate) return std::int16_t{0};
  return date;
}

inline host::Value Get(host::HostTable& row, std::string_view name) {
  return row.Fields().Item(name).Value();
}

inline std::string GetText(host::HostTable& row, std::string_view name) {
  return host::ToText(Get(row, name));
}

}  // namespace pactora::newcontract
