#include "store/sqlite/migration.h"

#include <string>

#include "schema/Catalog.h"
#include "store/errors.h"
#include "store/rows.h"
#include "store/sqlite/Statement.h"

namespace pactora::store::sqlite {
namespace {

// Version 2 knows what was entered in bulk, finds contracts by their number, and keeps
// number and postal address of a customer. The statements stay as they are whatever
// later versions change.
constexpr const char* kToVersion2 = R"sql(
ALTER TABLE "Adressen" ADD COLUMN "Nummer" TEXT;
ALTER TABLE "Adressen" ADD COLUMN "Anschrift" TEXT;
ALTER TABLE "vv_Vertraege" ADD COLUMN "key_Vertragnummer" TEXT NOT NULL DEFAULT '';
CREATE TABLE "Vertragsschluessel" (
  oid INTEGER PRIMARY KEY,
  ord INTEGER NOT NULL,
  version INTEGER NOT NULL,
  "Schluessel" TEXT,
  "Pruefsumme" TEXT,
  "Liste" TEXT,
  "Vertragnummer" TEXT,
  "VertragOid" TEXT,
  "Zeitpunkt" REAL,
  "key_Schluessel" TEXT NOT NULL);
CREATE UNIQUE INDEX "Vertragsschluessel_order" ON "Vertragsschluessel" (ord);
CREATE INDEX "Vertragsschluessel_key_Schluessel" ON "Vertragsschluessel" ("key_Schluessel", ord);
CREATE UNIQUE INDEX "Vertragsschluessel_unique"
  ON "Vertragsschluessel" (ifnull("Schluessel", x'00'));
CREATE VIEW "Vertragsschluessel_lesbar" AS
  SELECT oid, "Schluessel", "Pruefsumme", "Liste", "Vertragnummer", "VertragOid",
    CASE WHEN "Zeitpunkt" = 0 THEN ''
      WHEN "Zeitpunkt" = CAST("Zeitpunkt" AS INTEGER)
        THEN date(CAST("Zeitpunkt" AS INTEGER) + 2415018.5)
      ELSE date(CAST("Zeitpunkt" AS INTEGER) + 2415018.5) ||
        strftime(' %H:%M:%S', 2415018.5 + abs("Zeitpunkt" - CAST("Zeitpunkt" AS INTEGER)))
      END AS "Zeitpunkt"
  FROM "Vertragsschluessel" ORDER BY ord;
)sql";

void FillContractNumberKeys(Connection& connection) {
  Statement read(connection, "SELECT oid, ifnull(\"Vertragnummer\", '') FROM \"vv_Vertraege\"");
  Statement write(connection,
                  "UPDATE \"vv_Vertraege\" SET \"key_Vertragnummer\" = ?2 WHERE oid = ?1");
  while (read.Step()) {
    const std::string key = FoldKey(read.Text(1));
    write.Bind(1, read.Integer(0));
    write.Bind(2, std::string_view(key));
    write.Step();
  }
}

void ToVersion2(Connection& connection) {
  connection.Run(kToVersion2);
  FillContractNumberKeys(connection);
  // The index is made after its column is filled: sorting once is cheaper than inserting
  // each row.
  connection.Run(
      "CREATE INDEX \"vv_Vertraege_key_Vertragnummer\" ON \"vv_Vertraege\" "
      "(\"key_Vertragnummer\", ord)");
  connection.Run("PRAGMA user_version = 2");
}

}  // namespace

std::int32_t ReadVersion(const Connection& connection) {
  if (ReadNumber(connection, "PRAGMA application_id") != kApplicationId)
    Raise(StoreError::NotADatabase);
  const std::int64_t version = ReadNumber(connection, "PRAGMA user_version");
  const std::int32_t known = schema::Catalog().version;
  if (version < 1 || version > known)
    Raise(StoreError::OtherVersion, std::to_string(version) + " statt " + std::to_string(known));
  return static_cast<std::int32_t>(version);
}

bool IsOfEarlierVersion(const Connection& connection) {
  return ReadVersion(connection) < schema::Catalog().version;
}

Structure Migrate(Connection& connection) {
  // Triggers of others would change what a copy is read for.
  sqlite3_db_config(connection.Handle(), SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
  connection.Run("BEGIN EXCLUSIVE");
  try {
    if (ReadVersion(connection) == 1) ToVersion2(connection);
    Structure structure = ReadStructure(connection);
    if (structure.faults.empty())
      connection.Commit();
    else
      connection.Run("ROLLBACK");
    return structure;
  } catch (...) {
    if (connection.InTransaction()) connection.Run("ROLLBACK");
    throw;
  }
}

}  // namespace pactora::store::sqlite
