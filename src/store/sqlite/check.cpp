// The examination of a whole database file.
#include "platform/Text.h"
#include "store/errors.h"
#include "store/sql/profile_tables.h"
#include "store/sql/row_statements.h"
#include "store/sqlite/SqliteRecordStore.h"
#include "store/sqlite/SqliteStore.h"
#include "store/sqlite/Statement.h"
#include "store/sqlite/opening.h"
#include "store/sqlite/structure.h"

namespace pactora::store {
namespace {

using sql::Quoted;
using sqlite::Connection;
using sqlite::Statement;

constexpr const char* kWrongType = "der Wert passt nicht zum Typ des Feldes";
constexpr const char* kNoUtf8 = "der Text ist kein UTF-8";
constexpr const char* kNoBoolean = "weder 0 noch 1";
constexpr const char* kNoLong = "die Zahl hat mehr als 32 Bit";

std::string OutsideLong(const std::string& column) {
  return column + " NOT BETWEEN -2147483648 AND 2147483647";
}
// The numbers that SQLite has no form for are kept as bytes.
std::string IsNoReal(const std::string& column) {
  return "typeof(" + column + ") <> 'real' AND " + column +
         " NOT IN (CAST('-0.0' AS BLOB), CAST('NaN' AS BLOB))";
}

// What must not hold for any row, in SQL.
struct Rule {
  std::string column;
  std::string broken;
  const char* fault;
};

// The SQL function is_utf8(text).
void IsUtf8(sqlite3_context* context, int, sqlite3_value** arguments) {
  const auto* const bytes = static_cast<const char*>(sqlite3_value_blob(arguments[0]));
  const auto size = static_cast<std::size_t>(sqlite3_value_bytes(arguments[0]));
  sqlite3_result_int(context, platform::IsValidUtf8({bytes, size}) ? 1 : 0);
}

class Examination {
 public:
  explicit Examination(const Connection& connection) : connection_(connection) {
    sqlite3_create_function(connection.Handle(), "is_utf8", 1, SQLITE_UTF8 | SQLITE_DETERMINISTIC,
                            nullptr, IsUtf8, nullptr, nullptr);
  }

  void Pages() {
    Statement pages(connection_, "PRAGMA integrity_check");
    while (pages.Step()) {
      if (pages.Text(0) != "ok") Add(std::string(pages.Text(0)));
    }
  }

  void OwnTable(const std::string& table) {
    std::vector<Rule> rules;
    AddMeaning(rules, table);
    std::string row;  // the first column of the primary key
    Statement columns(connection_, "SELECT name, type, pk FROM pragma_table_info(?1)");
    columns.Bind(1, std::string_view(table));
    while (columns.Step()) {
      const std::string name(columns.Text(0));
      if (columns.Integer(2) == 1) row = name;
      if (columns.Text(1) == "INTEGER") AddType(rules, name, "'integer'");
      if (columns.Text(1) == "TEXT") AddType(rules, name, "'text'");
      AddText(rules, name);
    }
    References(table, "Zeile");
    Rows(table, row, "Zeile", rules);
  }

  void Table(const schema::Table& table) {
    std::vector<Rule> rules;
    for (const char* const column : {"oid", "ord", "version"}) {
      AddType(rules, column, "'integer'");
      rules.push_back({column, std::string(column) + " < 1", "die Zahl ist kleiner als 1"});
    }
    if (table.parent) AddType(rules, "parent", "'integer'");
    for (const schema::Field& field : table.fields) AddField(rules, field);
    for (const schema::Index& index : table.indexes) {
      AddType(rules, "key_" + index.name, "'text'");
      AddText(rules, "key_" + index.name);
    }
    References(table.name, "Oid");
    Rows(table.name, "oid", "Oid", rules);
    Numbers(table.name);
  }

  void Add(std::string fault) { faults_.push_back(std::move(fault)); }
  bool FoundNothing() const { return faults_.empty(); }
  std::vector<std::string> Faults() && { return std::move(faults_); }

 private:
  static void AddType(std::vector<Rule>& rules, const std::string& column,
                      const std::string& types) {
    rules.push_back({column, "typeof(" + Quoted(column) + ") NOT IN (" + types + ")", kWrongType});
  }

  static void AddText(std::vector<Rule>& rules, const std::string& column) {
    const std::string name = Quoted(column);
    rules.push_back(
        {column, "typeof(" + name + ") = 'text' AND NOT is_utf8(" + name + ")", kNoUtf8});
  }

  template <typename Names>
  static std::string NoneOf(const Names& names) {
    std::string list;
    for (const auto& [value, name] : names)
      list.append(list.empty() ? " NOT IN ('" : ", '").append(name).append("'");
    return list + ")";
  }

  // What the columns' types leave open.
  static void AddMeaning(std::vector<Rule>& rules, const std::string& table) {
    const auto number = [&](const std::string& column, const std::string& broken,
                            const char* fault) {
      rules.push_back({column, "typeof(" + column + ") = 'integer' AND " + broken, fault});
    };
    const auto boolean = [&](const std::string& column) {
      number(column, column + " NOT IN (0, 1)", kNoBoolean);
    };
    if (table == "pactora_database") {
      boolean("workflow_add_on");
      number("last_number", "last_number NOT BETWEEN 0 AND 9223372036854775805",
             "danach ist keine Zahl mehr frei");
    } else if (table == "pactora_macros") {
      boolean("fails");
      number("number", OutsideLong("number"), kNoLong);
    } else if (table == "pactora_settings") {
      boolean("read_only");
      rules.push_back({"scope", "scope" + NoneOf(sql::kScopes), "ein unbekanntes Wort"});
      AddKind(rules, "kind" + NoneOf(sql::kKinds));
    } else if (table == "pactora_setting_elements") {
      AddKind(rules, "kind = 'array' OR kind" + NoneOf(sql::kKinds));
    }
  }

