// From a file's name to a connection that fits what the file is opened for.
#pragma once

#include <memory>
#include <string>

#include "store/sqlite/Connection.h"
#include "store/sqlite/SqliteStore.h"
#include "store/sqlite/structure.h"

namespace pactora::store::sqlite {

struct OpenedFile {
  std::unique_ptr<Connection>
      connection;  // set up, and of today's structure unless that has faults
  Structure structure;
};

// Opens the file, or a copy of it. A file whose structure has faults stays as it is. Raises what
// OpenSqlite raises but for those faults.
OpenedFile OpenConnection(const std::string& path, const OpenOptions& options);

}  // namespace pactora::store::sqlite
