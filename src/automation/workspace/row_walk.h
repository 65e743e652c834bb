// All rows of a table, across all parents.
#pragma once

#include <cstddef>
#include <functional>
#include <string_view>
#include <vector>

#include "store/RecordStore.h"
#include "store/RowView.h"

namespace pactora::workspace {

// A walk that can be interrupted after each row. Rows of one parent come in record
// order. Rows that others insert or delete meanwhile may be missed; none comes twice.
class RowWalk {
 public:
  // The store must outlive the walk. With a row of the root table, the walk takes the
  // rows below that one (or that one itself); 0 stands for all.
  RowWalk(store::RecordStore& store, store::TableId table, store::Oid root = 0);

  // Goes to the next row, or returns false at the end and from then on.
  bool Next();

  // What was read of the row. Requires: the last Next returned true.
  const store::Record& Row() const { return levels_.back().row; }
  // The row itself or one of those above it, by the name of its table. Valid until the
  // next Next. Requires: as Row; the table is the walk's or one above it.
  store::RowView Row(std::string_view table) const;

 private:
  struct Level {
    store::TableId table = 0;
    store::Oid parent = 0;
    store::Record row;  // the one that was read last
  };

  bool Read(Level& level);

  store::RecordStore* store_;
  store::Oid root_;
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
