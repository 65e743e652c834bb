// Takeover lists and contract files carried out, for the benchmarks: what many contracts
// cost at once.
#pragma once

#include <memory>
#include <string>

#include "automation/dataset/ContractRun.h"
#include "automation/takeover/list.h"
#include "automation/takeover/run.h"
#include "platform/Clock.h"
#include "store/RecordStore.h"

namespace pactora::bench {

// Adds the sample company to an empty store.
void FillSample(store::RecordStore& store);

// A takeover list of running contracts over a store with the sample company.
class TakeoverOffice {
 public:
  TakeoverOffice(std::unique_ptr<store::RecordStore> store, int lines);

  // Carries out the list under keys that no earlier call has entered; each line is durable
  // when the call returns.
  void TakeOver();

 private:
  platform::FixedClock clock_;
  takeover::List list_;
  takeover::Run run_;
};

// A contract file over a store with the company of company.h; each record has a key and is
// the contract that Office concludes.
class ContractFileOffice {
 public:
  ContractFileOffice(std::unique_ptr<store::RecordStore> store, int contracts);

  // Writes the next file, with keys that no earlier one had.
  void WriteFile();
  // Carries it out; each contract is durable when the call returns.
  void MakeContracts();

 private:
  const int contracts_;
  int made_ = 0;
  platform::FixedClock clock_;
  dataset::ContractRun run_;
  formats::TextSource file_;
};

}  // namespace pactora::bench
