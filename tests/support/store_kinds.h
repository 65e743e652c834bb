// The stores that a shared suite runs over, each with a name for its reports.
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "schema/Catalog.h"
#include "store/RecordStore.h"
#include "store/memory/MemoryStore.h"
#include "support/TemporaryFolder.h"
#ifdef PACTORA_HAS_SQLITE
#include "store/sqlite/SqliteStore.h"
#endif
#ifdef PACTORA_HAS_POSTGRESQL
#include "store/postgresql/PostgresqlStore.h"
#endif

namespace pactora::support {

struct StoreKind {
  std::string name;
  // Null where the store's server is not there.
  std::function<std::unique_ptr<store::RecordStore>(schema::Catalog, store::Profile)> create = {};
  // For a store that several users have open: the name of a new one, empty where its server is
  // not there, and the ways to it.
  std::function<std::string()> new_name = {};
  std::function<std::unique_ptr<store::RecordStore>(const std::string& name, schema::Catalog,
                                                    store::Profile)>
      create_at = {};
  std::function<std::unique_ptr<store::RecordStore>(const std::string& name,
                                                    std::chrono::milliseconds lock_timeout)>
      open = {};

  friend void PrintTo(const StoreKind& kind, std::ostream* out) { *out << kind.name; }
};

// A suite whose cases run once for each kind; those of a server that is not there are skipped.
class StoreTest : public testing::TestWithParam<StoreKind> {
 protected:
  void SetUp() override {
    if (GetParam().name == "Postgresql" && std::getenv("PACTORA_POSTGRESQL") == nullptr)
      GTEST_SKIP() << "no server; see tools/postgres";
  }
};

#ifdef PACTORA_HAS_POSTGRESQL
// The address of a new schema on the server that the tests are given, empty where there is none.
// The schema goes with the server; see tools/postgres.
inline std::string NewServerAddress() {
  const char* const server = std::getenv("PACTORA_POSTGRESQL");
  if (server == nullptr) return {};
  std::random_device random;
  return std::string(server) + "&schema=test_" + std::to_string(random()) +
         std::to_string(random());
}
#endif

// Those that several users can have open.
inline std::vector<StoreKind> SharedStoreKinds() {
  std::vector<StoreKind> kinds;
#ifdef PACTORA_HAS_SQLITE
  kinds.push_back({.name = "SqliteOnDisk",
                   .new_name =
                       [] {
                         static TemporaryFolder folder;
                         static int files = 0;
                         return folder.File(std::to_string(++files) + ".db");
                       },
                   .create_at = store::CreateSqlite,
                   .open =
                       [](const std::string& name, std::chrono::milliseconds lock_timeout) {
                         return store::OpenSqlite(name, {.lock_timeout = lock_timeout});
                       }});
#endif
#ifdef PACTORA_HAS_POSTGRESQL
  kinds.push_back({.name = "Postgresql",
                   .new_name = NewServerAddress,
                   .create_at =
                       [](const std::string& name, const schema::Catalog& catalog,
                          const store::Profile& profile) {
                         auto store = store::CreatePostgresql(name, catalog, profile);
                         store->Commit();
                         return store;
                       },
                   .open =
                       [](const std::string& name, std::chrono::milliseconds lock_timeout) {
                         return store::OpenPostgresql(name, store::OpenMode::Write, lock_timeout);
                       }});
#endif
  for (StoreKind& kind : kinds) {
    kind.create = [kind](const schema::Catalog& catalog, const store::Profile& profile) {
      const std::string name = kind.new_name();
      return name.empty() ? nullptr : kind.create_at(name, catalog, profile);
    };
  }
  return kinds;
}

inline std::vector<StoreKind> AllStoreKinds() {
  std::vector<StoreKind> kinds = {{"Memory", store::CreateMemoryStore}};
#ifdef PACTORA_HAS_SQLITE
  kinds.push_back({"SqliteInMemory", [](const schema::Catalog& catalog, const auto& profile) {
                     return store::CreateSqliteInMemory(catalog, profile);
                   }});
#endif
  for (StoreKind& kind : SharedStoreKinds()) kinds.push_back(std::move(kind));
  return kinds;
}

// Without files: their store is that of SQLite in memory, but for the time that commits take.
inline std::vector<StoreKind> StoreKinds() {
  std::vector<StoreKind> kinds = AllStoreKinds();
  std::erase_if(kinds, [](const StoreKind& kind) { return kind.name == "SqliteOnDisk"; });
  return kinds;
}

inline std::string StoreName(const testing::TestParamInfo<StoreKind>& info) {
  return info.param.name;
}

}  // namespace pactora::support
