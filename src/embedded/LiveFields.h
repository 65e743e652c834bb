// The fields of a live table's current row.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/HostTable.h"

namespace pactora::embedded {

class LiveTable;

class LiveField final : public host::HostField {
 public:
  LiveField(LiveTable& table, std::size_t field) : table_(table), field_(field) {}

  host::Value Value() const override;
  void SetValue(const host::Value& value) override;
  std::string Name() const override;
  std::int32_t Size() const override;
  host::HostFields& Parent() override;

 private:
  LiveTable& table_;
  const std::size_t field_;
};

class LiveFields final : public host::HostFields {
 public:
  explicit LiveFields(LiveTable& table);

  host::HostField& Item(std::string_view name) override;
  bool Exists(std::string_view name) override;
  host::HostTable& Parent() override;

 private:
  // Position of the field; nullopt for an unknown name.
  std::optional<std::size_t> Find(std::string_view name);

  LiveTable& table_;
  std::vector<LiveField> fields_;
};

}  // namespace pactora::embedded
