// A takeover list from its file to its report and its file of rejected lines.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "automation/bulk/report.h"
#include "automation/dataset/WrittenRows.h"
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

class Job {
 public:
  // Reads the list, and the report if it is one of an earlier release. Raises
  // DoorError::BadInput for what is no list, where the report would replace another
  // file, and where one file is to be two things.
  explicit Job(const Order& order);

  std::size_t Size() const { return list_.lines.size(); }

  // Carries out the list and leaves report and rejected lines beside it; no file of
  // rejected lines means that there are none. after_line may raise to stop: the same order
  // goes on from there. Raises what concerns the database or the report as a whole.
  // show gets what was written into the database when the list is done, of a rehearsal
  // too.
  bulk::Count CarryOut(const platform::Clock& clock, const std::function<void()>& after_line,
                       const std::function<void(dataset::WrittenRows&)>& show = {});

  // What a person should know of the files when the run has come to its end: a
  // sentence a line.
  std::vector<std::string> FilesLeft() const;

  // What became of the lines so far; all of it is durable.
  const std::vector<bulk::ReportLine>& Lines() const { return lines_; }

 private:
  const Order order_;
  const List list_;
  const std::vector<bulk::ReportedContract> earlier_;
  std::vector<bulk::ReportLine> lines_;
  std::string kept_;  // file of an earlier run's rejected lines, empty for none
};

}  // namespace pactora::takeover
