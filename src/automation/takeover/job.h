// A takeover list from its file to its report.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "automation/dataset/WrittenRows.h"
#include "automation/takeover/report.h"
#include "automation/takeover/run.h"
#include "automation/workspace/database.h"
#include "platform/Clock.h"

namespace pactora::takeover {

struct Order {
  std::string database;
  std::string list;    // file; "-" is standard input
  std::string report;  // file
  // Everything happens but nothing is kept, the report included.
  bool rehearsal = false;
};

// The file of the lines that were not entered, as they stood in the list. Once
// they are corrected, it is the list of the next run with this report. Lines of an
// earlier run that are not in the list any more are kept beside it, with a "~" behind
// the name.
std::string RejectedFile(const std::string& report);
// The report of a list for which none is named; a file of rejected lines has the
// report of the list that they come from.
std::string UsualReport(const std::string& list);

class Job {
 public:
  // Reads the list and the report of an earlier run. Raises DoorError::BadInput for
  // what is no list or no report, and where one file is named for two purposes.
  explicit Job(const Order& order);

  std::size_t Size() const { return list_.lines.size(); }

  // Carries out the list and leaves report and rejected lines beside it; no file of
  // rejected lines means that there are none. after_line may raise to stop: the
  // report then holds what was done so far, and the same order resumes from there.
  // Raises what concerns the database or the report as a whole, and
  // DoorError::BadInput where a file stands in the place of the rejected lines that
  // an earlier run of this report did not write. show gets what was written into the
  // database when the list is done, of a rehearsal too.
  Run::Count CarryOut(const platform::Clock& clock, const std::function<void()>& after_line,
                      const std::function<void(dataset::WrittenRows&)>& show = {});

  // What a person should know of the files at the end of the run: a sentence a line.
  std::vector<std::string> FilesLeft() const;

  // What became of the lines so far.
  const std::vector<ReportLine>& Lines() const { return report_.Lines(); }
  // The report as it stands, or for a rehearsal would stand, in its file.
  std::string ReportText() const { return report_.Text(); }
  void WriteReport(formats::JsonWriter& out) const { report_.Write(out); }

 private:
  // What stands in the place of the rejected lines.
  enum class OldRejected {
    Known,    // nothing, or lines of the list
    Changed,  // other lines: they may have been corrected there
  };
  OldRejected ReadOldRejected() const;
  void WriteRejected(OldRejected old);

  const Order order_;
  const List list_;
  Report report_;
  const bool list_is_rejected_;  // the list stands where its rejected lines will
  std::string kept_;             // file of an earlier run's rejected lines, empty for none
};

}  // namespace pactora::takeover
