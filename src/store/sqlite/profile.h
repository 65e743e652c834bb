// What the database knows besides rows, in tables of its own. The writing
// functions require an open transaction.
#pragma once

#include "store/Profile.h"
#include "store/sqlite/Connection.h"

namespace pactora::store::sqlite {

// Requires an open transaction too: the tables must fit together.
Profile ReadProfile(const Connection& connection);
void WriteProfile(Connection& connection, const Profile& profile);
void WriteSetting(Connection& connection, const Setting& setting);

}  // namespace pactora::store::sqlite
