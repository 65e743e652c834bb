// takeover: a list of running contracts through the new-contract dialog.
#include <fmt/format.h>

#include <iostream>
#include <memory>
#include <optional>

#include "automation/bulk/report.h"
#include "automation/takeover/job.h"
#include "automation/takeover/list.h"
#include "cli/ProgressBar.h"
#include "cli/commands.h"
#include "cli/interrupt.h"
#include "cli/options.h"

namespace pactora::cli {

namespace {

struct TakeoverArguments {
  takeover::Order order;
  std::optional<platform::Date> today;
  bool json = false;
};

// The report, and what was or would be written.
void PrintJson(const takeover::Job& job, dataset::WrittenRows& written) {
  formats::JsonWriter out(std::cout, formats::JsonWriter::Layout::OneLine);
  out.BeginObject();
  out.Key("lines");
  bulk::Write(out, job.Lines());
  out.Key("tables");
  written.Write(out);
  out.EndObject();
  std::cout << '\n';
}

Status RunTakeover(const TakeoverArguments& arguments) {
  if (arguments.json || arguments.order.rehearsal) RequireOutput();
  takeover::Job job(arguments.order);
  const auto clock = ClockFor(arguments.today);
  ProgressBar bar(job.Size());
  bulk::Count count;
  try {
    const auto after_line = [&] {
      bar.Advance();
      RaiseIfInterrupted();
    };
    std::function<void(dataset::WrittenRows&)> show;
    if (arguments.json)
      show = [&](dataset::WrittenRows& written) {
        bar.Clear();
        PrintJson(job, written);
      };
    count = job.CarryOut(*clock, after_line, show);
  } catch (...) {
    bar.Clear();
    if (job.Lines().empty()) throw;
    Tell(fmt::format("{} von {} Zeilen bearbeitet; {}", job.Lines().size(), job.Size(),
                     arguments.order.rehearsal ? workspace::kRehearsed
                                               : "derselbe Aufruf setzt die Liste fort"));
    throw;
  }
  bar.Clear();
  if (arguments.order.rehearsal) {
    if (!arguments.json) std::cout << bulk::TextOf(job.Lines());
    Tell(workspace::kRehearsed);
  }
  Tell(count.Text());
  for (const std::string& sentence : job.FilesLeft()) Tell(sentence);
  const bool is_told = arguments.order.rehearsal || IsOutputWritten();
  if (count.Rejected() == 0 && is_told) return Status::Done;
  return count.created + count.skipped > 0 ? Status::PartlyDone : Status::Refused;
}

}  // namespace

void AddTakeover(CLI::App& app, Run& run) {
  const auto arguments = std::make_shared<TakeoverArguments>();
  CLI::App* command =
      AddCommand(app, "takeover", "Übernimmt laufende Verträge aus einer Liste (CSV)");
  command->footer(fmt::format(
      "Spalten der Liste: {}.\nDie ersten drei müssen da sein, die Reihenfolge ist beliebig. "
      "Getrennt mit ; oder , und in UTF-8.\nDaten wie 31.12.2024 oder 2024-12-31, Zahlen wie "
      "1234,56, ja oder nein.",
      takeover::ColumnNames()));
  AddDatabase(*command, arguments->order.database);
  command->add_option("LISTE", arguments->order.list, "Die Liste; - ist die Standardeingabe")
      ->required()
      ->group("Argumente");
  command
      ->add_option("--report", arguments->order.report,
                   "Der Bericht: was aus jeder Zeile wurde. Abgelehnte Zeilen stehen in "
                   "BERICHT.abgelehnt.csv")
      ->required()
      ->type_name("BERICHT")
      ->group(kOptionGroup);
  // Prints and ends, whatever else is missing, as --help does.
  command
      ->add_flag_callback(
          "--template",
          [] {
            std::cout << takeover::Template();
            throw CLI::Success();
          },
          "Gibt eine Vorlage der Liste aus: alle Spalten und eine Beispielzeile")
      ->group(kOptionGroup);
  AddToday(*command, arguments->today);
  AddDryRun(*command, arguments->order.rehearsal,
            "; der Bericht kommt auf die "
            "Standardausgabe");
  AddJson(*command, arguments->json, ": der Bericht und die geschriebenen Zeilen der Datenbank");
  command->callback([&run, arguments] { run = [arguments] { return RunTakeover(*arguments); }; });
}

}  // namespace pactora::cli
