#include "automation/workspace/row_walk.h"

#include <algorithm>

namespace pactora::workspace {

RowWalk::RowWalk(store::RecordStore& store, store::TableId table) : store_(store) {
  for (std::optional<std::size_t> level = table; level;
       level = store.Catalog().tables[*level].parent) {
    levels_.insert(levels_.begin(), Level{*level, 0, 0});
  }
}

bool RowWalk::Next(store::Record& record) {
  while (!ended_) {
    Level& level = levels_[depth_];
    if (!store_.NextInParent(level.table, level.parent, level.after, record)) {
      ended_ = depth_ == 0;
      if (!ended_) --depth_;
      continue;
    }
    level.after = record.order;
    if (depth_ + 1 == levels_.size()) return true;
    ++depth_;
    levels_[depth_].parent = record.oid;
    levels_[depth_].after = 0;
  }
  return false;
}

void ForEachRow(store::RecordStore& store, store::TableId table,
                const std::function<bool(const store::Record&)>& visit) {
  RowWalk walk(store, table);
  store::Record record;
  while (walk.Next(record) && visit(record)) {
  }
}

std::vector<store::Record> AllRows(store::RecordStore& store, store::TableId table) {
  std::vector<store::Record> rows;
  ForEachRow(store, table, [&rows](const store::Record& record) {
    rows.push_back(record);
    return true;
  });
  std::sort(rows.begin(), rows.end(),
            [](const store::Record& a, const store::Record& b) { return a.order < b.order; });
  return rows;
}

}  // namespace pactora::workspace
