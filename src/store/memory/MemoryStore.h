// A store that keeps its rows in memory: for rehearsals, tests and programs that
// need a database only while they run. One user, one thread.
#pragma once

#include <memory>

#include "schema/Catalog.h"
#include "store/RecordStore.h"

namespace pactora::store {

// An empty database of that structure.
std::unique_ptr<RecordStore> CreateMemoryStore(schema::Catalog catalog, Profile profile);

}  // namespace pactora::store
