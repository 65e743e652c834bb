// A whole database from one store into another.
#pragma once

#include <functional>

#include "store/RecordStore.h"

namespace pactora::store {

// Writes profile and rows, with their Oids, orders and keys, in the unit of work that is open or
// begins here; versions begin anew. at_row runs at each row and may raise to stop.
// Requires: to is empty and of the same catalogue.
void CopyAll(RecordStore& from, RecordStore& to, const std::function<void()>& at_row = {});

}  // namespace pactora::store
