// From a file's name to a connection that fits what the file is opened for.
#pragma once

#include <memory>
#include <string>

#include "store/sqlite/Connection.h"
#include "store/sqlite/SqliteStore.h"

namespace pactora::store::sqlite {

// Opens the file, or a copy of it, set up and of today's structure. Raises what
// OpenSqlite raises.
std::unique_ptr<Connection> OpenConnection(const std::string& path, const OpenOptions& options);

}  // namespace pactora::store::sqlite
