#include "automation/bulk/UnitGroup.h"

#include <thread>

namespace pactora::bulk {
namespace {

constexpr std::size_t kMostContracts = 500;
constexpr std::chrono::milliseconds kLongestGroup(100);
// A waiting program tries again every 10 ms at least: it gets two tries.
constexpr std::chrono::milliseconds kTimeForOthers(20);

}  // namespace

void UnitGroup::Begin() {
  host_.SetSavepoint();
  ++contracts_;
}

bool UnitGroup::IsFull() const {
  return contracts_ >= kMostContracts || Clock::now() - begun_ >= kLongestGroup;
}

void UnitGroup::End() {
  const bool held_database = host_.Store().InUnit();
  contracts_ = 0;
  host_.EndUnit();
  if (held_database && gives_way_) std::this_thread::sleep_for(kTimeForOthers);
  begun_ = Clock::now();
}

void UnitGroup::Drop() {
  contracts_ = 0;
  host_.DropUnit();
}

}  // namespace pactora::bulk
