// Where a save takes a contract type's values from: its stored row, or the copy
// in memory that was changed for this one contract. A contract is written by one
// road over this interface; where the two kinds of source lead to different rows,
// an operation here says so by name.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "contract/takeover.h"
#include "host/Value.h"

namespace pactora::newcontract {

// The attribute that a new contract sets on its address.
struct SetAttribute {
  std::string group;
  std::string attribute;  // empty for none
  std::string value;
};

// One position of a contract type while it is being walked.
class DefinitionPosition {
 public:
  virtual ~DefinitionPosition() = default;
  // The value to be copied into the contract position's field of that name; empty
  // for a field that was never written.
  virtual host::Value Field(std::string_view name) = 0;
};

// New contracts order their positions by group and number them; the rows of a
// takeover stand in list order and leave the numbers alone.
enum class PositionOrder { ByGroup, ByList };

class DefinitionSource {
 public:
  virtual ~DefinitionSource() = default;

  // The value to be copied into the contract row's field of that name; empty for a
  // field that was never written.
  virtual host::Value Field(std::string_view name) = 0;

  virtual SetAttribute AttributeToSet() = 0;
  virtual host::Value RenewalWorkflowId() = 0;
  // Name of the first term's payment period, given its months as the dialog has
  // them. The stored type has its own say: it may have changed since it was chosen.
  virtual std::string FirstPeriodName(std::int32_t zahlungsperiode) = 0;
  // What the address attribute calls the contract, given the name of the chosen
  // list row.
  virtual std::string AttributeTitle(const std::string& row_name) = 0;
  // Whether a takeover that ends in a renewal makes its appointment even when
  // renewing contracts get none.
  virtual bool AlwaysAlarmsLastRenewal() const = 0;

  virtual void ForEachPosition(PositionOrder order,
                               const std::function<void(DefinitionPosition&)>& visit) = 0;

  double NettoSumme();
  contract::NoticeRule Notice();         // of the first term
  contract::NoticeRule RenewalNotice();  // of a renewal
};

}  // namespace pactora::newcontract
