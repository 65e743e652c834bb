#include "store/postgresql/PostgresqlStore.h"

#include <string_view>
#include <utility>

#include "store/errors.h"
#include "store/postgresql/Address.h"
#include "store/postgresql/PostgresqlRecordStore.h"
#include "store/postgresql/profile.h"
#include "store/postgresql/structure.h"

namespace pactora::store {

using postgresql::Connection;
using postgresql::ParseAddress;
using postgresql::PostgresqlRecordStore;

bool IsPostgresqlAddress(const std::string& name) {
  const std::string_view view = name;
  return view.starts_with("postgresql://") || view.starts_with("postgres://") ||
         view.starts_with("service=");
}

std::unique_ptr<RecordStore> CreatePostgresql(const std::string& address,
                                              const schema::Catalog& catalog,
                                              const Profile& profile) {
  auto connection = std::make_unique<Connection>(ParseAddress(address), kServerLockTimeout);
  connection->Run("BEGIN");
  postgresql::CreateStructure(*connection, catalog);
  postgresql::WriteProfile(*connection, profile);
  connection->Run("COMMIT");
  return std::make_unique<PostgresqlRecordStore>(std::move(connection), catalog);
}

std::unique_ptr<RecordStore> OpenPostgresql(const std::string& address, OpenMode mode,
                                            std::chrono::milliseconds lock_timeout) {
  auto connection = std::make_unique<Connection>(ParseAddress(address), lock_timeout);
  postgresql::Structure structure = postgresql::ReadStructure(*connection);
  if (!structure.faults.empty()) Raise(StoreError::NotADatabase, structure.faults.front());
  const bool has_additions = !structure.additions.empty();
  if (mode == OpenMode::Write && has_additions) {
    Raise(StoreError::ReadOnly, structure.additions.front());
  }
  if (mode == OpenMode::Read || has_additions) connection->RefuseWriting();
  return std::make_unique<PostgresqlRecordStore>(std::move(connection),
                                                 std::move(structure.catalog));
}

}  // namespace pactora::store
