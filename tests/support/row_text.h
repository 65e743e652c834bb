// Stored rows as text, for comparisons that show what is there.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "support/contract_world.h"

namespace pactora::support {

inline std::string Shown(const host::Value& value) {
  if (value.IsEmpty()) return "(leer)";
  if (value.GetKind() == host::Kind::Object) return value.AsObject() ? "(Objekt)" : "(kein Objekt)";
  return host::ToText(value);
}

// Everything that was written into the row, by field name.
inline std::string All(const Row& row) {
  std::string text;
  for (const auto& [name, value] : row.cells) {
    if (!value.IsEmpty()) text += (text.empty() ? "" : ", ") + name + "=" + Shown(value);
  }
  return text;
}

// Some fields of a row, for short comparisons.
inline std::string Line(const Row& row, const std::vector<std::string_view>& names) {
  std::string line;
  for (const std::string_view name : names) line += (line.empty() ? "" : " ") + Shown(row[name]);
  return line;
}

// The same of all rows of a table.
inline std::vector<std::string> Lines(ContractWorld& world, std::string_view table,
                                      const std::vector<std::string_view>& names) {
  std::vector<std::string> lines;
  for (const Row& row : world.Rows(table)) lines.push_back(Line(row, names));
  return lines;
}

}  // namespace pactora::support
