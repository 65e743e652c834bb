// The report of a bulk run: what became of each contract that it was given. It is output
// alone: what was entered is known by the database.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "automation/formats/JsonWriter.h"
#include "platform/Error.h"

namespace pactora::bulk {

enum class Outcome {
  Created,  // angelegt
  Refused,  // abgelehnt: the add-on or the list's own rules
  Failed,   // Fehler: of the host or the program
  Skipped,  // übersprungen: entered by an earlier run, or the same stood above
};

std::string_view Text(Outcome outcome);
// Refused or failed: the line goes into the file of rejected lines.
bool IsRejected(Outcome outcome);

struct ReportLine {
  std::size_t line = 0;  // of the list or file
  std::string key;
  Outcome outcome = Outcome::Failed;
  std::string number;  // of the contract
  std::string list;    // in which the contract was entered, or that the rejected line is in
  std::string message;
};

struct Count {
  std::size_t created = 0;
  std::size_t refused = 0;
  std::size_t failed = 0;
  std::size_t skipped = 0;

  void Add(Outcome outcome);
  std::size_t Rejected() const { return refused + failed; }
  // In German, for people.
  std::string Text() const;
};

// The file's text: a line for each.
std::string TextOf(const std::vector<ReportLine>& lines);
// The same as an array with an object for each line.
void Write(formats::JsonWriter& out, const std::vector<ReportLine>& lines);

// Carries out a run and then leaves its lines in the report, also when the run raises: its
// error is the one that is raised. An empty path stands for no report.
void LeavingReport(const std::string& path, const std::vector<ReportLine>& lines,
                   const std::function<void()>& run);

// The error of a group of lines; one that leaves uncertain what is stored names the contracts.
platform::Error NamingUncertain(const platform::Error& error, const std::vector<ReportLine>& lines);

// A contract named in a report of an earlier release, when keys were kept in reports and not
// yet in the database.
struct ReportedContract {
  std::string key;
  std::string number;
};

// Examines what stands where the report will be: nothing, a report, or one of an earlier
// release, whose contracts are returned. Raises DoorError::BadInput for any other file, which
// must not be replaced, and DoorError::NotCarriedOut where the report can't be written.
std::vector<ReportedContract> ReadEarlierReport(const std::string& path);

// Raises DoorError::BadInput where the report would be standard output, the database or
// one of the lists.
void RequireOwnFile(const std::string& report, const std::string& database,
                    const std::vector<std::string>& lists);

}  // namespace pactora::bulk
