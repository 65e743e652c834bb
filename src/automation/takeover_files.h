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
// be mended. Lines of an earlier run that are not in the list any more are kept
// beside it, with a "~" behind the name.
std::string RejectedFile(const std::string& report);

class TakeoverJob {
 public:
  // Reads the list. Raises DoorError::BadInput for what is no list, and where one
  // file is to be two things.
  explicit TakeoverJob(TakeoverOrder order);

  std::size_t Size() const { return list_.lines.size(); }

  // Carries out the list and leaves report and rejected lines beside it; no file of
  // rejected lines means that there are none. after_line may raise to stop: the
  // report then holds what was done so far and the same order goes on from there.
  // Raises what concerns the database or the report as a whole, and
  // DoorError::BadInput where a file stands in the place of the rejected lines that
  // an earlier run of this report did not write.
  TakeoverRun::Count Run(const platform::Clock& clock, const std::function<void()>& after_line);

  // What became of the lines so far.
  const std::vector<ReportLine>& Lines() const { return lines_; }
  // The report as it stands, or for a rehearsal would stand, in its file.
  const std::string& ReportText() const { return report_text_; }

 private:
  void RequireOwnFiles() const;
  void RequireOwnRejected(const TakeoverReport& report);
  void WriteRejected() const;

  TakeoverOrder order_;
  TakeoverList list_;
  std::vector<ReportLine> lines_;
  std::string report_text_;
  // Lines stand in the place of the rejected ones that are not in the list: somebody
  // may have begun to mend them there.
  bool keeps_old_rejected_ = false;
};

}  // namespace pactora::automation
