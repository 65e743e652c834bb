// The report of a takeover list: what became of each line, kept so that an
// interrupted run can simply be repeated.
//
// While a run goes on its outcomes are added to the end of the file; a run that
// comes to its end leaves one line for each line of the list, in that order, and
// behind them the contracts of earlier lists that had the same report: a key that
// was entered once stays known. A line that a killed program left half written is
// passed over.
#pragma once

#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "automation/formats/JsonWriter.h"

namespace pactora::takeover {

enum class Outcome {
  Created,  // angelegt
  Refused,  // abgelehnt: the dialog or the list's own rules
  Failed,   // Fehler: of the host or the program
  Skipped,  // übersprungen: created by an earlier run, or the key stood above
};

std::string_view Text(Outcome outcome);

struct ReportLine {
  std::size_t line = 0;  // of the list; 0 for a contract of an earlier list
  std::string key;
  Outcome outcome = Outcome::Failed;
  std::string number;  // of the contract
  std::string message;
};

class Report {
 public:
  // A report of this run alone, in no file.
  Report() = default;
  // Reads the report of an earlier run, if there is one. Raises DoorError::BadInput
  // for a file that is no such report.
  explicit Report(std::string path);
  ~Report();
  Report(const Report&) = delete;
  Report& operator=(const Report&) = delete;

  // From now on the lines go to the file, which is begun where there is none, and no
  // other run gets it. Raises DoorError::NotCarriedOut when it can't be written or
  // another run has it.
  void Open();

  const std::string& Path() const { return path_; }
  // Whether an earlier run, finished or not, has left this report.
  bool Resumed() const { return resumed_; }
  // The number of the contract that was created for the key; null for none.
  const std::string* CreatedFor(const std::string& key) const;
  // The contracts of earlier runs.
  const std::vector<ReportLine>& Earlier() const { return earlier_; }
  // One that the file lacks: it stays known also where the list does not have its key.
  void AddEarlier(const std::string& key, const std::string& number);
  // Whether an earlier run could not enter the key.
  bool WasRejected(const std::string& key) const { return rejected_.contains(key); }
  // Whether it could not because another line with the key was entered.
  bool WasDoubled(const std::string& key) const { return doubled_.contains(key); }

  void Add(const ReportLine& line);
  // Returns when all lines added so far are safe from a power cut.
  void Sync();
  // The run has come to its end.
  void Finish();

  // The lines of this run.
  const std::vector<ReportLine>& Lines() const { return lines_; }
  // What stands in the file when the run has come to its end, and its lines.
  std::string Text() const;
  // The same as an array with an object for each line.
  void Write(formats::JsonWriter& out) const;

 private:
  std::vector<ReportLine> AllLines() const;
  void Load();
  void LoadLine(const std::vector<std::string>& cells);

  std::string path_;
  bool resumed_ = false;
  std::size_t size_ = 0;                                  // bytes of the file as it was read
  std::size_t whole_ = 0;                                 // of these, up to the last whole line
  bool lacks_break_ = false;                              // behind that line
  std::unordered_map<std::string, std::string> created_;  // key, contract number
  std::vector<ReportLine> earlier_;                       // the same, of earlier runs, in order
  std::unordered_set<std::string> rejected_;              // keys
  std::unordered_set<std::string> doubled_;               // of these
  std::vector<ReportLine> lines_;                         // of this run
  std::FILE* file_ = nullptr;
};

}  // namespace pactora::takeover
