// Contract files carried out: every record through the add-on, several in one unit of work.
//
// A record with a key is made once, however often it comes: the database knows the keys. A
// record that fails half-way keeps what was stored before, and its key with it.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "automation/bulk/UnitGroup.h"
#include "automation/bulk/contract_keys.h"
#include "automation/bulk/report.h"
#include "automation/dataset/ContractMaker.h"
#include "automation/formats/TextSource.h"
#include "platform/Clock.h"
#include "store/RecordStore.h"

namespace pactora::dataset {

// What became of a record.
struct ContractResult {
  std::string source;
  bulk::ReportLine line;
  store::Oid oid = 0;  // of the contract, if there is one
};

class ContractRun {
 public:
  using Results = std::vector<ContractResult>;

  // gives_way: other users may wait for the database. The clock must outlive the run.
  ContractRun(std::unique_ptr<store::RecordStore> store, const platform::Clock& clock,
              bool gives_way);

  // Carries out the files' records in order, and calls after_group with what became of them
  // once that is durable. key_field is that of ForEachContract. Raises
  // DoorError::Interrupted between two records when stop_asked says so, and what concerns
  // the database or a file as a whole; what was finished before is durable then, unless
  // the database failed.
  void CarryOut(const std::vector<formats::TextSource>& files, std::string_view key_field,
                const std::function<bool()>& stop_asked,
                const std::function<void(const Results&)>& after_group);

 private:
  ContractResult Take(const ContractOrder& order);
  // Whether the record's key is known; the result is what becomes of it then.
  bool IsKnown(const ContractOrder& order, ContractResult& result);
  void Enter(const ContractOrder& order, ContractResult& result);

  const platform::Clock& clock_;
  ContractMaker maker_;
  bulk::ContractKeys keys_;
  bulk::UnitGroup group_;
};

}  // namespace pactora::dataset
