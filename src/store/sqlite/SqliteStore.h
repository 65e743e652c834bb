// A store in a SQLite file: one table for each table of the catalogue, one typed
// column for each field, so that any SQL tool reads the contracts. What the file
// holds and how it is kept safe stands in docs/storage.md.
//
// Several stores, in one or more programs, may have the same file open; each
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
inline constexpr std::chrono::milliseconds kDefaultLockTimeout = std::chrono::seconds(30);

struct OpenOptions {
  std::chrono::milliseconds lock_timeout = kDefaultLockTimeout;
  OpenMode mode = OpenMode::Write;
  // Called when a file of an earlier structure has been brought to today's.
  std::function<void()> on_migrated = {};
};

// Makes a new database in the file, whole or not at all, and opens it. catalog
// must be one of schema::ContractCatalog's two. Raises StoreError::Failed when
// the file exists and is not empty.
std::unique_ptr<RecordStore> CreateSqlite(const std::string& path, const schema::Catalog& catalog,
                                          const Profile& profile);

// The same in memory; it is gone with the store. Any catalogue will do.
std::unique_ptr<RecordStore> CreateSqliteInMemory(const schema::Catalog& catalog,
                                                  const Profile& profile);

// Opens an existing database. One of an earlier structure is migrated, whole or not at all,
// where it is opened to write; otherwise a copy in memory is. Raises StoreError::NotReachable,
// NotADatabase, OtherVersion, Locked or ReadOnly. Where others have put triggers or indexes on
// its tables, opening to write or to rehearse raises ReadOnly, and OpenMode::Any reads. A unit of
// work that was broken off by a crash is rolled back first, except for a rehearsal, which writes
// nothing and raises StoreError::NotReachable then.
std::unique_ptr<RecordStore> OpenSqlite(const std::string& path, const OpenOptions& options = {});

// Whether the file is there and is a database of SQLite, whichever program made it.
bool IsSqliteFile(const std::string& path);

// What an examination found.
struct SqliteCheck {
  std::vector<std::string> faults;     // German, a line each
  std::vector<std::string> additions;  // what refuses writing, but no reading
  // What was examined, for further checks; null where it can't be walked.
  std::unique_ptr<RecordStore> store;
};

// Examines a copy of the whole file as it is at this moment: its pages and indexes, what was
// left out of the structure, altered or added to it, the references between rows, their
// values and numbers. Other users are kept from saving no longer than the copy takes. Raises
// what OpenSqlite raises for a file that is no database or can't be opened.
SqliteCheck CheckSqlite(const std::string& path,
                        std::chrono::milliseconds lock_timeout = kDefaultLockTimeout);

}  // namespace pactora::store
