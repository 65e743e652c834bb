#include "store/sqlite/SqliteStore.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <system_error>

#include "store/errors.h"
#include "store/sqlite/SqliteRecordStore.h"
#include "store/sqlite/opening.h"
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
  sqlite::OpenedFile file = sqlite::OpenConnection(path, options);
  const std::vector<std::string>& faults = file.structure.faults;
  if (!faults.empty()) Raise(StoreError::NotADatabase, faults.front());
  return std::make_unique<SqliteRecordStore>(std::move(file.connection),
                                             std::move(file.structure.catalog));
}

bool IsSqliteFile(const std::string& path) {
  constexpr std::string_view kBeginning("SQLite format 3\0", 16);
  std::array<char, kBeginning.size()> begin{};
  std::error_code ignored;
  if (!std::filesystem::is_regular_file(path, ignored))
    return false;  // reading a pipe takes from it
  std::ifstream(path, std::ios::binary).read(begin.data(), begin.size());
  return std::string_view(begin.data(), begin.size()) == kBeginning;
}

}  // namespace pactora::store
