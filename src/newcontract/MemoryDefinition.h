// The contract type in memory: the module's gDefinition and gPositions.
#pragma once

#include "definitions/vv_CDefinition.h"
#include "newcontract/DefinitionSource.h"
#include "shell/Module.h"

namespace pactora::newcontract {

class MemoryDefinition final : public DefinitionSource {
 public:
  // Reads nothing yet. While there is no gDefinition every operation that needs it
  // raises error 91. The module must outlive the source.
  explicit MemoryDefinition(shell::Module& module) : module_(module) {}

  host::Value Field(std::string_view name) override;
  SetAttribute AttributeToSet() override;
  host::Value RenewalWorkflowId() override;
  // Of the months handed in, which came from the type in memory.
  std::string FirstPeriodName(std::int32_t zahlungsperiode) override;
  // The type's own name, which may have been changed.
  std::string AttributeTitle(const std::string& row_name) override;
  bool AlwaysAlarmsLastRenewal() const override { return true; }
  // Row, numbers and group are worked out from the place in the list. Without
  // gPositions there is nothing to visit.
  void ForEachPosition(PositionOrder order,
                       const std::function<void(DefinitionPosition&)>& visit) override;

 private:
  definitions::vv_CDefinition& Definition() const;

  shell::Module& module_;
};

}  // namespace pactora::newcontract
