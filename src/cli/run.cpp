// run: an automation script.
#include <fmt/format.h>

#include <algorithm>
#include <iostream>
#include <memory>
#include <optional>
#include <string>

#include "automation/dataset/WrittenRows.h"
#include "automation/formats/JsonWriter.h"
#include "automation/formats/TextSource.h"
#include "automation/scripts/script_run.h"
#include "automation/workspace/database.h"
#include "cli/commands.h"
#include "cli/interrupt.h"
#include "cli/options.h"

namespace pactora::cli {

namespace {

struct RunArguments {
  std::string database;
  std::string script;
  std::optional<platform::Date> today;
  bool dry_run = false;
};

Status RunScriptFile(const RunArguments& arguments) {
  const formats::TextSource source = formats::FileSource(arguments.script);
  const scripts::Script script =
      scripts::ReadScript(formats::ParseJson(*source.open(), source.name), source.name);
  const auto clock = ClockFor(arguments.today ? arguments.today : script.today);
  auto store = workspace::OpenDatabase(arguments.database, AccessFor(arguments.dry_run));
  scripts::RunOptions options;
  bool is_begun = false;
  options.at_step = [&] {
    RaiseIfInterrupted();
    RequireOutput();
    is_begun = true;
  };
  options.dump_written = arguments.dry_run;
  scripts::RunResult result;
  try {
    result = scripts::RunScript(script, std::move(store), *clock, std::cout, options);
  } catch (const platform::Error& error) {
    // What was done is stored, but its transcript is lost.
    if (!is_begun || arguments.dry_run || StatusOf(error) != Status::Refused) throw;
    Complain(error.Description());
    return Status::PartlyDone;
  }
  for (const std::string& problem : result.problems)
    Complain(fmt::format("{}: {}", source.name, problem));
  for (const std::string& hint : result.hints) Complain(fmt::format("{}: {}", source.name, hint));
  for (const std::string& place : result.unused_faults)
    Complain(fmt::format("{}: {}: der Fehler ist nicht eingetreten", source.name, place));
  const auto tells_why = [&](const std::string& problem) {
    return problem.ends_with(result.fatal_error->Description());
  };
  if (result.fatal_error && std::ranges::none_of(result.problems, tells_why))
    Complain(fmt::format("{}: {}", arguments.database, result.fatal_error->Description()));
  if (arguments.dry_run) Tell(workspace::kRehearsed);
  if (result.fatal_error) return StatusOf(*result.fatal_error);
  if (!result.problems.empty()) return Status::Refused;
  return is_begun && !arguments.dry_run && !IsOutputWritten() ? Status::PartlyDone : Status::Done;
}

}  // namespace

void AddRun(CLI::App& app, Run& run) {
  const auto arguments = std::make_shared<RunArguments>();
  CLI::App* command =
      AddCommand(app, "run", "Führt ein Skript aus und schreibt auf, was dabei geschieht");
  AddDatabase(*command, arguments->database);
  command->add_option("SKRIPT", arguments->script, "Das Skript; - ist die Standardeingabe")
      ->required();
  AddToday(*command, arguments->today, ", statt dem des Skripts");
  AddDryRun(*command, arguments->dry_run,
            "; als letztes Ereignis kommen "
            "die Zeilen, die entstanden wären");
  command->callback([&run, arguments] { run = [arguments] { return RunScriptFile(*arguments); }; });
}

}  // namespace pactora::cli
