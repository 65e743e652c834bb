// What the suites over SQLite files share: a database in a folder of its own, and
// what another program may do to the file.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

#include "schema/names.h"
#include "store/StoreSuite.h"
#include "store/sqlite/Connection.h"
#include "store/sqlite/SqliteStore.h"
#include "store/sqlite/Statement.h"
#include "support/TemporaryFolder.h"

namespace pactora::store {

inline std::string BytesOf(const std::string& path) {
  if (!std::filesystem::is_regular_file(path)) return "no file";
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

inline void WriteBytes(const std::string& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

// What a person with an SQL tool does.
inline void RunSql(const std::string& path, const std::string& sql) {
  sqlite::Connection connection(path, sqlite::Access::ReadWrite, std::chrono::seconds(20));
  connection.Run(sql);
}

// Makes a file of today into one as version 1 left it.
inline void MakeVersion1(const std::string& path) {
  RunSql(path, R"sql(
DROP VIEW "Vertragsschluessel_lesbar";
DROP TABLE "Vertragsschluessel";
DROP INDEX "vv_Vertraege_key_Vertragnummer";
ALTER TABLE "vv_Vertraege" DROP COLUMN "key_Vertragnummer";
ALTER TABLE "Adressen" DROP COLUMN "Nummer";
ALTER TABLE "Adressen" DROP COLUMN "Anschrift";
PRAGMA user_version = 1;)sql");
}

class SqliteFile : public testing::Test {
 protected:
  support::TemporaryFolder folder_;
  const std::string path_ = folder_.File("vertraege.db");

  std::unique_ptr<RecordStore> Create() {
    return CreateSqlite(path_, schema::ContractCatalog(true), SampleProfile());
  }
  std::unique_ptr<RecordStore> Open(std::chrono::milliseconds timeout = std::chrono::seconds(20),
                                    OpenMode mode = OpenMode::Write) {
    return OpenSqlite(path_, {timeout, mode});
  }

  static std::int64_t Addresses(RecordStore& store) {
    return store.Count(TableOf(store, schema::table::Adressen));
  }

  void RunSql(const std::string& sql) { store::RunSql(path_, sql); }
  // The first column of the first row.
  std::string Query(const std::string& sql) {
    const sqlite::Connection connection(path_, sqlite::Access::ReadOnly, std::chrono::seconds(20));
    sqlite::Statement statement(connection, sql);
    return statement.Step() ? std::string(statement.Text(0)) : "nothing";
  }
};

}  // namespace pactora::store
