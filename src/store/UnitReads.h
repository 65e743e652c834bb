// What a unit of work has read. While it is open nobody else writes, so a row of a table
// that it has not written itself stays as it was read. A bulk run reads the same types and
// articles for each of its contracts.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "store/RecordStore.h"

namespace pactora::store {

class UnitReads {
 public:
  // Which row is looked up.
  struct Lookup {
    enum class Kind { ByOid, InParent, ByKey };

    Kind kind = Kind::ByOid;
    std::int64_t of = 0;     // the Oid, the parent, or the index
    std::int64_t after = 0;  // the order behind which it lies
    std::string key{};

    bool operator==(const Lookup&) const = default;
  };

  explicit UnitReads(std::size_t tables) : tables_(tables) {}

  // The row that read(record) found when it was called for this lookup, or finds now.
  template <typename Reader>
  bool Find(TableId table, Lookup lookup, Record& record, const Reader& read) {
    Table& reads = tables_[table];
    if (reads.written) return read(record);
    if (const auto known = reads.rows.find(lookup); known != reads.rows.end()) {
      if (known->second) record = *known->second;
      return known->second.has_value();
    }
    const bool found = read(record);
    if (reads.rows.size() >= kMost) reads.rows.clear();
    reads.rows.emplace(std::move(lookup), found ? std::optional(record) : std::nullopt);
    return found;
  }
  // The unit writes to the table.
  void Written(TableId table) {
    tables_[table].written = true;
    tables_[table].rows.clear();
  }
  // The unit has ended.
  void Clear() {
    for (Table& table : tables_) table = {};
  }

 private:
  static constexpr std::size_t kMost = 1000;  // rows of a table

  struct Hash {
    std::size_t operator()(const Lookup& lookup) const {
      const auto number = static_cast<std::size_t>(lookup.of * 1'000'003 + lookup.after);
      return std::hash<std::string>()(lookup.key) ^
             (number * 4 + static_cast<std::size_t>(lookup.kind));
    }
  };
  struct Table {
    bool written = false;
    std::unordered_map<Lookup, std::optional<Record>, Hash> rows;
  };

  std::vector<Table> tables_;
};

}  // namespace pactora::store
