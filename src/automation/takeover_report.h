// The report of a takeover list: what became of each line, kept so that an
// interrupted run can simply be repeated.
//
// While a run goes on its outcomes are added to the end of the file; a run that
// comes to its end leaves exactly one line for each line of the list. A line that
// a killed program left half written is passed over.
#pragma once

#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace pactora::automation {

enum class TakeoverOutcome {
  Created,  // angelegt
  Refused,  // abgelehnt: the dialog or the list's own rules
  Failed,   // Fehler: of the host or the program
  Skipped,  // übersprungen: created by an earlier run, or the key stood above
};

std::string_view Text(TakeoverOutcome outcome);

struct ReportLine {
  std::size_t line = 0;  // of the list
  std::string key;
  TakeoverOutcome outcome = TakeoverOutcome::Failed;
  std::string number;  // of the contract
  std::string message;
};

class TakeoverReport {
 public:
  // Reads the report of an earlier run, if there is one, and begins it where there
  // is none. With an empty path nothing is kept. Raises DoorError::BadInput for a file
  // that is no such report, NotCarriedOut for one that cannot be written.
  explicit TakeoverReport(std::string path);
  ~TakeoverReport();
  TakeoverReport(const TakeoverReport&) = delete;
  TakeoverReport& operator=(const TakeoverReport&) = delete;

  // Whether an earlier run, finished or not, has left this report.
  bool Resumed() const { return resumed_; }
  // The number of the contract that was created for the key; null for none.
  const std::string* CreatedFor(const std::string& key) const;

  void Add(const ReportLine& line);
  // Returns when all lines added so far are safe from a power cut.
  void Sync();
  // Leaves the lines of this run alone in the file.
  void Finish();

  const std::vector<ReportLine>& Lines() const { return lines_; }

 private:
  void Load();

  std::string path_;
  bool resumed_ = false;
  std::unordered_map<std::string, std::string> created_;  // key, contract number
  std::vector<ReportLine> lines_;                         // of this run
  std::FILE* file_ = nullptr;
};

// The header and the lines as text.
std::string ReportText(const std::vector<ReportLine>& lines);

}  // namespace pactora::automation
