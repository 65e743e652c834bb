// What a schema holds: the tables of the catalogue (see store/sql/row_statements.h) and those
// of its own. A field that was never written is NULL. Dates are day counts as everywhere in the
// system; a table with dates has a view beside it that shows them in readable form. Keys are
// bytes, so that no collation orders them.
#pragma once

#include <string>
#include <vector>

#include "schema/Catalog.h"
#include "store/postgresql/Connection.h"

namespace pactora::store::postgresql {

// Whether the schema is there and holds tables, views or the like.
bool HoldsAnything(Connection& connection);

// Makes the schema, where it is not there yet, and all tables, indexes and views. Requires: an
// open transaction. Raises StoreError::Failed where the schema holds something.
void CreateStructure(Connection& connection, const schema::Catalog& catalog);

// How a schema stands to what this program makes.
struct Structure {
  schema::Catalog catalog;             // the one that the database was made with
  std::vector<std::string> faults;     // what is missing or was altered, a German clause each
  std::vector<std::string> additions;  // triggers and indexes of others on our tables
};

// Raises StoreError::NotADatabase where the schema is none of ours, OtherVersion for a structure
// of another version.
Structure ReadStructure(Connection& connection);

}  // namespace pactora::store::postgresql
