// The examination of a whole database file.
#include <map>
#include <set>

#include "store/errors.h"
#include "store/sqlite/SqliteStore.h"
#include "store/sqlite/Statement.h"
#include "store/sqlite/opening.h"
#include "store/sqlite/structure.h"

namespace pactora::store {
namespace {

using sqlite::Connection;
using sqlite::Quoted;
using sqlite::Statement;

class Examination {
 public:
  explicit Examination(const Connection& connection) : connection_(connection) {}

  void Pages() {
    Statement pages(connection_, "PRAGMA integrity_check");
    while (pages.Step()) {
      if (pages.Text(0) != "ok") faults_.emplace_back(pages.Text(0));
    }
  }

  void References() {
    Statement references(connection_, "PRAGMA foreign_key_check");
    while (references.Step()) {
      faults_.push_back(std::string(references.Text(0)) + ", Oid " +
                        std::to_string(references.Integer(1)) + ": in " +
                        std::string(references.Text(2)) + " fehlt der übergeordnete Datensatz");
    }
  }

  void Table(const schema::Table& table) {
    const auto columns = Columns(table.name);
    if (columns.empty()) return Add("die Tabelle " + table.name + " fehlt");
    std::string unfit;  // in SQL: the first column whose value is of a wrong type
    const auto examine = [&](const std::string& column, std::string_view type, bool may_be_null) {
      const auto found = columns.find(column);
      if (found == columns.end()) {
        faults_.push_back(table.name + ": die Spalte " + column + " fehlt");
      } else if (found->second != type) {
        faults_.push_back(table.name + ": die Spalte " + column + " ist vom Typ " + found->second);
      } else {
        unfit += " WHEN typeof(" + Quoted(column) + ") NOT IN (" + ValueTypes(type) +
                 (may_be_null ? ", 'null'" : "") + ") THEN '" + column + "'";
      }
    };
    examine("oid", "INTEGER", false);
    if (table.parent) examine("parent", "INTEGER", false);
    examine("ord", "INTEGER", false);
    examine("version", "INTEGER", false);
    for (const schema::Field& field : table.fields) {
      examine(field.name, sqlite::ColumnType(field.type), true);
    }
    for (const schema::Index& index : table.indexes) examine("key_" + index.name, "TEXT", false);
    if (!unfit.empty()) Values(table.name, unfit);
    Indexes(table);
  }

  void Add(const std::string& fault) { faults_.push_back(fault); }
  std::vector<std::string> Faults() && { return std::move(faults_); }

 private:
  // What SQLite may keep in a sound column of that type, as a list in SQL. The
  // floating-point numbers that it has no form for are kept as bytes.
  static std::string ValueTypes(std::string_view column_type) {
    if (column_type == "INTEGER") return "'integer'";
    return column_type == "REAL" ? "'real', 'blob'" : "'text'";
  }

  // Names and types.
  std::map<std::string, std::string> Columns(const std::string& table) const {
    std::map<std::string, std::string> columns;
    Statement info(connection_, "SELECT name, type FROM pragma_table_info(?1)");
    info.Bind(1, std::string_view(table));
    while (info.Step()) columns.emplace(info.Text(0), info.Text(1));
    return columns;
  }

  void Values(const std::string& table, const std::string& unfit) {
    Statement rows(connection_, "SELECT * FROM (SELECT rowid, CASE" + unfit +
                                    " END AS unfit FROM " + Quoted(table) +
                                    ") WHERE unfit IS NOT NULL");
    while (rows.Step()) {
      faults_.push_back(table + ", Oid " + std::to_string(rows.Integer(0)) + ", " +
                        std::string(rows.Text(1)) + ": der Wert passt nicht zum Typ des Feldes");
    }
  }

  void Indexes(const schema::Table& table) {
    std::set<std::string> known;
    Statement list(connection_, "SELECT name FROM pragma_index_list(?1)");
    list.Bind(1, std::string_view(table.name));
    while (list.Step()) known.emplace(list.Text(0));
    for (const auto& index : sqlite::IndexDefinitions(table)) {
      if (!known.contains(index.name)) {
        faults_.push_back(table.name + ": der Index " + index.name + " fehlt");
      }
    }
  }

  const Connection& connection_;
  std::vector<std::string> faults_;
};

}  // namespace

std::vector<std::string> CheckSqlite(const std::string& path,
                                     std::chrono::milliseconds lock_timeout) {
  OpenOptions options;
  options.lock_timeout = lock_timeout;
  options.mode = OpenMode::Snapshot;
  const auto copy = sqlite::OpenConnection(path, options);
  Connection& connection = *copy;
  const schema::Catalog catalog = sqlite::ReadCatalog(connection);
  Examination examination(connection);
  try {
    examination.Pages();
    examination.References();
    for (const schema::Table& table : catalog.tables) examination.Table(table);
  } catch (const platform::Error& error) {
    // Too damaged to read on.
    if (error.Number() != Number(StoreError::NotADatabase)) throw;
    examination.Add(error.Description());
  }
  return std::move(examination).Faults();
}

}  // namespace pactora::store
