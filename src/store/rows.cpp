#include "store/rows.h"

#include <memory>

#include "platform/Text.h"
#include "store/errors.h"

namespace pactora::store {
namespace {

using host::Value;
using schema::FieldType;

Value ConvertToText(const schema::Field& field, const Value& value) {
  const auto check = [&](const std::string& text) {
    const auto size = static_cast<std::size_t>(field.size);
    if (text.size() > size && platform::Length(text) > size) {
      Raise(StoreError::TextTooLong, field.name);
    }
  };
  if (value.GetKind() == host::Kind::Text) {
    check(value.AsText());
    return value;
  }
  std::string text = host::ToText(value);
  check(text);
  return text;
}

Value ConvertToDocument(const Value& value) {
  const host::ObjectRef object = host::ToObject(value);
  if (object && std::dynamic_pointer_cast<host::Document>(object) == nullptr) {
    platform::Raise(platform::RuntimeError::TypeMismatch);
  }
  return object;
}

// Appends what a cell adds to a key; an empty cell adds nothing.
void AppendToKey(std::string& key, const Value& cell) {
  if (cell.IsEmpty()) return;
  if (cell.GetKind() == host::Kind::Text) {
    platform::AppendUpperCase(key, cell.AsText());
  } else {
    key += host::ToText(host::ToDouble(cell));
  }
}

std::string MakeKey(const schema::Index& index, const std::vector<Value>& cells,
                    const std::vector<Value>* parent_cells) {
  std::string key;
  for (const schema::KeyPart& part : index.parts) {
    AppendToKey(key, part.of_parent ? parent_cells->at(part.field) : cells.at(part.field));
  }
  return key;
}

bool IsOverField(const schema::Index& index, std::size_t field) {
  return index.parts.size() == 1 && !index.parts[0].of_parent && index.parts[0].field == field;
}

// The index whose key is the ID alone. A table with an ID field has one.
IndexId IdIndex(const schema::Table& table) {
  for (IndexId index = 0; index < table.indexes.size(); ++index) {
    if (IsOverField(table.indexes[index], *table.id_field)) return index;
  }
  Raise(StoreError::Failed, table.name);
}

bool IsEmptyId(const Value& id) {
  return id.IsEmpty() || (id.GetKind() == host::Kind::Text && id.AsText().empty());
}

std::string EightDigits(std::int64_t number) {
  std::string digits = std::to_string(number);
  if (digits.size() < 8) digits.insert(0, 8 - digits.size(), '0');
  return digits;
}

bool HasPartOfParent(const schema::Table& table) {
  for (const schema::Index& index : table.indexes) {
    for (const schema::KeyPart& part : index.parts) {
      if (part.of_parent) return true;
    }
  }
  return false;
}

// The keys of all rows of a child table under the parent, formed anew.
void RekeyChildren(RecordStore& store, TableId child, const Record& parent) {
  Record row;
  for (std::int64_t after = 0; store.NextInParent(child, parent.oid, after, row);
       after = row.order) {
    const auto keys = MakeKeys(store.Catalog(), child, row.cells, &parent.cells);
    if (keys != row.keys) store.UpdateKeys(child, row.oid, keys);
  }
}

}  // namespace

Value ConvertToField(const schema::Field& field, const Value& value) {
  if (value.IsEmpty()) return value;
  switch (field.type) {
    case FieldType::Text:
      return ConvertToText(field, value);
    case FieldType::Long:
      return host::ToLong(value);
    case FieldType::Double:
      return host::ToDouble(value);
    case FieldType::Date:
      return host::ToDate(value);
    case FieldType::Boolean:
      return host::ToBoolean(value);
    case FieldType::Document:
      return ConvertToDocument(value);
  }
  platform::Raise(platform::RuntimeError::TypeMismatch);
}

std::vector<std::string> MakeKeys(const schema::Catalog& catalog, TableId table,
                                  const std::vector<Value>& cells,
                                  const std::vector<Value>* parent_cells) {
  const auto& indexes = catalog.tables.at(table).indexes;
  std::vector<std::string> keys;
  keys.reserve(indexes.size());
  for (const schema::Index& index : indexes) keys.push_back(MakeKey(index, cells, parent_cells));
  return keys;
}

std::string FoldKey(std::string_view key) { return platform::UpperCase(key); }

// The steps double, so that a long run of taken IDs costs few look-ups.
std::string FreeId(RecordStore& store, TableId table, std::int64_t number) {
  const IndexId index = IdIndex(store.Catalog().tables[table]);
  Record found;
  for (std::int64_t step = 1;; number += step, step *= 2) {
    std::string id = EightDigits(number);
    if (!store.NextByKey(table, index, id, 0, found) || found.keys.at(index) != id) return id;
  }
}

void InsertRow(RecordStore& store, TableId table, Record& record,
               const std::vector<Value>* parent_cells) {
  const schema::Catalog& catalog = store.Catalog();
  const auto& id_field = catalog.tables.at(table).id_field;
  const bool needs_id = id_field && IsEmptyId(record.cells.at(*id_field));
  const auto give_id = [&] {
    record.cells[*id_field] = FreeId(store, table, record.oid);
    record.keys = MakeKeys(catalog, table, record.cells, parent_cells);
  };
  if (needs_id && record.oid != 0) {
    store.LockForUpdate();
    give_id();
    store.Insert(table, record);
    return;
  }
  record.keys = MakeKeys(catalog, table, record.cells, parent_cells);
  store.Insert(table, record);
  if (!needs_id) return;
  // The ID comes from the Oid, which the row has only now. Nobody else has seen
  // the row, so its update can't fail on another version.
  give_id();
  if (!store.Update(table, record)) Raise(StoreError::Failed, catalog.tables[table].name);
}

bool UpdateRow(RecordStore& store, TableId table, Record& record,
               const std::vector<Value>* parent_cells) {
  const schema::Catalog& catalog = store.Catalog();
  record.keys = MakeKeys(catalog, table, record.cells, parent_cells);
  if (!store.Update(table, record)) return false;
  for (const std::size_t child : catalog.tables[table].children) {
    if (HasPartOfParent(catalog.tables[child])) RekeyChildren(store, child, record);
  }
  return true;
}

}  // namespace pactora::store
