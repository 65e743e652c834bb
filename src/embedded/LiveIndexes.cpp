#include "embedded/LiveIndexes.h"

#include "embedded/LiveTable.h"
#include "embedded/errors.h"

namespace pactora::embedded {

std::string LiveIndex::Name() const { return table_.Schema().indexes[index_].name; }

host::Value LiveIndex::KeyValue() {
  table_.Begin("KeyValue");
  const std::string* key = table_.CurrentKey(index_);
  return key == nullptr ? host::Value() : host::Value(*key);
}

LiveIndexes::LiveIndexes(LiveTable& table) : table_(table) {
  indexes_.reserve(table.Schema().indexes.size());
  for (store::IndexId index = 0; index < table.Schema().indexes.size(); ++index) {
    indexes_.emplace_back(table, index);
  }
}

void LiveIndexes::Select(std::string_view name, std::int32_t) {
  table_.Begin("Select");
  const auto index = table_.Schema().FindIndex(name);
  if (!index) Raise(HostError::UnknownIndex, table_.Schema().name + "." + std::string(name));
  table_.SelectIndex(index);
}

void LiveIndexes::SelectNone(std::int32_t) {
  table_.Begin("SelectNone");
  table_.SelectIndex(std::nullopt);
}

std::shared_ptr<host::HostIndex> LiveIndexes::Current() {
  table_.Begin("Current");
  const auto index = table_.SelectedIndex();
  if (!index) return nullptr;
  return table_.GetCore().Handle<host::HostIndex>(indexes_[*index]);
}

void LiveIndexes::SetCurrent(const std::shared_ptr<host::HostIndex>& index) {
  table_.Begin("SetCurrent");
  const auto* own = dynamic_cast<const LiveIndex*>(index.get());
  if (own == nullptr || &own->Table() != &table_) {
    Raise(HostError::InvalidIndex, table_.Schema().name);
  }
  table_.SelectIndex(own->Position());
}

}  // namespace pactora::embedded
