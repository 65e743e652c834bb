// takeover: a list of running contracts through the new-contract dialog.
#include <fmt/format.h>

#include <iostream>
#include <memory>
#include <optional>

#include "automation/takeover_files.h"
#include "automation/takeover_report.h"
#include "cli/ProgressBar.h"
#include "cli/commands.h"
#include "cli/interrupt.h"
#include "cli/options.h"

namespace pactora::cli {

namespace {

struct TakeoverArguments {
  automation::TakeoverOrder order;
  std::optional<platform::Date> today;
};

Status RunTakeover(const TakeoverArguments& arguments) {
  automation::TakeoverJob job(arguments.order);
  const auto clock = ClockFor(arguments.today);
  ProgressBar bar(job.Size());
  automation::TakeoverRun::Count count;
  try {
    count = job.Run(*clock, [&] {
      bar.Advance();
      RaiseIfInterrupted();
    });
  } catch (...) {
    bar.Clear();
    if (job.Lines().empty()) throw;
    fmt::print(stderr, "{} von {} Zeilen bearbeitet; {}\n", job.Lines().size(), job.Size(),
               arguments.order.rehearsal ? "Probelauf, nichts geschrieben"
                                         : "derselbe Aufruf setzt die Liste fort");
    throw;
  }
  bar.Clear();
  if (arguments.order.rehearsal) {
    std::cout << job.ReportText();
    fmt::print(stderr, "Probelauf, nichts geschrieben\n");
  }
  fmt::print(stderr, "{}\n", count.Text());
  for (const std::string& sentence : job.FilesLeft()) fmt::print(stderr, "{}\n", sentence);
  if (count.Rejected() == 0) return Status::Done;
  return count.created + count.skipped > 0 ? Status::PartlyDone : Status::Refused;
}

}  // namespace

void AddTakeover(CLI::App& app, Run& run) {
  const auto arguments = std::make_shared<TakeoverArguments>();
  CLI::App* command =
      AddCommand(app, "takeover", "Übernimmt laufende Verträge aus einer Liste (CSV)");
  AddDatabase(*command, arguments->order.database);
  command->add_option("LISTE", arguments->order.list, "Die Liste; - ist die Standardeingabe")
      ->required()
      ->group("Argumente");
  command
      ->add_option("--report", arguments->order.report,
                   "Der Bericht: was aus jeder Zeile wurde; mit ihm wird eine unterbrochene "
                   "Übernahme fortgesetzt. Abgelehnte Zeilen stehen in BERICHT.abgelehnt.csv")
      ->required()
      ->type_name("BERICHT")
      ->group(kOptionGroup);
  AddToday(*command, arguments->today);
  AddDryRun(*command, arguments->order.rehearsal);
  command->callback([&run, arguments] { run = [arguments] { return RunTakeover(*arguments); }; });
}

}  // namespace pactora::cli
