#include "store/postgresql/PostgresqlStore.h"

#include <utility>

#include "store/copying.h"
#include "store/errors.h"
#include "store/memory/MemoryStore.h"
#include "store/postgresql/Address.h"
#include "store/postgresql/PostgresqlRecordStore.h"
#include "store/postgresql/check.h"
#include "store/postgresql/profile.h"
#include "store/postgresql/structure.h"

namespace pactora::store {

using postgresql::Connection;
using postgresql::ParseAddress;
using postgresql::PostgresqlRecordStore;

namespace {

std::unique_ptr<Connection> Connect(const std::string& address,
                                    std::chrono::milliseconds lock_timeout = kServerLockTimeout) {
  return std::make_unique<Connection>(ParseAddress(address), lock_timeout);
}

// A transaction that sees one moment to its end, however long that takes.
std::unique_ptr<Connection> ConnectToSnapshot(const std::string& address) {
  auto connection = Connect(address);
  connection->Run(
      "SET idle_in_transaction_session_timeout = 0;"
      "BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY");
  return connection;
}

bool MayWrite(Connection& connection) {
  return postgresql::ReadNumber(connection,
                                "SELECT current_setting('transaction_read_only') = 'off' AND "
                                "has_table_privilege('pactora_database', 'UPDATE')") != 0;
}

}  // namespace

bool PostgresqlExists(const std::string& address) {
  return postgresql::HoldsAnything(*Connect(address));
}

std::unique_ptr<RecordStore> CreatePostgresql(const std::string& address,
                                              const schema::Catalog& catalog,
                                              const Profile& profile) {
  auto connection = Connect(address);
  connection->Run("BEGIN");
  postgresql::CreateStructure(*connection, catalog);
  postgresql::WriteProfile(*connection, profile);
  auto store = std::make_unique<PostgresqlRecordStore>(std::move(connection), catalog);
  // Goes on in the same transaction.
  store->LockForUpdate();
  return store;
}

std::unique_ptr<RecordStore> OpenPostgresql(const std::string& address, OpenMode mode,
                                            std::chrono::milliseconds lock_timeout) {
  const bool of_one_moment = mode == OpenMode::Snapshot || mode == OpenMode::Rehearsal;
  auto connection = of_one_moment ? ConnectToSnapshot(address) : Connect(address, lock_timeout);
  postgresql::Structure structure = postgresql::ReadStructure(*connection);
  if (!structure.faults.empty()) Raise(StoreError::NotADatabase, structure.faults.front());
  const std::string addition = structure.additions.empty() ? "" : structure.additions.front();
  const bool writes = mode == OpenMode::Write || mode == OpenMode::Rehearsal;
  if (writes && !addition.empty()) Raise(StoreError::ReadOnly, addition);
  const bool may_write = of_one_moment || (addition.empty() && MayWrite(*connection));
  if (writes && !may_write) Raise(StoreError::ReadOnly);
  if (mode == OpenMode::Read || !may_write) connection->RefuseWriting(addition);
  auto store =
      std::make_unique<PostgresqlRecordStore>(std::move(connection), std::move(structure.catalog));
  if (mode != OpenMode::Rehearsal) return store;
  auto copy = CreateMemoryStore(store->Catalog(), {});
  CopyAll(*store, *copy);
  copy->Commit();
  return copy;
}

PostgresqlCheck CheckPostgresql(const std::string& address) {
  auto connection = ConnectToSnapshot(address);
  postgresql::Structure structure = postgresql::ReadStructure(*connection);
  PostgresqlCheck check{std::move(structure.faults), std::move(structure.additions), nullptr};
  if (!check.faults.empty()) return check;
  check.faults = postgresql::Examine(*connection, structure.catalog);
  check.store =
      std::make_unique<PostgresqlRecordStore>(std::move(connection), std::move(structure.catalog));
  return check;
}

}  // namespace pactora::store
