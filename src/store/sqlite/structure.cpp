#include "store/sqlite/structure.h"

#include "store/errors.h"
#include "store/sqlite/Statement.h"

namespace pactora::store::sqlite {
namespace {

// Beside the tables of the catalogue: one row about the database as a whole, and
// what store/Profile.h describes.
constexpr const char* kOwnTables = R"sql(
CREATE TABLE pactora_database (
  id INTEGER PRIMARY KEY CHECK (id = 1),
  name TEXT NOT NULL,
  display_name TEXT NOT NULL,
  current_user_name TEXT NOT NULL,
  workflow_add_on INTEGER NOT NULL,
  last_number INTEGER NOT NULL);
CREATE TABLE pactora_users (
  position INTEGER PRIMARY KEY,
  name TEXT NOT NULL);
CREATE TABLE pactora_settings (
  position INTEGER PRIMARY KEY,
  scope TEXT NOT NULL,
  owner TEXT NOT NULL,
  name TEXT NOT NULL,
  folded_owner TEXT NOT NULL,
  folded_name TEXT NOT NULL,
  kind TEXT NOT NULL,
  value,
  read_only INTEGER NOT NULL,
  UNIQUE (scope, folded_owner, folded_name));
CREATE TABLE pactora_setting_elements (
  setting INTEGER NOT NULL REFERENCES pactora_settings (position) ON DELETE CASCADE,
  position INTEGER NOT NULL,
  kind TEXT NOT NULL,
  value,
  PRIMARY KEY (setting, position)) WITHOUT ROWID;
CREATE TABLE pactora_macros (
  position INTEGER PRIMARY KEY,
  path TEXT NOT NULL,
  fails INTEGER NOT NULL,
  number INTEGER NOT NULL,
  description TEXT NOT NULL);
INSERT INTO pactora_database VALUES (1, '', '', '', 0, 0);
)sql";

void CreateTable(Connection& connection, const schema::Catalog& catalog,
                 const schema::Table& table) {
  std::string sql = "CREATE TABLE " + Quoted(table.name) + " (\n  oid INTEGER PRIMARY KEY";
  if (table.parent) {
    sql += ",\n  parent INTEGER NOT NULL REFERENCES " + Quoted(catalog.tables[*table.parent].name) +
           " (oid)";
  }
  sql += ",\n  ord INTEGER NOT NULL,\n  version INTEGER NOT NULL";
  for (const schema::Field& field : table.fields) {
    sql += ",\n  " + Quoted(field.name) + " " + std::string(ColumnType(field.type));
  }
  for (const schema::Index& index : table.indexes) {
    sql += ",\n  " + KeyColumn(index) + " TEXT NOT NULL";
  }
  connection.Run(sql + ")");
}

// A date column in readable form: empty for "no date", with the time if it has
// one. 2415018.5 is the Julian day of day 0; the time of day counts upwards from
// midnight before day 0 too.
std::string ReadableDate(const std::string& column) {
  const std::string day = "CAST(" + column + " AS INTEGER)";
  return "CASE WHEN " + column + " = 0 THEN '' WHEN " + column + " = " + day + " THEN date(" + day +
         " + 2415018.5) ELSE date(" + day +
         " + 2415018.5) || strftime(' %H:%M:%S', 2415018.5 + abs(" + column + " - " + day +
         ")) END";
}

void CreateView(Connection& connection, const schema::Table& table) {
  bool has_dates = false;
  std::string columns = table.parent ? "oid, parent" : "oid";
  for (const schema::Field& field : table.fields) {
    const std::string column = Quoted(field.name);
    if (field.type == schema::FieldType::Date) {
      has_dates = true;
      columns += ", " + ReadableDate(column) + " AS " + column;
    } else {
      columns += ", " + column;
    }
  }
  if (!has_dates) return;
  connection.Run("CREATE VIEW " + Quoted(table.name + "_lesbar") + " AS SELECT " + columns +
                 " FROM " + Quoted(table.name) + " ORDER BY ord");
}

std::int64_t Number(const Connection& connection, std::string_view sql) {
  Statement statement(connection, sql);
  return statement.Step() ? statement.Integer(0) : 0;
}

}  // namespace

std::string Quoted(std::string_view name) {
  std::string quoted = "\"";
  for (const char letter : name) {
    if (letter == '"') quoted += '"';
    quoted += letter;
  }
  return quoted + "\"";
}

std::string KeyColumn(const schema::Index& index) { return Quoted("key_" + index.name); }

std::vector<IndexDefinition> IndexDefinitions(const schema::Table& table) {
  std::vector<IndexDefinition> definitions;
  const auto add = [&](const std::string& kind, const std::string& purpose,
                       const std::string& columns) {
    const std::string name = table.name + "_" + purpose;
    definitions.push_back({name, "CREATE " + kind + " " + Quoted(name) + " ON " +
                                     Quoted(table.name) + " (" + columns + ")"});
  };
  add("UNIQUE INDEX", "order", table.parent ? "parent, ord" : "ord");
  for (const schema::Index& index : table.indexes) {
    add("INDEX", "key_" + index.name, KeyColumn(index) + ", ord");
  }
  if (table.unique_fields.empty()) return definitions;
  std::string columns = table.parent ? "parent" : "";
  for (const std::size_t field : table.unique_fields) {
    // NULLs count as different in an index; two unwritten fields are equal here.
    columns +=
        (columns.empty() ? "" : ", ") + ("ifnull(" + Quoted(table.fields[field].name) + ", x'00')");
  }
  add("UNIQUE INDEX", "unique", columns);
  return definitions;
}

std::string_view ColumnType(schema::FieldType type) {
  switch (type) {
    case schema::FieldType::Long:
    case schema::FieldType::Boolean:
      return "INTEGER";
    case schema::FieldType::Double:
    case schema::FieldType::Date:
      return "REAL";
    case schema::FieldType::Text:
    case schema::FieldType::Document:
      break;
  }
  return "TEXT";
}

void CreateStructure(Connection& connection, const schema::Catalog& catalog) {
  connection.Run("PRAGMA application_id = " + std::to_string(kApplicationId));
  connection.Run("PRAGMA user_version = " + std::to_string(catalog.version));
  connection.Run(kOwnTables);
  connection.Run("UPDATE pactora_database SET workflow_add_on = " +
                 std::to_string(catalog.workflow_add_on ? 1 : 0));
  for (const schema::Table& table : catalog.tables) {
    CreateTable(connection, catalog, table);
    for (const IndexDefinition& index : IndexDefinitions(table)) connection.Run(index.sql);
    CreateView(connection, table);
  }
}

bool IsBlank(const Connection& connection) {
  return Number(connection, "SELECT count(*) FROM sqlite_schema") == 0 &&
         Number(connection, "PRAGMA application_id") == 0;
}

schema::Catalog ReadCatalog(const Connection& connection) {
  return schema::ContractCatalog(
      Number(connection, "SELECT workflow_add_on FROM pactora_database") != 0);
}

}  // namespace pactora::store::sqlite
