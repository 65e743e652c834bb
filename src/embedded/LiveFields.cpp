#include "embedded/LiveFields.h"

#include "embedded/LiveTable.h"
#include "embedded/errors.h"

namespace pactora::embedded {

host::Value LiveField::Value() const {
  table_.Begin("Value");
  return table_.Cells()[field_];
}

void LiveField::SetValue(const host::Value& value) {
  table_.Begin("SetValue");
  table_.WriteCell(field_, value);
}

std::string LiveField::Name() const { return table_.Schema().fields[field_].name; }

std::int32_t LiveField::Size() const { return table_.Schema().fields[field_].size; }

host::HostFields& LiveField::Parent() { return table_.Fields(); }

LiveFields::LiveFields(LiveTable& table) : table_(table) {
  fields_.reserve(table.Schema().fields.size());
  for (std::size_t field = 0; field < table.Schema().fields.size(); ++field) {
    fields_.emplace_back(table, field);
  }
}

std::optional<std::size_t> LiveFields::Find(std::string_view name) {
  return table_.Schema().FindField(name);
}

host::HostField& LiveFields::Item(std::string_view name) {
  table_.Begin("Fields.Item");
  const auto field = Find(name);
  if (!field) Raise(HostError::UnknownField, table_.Schema().name + "." + std::string(name));
  return fields_[*field];
}

bool LiveFields::Exists(std::string_view name) {
  table_.Begin("Fields.Exists");
  return Find(name).has_value();
}

host::HostTable& LiveFields::Parent() { return table_; }

}  // namespace pactora::embedded
