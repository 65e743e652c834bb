// All rows of a table, whatever their parents.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "store/RecordStore.h"

namespace pactora::workspace {

// A walk that stops after each row, for whoever can't stay away until its end.
// Rows of one parent come in record order. Rows that others insert or delete on the
// way may be missed; none comes twice.
class RowWalk {
 public:
  // The store must outlive the walk.
  RowWalk(store::RecordStore& store, store::TableId table);

  // Fills record with the next row, or returns false at the end and from then on.
  bool Next(store::Record& record);

 private:
  struct Level {
    store::TableId table = 0;
    store::Oid parent = 0;
    std::int64_t after = 0;  // record order of the row before
  };

  store::RecordStore& store_;
  std::vector<Level> levels_;  // from the root table down
  std::size_t depth_ = 0;      // the level that is read next
  bool ended_ = false;
};

// Calls visit for each row of the table; ends early when visit returns false.
void ForEachRow(store::RecordStore& store, store::TableId table,
                const std::function<bool(const store::Record&)>& visit);

// The table's rows in record order across all parents.
std::vector<store::Record> AllRows(store::RecordStore& store, store::TableId table);

}  // namespace pactora::workspace
