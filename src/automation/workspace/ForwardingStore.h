// A store that forwards every call to another one; subclasses override some of them.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "store/RecordStore.h"

namespace pactora::workspace {

class ForwardingStore : public store::RecordStore {
 public:
  explicit ForwardingStore(std::unique_ptr<store::RecordStore> store) : store_(std::move(store)) {}

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
  void Insert(store::TableId table, store::Record& record) override {
    store_->Insert(table, record);
  }
  bool Update(store::TableId table, store::Record& record) override {
    return store_->Update(table, record);
  }
  void UpdateKeys(store::TableId table, store::Oid oid,
                  const std::vector<std::string>& keys) override {
    store_->UpdateKeys(table, oid, keys);
  }
  bool Erase(store::TableId table, store::Oid oid, std::int64_t version) override {
    return store_->Erase(table, oid, version);
  }
  bool IsReadOnly() override { return store_->IsReadOnly(); }
  void LockForUpdate() override { store_->LockForUpdate(); }
  bool InUnit() const override { return store_->InUnit(); }
  void Commit() override { store_->Commit(); }
  void Rollback() override { store_->Rollback(); }
  void SetSavepoint() override { store_->SetSavepoint(); }
  void RollbackToSavepoint() override { store_->RollbackToSavepoint(); }
  store::Profile ReadProfile() override { return store_->ReadProfile(); }
  void WriteProfile(const store::Profile& profile) override { store_->WriteProfile(profile); }
  void WriteSetting(const store::Setting& setting) override { store_->WriteSetting(setting); }
  std::int64_t ProfileStamp() override { return store_->ProfileStamp(); }

 private:
  std::unique_ptr<store::RecordStore> store_;
};

}  // namespace pactora::workspace
