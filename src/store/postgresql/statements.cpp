#include "store/postgresql/statements.h"

namespace pactora::store::postgresql {
namespace {

using schema::Table;
using sql::Operation;
using sql::Quoted;

// Another row of that parent that has the unique fields which are written.
std::string SelectTaken(const Table& table, const std::string& parent) {
  std::string sql = "SELECT FROM " + Quoted(table.name) + " AS taken WHERE taken.oid <> " +
                    ParameterSql(sql::kOidParameter, sql::Content::Number);
  if (table.parent) sql += " AND taken.parent = " + parent;
  for (const std::size_t field : table.unique_fields) {
    sql += " AND taken." + Quoted(table.fields[field].name) + " IS NOT DISTINCT FROM " +
           sql::CellParameter(kDialect, table, field);
  }
  return sql;
}

std::string InsertSql(const schema::Catalog& catalog, const Table& table) {
  std::string sql = sql::InsertInto(table) + "SELECT * FROM (" +
                    sql::InsertedValues(kDialect, table) + ") AS given";
  if (table.parent) {
    sql += " WHERE EXISTS (SELECT FROM " + Quoted(catalog.tables[*table.parent].name) +
           " WHERE oid = " + ParameterSql(sql::kParentParameter, sql::Content::Number) + ")";
  }
  return sql + " ON CONFLICT DO NOTHING";
}

std::string EraseSql(const schema::Catalog& catalog, const Table& table) {
  std::string sql = sql::OperationSql(kDialect, table, Operation::Erase);
  for (const std::size_t child : table.children) {
    sql += " AND NOT EXISTS (SELECT FROM " + Quoted(catalog.tables[child].name) +
           " WHERE parent = " + ParameterSql(1, sql::Content::Number) + ")";
  }
  return sql;
}

}  // namespace

std::string ParameterSql(int number, sql::Content content) {
  const std::string parameter = "$" + std::to_string(number);
  switch (content) {
    case sql::Content::Number:
    case sql::Content::Long:
      return parameter + "::int8";
    case sql::Content::Real:
      return parameter + "::float8";
    case sql::Content::Boolean:
      return parameter + "::bool";
    case sql::Content::Key:
      return parameter + "::bytea";
    case sql::Content::Text:
      break;
  }
  return parameter + "::text";
}

std::string OperationSql(const schema::Catalog& catalog, TableId id, Operation operation) {
  const Table& table = catalog.tables[id];
  std::string sql = sql::OperationSql(kDialect, table, operation);
  switch (operation) {
    case Operation::Insert:
      return InsertSql(catalog, table);
    case Operation::Update:
      if (table.unique_fields.empty()) return sql;
      return sql + " AND NOT EXISTS (" + SelectTaken(table, Quoted(table.name) + ".parent") + ")";
    case Operation::Erase:
      return EraseSql(catalog, table);
    default:
      return sql;
  }
}

}  // namespace pactora::store::postgresql
