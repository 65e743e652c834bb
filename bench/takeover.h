// Lines of a takeover list through the dialog, for the benchmark beside the
// dialog-free road.
#pragma once

#include <memory>
#include <string>

#include "platform/Clock.h"
#include "store/RecordStore.h"

namespace pactora::bench {

class TakeoverOffice {
 public:
  // Fills the empty store with the sample company.
  explicit TakeoverOffice(std::unique_ptr<store::RecordStore> store);
  ~TakeoverOffice();

  static constexpr int kLines = 50;  // of one list
  // Carries out one list of running contracts; each is durable when the call
  // returns.
  void TakeOver();

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace pactora::bench
