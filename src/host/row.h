// Fields of a table's current row by name.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "host/HostTable.h"

namespace pactora::host {

inline Value Get(HostTable& row, std::string_view field) {
  return row.Fields().Item(field).Value();
}
inline std::string GetText(HostTable& row, std::string_view field) {
  return ToText(Get(row, field));
}
inline std::int32_t GetLong(HostTable& row, std::string_view field) {
  return ToLong(Get(row, field));
}
inline double GetDouble(HostTable& row, std::string_view field) {
  return ToDouble(Get(row, field));
}

inline void Set(HostTable& row, std::string_view field, const Value& value) {
  row.Fields().Item(field).SetValue(value);
}
// What a date field is given: the whole number 0 for "no date".
inline Value DateOrNone(Date date) {
  return date == platform::kNoDate ? Value(std::int16_t{0}) : Value(date);
}

// Makes a new row under the parent's current row the current one.
inline void BeginNewRow(HostTable& table) { table.GotoRec(table.NewRecordOid(kFlagsNone)); }

// Both filters off.
inline void ShowAllRows(HostTable& table, std::int32_t flags) {
  table.FilterOff(kTrue, flags);
  table.FilterOff2(kTrue, flags);
}

}  // namespace pactora::host
