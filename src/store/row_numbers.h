// The numbers of a new row: one counter for Oids and orders of all tables.
#pragma once

#include <cstdint>

#include "store/RecordStore.h"

namespace pactora::store {

struct RowNumbers {
  Oid oid = 0;
  std::int64_t order = 0;
  std::int64_t last = 0;  // the greatest number given out or taken in by then
};

// Those that the record has, and the next ones for those that it lacks. last: as above, before
// this row. Raises StoreError::Failed when no number is left.
RowNumbers NumbersFor(const Record& record, std::int64_t last);

}  // namespace pactora::store
