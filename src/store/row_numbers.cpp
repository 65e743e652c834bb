#include "store/row_numbers.h"

#include <algorithm>
#include <limits>

#include "store/errors.h"

namespace pactora::store {

RowNumbers NumbersFor(const Record& record, std::int64_t last) {
  RowNumbers numbers{record.oid, record.order, std::max({last, record.oid, record.order})};
  // A number for the row itself and one for its order at most.
  if (numbers.last >= std::numeric_limits<std::int64_t>::max() - 1)
    Raise(StoreError::Failed, "keine Oid mehr frei");
  if (numbers.oid == 0) numbers.oid = ++numbers.last;
  if (numbers.order == 0) numbers.order = record.oid == 0 ? numbers.oid : ++numbers.last;
  return numbers;
}

}  // namespace pactora::store
