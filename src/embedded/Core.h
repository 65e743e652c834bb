// The state behind everything the embedded host hands out. Handed-out objects
// share ownership of the core, so they stay safe to call; once the Host is gone
// the core has no store and every operation raises HostError::HostClosed.
#pragma once

#include <exception>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "embedded/Host.h"
#include "embedded/operations.h"
#include "schema/Catalog.h"
#include "store/RecordStore.h"

namespace pactora::embedded {

class LiveApp;
class LiveDb;
class LiveProfile;
class LiveTable;

class Core : public std::enable_shared_from_this<Core> {
 public:
  explicit Core(std::unique_ptr<store::RecordStore> record_store);
  ~Core();

  // Every operation of the host layer begins here.
  void Begin(OperationName operation, std::string_view table = {}) {
    if (store_ == nullptr) RaiseClosed();
    if (probe != nullptr) probe->Before(operation, table);
  }

  // Requires: Begin was called in this operation.
  store::RecordStore& Store() { return *store_; }
  const schema::Catalog& Catalog() const { return catalog_; }

  // Null for an unknown name.
  LiveTable* FindTable(std::string_view name);
  LiveTable& TableAt(store::TableId table) { return *tables_[table]; }

  void SaveUnit();
  void EndUnit();
  void DropUnit();
  void DropToSavepoint();
  void Close();

  // A handle on one of the core's objects that keeps the core alive.
  template <typename T>
  std::shared_ptr<T> Handle(T& object) {
    return std::shared_ptr<T>(shared_from_this(), &object);
  }

  OperationProbe* probe = nullptr;
  std::function<void(const std::string&, const host::ValueArray&)> macro_listener;

  LiveProfile& Profile() { return *profile_; }
  LiveDb& Db() { return *db_; }
  LiveApp& App() { return *app_; }

 private:
  [[noreturn]] static void RaiseClosed();
  // What was read may not be there any more.
  void ForgetAll();

  std::unique_ptr<store::RecordStore> store_;
  std::exception_ptr lost_;  // why the unit's changes are lost, until EndUnit or DropUnit
  schema::Catalog catalog_;
  std::vector<std::unique_ptr<LiveTable>> tables_;
  std::unique_ptr<LiveProfile> profile_;
  std::unique_ptr<LiveDb> db_;
  std::unique_ptr<LiveApp> app_;
};

}  // namespace pactora::embedded
