#include "automation/workspace/row_walk.h"

#include <algorithm>
#include <optional>

namespace pactora::workspace {

RowWalk::RowWalk(store::RecordStore& store, store::TableId table, store::Oid root)
    : store_(&store), root_(root) {
  for (std::optional<std::size_t> level = table; level;
       level = store.Catalog().tables[*level].parent) {
    levels_.insert(levels_.begin(), Level{*level, 0, {}});
  }
}

bool RowWalk::Read(Level& level) {
  if (depth_ == 0 && root_ != 0)
    return level.row.oid == 0 && store_->Read(level.table, root_, level.row);
  return store_->NextInParent(level.table, level.parent, level.row.order, level.row);
}

bool RowWalk::Next() {
  while (!ended_) {
    Level& level = levels_[depth_];
    if (!Read(level)) {
      ended_ = depth_ == 0;
      if (!ended_) --depth_;
      continue;
    }
    if (depth_ + 1 == levels_.size()) return true;
    ++depth_;
    levels_[depth_].parent = level.row.oid;
    levels_[depth_].row.order = 0;
  }
  return false;
}

store::RowView RowWalk::Row(std::string_view table) const {
  const auto level = std::ranges::find_if(levels_, [&](const Level& candidate) {
    return store_->Catalog().tables[candidate.table].name == table;
  });
  return {store_->Catalog().tables[level->table], level->row};
}

void ForEachRow(store::RecordStore& store, store::TableId table,
                const std::function<bool(const store::Record&)>& visit) {
  RowWalk walk(store, table);
  while (walk.Next() && visit(walk.Row())) {
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
