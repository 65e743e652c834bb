#include "automation/scripts/faults.h"

#include <algorithm>

#include "embedded/operations.h"
#include "platform/Error.h"
#include "platform/Text.h"

namespace pactora::scripts {

namespace {

// A script may leave out the object's name, "Item" for "Tables.Item".
bool Names(std::string_view wanted, std::string_view operation) {
  if (platform::EqualsIgnoringCase(wanted, operation)) return true;
  const std::size_t dot = operation.find('.');
  return dot != std::string_view::npos &&
         platform::EqualsIgnoringCase(wanted, operation.substr(dot + 1));
}

}  // namespace

bool IsOperation(std::string_view name) {
  return std::any_of(embedded::kOperations.begin(), embedded::kOperations.end(),
                     [name](std::string_view operation) { return Names(name, operation); });
}

void Faults::Add(const FaultStep& fault, const std::string& place) {
  armed_.push_back({fault, place});
}

std::vector<std::string> Faults::Unused() const {
  std::vector<std::string> places;
  for (const Armed& armed : armed_) places.push_back(armed.place);
  return places;
}

void Faults::Before(std::string_view operation, std::string_view table) {
  // A call counts for every fault that waits for it, also when one of them is raised.
  std::size_t due = armed_.size();
  for (std::size_t i = 0; i < armed_.size(); ++i) {
    FaultStep& fault = armed_[i].fault;
    if (!Names(fault.operation, operation)) continue;
    if (!fault.table.empty() && !platform::EqualsIgnoringCase(fault.table, table)) continue;
    if (fault.nth > 1)
      --fault.nth;
    else if (due == armed_.size())
      due = i;
  }
  if (due == armed_.size()) return;
  const FaultStep fault = armed_[due].fault;
  armed_.erase(armed_.begin() + static_cast<std::ptrdiff_t>(due));
  throw platform::Error(fault.number, fault.description, "Tessarin");
}

}  // namespace pactora::scripts
