// Whether a person still waits for other users of a database.
#pragma once

#include <chrono>

namespace pactora::store::sql {

// While a statement of any connection waits for other users, called at least twenty times
// a second, on the statement's thread and with how long it has waited: true ends the
// wait as one that was too long. Must not use the connection. Null for none.
void GiveUpWaitingWhen(bool (*asked)(std::chrono::milliseconds waited));

// For connections: what asked says, false for none.
bool IsWaitGivenUp(std::chrono::milliseconds waited);

}  // namespace pactora::store::sql
