// What every writer of rows does alike: convert values to the fields' types,
// form index keys, give out IDs.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/Value.h"
#include "schema/Catalog.h"
#include "store/RecordStore.h"

namespace pactora::store {

// The value in the field's type; empty stays empty. Raises error 13 for a value that the type
// cannot take, error 6 for a number out of its range and StoreError::TextTooLong for a longer text.
host::Value ConvertToField(const schema::Field& field, const host::Value& value);

// The keys of a row, one for each index of its table. parent_cells may be null
// where no index has a part of the parent.
std::vector<std::string> MakeKeys(const schema::Catalog& catalog, TableId table,
                                  const std::vector<host::Value>& cells,
                                  const std::vector<host::Value>* parent_cells);

// The text of a search key as it is compared: upper case.
std::string FoldKey(std::string_view key);

// An ID that no row of the table has: the number's eight digits, or those of a
// greater one. Requires: the table has an ID field.
std::string FreeId(RecordStore& store, TableId table, std::int64_t number);

// Inserts the record: forms its keys and, where the table has an ID field that is
// empty, gives out an ID that no row of the table has. parent_cells as above.
void InsertRow(RecordStore& store, TableId table, Record& record,
               const std::vector<host::Value>* parent_cells);

// Updates the record, forming its keys, and the keys of child rows that hold a
// part of it. Returns false when the row was changed by another user.
bool UpdateRow(RecordStore& store, TableId table, Record& record,
               const std::vector<host::Value>* parent_cells);

}  // namespace pactora::store
