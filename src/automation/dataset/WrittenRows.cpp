#include "automation/dataset/WrittenRows.h"

#include "automation/dataset/dataset_export.h"

namespace pactora::dataset {

WrittenRows& WrittenRows::Watch(std::unique_ptr<store::RecordStore>& store) {
  auto watching = std::make_unique<WrittenRows>(std::move(store));
  WrittenRows& written = *watching;
  store = std::move(watching);
  return written;
}

void WrittenRows::Write(formats::JsonWriter& out) {
  out.BeginObject();
  store::Record record;
  for (store::TableId table = 0; table < Catalog().tables.size(); ++table) {
    bool any = false;
    for (const Row& row : rows_) {
      if (row.first != table || !Read(table, row.second, record)) continue;
      if (!any) {
        out.Key(Catalog().tables[table].name);
        out.BeginArray();
      }
      any = true;
      WriteRow(out, *this, table, record, false);
    }
    if (any) out.EndArray();
  }
  out.EndObject();
}

void WrittenRows::Insert(store::TableId table, store::Record& record) {
  workspace::ForwardingStore::Insert(table, record);
  Remember(table, record.oid);
}

bool WrittenRows::Update(store::TableId table, store::Record& record) {
  if (!workspace::ForwardingStore::Update(table, record)) return false;
  Remember(table, record.oid);
  return true;
}

void WrittenRows::Remember(store::TableId table, store::Oid oid) {
  if (known_.insert({table, oid}).second) rows_.push_back({table, oid});
}

}  // namespace pactora::dataset
