// A store that remembers which rows were written: what a rehearsal would have
// changed.
#pragma once

#include <memory>
#include <set>
#include <utility>
#include <vector>

#include "automation/formats/JsonWriter.h"
#include "automation/workspace/ForwardingStore.h"

namespace pactora::dataset {

class WrittenRows final : public workspace::ForwardingStore {
 public:
  using workspace::ForwardingStore::ForwardingStore;

  // Puts one between the store and its callers; lives as long as the store.
  static WrittenRows& Watch(std::unique_ptr<store::RecordStore>& store);

  // The rows that were inserted or updated and are still there, in the order of
  // their first write, under their tables' names as in a dataset.
  void Write(formats::JsonWriter& out);

  void Insert(store::TableId table, store::Record& record) override;
  bool Update(store::TableId table, store::Record& record) override;

 private:
  using Row = std::pair<store::TableId, store::Oid>;

  void Remember(store::TableId table, store::Oid oid);

  std::vector<Row> rows_;  // in the order of their first write
  std::set<Row> known_;
};

}  // namespace pactora::dataset
