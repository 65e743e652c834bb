// A store in a schema of a PostgreSQL database, the same tables as in a file; see
// docs/postgresql.md.
//
// Several stores, in one or more programs, may have the same schema open; each
// belongs to one thread at a time.
#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "schema/Catalog.h"
#include "store/OpenMode.h"
#include "store/RecordStore.h"

namespace pactora::store {

// How long an operation waits for other users before it raises StoreError::Locked.
inline constexpr std::chrono::milliseconds kServerLockTimeout = std::chrono::seconds(30);

// Whether the address's schema holds anything, of whichever program. Raises
// StoreError::NotReachable.
bool PostgresqlExists(const std::string& address);

// Makes a new database in the schema. It is made in the first unit of work of the store that is
// returned: the unit is open, others see the database once it is committed, and nothing of it
// remains otherwise. Raises StoreError::Failed when the schema holds something.
std::unique_ptr<RecordStore> CreatePostgresql(const std::string& address,
                                              const schema::Catalog& catalog,
                                              const Profile& profile);

// Opens an existing database, for which catalog was one of schema::ContractCatalog's two. Raises
// StoreError::NotReachable, NotADatabase, OtherVersion, Locked or ReadOnly; what others have put
// on its tables refuses writing, as do rights that the user lacks.
std::unique_ptr<RecordStore> OpenPostgresql(
    const std::string& address, OpenMode mode = OpenMode::Write,
    std::chrono::milliseconds lock_timeout = kServerLockTimeout);

// What an examination found.
struct PostgresqlCheck {
  std::vector<std::string> faults;     // German, a line each
  std::vector<std::string> additions;  // what refuses writing, but no reading
  // What was examined, for further checks; null where it can't be walked.
  std::unique_ptr<RecordStore> store;
};

// Examines the database as it is at this moment: its structure, the references between rows,
// and their numbers. The server keeps the values' types itself. Raises what OpenPostgresql
// raises for what is no database or can't be opened.
PostgresqlCheck CheckPostgresql(const std::string& address);

}  // namespace pactora::store
