// The open database of the embedded host: its tables by name and its
// expressions.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "embedded/Core.h"
#include "host/HostDb.h"

namespace pactora::embedded {

class LiveTables final : public host::HostTables, public host::HostDbInfo {
 public:
  explicit LiveTables(Core& core) : core_(core) {}

  std::shared_ptr<host::HostTable> Item(std::string_view name) override;
  host::HostDbInfo& Database() override { return *this; }

  std::string Name() override;
  std::string DisplayName(std::int32_t flags) override;

 private:
  Core& core_;
};

// Knows the three expressions of the host, each a field of a table's current row.
class LiveFormulas final : public host::HostFormulas {
 public:
  explicit LiveFormulas(Core& core) : core_(core) {}

  std::shared_ptr<host::HostFormula> Compile(std::string_view text, std::int32_t flags) override;
  host::HostPersistVars& PersistVars() override;

 private:
  Core& core_;
};

class LiveDb final : public host::HostDb {
 public:
  explicit LiveDb(Core& core) : core_(core), tables_(core), formulas_(core) {}

  host::HostTables& Tables() override { return tables_; }
  host::HostUsers& Users() override;
  host::HostFormulas& Formulas() override { return formulas_; }
  host::HostSettings& DbSettings() override;

 private:
  Core& core_;
  LiveTables tables_;
  LiveFormulas formulas_;
};

}  // namespace pactora::embedded
