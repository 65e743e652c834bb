#include "store/sql/row_statements.h"

#include <algorithm>

namespace pactora::store::sql {
namespace {

using schema::Table;

std::string NumberParameter(const Dialect& dialect, int number) {
  return dialect.parameter(number, Content::Number);
}

std::string KeyParameter(const Dialect& dialect, const Table& table, IndexId index) {
  return dialect.parameter(kFirstCellParameter + static_cast<int>(table.fields.size() + index),
                           Content::Key);
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

// An update that names an indexed column may write the index anew even where the
// value is the same, and with it more pages; so keys and unique fields are
// compared instead of set when they are expected to be the same.
std::string UpdateSql(const Dialect& dialect, const Table& table, bool keeping_keys) {
  const std::string version = NumberParameter(dialect, kVersionParameter);
  std::string set = " SET version = " + version + " + 1";
  std::string where =
      " WHERE oid = " + NumberParameter(dialect, kOidParameter) + " AND version = " + version;
  const auto add = [&](const std::string& column, const std::string& parameter, bool indexed) {
    if (indexed && keeping_keys) {
      where += " AND " + column + " " + dialect.is_same + " " + parameter;
    } else {
      set += ", " + column + " = " + parameter;
    }
  };
  for (std::size_t field = 0; field < table.fields.size(); ++field) {
    add(Quoted(table.fields[field].name), CellParameter(dialect, table, field),
        IsUniqueField(table, field));
  }
  for (IndexId index = 0; index < table.indexes.size(); ++index) {
    add(KeyColumn(table.indexes[index]), KeyParameter(dialect, table, index), true);
  }
  return "UPDATE " + Quoted(table.name) + set + where;
}

// Parameter 1 is the oid; the keys follow.
std::string UpdateKeysSql(const Dialect& dialect, const Table& table) {
  std::string sql = "UPDATE " + Quoted(table.name) + " SET ";
  for (IndexId index = 0; index < table.indexes.size(); ++index) {
    sql += (index == 0 ? "" : ", ") + KeyColumn(table.indexes[index]) + " = " +
           dialect.parameter(static_cast<int>(index) + 2, Content::Key);
  }
  return sql + " WHERE oid = " + NumberParameter(dialect, 1);
}

}  // namespace

Content ContentOf(schema::FieldType type) {
  switch (type) {
    case schema::FieldType::Long:
      return Content::Long;
    case schema::FieldType::Boolean:
      return Content::Boolean;
    case schema::FieldType::Double:
    case schema::FieldType::Date:
      return Content::Real;
    case schema::FieldType::Text:
    case schema::FieldType::Document:
      break;
  }
  return Content::Text;
}

std::string Quoted(std::string_view name) {
  std::string quoted = "\"";
  for (const char letter : name) {
    if (letter == '"') quoted += '"';
    quoted += letter;
  }
  return quoted + "\"";
}

std::string KeyColumn(const schema::Index& index) { return Quoted("key_" + index.name); }

std::string CellParameter(const Dialect& dialect, const Table& table, std::size_t field) {
  return dialect.parameter(kFirstCellParameter + static_cast<int>(field),
                           ContentOf(table.fields[field].type));
}

std::string InsertInto(const Table& table) {
  std::string columns = "oid, version, ord";
  if (table.parent) columns += ", parent";
  for (const schema::Field& field : table.fields) columns += ", " + Quoted(field.name);
  for (const schema::Index& index : table.indexes) columns += ", " + KeyColumn(index);
  return "INSERT INTO " + Quoted(table.name) + " (" + columns + ") ";
}

std::string InsertedValues(const Dialect& dialect, const Table& table) {
  std::string values = NumberParameter(dialect, kOidParameter) + ", " +
                       NumberParameter(dialect, kVersionParameter) + ", " +
                       NumberParameter(dialect, kOrderParameter);
  if (table.parent) values += ", " + NumberParameter(dialect, kParentParameter);
  for (std::size_t field = 0; field < table.fields.size(); ++field) {
    values += ", " + CellParameter(dialect, table, field);
  }
  for (IndexId index = 0; index < table.indexes.size(); ++index) {
    values += ", " + KeyParameter(dialect, table, index);
  }
  return "VALUES (" + values + ")";
}

std::string OperationSql(const Dialect& dialect, const Table& table, Operation operation) {
  const std::string name = Quoted(table.name);
  const std::string first = NumberParameter(dialect, 1);
  const std::string second = NumberParameter(dialect, 2);
  switch (operation) {
    case Operation::Read:
      return SelectRow(table) + " WHERE oid = " + first;
    case Operation::NextInParent:
      return SelectRow(table) +
             (table.parent ? " WHERE parent = " + first + " AND ord > " + second
                           : " WHERE ord > " + first) +
             " ORDER BY ord LIMIT 1";
    case Operation::CountInParent:
      return "SELECT count(*) FROM " + name + (table.parent ? " WHERE parent = " + first : "");
    case Operation::Count:
      return "SELECT count(*) FROM " + name;
    case Operation::Insert:
      return InsertInto(table) + InsertedValues(dialect, table);
    case Operation::Update:
      return UpdateSql(dialect, table, false);
    case Operation::UpdateKeepingKeys:
      return UpdateSql(dialect, table, true);
    case Operation::UpdateKeys:
      return UpdateKeysSql(dialect, table);
    case Operation::Erase:
      return "DELETE FROM " + name + " WHERE oid = " + first + " AND version = " + second;
  }
  return {};
}

std::string NextByKeySql(const Dialect& dialect, const Table& table, IndexId index) {
  const std::string key = KeyColumn(table.indexes[index]);
  return SelectRow(table) + " WHERE (" + key + ", ord) > (" + dialect.parameter(1, Content::Key) +
         ", " + NumberParameter(dialect, 2) + ") ORDER BY " + key + ", ord LIMIT 1";
}

}  // namespace pactora::store::sql
