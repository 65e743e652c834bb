// The indexes of a live table.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/HostTable.h"
#include "store/RecordStore.h"

namespace pactora::embedded {

class LiveTable;

class LiveIndex final : public host::HostIndex {
 public:
  LiveIndex(LiveTable& table, store::IndexId index) : table_(table), index_(index) {}

  std::string Name() const override;
  host::Value KeyValue() override;

  store::IndexId Position() const { return index_; }
  const LiveTable& Table() const { return table_; }

 private:
  LiveTable& table_;
  const store::IndexId index_;
};

class LiveIndexes final : public host::HostIndexes {
 public:
  explicit LiveIndexes(LiveTable& table);

  void Select(std::string_view name, std::int32_t flags) override;
  void SelectNone(std::int32_t flags) override;
  std::shared_ptr<host::HostIndex> Current() override;
  void SetCurrent(const std::shared_ptr<host::HostIndex>& index) override;

 private:
  LiveTable& table_;
  std::vector<LiveIndex> indexes_;
};

}  // namespace pactora::embedded
