// The SQL of a store's operations on rows. Each database has a table for each table of the
// catalogue, with the columns oid, parent (child tables only), ord (record order) and version,
// one for each field, and one for the key of each index.
#pragma once

#include <string>
#include <string_view>

#include "schema/Catalog.h"
#include "store/RecordStore.h"

namespace pactora::store::sql {

enum class Operation {
  Read,
  NextInParent,
  CountInParent,
  Count,
  Insert,
  Update,             // with keys and unique fields
  UpdateKeepingKeys,  // finds the row only if those are the same
  UpdateKeys,
  Erase,
};

// Columns of statements that find rows.
inline constexpr int kOidColumn = 0;
inline constexpr int kVersionColumn = 1;
inline constexpr int kOrderColumn = 2;
inline constexpr int kParentColumn = 3;
inline constexpr int kFirstCellColumn = 4;  // the keys follow the cells

// Parameters of statements that write rows. Those that find rows number theirs
// in the order of the operation's arguments; root tables leave out the parent.
inline constexpr int kOidParameter = 1;
inline constexpr int kVersionParameter = 2;  // as it is before the write
inline constexpr int kOrderParameter = 3;
inline constexpr int kParentParameter = 4;
inline constexpr int kFirstCellParameter = 5;  // the keys follow the cells

// What a parameter or a column holds.
enum class Content { Number, Text, Long, Real, Boolean, Key };
Content ContentOf(schema::FieldType type);

// How a database writes what each writes in its own way.
struct Dialect {
  std::string (*parameter)(int number, Content content);  // counted from 1
  const char* is_same;                                    // compares values that may be NULL
};

// The name in double quotes, as SQL takes any name.
std::string Quoted(std::string_view name);
// The column that holds the keys of an index, in quotes.
std::string KeyColumn(const schema::Index& index);

std::string OperationSql(const Dialect& dialect, const schema::Table& table, Operation operation);
std::string NextByKeySql(const Dialect& dialect, const schema::Table& table, IndexId index);

// The two halves of an insert: where to, and the row.
std::string InsertInto(const schema::Table& table);
std::string InsertedValues(const Dialect& dialect, const schema::Table& table);

// The parameter of a field's cell in statements that write rows.
std::string CellParameter(const Dialect& dialect, const schema::Table& table, std::size_t field);

}  // namespace pactora::store::sql
