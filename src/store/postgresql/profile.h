// What the database knows besides rows, in tables of its own. All require an open transaction.
#pragma once

#include "store/Profile.h"
#include "store/postgresql/Connection.h"

namespace pactora::store::postgresql {

Profile ReadProfile(Connection& connection);
void WriteProfile(Connection& connection, const Profile& profile);
void WriteSetting(Connection& connection, const Setting& setting);

}  // namespace pactora::store::postgresql
