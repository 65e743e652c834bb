// A takeover list from its file to its report.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "automation/database.h"
#include "automation/takeover_report.h"
#include "automation/takeover_run.h"
#include "platform/Clock.h"

namespace pactora::automation {

struct TakeoverOrder {
  std::string database;
  std::string list;    // file; "-" is standard input
  std::string report;  // file
  // Everything happens but nothing is kept, the report included.
  bool rehearsal = false;
};

// The file of the lines that were not entered, as they stood in the list, ready to
// be mended.
std::string RejectedFile(const std::string& report);

class TakeoverJob {
 public:
  // Reads the list. Raises DoorError::BadInput for what is no list.
  explicit TakeoverJob(TakeoverOrder order);

  std::size_t Size() const { return list_.lines.size(); }

  // Carries out the list and leaves report and rejected lines beside it; no file of
  // rejected lines means that there are none. after_line may raise to stop: the
  // report then holds what was done so far and the same order goes on from there.
  // Raises what concerns the database or the report as a whole.
  TakeoverRun::Count Run(const platform::Clock& clock, const std::function<void()>& after_line);

  // What became of the lines so far.
  const std::vector<ReportLine>& Lines() const { return lines_; }

 private:
  void WriteRejected() const;

  TakeoverOrder order_;
  TakeoverList list_;
  std::vector<ReportLine> lines_;
};

}  // namespace pactora::automation
