#include "embedded/Host.h"

#include <utility>

#include "embedded/Core.h"
#include "embedded/LiveApp.h"
#include "embedded/LiveDb.h"
#include "embedded/LiveProfile.h"
#include "embedded/LiveTable.h"
#include "embedded/errors.h"

namespace pactora::embedded {

Core::Core(std::unique_ptr<store::RecordStore> record_store)
    : store_(std::move(record_store)), catalog_(store_->Catalog()) {
  for (store::TableId table = 0; table < catalog_.tables.size(); ++table) {
    tables_.push_back(std::make_unique<LiveTable>(*this, table));
  }
  profile_ = std::make_unique<LiveProfile>(*this);
  db_ = std::make_unique<LiveDb>(*this);
  app_ = std::make_unique<LiveApp>(*this);
}

Core::~Core() = default;

void Core::RaiseClosed() { Raise(HostError::HostClosed); }

LiveTable* Core::FindTable(std::string_view name) {
  const auto table = catalog_.FindTable(name);
  return table ? tables_[*table].get() : nullptr;
}

void Core::SaveUnit() {
  if (lost_) std::rethrow_exception(lost_);
  if (!store_->InUnit()) return;
  try {
    store_->Commit();
  } catch (...) {
    lost_ = std::current_exception();
    throw;
  }
}

void Core::EndUnit() {
  try {
    SaveUnit();
  } catch (...) {
    DropUnit();
    throw;
  }
}

void Core::DropUnit() {
  lost_ = nullptr;
  store_->Rollback();
  ForgetAll();
}

void Core::DropToSavepoint() {
  store_->RollbackToSavepoint();
  ForgetAll();
}

void Core::ForgetAll() {
  for (const auto& table : tables_) table->Forget();
  profile_->Reload();
}

void Core::Close() { store_.reset(); }

Host::Host(std::unique_ptr<store::RecordStore> store)
    : core_(std::make_shared<Core>(std::move(store))) {}

Host::~Host() {
  core_->probe = nullptr;
  core_->Close();
}

std::shared_ptr<host::HostApp> Host::App() { return core_->Handle<host::HostApp>(core_->App()); }

store::RecordStore& Host::Store() { return core_->Store(); }

std::shared_ptr<host::HostTable> Host::Table(std::string_view name) {
  return core_->Db().Tables().Item(name);
}

void Host::SaveUnit() { core_->SaveUnit(); }

void Host::EndUnit() { core_->EndUnit(); }

void Host::DropUnit() { core_->DropUnit(); }

void Host::SetSavepoint() { core_->Store().SetSavepoint(); }

void Host::DropToSavepoint() { core_->DropToSavepoint(); }

void Host::SetProbe(OperationProbe* probe) { core_->probe = probe; }

void Host::SetMacroListener(
    std::function<void(const std::string&, const host::ValueArray&)> listener) {
  core_->macro_listener = std::move(listener);
}

}  // namespace pactora::embedded
