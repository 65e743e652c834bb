// A store that passes everything on and remembers which rows were written: what a
// rehearsal would have changed.
#pragma once

#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "automation/JsonWriter.h"
#include "store/RecordStore.h"

namespace pactora::automation {

class WrittenRows final : public store::RecordStore {
 public:
  explicit WrittenRows(std::unique_ptr<store::RecordStore> store) : store_(std::move(store)) {}

  // The rows that were inserted or updated and are still there, in the order of
  // their first write, under their tables' names as in a dataset.
  void Write(JsonWriter& out);

  const schema::Catalog& Catalog() const override { return store_->Catalog(); }
  bool Read(store::TableId table, store::Oid oid, store::Record& record) override {
    return store_->Read(table, oid, record);
  }
  bool NextInParent(store::TableId table, store::Oid parent, std::int64_t after,
                    store::Record& record) override {
    return store_->NextInParent(table, parent, after, record);
  }
  bool NextByKey(store::TableId table, store::IndexId index, std::string_view key,
                 std::int64_t after, store::Record& record) override {
    return store_->NextByKey(table, index, key, after, record);
  }
  std::int64_t CountInParent(store::TableId table, store::Oid parent) override {
    return store_->CountInParent(table, parent);
  }
  std::int64_t Count(store::TableId table) override { return store_->Count(table); }
  void Insert(store::TableId table, store::Record& record) override;
  bool Update(store::TableId table, store::Record& record) override;
  void UpdateKeys(store::TableId table, store::Oid oid,
                  const std::vector<std::string>& keys) override {
    store_->UpdateKeys(table, oid, keys);
  }
  bool Erase(store::TableId table, store::Oid oid, std::int64_t version) override {
    return store_->Erase(table, oid, version);
  }
  void LockForUpdate() override { store_->LockForUpdate(); }
  bool InUnit() const override { return store_->InUnit(); }
  void Commit() override { store_->Commit(); }
  void Rollback() override { store_->Rollback(); }
  store::Profile ReadProfile() override { return store_->ReadProfile(); }
  void WriteProfile(const store::Profile& profile) override { store_->WriteProfile(profile); }
  void WriteSetting(const store::Setting& setting) override { store_->WriteSetting(setting); }
  std::int64_t ProfileStamp() override { return store_->ProfileStamp(); }

 private:
  using Row = std::pair<store::TableId, store::Oid>;

  void Remember(store::TableId table, store::Oid oid);

  std::unique_ptr<store::RecordStore> store_;
  std::vector<Row> rows_;  // in the order of their first write
  std::set<Row> known_;
};

}  // namespace pactora::automation
