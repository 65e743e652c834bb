// The stores that a shared suite runs over, each with a name for its reports.
#pragma once

#include <gtest/gtest.h>

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

namespace pactora::support {

struct StoreKind {
  std::string name;
  std::function<std::unique_ptr<store::RecordStore>(schema::Catalog, store::Profile)> create;

  friend void PrintTo(const StoreKind& kind, std::ostream* out) { *out << kind.name; }
};

inline std::vector<StoreKind> StoreKinds() {
  std::vector<StoreKind> kinds = {{"Memory", store::CreateMemoryStore}};
#ifdef PACTORA_HAS_SQLITE
  kinds.push_back({"SqliteInMemory", [](schema::Catalog catalog, store::Profile profile) {
                     return store::CreateSqliteInMemory(catalog, profile);
                   }});
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
