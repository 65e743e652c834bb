// Contract files from their names to their report.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "automation/bulk/report.h"
#include "automation/dataset/ContractRun.h"
#include "automation/dataset/WrittenRows.h"
#include "automation/formats/TextSource.h"
#include "platform/Clock.h"

namespace pactora::dataset {

struct ContractJobOrder {
  std::string database;
  std::vector<std::string> files;  // "-" is standard input
  std::string key_field;           // of ForEachContract
  std::string report;              // file; empty for none
  // Everything happens but nothing is kept, the report included.
  bool rehearsal = false;
};

class ContractJob {
 public:
  // Reads all files. Raises DoorError::BadInput for the first fault in them, for a key field
  // that contracts don't have, and where the report would replace another file.
  explicit ContractJob(ContractJobOrder order);

  std::size_t Size() const { return size_; }
  // What became of the records so far; all of it is durable.
  const bulk::Count& Count() const { return count_; }

  // As ContractRun::CarryOut; leaves the report, also when an error ends the run. written gets
  // what a rehearsal would have written.
  void CarryOut(const platform::Clock& clock, const std::function<bool()>& stop_asked,
                const std::function<void(const ContractRun::Results&)>& after_group,
                const std::function<void(WrittenRows&)>& written);

 private:
  const ContractJobOrder order_;
  std::vector<formats::TextSource> files_;
  std::size_t size_ = 0;
  bulk::Count count_;
  std::vector<bulk::ReportLine> lines_;  // where a report is wanted
};

}  // namespace pactora::dataset
