// The contract type of the current row of vv_Vertragsdefinitionen.
#pragma once

#include <memory>

#include "host/HostTable.h"
#include "newcontract/DefinitionSource.h"

namespace pactora::newcontract {

class StoredDefinition final : public DefinitionSource {
 public:
  // definitions stands on the type; positions shows its rows in record order by
  // the time they are walked. The attribute to set is read at once.
  StoredDefinition(std::shared_ptr<host::HostTable> definitions,
                   std::shared_ptr<host::HostTable> positions);

  host::Value Field(std::string_view name) override;
  SetAttribute AttributeToSet() override { return attribute_; }
  host::Value RenewalWorkflowId() override;
  // Of the type's own period.
  std::string FirstPeriodName(std::int32_t zahlungsperiode) override;
  // The row's name.
  std::string AttributeTitle(const std::string& row_name) override { return row_name; }
  bool AlwaysAlarmsLastRenewal() const override { return false; }
  // Stored positions carry their numbers, so any order is record order.
  void ForEachPosition(PositionOrder order,
                       const std::function<void(DefinitionPosition&)>& visit) override;

 private:
  std::shared_ptr<host::HostTable> moDefinitionen;
  std::shared_ptr<host::HostTable> moDefPositionen;
  SetAttribute attribute_;
};

}  // namespace pactora::newcontract
