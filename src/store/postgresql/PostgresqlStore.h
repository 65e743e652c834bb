// A store in a schema of a PostgreSQL database, the same tables as in a file; see
// docs/postgresql.md.
//
// Several stores, in one or more programs, may have the same schema open; each
// belongs to one thread at a time.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "schema/Catalog.h"
#include "store/OpenMode.h"
#include "store/RecordStore.h"

namespace pactora::store {

// How long an operation waits for other users before it raises StoreError::Locked.
inline constexpr std::chrono::milliseconds kServerLockTimeout = std::chrono::seconds(30);

// Whether the name is the address of a schema on a server; see store/postgresql/Address.h.
bool IsPostgresqlAddress(const std::string& name);

// Makes a new database in the schema and calls fill: all of it, or nothing where that raises.
// catalog must be one of schema::ContractCatalog's two. Raises StoreError::Failed when the
// schema holds something.
std::unique_ptr<RecordStore> CreatePostgresql(const std::string& address,
                                              const schema::Catalog& catalog,
                                              const Profile& profile);

// Opens an existing database to read or to work in. Raises StoreError::NotReachable,
// NotADatabase, OtherVersion, Locked or ReadOnly.
std::unique_ptr<RecordStore> OpenPostgresql(
    const std::string& address, OpenMode mode = OpenMode::Write,
    std::chrono::milliseconds lock_timeout = kServerLockTimeout);

}  // namespace pactora::store
