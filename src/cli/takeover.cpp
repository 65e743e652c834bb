// takeover: a list of running contracts through the new-contract dialog.
#include <fmt/format.h>

#include <filesystem>
#include <iostream>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <system_error>
#include <unordered_map>

#include "automation/database.h"
#include "automation/dataset_import.h"
#include "automation/files.h"
#include "automation/takeover_list.h"
#include "automation/takeover_report.h"
#include "automation/takeover_run.h"
#include "cli/ProgressBar.h"
#include "cli/commands.h"
#include "cli/interrupt.h"
#include "cli/options.h"

namespace pactora::cli {

namespace {

struct Arguments {
  std::string database;
  std::string list;
  std::string report;
  std::optional<platform::Date> today;
  bool dry_run = false;
};

std::string RejectedFile(const std::string& report) { return report + ".abgelehnt.csv"; }

// The lines that were not entered, as they stood in the list, ready to be mended.
void WriteRejected(const automation::TakeoverList& list, const automation::TakeoverReport& report,
                   const std::string& path) {
  std::unordered_map<std::size_t, const automation::TakeoverLine*> lines;
  for (const automation::TakeoverLine& line : list.lines) lines[line.line] = &line;
  std::string text = list.header + "\n";
  bool any = false;
  for (const automation::ReportLine& line : report.Lines()) {
    if (line.outcome != automation::TakeoverOutcome::Refused &&
        line.outcome != automation::TakeoverOutcome::Failed) {
      continue;
    }
    text += lines.at(line.line)->text + "\n";
    any = true;
  }
  if (any) {
    automation::ReplaceFile(path, text);
  } else {
    std::error_code ignored;
    std::filesystem::remove(path, ignored);
  }
}

Status RunTakeover(const Arguments& arguments) {
  const automation::TextSource source = automation::FileSource(arguments.list);
  const auto in = source.open();
  const std::string text{std::istreambuf_iterator<char>(*in), {}};
  const automation::TakeoverList list = automation::ReadTakeoverList(text, source.name);

  const auto clock = ClockFor(arguments.today);
  automation::TakeoverRun run(
      automation::OpenDatabase(arguments.database, AccessFor(arguments.dry_run)), *clock);
  // A rehearsal keeps no report: a report is what has been done.
  automation::TakeoverReport report(arguments.dry_run ? std::string() : arguments.report);
  const std::string report_name =
      std::filesystem::weakly_canonical(std::filesystem::absolute(arguments.report)).string();

  ProgressBar bar(list.lines.size());
  automation::TakeoverRun::Count count;
  try {
    count = run.Run(list, report, report_name, [&] {
      bar.Advance();
      RaiseIfInterrupted();
    });
  } catch (...) {
    bar.Clear();
    fmt::print(stderr, "{} von {} Zeilen bearbeitet; derselbe Aufruf setzt die Liste fort\n",
               report.Lines().size(), list.lines.size());
    throw;
  }
  bar.Clear();
  if (arguments.dry_run) {
    std::cout << automation::ReportText(report.Lines());
    fmt::print(stderr, "Probelauf, nichts geschrieben\n");
  } else {
    WriteRejected(list, report, RejectedFile(arguments.report));
  }
  fmt::print(stderr, "{} angelegt, {} abgelehnt, {} übersprungen\n", count.created, count.refused,
             count.skipped);
  if (count.refused == 0) return Status::Done;
  return count.created + count.skipped > 0 ? Status::PartlyDone : Status::Refused;
}

}  // namespace

void AddTakeover(CLI::App& app, Run& run) {
  const auto arguments = std::make_shared<Arguments>();
  CLI::App* command =
      AddCommand(app, "takeover", "Übernimmt laufende Verträge aus einer Liste (CSV)");
  AddDatabase(*command, arguments->database);
  command->add_option("LISTE", arguments->list, "Die Liste; - ist die Standardeingabe")
      ->required()
      ->group("Argumente");
  command
      ->add_option("--report", arguments->report,
                   "Der Bericht: was aus jeder Zeile wurde; mit ihm wird eine unterbrochene "
                   "Übernahme fortgesetzt. Abgelehnte Zeilen stehen in BERICHT.abgelehnt.csv")
      ->required()
      ->type_name("BERICHT")
      ->group(kOptionGroup);
  AddToday(*command, arguments->today);
  AddDryRun(*command, arguments->dry_run);
  command->callback([&run, arguments] { run = [arguments] { return RunTakeover(*arguments); }; });
}

}  // namespace pactora::cli
