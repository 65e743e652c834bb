// Databases of earlier structures, brought to today's.
#pragma once

#include <cstdint>

#include "store/sqlite/Connection.h"
#include "store/sqlite/structure.h"

namespace pactora::store::sqlite {

// The version of the database's structure: today's or one that Migrate takes. Raises
// StoreError::NotADatabase or OtherVersion.
std::int32_t ReadVersion(const Connection& connection);

// Whether the database has to be migrated before it is worked with. Raises the same.
bool IsOfEarlierVersion(const Connection& connection);

// Brings the structure to today's, unless another user has done so by now; all of it, or
// nothing where that leaves faults. What the structure is then. The connection runs no triggers
// from now on. Requires: no open transaction, and SetUp was called.
Structure Migrate(Connection& connection);

}  // namespace pactora::store::sqlite
