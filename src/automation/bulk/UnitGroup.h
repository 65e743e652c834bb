// Several contracts in one unit of work: the disk is waited for once for all of them.
#pragma once

#include <chrono>
#include <cstddef>

#include "embedded/Host.h"

namespace pactora::bulk {

class UnitGroup {
 public:
  // gives_way: other users wait for the database, so they get it between two groups.
  // The host must outlive the group.
  UnitGroup(embedded::Host& host, bool gives_way) : host_(host), gives_way_(gives_way) {}

  // A contract begins: what is stored from here on can be taken back alone.
  void Begin();
  void TakeBack() { host_.DropToSavepoint(); }

  // Whether it is time to make the group durable: it has many contracts, or is held for long.
  bool IsFull() const;
  // Makes all that was stored durable. On an error nothing of it remains.
  void End();
  // Drops all that was stored since the last End.
  void Drop();

 private:
  using Clock = std::chrono::steady_clock;

  embedded::Host& host_;
  const bool gives_way_;
  std::size_t contracts_ = 0;
  Clock::time_point begun_ = Clock::now();
};

}  // namespace pactora::bulk
