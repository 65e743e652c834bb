// The examination of a whole database.
#pragma once

#include <string>
#include <vector>

#include "schema/Catalog.h"
#include "store/postgresql/Connection.h"

namespace pactora::store::postgresql {

// What is wrong with the rows, in German, a line each. Requires: the structure has no faults.
std::vector<std::string> Examine(Connection& connection, const schema::Catalog& catalog);

}  // namespace pactora::store::postgresql
