#include "store/sqlite/statements.h"

#include <algorithm>

#include "store/sqlite/structure.h"

namespace pactora::store::sqlite {
namespace {

using schema::Table;

std::string Parameter(int number) { return "?" + std::to_string(number); }

std::string CellParameter(std::size_t field) {
  return Parameter(kFirstCellParameter + static_cast<int>(field));
}

std::string KeyParameter(const Table& table, IndexId index) {
  return CellParameter(table.fields.size() + index);
}

bool IsUniqueField(const Table& table, std::size_t field) {
  return std::find(table.unique_fields.begin(), table.unique_fields.end(), field) !=
         table.unique_fields.end();
}

// The columns of a whole row, in the order of the k...Column constants.
std::string SelectRow(const Table& table) {
  std::string sql =
      table.parent ? "SELECT oid, version, ord, parent" : "SELECT oid, version, ord, 0";
  for (const schema::Field& field : table.fields) sql += ", " + Quoted(field.name);
  for (const schema::Index& index : table.indexes) sql += ", " + KeyColumn(index);
  return sql + " FROM " + Quoted(table.name);
}

std::string InsertSql(const Table& table) {
  std::string columns = "oid, version, ord";
  std::string values = Parameter(kOidParameter) + ", " + Parameter(kVersionParameter) + ", " +
                       Parameter(kOrderParameter);
  if (table.parent) {
    columns += ", parent";
    values += ", " + Parameter(kParentParameter);
  }
  for (std::size_t field = 0; field < table.fields.size(); ++field) {
    columns += ", " + Quoted(table.fields[field].name);
    values += ", " + CellParameter(field);
  }
  for (IndexId index = 0; index < table.indexes.size(); ++index) {
    columns += ", " + KeyColumn(table.indexes[index]);
    values += ", " + KeyParameter(table, index);
  }
  return "INSERT INTO " + Quoted(table.name) + " (" + columns + ") VALUES (" + values + ")";
}

// An update that names an indexed column writes the index anew even where the
// value is the same, and with it more pages; so keys and unique fields are
// compared instead of set when they are expected to be the same.
std::string UpdateSql(const Table& table, bool keeping_keys) {
  std::string set = " SET version = " + Parameter(kVersionParameter) + " + 1";
  std::string where =
      " WHERE oid = " + Parameter(kOidParameter) + " AND version = " + Parameter(kVersionParameter);
  const auto add = [&](const std::string& column, const std::string& parameter, bool indexed) {
    if (indexed && keeping_keys) {
      where += " AND " + column + " IS " + parameter;
    } else {
      set += ", " + column + " = " + parameter;
    }
  };
  for (std::size_t field = 0; field < table.fields.size(); ++field) {
    add(Quoted(table.fields[field].name), CellParameter(field), IsUniqueField(table, field));
  }
  for (IndexId index = 0; index < table.indexes.size(); ++index) {
    add(KeyColumn(table.indexes[index]), KeyParameter(table, index), true);
  }
  return "UPDATE " + Quoted(table.name) + set + where;
}

// Parameter 1 is the oid; the keys follow.
std::string UpdateKeysSql(const Table& table) {
  std::string sql = "UPDATE " + Quoted(table.name) + " SET ";
  for (IndexId index = 0; index < table.indexes.size(); ++index) {
    sql += (index == 0 ? "" : ", ") + KeyColumn(table.indexes[index]) + " = " +
           Parameter(static_cast<int>(index) + 2);
  }
  return sql + " WHERE oid = ?1";
}

}  // namespace

Statements::Statements(const Connection& connection, const schema::Catalog& catalog)
    : connection_(connection), catalog_(catalog), tables_(catalog.tables.size()) {
  for (TableId table = 0; table < tables_.size(); ++table) {
    tables_[table].next_by_key.resize(catalog.tables[table].indexes.size());
  }
}

std::unique_ptr<Statement> Statements::Prepare(const std::string& sql) const {
  return std::make_unique<Statement>(connection_, sql);
}

std::string Statements::OperationSql(TableId table_id, Operation operation) const {
  const Table& table = catalog_.tables[table_id];
  const std::string name = Quoted(table.name);
  switch (operation) {
    case Operation::Read:
      return SelectRow(table) + " WHERE oid = ?1";
    case Operation::NextInParent:
      return SelectRow(table) +
             (table.parent ? " WHERE parent = ?1 AND ord > ?2" : " WHERE ord > ?1") +
             " ORDER BY ord LIMIT 1";
    case Operation::CountInParent:
      return "SELECT count(*) FROM " + name + (table.parent ? " WHERE parent = ?1" : "");
    case Operation::Count:
      return "SELECT count(*) FROM " + name;
    case Operation::Insert:
      return InsertSql(table);
    case Operation::Update:
      return UpdateSql(table, false);
    case Operation::UpdateKeepingKeys:
      return UpdateSql(table, true);
    case Operation::UpdateKeys:
      return UpdateKeysSql(table);
    case Operation::Erase:
      return "DELETE FROM " + name + " WHERE oid = ?1 AND version = ?2";
  }
  return {};
}

std::string Statements::NextByKeySql(TableId table_id, IndexId index) const {
  const Table& table = catalog_.tables[table_id];
  const std::string place = "(" + KeyColumn(table.indexes[index]) + ", ord)";
  return SelectRow(table) + " WHERE " + place + " > (?1, ?2) ORDER BY " +
         KeyColumn(table.indexes[index]) + ", ord LIMIT 1";
}

}  // namespace pactora::store::sqlite
