#include "store/sqlite/structure.h"

#include <algorithm>
#include <map>
#include <utility>

#include "store/errors.h"
#include "store/sql/row_statements.h"
#include "store/sqlite/Statement.h"

namespace pactora::store::sqlite {
namespace {

using sql::KeyColumn;
using sql::Quoted;

// The tables beside those of the catalogue: one row about the database as a whole, and
// what store/Profile.h describes.
constexpr const char* kOwnTables[][2] = {
    {"pactora_database", R"sql(CREATE TABLE pactora_database (
  id INTEGER PRIMARY KEY CHECK (id = 1),
  name TEXT NOT NULL,
  display_name TEXT NOT NULL,
  current_user_name TEXT NOT NULL,
  workflow_add_on INTEGER NOT NULL,
  last_number INTEGER NOT NULL))sql"},
    {"pactora_users", R"sql(CREATE TABLE pactora_users (
  position INTEGER PRIMARY KEY,
  name TEXT NOT NULL))sql"},
    {"pactora_settings", R"sql(CREATE TABLE pactora_settings (
  position INTEGER PRIMARY KEY,
  scope TEXT NOT NULL,
  owner TEXT NOT NULL,
  name TEXT NOT NULL,
  folded_owner TEXT NOT NULL,
  folded_name TEXT NOT NULL,
  kind TEXT NOT NULL,
  value,
  read_only INTEGER NOT NULL,
  UNIQUE (scope, folded_owner, folded_name)))sql"},
    {"pactora_setting_elements", R"sql(CREATE TABLE pactora_setting_elements (
  setting INTEGER NOT NULL REFERENCES pactora_settings (position) ON DELETE CASCADE,
  position INTEGER NOT NULL,
  kind TEXT NOT NULL,
  value,
  PRIMARY KEY (setting, position)) WITHOUT ROWID)sql"},
    {"pactora_macros", R"sql(CREATE TABLE pactora_macros (
  position INTEGER PRIMARY KEY,
  path TEXT NOT NULL,
  fails INTEGER NOT NULL,
  number INTEGER NOT NULL,
  description TEXT NOT NULL))sql"},
};

Part TablePart(const schema::Catalog& catalog, const schema::Table& table) {
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
  return {"table", table.name, sql + ")"};
}

void AddIndexes(std::vector<Part>& parts, const schema::Table& table) {
  const auto add = [&](const std::string& kind, const std::string& purpose,
                       const std::string& columns) {
    const std::string name = table.name + "_" + purpose;
    parts.push_back({"index", name,
                     "CREATE " + kind + " " + Quoted(name) + " ON " + Quoted(table.name) + " (" +
                         columns + ")"});
  };
  add("UNIQUE INDEX", "order", table.parent ? "parent, ord" : "ord");
  for (const schema::Index& index : table.indexes) {
    add("INDEX", "key_" + index.name, KeyColumn(index) + ", ord");
  }
  if (table.unique_fields.empty()) return;
  std::string columns = table.parent ? "parent" : "";
  for (const std::size_t field : table.unique_fields) {
    // NULLs count as different in an index; two unwritten fields are equal here.
    columns +=
        (columns.empty() ? "" : ", ") + ("ifnull(" + Quoted(table.fields[field].name) + ", x'00')");
  }
  add("UNIQUE INDEX", "unique", columns);
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

void AddView(std::vector<Part>& parts, const schema::Table& table) {
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
  const std::string name = table.name + "_lesbar";
  parts.push_back({"view", name,
                   "CREATE VIEW " + Quoted(name) + " AS SELECT " + columns + " FROM " +
                       Quoted(table.name) + " ORDER BY ord"});
}

// With its article: "die Tabelle „Artikel“".
std::string Named(std::string_view type, std::string_view name) {
  const std::string_view noun = type == "table"   ? "die Tabelle"
                                : type == "index" ? "der Index"
                                : type == "view"  ? "die Sicht"
                                                  : "der Trigger";
  return std::string(noun) + " „" + std::string(name) + "“";
}

}  // namespace

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

std::vector<Part> OwnTables() {
  std::vector<Part> parts;
  for (const auto& [name, sql] : kOwnTables) parts.push_back({"table", name, sql});
  return parts;
}

std::vector<Part> Parts(const schema::Catalog& catalog) {
  std::vector<Part> parts = OwnTables();
  for (const schema::Table& table : catalog.tables) {
    parts.push_back(TablePart(catalog, table));
    AddIndexes(parts, table);
    AddView(parts, table);
  }
  return parts;
}

void CreateStructure(Connection& connection, const schema::Catalog& catalog) {
  connection.Run("PRAGMA application_id = " + std::to_string(kApplicationId));
  connection.Run("PRAGMA user_version = " + std::to_string(catalog.version));
  for (const Part& part : Parts(catalog)) connection.Run(part.sql);
  connection.Run("INSERT INTO pactora_database VALUES (1, '', '', '', " +
                 std::to_string(catalog.workflow_add_on ? 1 : 0) + ", 0)");
}

