// Rows to and from a prepared statement of any of the databases.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/Value.h"
#include "platform/Error.h"
#include "schema/Catalog.h"
#include "store/Document.h"
#include "store/RecordStore.h"
#include "store/row_numbers.h"
#include "store/sql/row_statements.h"

namespace pactora::store::sql {

template <typename Statement>
void BindCell(Statement& statement, int parameter, schema::FieldType type,
              const host::Value& cell) {
  if (cell.IsEmpty()) return statement.BindNull(parameter);
  switch (type) {
    case schema::FieldType::Text:
      return statement.Bind(parameter, std::string_view(cell.AsText()));
    case schema::FieldType::Long:
      return statement.Bind(parameter, std::int64_t{cell.AsLong()});
    case schema::FieldType::Double:
      return statement.Bind(parameter, cell.AsDouble());
    case schema::FieldType::Date:
      return statement.Bind(parameter, cell.AsDate().days);
    case schema::FieldType::Boolean:
      return statement.Bind(parameter, cell.AsBoolean());
    case schema::FieldType::Document:
      break;
  }
  const auto* const document = dynamic_cast<const NamedDocument*>(cell.AsObject().get());
  if (document != nullptr) return statement.Bind(parameter, std::string_view(document->Name()));
  if (cell.AsObject() != nullptr) platform::Raise(platform::RuntimeError::TypeMismatch);
  statement.BindNull(parameter);
}

template <typename StoredValue>
void ReadCell(const StoredValue& stored, schema::FieldType type, host::Value& cell) {
  if (stored.IsNull()) {
    cell = host::Value();
    return;
  }
  switch (type) {
    case schema::FieldType::Text:
      cell = stored.Text();
      return;
    case schema::FieldType::Long:
      cell = static_cast<std::int32_t>(stored.Integer());
      return;
    case schema::FieldType::Double:
      cell = stored.Real();
      return;
    case schema::FieldType::Date:
      cell = host::Date{stored.Real()};
      return;
    case schema::FieldType::Boolean:
      cell = stored.Integer() != 0;
      return;
    case schema::FieldType::Document:
      cell = std::make_shared<NamedDocument>(std::string(stored.Text()));
      return;
  }
}

template <typename Statement>
void BindKeys(Statement& statement, int parameter, const std::vector<std::string>& keys) {
  for (const std::string& key : keys) statement.BindKey(parameter++, key);
}

// All but oid, version, order and parent.
template <typename Statement>
void BindContent(Statement& statement, const schema::Table& table, const Record& record) {
  int parameter = kFirstCellParameter;
  for (std::size_t field = 0; field < table.fields.size(); ++field) {
    BindCell(statement, parameter++, table.fields[field].type, record.cells[field]);
  }
  BindKeys(statement, parameter, record.keys);
}

// A row to be inserted.
template <typename Statement>
void BindNew(Statement& statement, const schema::Table& table, const Record& record,
             const RowNumbers& numbers) {
  statement.Bind(kOidParameter, numbers.oid);
  statement.Bind(kVersionParameter, std::int64_t{1});
  statement.Bind(kOrderParameter, numbers.order);
  if (table.parent) statement.Bind(kParentParameter, record.parent);
  BindContent(statement, table, record);
}

template <typename Statement>
void ReadRow(const Statement& statement, const schema::Table& table, Record& record) {
  record.oid = statement.Integer(kOidColumn);
  record.version = statement.Integer(kVersionColumn);
  record.order = statement.Integer(kOrderColumn);
  record.parent = statement.Integer(kParentColumn);
  record.cells.resize(table.fields.size());
  record.keys.resize(table.indexes.size());
  int column = kFirstCellColumn;
  for (std::size_t field = 0; field < table.fields.size(); ++field) {
    ReadCell(statement.Cell(column++), table.fields[field].type, record.cells[field]);
  }
  for (std::string& key : record.keys) key = statement.Cell(column++).Key();
}

}  // namespace pactora::store::sql
