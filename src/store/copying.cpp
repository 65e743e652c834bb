#include "store/copying.h"

namespace pactora::store {
namespace {

// The rows under that parent, each followed by those under it.
void CopyRows(RecordStore& from, RecordStore& to, TableId table, Oid parent,
              const std::function<void()>& at_row) {
  Record row;
  for (std::int64_t after = 0; from.NextInParent(table, parent, after, row); after = row.order) {
    if (at_row) at_row();
    to.Insert(table, row);
    for (const TableId child : from.Catalog().tables[table].children) {
      CopyRows(from, to, child, row.oid, at_row);
    }
  }
}

}  // namespace

void CopyAll(RecordStore& from, RecordStore& to, const std::function<void()>& at_row) {
  to.WriteProfile(from.ReadProfile());
  for (TableId table = 0; table < from.Catalog().tables.size(); ++table) {
    if (!from.Catalog().tables[table].parent) CopyRows(from, to, table, 0, at_row);
  }
}

}  // namespace pactora::store
