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

// The type of a field's column.
std::string_view ColumnType(schema::FieldType type);

// A table, an index or a view of the file.
struct Part {
  std::string type;  // as SQLite names it: "table", "index" or "view"
  std::string name;
  std::string sql;  // what makes it
};

// Everything that a database is made of, tables before what lies on them. SQLite keeps
// the texts as they are, and files are compared with them when they are opened: any
// change of a text is a new version of the structure.
std::vector<Part> Parts(const schema::Catalog& catalog);
// Those of them that are no tables of the catalogue and nothing on such a table.
std::vector<Part> OwnTables();

// Makes all tables, indexes and views. Requires: an open transaction on an empty
// database.
void CreateStructure(Connection& connection, const schema::Catalog& catalog);

// Whether nothing was ever made in the file.
bool IsBlank(const Connection& connection);

// How a file stands to what this program makes.
struct Structure {
  schema::Catalog catalog;             // the one that the database was made with
  std::vector<std::string> faults;     // what is missing or was altered, a German clause each
  std::vector<std::string> additions;  // of others: what lies on our tables or refers to them
};

// Raises StoreError::NotADatabase for texts in another encoding than UTF-8. In a database of an
// earlier structure the additions are the same as after its migration, the faults are not.
Structure ReadStructure(const Connection& connection);

}  // namespace pactora::store::sqlite
