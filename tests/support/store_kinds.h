// The stores that a shared suite runs over, each with a name for its reports.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <functional>
#include <memory>
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
  std::function<std::unique_ptr<store::RecordStore>(schema::Catalog, store::Profile)> create;

  friend void PrintTo(const StoreKind& kind, std::ostream* out) { *out << kind.name; }
};

#ifdef PACTORA_HAS_POSTGRESQL
// The address of a schema of that name on the server that the tests are given, empty where there
// is none. See tools/postgres.
inline std::string ServerAddress(const std::string& schema) {
  const char* const server = std::getenv("PACTORA_POSTGRESQL");
  return server == nullptr ? "" : std::string(server) + "&schema=" + schema;
}

// An empty database on that server; null where there is none.
inline std::unique_ptr<store::RecordStore> CreateOnServer(const schema::Catalog& catalog,
                                                          const store::Profile& profile) {
  const std::string address = ServerAddress("test_" + std::to_string(getpid()));
  if (address.empty()) return nullptr;
  store::RemovePostgresql(address);
  return store::CreatePostgresql(address, catalog, profile);
}
#endif

inline std::vector<StoreKind> StoreKinds() {
  std::vector<StoreKind> kinds = {{"Memory", store::CreateMemoryStore}};
#ifdef PACTORA_HAS_SQLITE
  kinds.push_back({"SqliteInMemory", [](schema::Catalog catalog, store::Profile profile) {
                     return store::CreateSqliteInMemory(catalog, profile);
                   }});
#endif
#ifdef PACTORA_HAS_POSTGRESQL
  kinds.push_back({"Postgresql", CreateOnServer});
#endif
  return kinds;
}

// With the stores whose commits wait for the disk.
inline std::vector<StoreKind> StoreKindsWithDisk() {
  std::vector<StoreKind> kinds = StoreKinds();
#ifdef PACTORA_HAS_SQLITE
  kinds.push_back({"SqliteOnDisk", [](schema::Catalog catalog, store::Profile profile) {
                     static TemporaryFolder folder;
                     static int files = 0;
                     const std::string name = std::to_string(++files) + ".db";
                     return store::CreateSqlite(folder.File(name), catalog, profile);
                   }});
#endif
  return kinds;
}

inline std::string StoreName(const testing::TestParamInfo<StoreKind>& info) {
  return info.param.name;
}

}  // namespace pactora::support