  static void AddKind(std::vector<Rule>& rules, const std::string& is_unknown) {
    rules.push_back({"kind", is_unknown, "ein unbekanntes Wort"});
    rules.push_back(
        {"value",
         "CASE kind WHEN 'integer' THEN typeof(value) <> 'integer' OR value NOT BETWEEN -32768 AND "
         "32767 WHEN 'long' THEN typeof(value) <> 'integer' OR " +
             OutsideLong("value") + " WHEN 'double' THEN " + IsNoReal("value") +
             " WHEN 'date' THEN " + IsNoReal("value") +
             " WHEN 'text' THEN typeof(value) <> 'text' "
             "WHEN 'boolean' THEN typeof(value) <> 'integer' OR value NOT IN (0, 1) "
             "WHEN 'empty' THEN value IS NOT NULL WHEN 'array' THEN value IS NOT NULL ELSE 0 END",
         kWrongType});
  }

  static void AddField(std::vector<Rule>& rules, const schema::Field& field) {
    const std::string name = Quoted(field.name);
    switch (field.type) {
      case schema::FieldType::Long:
        AddType(rules, field.name, "'integer', 'null'");
        rules.push_back({field.name, OutsideLong(name), kNoLong});
        return;
      case schema::FieldType::Boolean:
        rules.push_back({field.name, name + " NOT IN (0, 1)", kNoBoolean});
        return;
      case schema::FieldType::Double:
      case schema::FieldType::Date:
        rules.push_back({field.name, name + " IS NOT NULL AND " + IsNoReal(name), kWrongType});
        return;
      case schema::FieldType::Text:
      case schema::FieldType::Document:
        AddType(rules, field.name, "'text', 'null'");
        AddText(rules, field.name);
        return;
    }
  }

  // One fault for each row and rule that it breaks.
  void Rows(const std::string& table, const std::string& row, const std::string& noun,
            const std::vector<Rule>& rules) {
    std::string columns = Quoted(row);
    std::string any;
    for (const Rule& rule : rules) {
      columns += ", (" + rule.broken + ")";
      any += (any.empty() ? "(" : " OR (") + rule.broken + ")";
    }
    Statement rows(connection_, "SELECT " + columns + " FROM " + Quoted(table) + " WHERE " + any);
    while (rows.Step()) {
      for (std::size_t i = 0; i < rules.size(); ++i) {
        if (rows.Integer(static_cast<int>(i) + 1) == 0) continue;
        std::string fault = table;
        fault.append(", ").append(noun).append(" ").append(std::to_string(rows.Integer(0)));
        Add(fault.append(", ").append(rules[i].column).append(": ").append(rules[i].fault));
      }
    }
  }

  void References(const std::string& table, const std::string& noun) {
    Statement references(connection_, "SELECT rowid, parent FROM pragma_foreign_key_check(?1)");
    references.Bind(1, std::string_view(table));
    while (references.Step()) {
      const std::string row =
          references.IsNull(0) ? "" : ", " + noun + " " + std::to_string(references.Integer(0));
      Add(table + row + ": in " + std::string(references.Text(1)) +
          " fehlt der übergeordnete Datensatz");
    }
  }

  // The next number given out must be one that no row has.
  void Numbers(const std::string& table) {
    Statement greatest(connection_, "SELECT oid, max(max(oid, ord)), last_number FROM " +
                                        Quoted(table) +
                                        ", pactora_database WHERE typeof(ord) = 'integer'");
    while (greatest.Step()) {
      if (greatest.Integer(1) <= greatest.Integer(2)) continue;
      Add("pactora_database, last_number: steht auf " + std::to_string(greatest.Integer(2)) +
          ", aber " + table + ", Oid " + std::to_string(greatest.Integer(0)) + ", hat schon " +
          std::to_string(greatest.Integer(1)));
    }
  }

  const Connection& connection_;
  std::vector<std::string> faults_;
};

}  // namespace

SqliteCheck CheckSqlite(const std::string& path, std::chrono::milliseconds lock_timeout) {
  OpenOptions options;
  options.lock_timeout = lock_timeout;
  options.mode = OpenMode::Snapshot;
  auto [copy, structure] = sqlite::OpenConnection(path, options);
  SqliteCheck check;
  check.faults = structure.faults;
  check.additions = std::move(structure.additions);
  Examination examination(*copy);
  try {
    examination.Pages();
    // On damaged pages a walk may lead anywhere.
    if (examination.FoundNothing() && structure.faults.empty()) {
      for (const sqlite::Part& part : sqlite::OwnTables()) examination.OwnTable(part.name);
      // A store with such rows could not be read whole.
      const bool has_profile = examination.FoundNothing();
      for (const schema::Table& table : structure.catalog.tables) examination.Table(table);
      if (has_profile)
        check.store = std::make_unique<sqlite::SqliteRecordStore>(std::move(copy),
                                                                  std::move(structure.catalog));
    }
  } catch (const platform::Error& error) {
    // Too damaged to read on.
    if (error.Number() != Number(StoreError::NotADatabase)) throw;
    examination.Add(error.Description());
  }
  const auto found = std::move(examination).Faults();
  check.faults.insert(check.faults.end(), found.begin(), found.end());
  return check;
}

}  // namespace pactora::store
