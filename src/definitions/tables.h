// The tables and lookup lists that the dialogs work with.
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

// A dialog whose loading failed holds no table: raises error 91 then.
host::HostTable& Held(const std::shared_ptr<host::HostTable>& table);

// The texts of a lookup list, first to last; none when the database has no such
// variable. Raises error 13 when it holds no array.
std::vector<std::string> LookupList(shell::Module& module, std::string_view name);

}  // namespace pactora::definitions
