#include "store/sqlite/SqliteStore.h"

#include "store/errors.h"
#include "store/sqlite/SqliteRecordStore.h"
#include "store/sqlite/profile.h"
#include "store/sqlite/structure.h"

namespace pactora::store {
namespace {

using sqlite::Access;
using sqlite::Connection;
using sqlite::SqliteRecordStore;

std::unique_ptr<RecordStore> Create(const std::string& path, const schema::Catalog& catalog,
                                    const Profile& profile) {
  auto connection = std::make_unique<Connection>(path, Access::Create, kDefaultLockTimeout);
  // One transaction: a file is a whole database or still an empty file, also when
  // two programs make it at the same moment.
  connection->Run("BEGIN EXCLUSIVE");
  if (!sqlite::IsBlank(*connection)) {
    Raise(StoreError::Failed, "die Datei " + path + " ist nicht leer");
  }
  sqlite::CreateStructure(*connection, catalog);
  sqlite::WriteProfile(*connection, profile);
  connection->Run("COMMIT");
  connection->SetUp();
  return std::make_unique<SqliteRecordStore>(std::move(connection), catalog);
}

// A copy of the file's content in memory.
std::unique_ptr<Connection> CopyToMemory(const Connection& file) {
  auto memory =
      std::make_unique<Connection>(sqlite::kInMemory, Access::ReadWrite, kDefaultLockTimeout);
  sqlite3_backup* const backup =
      sqlite3_backup_init(memory->Handle(), "main", file.Handle(), "main");
  if (backup == nullptr) memory->Fail(sqlite3_extended_errcode(memory->Handle()));
  const int code = sqlite3_backup_step(backup, -1);
  sqlite3_backup_finish(backup);
  if (code != SQLITE_DONE) memory->Fail(code);
  return memory;
}

}  // namespace

std::unique_ptr<RecordStore> CreateSqlite(const std::string& path, const schema::Catalog& catalog,
                                          const Profile& profile) {
  return Create(path, catalog, profile);
}

std::unique_ptr<RecordStore> CreateSqliteInMemory(const schema::Catalog& catalog,
                                                  const Profile& profile) {
  return Create(sqlite::kInMemory, catalog, profile);
}

std::unique_ptr<RecordStore> OpenSqlite(const std::string& path, const OpenOptions& options) {
  const bool rehearsal = options.mode == OpenMode::Rehearsal;
  const Access access = rehearsal ? Access::ReadOnly : Access::ReadWrite;
  auto connection = std::make_unique<Connection>(path, access, options.lock_timeout);
  schema::Catalog catalog = sqlite::ReadCatalog(*connection);
  if (options.mode == OpenMode::Write && sqlite3_db_readonly(connection->Handle(), "main") == 1)
    Raise(StoreError::ReadOnly);
  if (rehearsal || options.mode == OpenMode::Snapshot) connection = CopyToMemory(*connection);
  connection->SetUp();
  return std::make_unique<SqliteRecordStore>(std::move(connection), std::move(catalog));
}

}  // namespace pactora::store
