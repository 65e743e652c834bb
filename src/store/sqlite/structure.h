// What a database file holds: the tables of the catalogue and those of its own.
//
// A table of the catalogue has the columns oid, parent (child tables only), ord
// (record order) and version, one for each field, and one for the key of each
// index. A field that was never written is NULL. Dates are day counts as
// everywhere in the system; a table with dates has a view beside it that shows
// them in readable form.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "schema/Catalog.h"
#include "store/sqlite/Connection.h"

namespace pactora::store::sqlite {

// Marks a SQLite file as a database of this program: "PCTA".
inline constexpr std::int32_t kApplicationId = 0x50435441;

// The name in double quotes, as SQL takes any name.
std::string Quoted(std::string_view name);
// The column that holds the keys of an index, in quotes.
std::string KeyColumn(const schema::Index& index);
// The type of a field's column.
std::string_view ColumnType(schema::FieldType type);

// The indexes of a table in the file.
struct IndexDefinition {
  std::string name;
  std::string sql;
};
std::vector<IndexDefinition> IndexDefinitions(const schema::Table& table);

// Makes all tables, indexes and views. Requires: an open transaction on an empty
// database.
void CreateStructure(Connection& connection, const schema::Catalog& catalog);

// Whether nothing was ever made in the file.
bool IsBlank(const Connection& connection);

// The catalogue of a database of today's structure. Raises StoreError::NotADatabase.
schema::Catalog ReadCatalog(const Connection& connection);

}  // namespace pactora::store::sqlite