bool IsBlank(const Connection& connection) {
  return ReadNumber(connection, "SELECT count(*) FROM sqlite_schema") == 0 &&
         ReadNumber(connection, "PRAGMA application_id") == 0;
}

namespace {

// The text that makes a part without what a migrated file may have differently: white space,
// and the default without which no column of keys can be added to a table.
std::string Essence(std::string_view sql) {
  constexpr std::string_view kDefault = "DEFAULT''";
  std::string essence;
  for (const char letter : sql) {
    if (letter == ' ' || letter == '\n') continue;
    essence += letter;
    if (essence.ends_with(kDefault)) essence.resize(essence.size() - kDefault.size());
  }
  return essence;
}

// The parts of a kind of database, quick to find.
class PartsOf {
 public:
  explicit PartsOf(bool workflow_add_on) : parts_(Parts(schema::ContractCatalog(workflow_add_on))) {
    for (std::size_t part = 0; part < parts_.size(); ++part) {
      places_.emplace(Key(parts_[part].type, parts_[part].name), part);
      parts_[part].sql = Essence(parts_[part].sql);
    }
  }

  // Adds what differs to the faults and additions.
  void Compare(const Connection& connection, Structure& structure) const {
    std::vector<bool> found(parts_.size());
    Statement rows(connection, "SELECT type, name, tbl_name, sql FROM sqlite_schema");
    Statement foreign_keys(connection, "SELECT \"table\" FROM pragma_foreign_key_list(?1)");
    while (rows.Step()) {
      const auto place = places_.find(Key(rows.Text(0), rows.Text(1)));
      if (place != places_.end()) {
        const Part& part = parts_[place->second];
        found[place->second] = true;
        if (part.sql != Essence(rows.Text(3))) {
          structure.faults.push_back(Named(part.type, part.name) + " ist anders angelegt");
        }
      } else if (IsAddition(rows)) {
        Add(structure, rows, " an der Tabelle", rows.Text(2));
      } else if (rows.Text(0) == "table") {
        // A save would work on its rows too, or fail because of them.
        foreign_keys.Bind(1, rows.Text(1));
        bool is_added = false;
        while (foreign_keys.Step()) {
          const std::string table(foreign_keys.Text(0));
          if (IsOwnTable(table) && !std::exchange(is_added, true))
            Add(structure, rows, " mit einem Fremdschlüssel auf die Tabelle", table);
        }
      }
    }
    for (std::size_t part = 0; part < parts_.size(); ++part) {
      if (found[part]) continue;
      structure.faults.push_back(Named(parts_[part].type, parts_[part].name) + " fehlt");
    }
  }

 private:
  using Key = std::pair<std::string_view, std::string_view>;  // type and name

  static void Add(Structure& structure, const Statement& row, std::string_view how,
                  std::string_view table) {
    structure.additions.push_back(Named(row.Text(0), row.Text(1)) + std::string(how) + " „" +
                                  std::string(table) + "“ stammt nicht von diesem Programm");
  }

  // An index that a table brings with it has no text of its own.
  bool IsAddition(const Statement& row) const {
    if (row.IsNull(3) || (row.Text(0) != "index" && row.Text(0) != "trigger")) return false;
    return IsOwnTable(std::string(row.Text(2)));
  }

  bool IsOwnTable(const std::string& table) const {
    return std::any_of(parts_.begin(), parts_.end(), [&table](const Part& part) {
      return part.type == "table" && sqlite3_stricmp(part.name.c_str(), table.c_str()) == 0;
    });
  }

  std::vector<Part> parts_;
  std::map<Key, std::size_t> places_;
};

const PartsOf& PartsOfKind(bool workflow_add_on) {
  static const PartsOf with(true);
  static const PartsOf without(false);
  return workflow_add_on ? with : without;
}

// Where the row can't be read, its table is among the faults.
bool HasWorkflowAddOn(const Connection& connection, Structure& structure) {
  const auto& [name, sql] = kOwnTables[0];
  Statement table(connection, "SELECT sql FROM sqlite_schema WHERE type = 'table' AND name = ?1");
  table.Bind(1, std::string_view(name));
  if (!table.Step() || Essence(table.Text(0)) != Essence(sql)) return true;
  Statement row(connection, "SELECT workflow_add_on FROM pactora_database");
  if (row.Step()) return row.Integer(0) != 0;
  structure.faults.push_back(Named("table", name) + " ist leer");
  return true;
}

}  // namespace

Structure ReadStructure(const Connection& connection) {
  Statement encoding(connection, "PRAGMA encoding");
  if (encoding.Step() && encoding.Text(0) != "UTF-8") {
    Raise(StoreError::NotADatabase, "die Texte stehen in UTF-16 statt in UTF-8");
  }
  Structure structure;
  const bool workflow_add_on = HasWorkflowAddOn(connection, structure);
  structure.catalog = schema::ContractCatalog(workflow_add_on);
  PartsOfKind(workflow_add_on).Compare(connection, structure);
  return structure;
}

}  // namespace pactora::store::sqlite
