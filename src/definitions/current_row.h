// Reading and writing the current row of a table that a dialog holds.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/HostTable.h"
#include "shell/Module.h"

namespace pactora::definitions {

// The table of that name.
std::shared_ptr<host::HostTable> OpenTable(shell::Module& module, std::string_view name);
// Both filters off.
void ShowAllRows(host::HostTable& table, std::int32_t flags);

// A dialog whose loading failed holds no table: raises error 91 then.
host::HostTable& Held(const std::shared_ptr<host::HostTable>& table);

host::Value ReadField(host::HostTable& table, std::string_view field);
std::string ReadText(host::HostTable& table, std::string_view field);
std::int32_t ReadLong(host::HostTable& table, std::string_view field);
double ReadDouble(host::HostTable& table, std::string_view field);
void WriteField(host::HostTable& table, std::string_view field, const host::Value& value);

// Makes a new row under the parent's current row the current one.
void BeginNewRow(host::HostTable& table);

// The texts of a lookup list, first to last; none when the database has no such
// variable. Raises error 13 when it holds no array.
std::vector<std::string> LookupList(shell::Module& module, std::string_view name);

}  // namespace pactora::definitions
