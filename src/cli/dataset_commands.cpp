// init, import and export.
#include <fmt/format.h>

#include <memory>
#include <string>

#include "automation/dataset/dataset_files.h"
#include "automation/formats/files.h"
#include "automation/workspace/database.h"
#include "cli/commands.h"
#include "cli/interrupt.h"
#include "cli/options.h"

namespace pactora::cli {

namespace {

struct DatasetArguments {
  std::string database;
  std::string file;
  bool sample = false;
  bool dry_run = false;
  bool force = false;
};

void TellDone(const std::string& done, bool dry_run) {
  Tell(dry_run ? fmt::format("{} ({})", done, workspace::kRehearsed) : done);
}

dataset::Progress StopOnInterrupt() {
  return [](std::size_t, std::size_t) { RaiseIfInterrupted(); };
}

Status RunInit(const DatasetArguments& arguments) {
  dataset::InitDatabase(arguments.database,
                        arguments.sample ? dataset::Content::Sample : dataset::Content::None,
                        AccessFor(arguments.dry_run), StopOnInterrupt());
  TellDone(fmt::format("{} angelegt", arguments.database), arguments.dry_run);
  return Status::Done;
}

Status RunImport(const DatasetArguments& arguments) {
  const formats::TextSource source = formats::FileSource(arguments.file);
  dataset::ImportDatabase(arguments.database, source, AccessFor(arguments.dry_run),
                          StopOnInterrupt());
  TellDone(fmt::format("{} eingelesen in {}", source.name, arguments.database), arguments.dry_run);
  return Status::Done;
}

Status RunExport(const DatasetArguments& arguments) {
  if (!arguments.force)
    workspace::RequireNoDatabase(arguments.database, arguments.file,
                                 "mit --force wird sie ersetzt");
  dataset::ExportDatabase(arguments.database, arguments.file, StopOnInterrupt());
  return Status::Done;
}

}  // namespace

void AddInit(CLI::App& app, Run& run) {
  const auto arguments = std::make_shared<DatasetArguments>();
  CLI::App* command = AddCommand(app, "init", "Legt eine Datenbank an");
  AddDatabase(*command, arguments->database);
  command
      ->add_flag("--sample", arguments->sample,
                 "Mit erfundenen Adressen, Artikeln, Merkmalen, Workflows und Vertragstypen")
      ->group(kOptionGroup);
  AddDryRun(*command, arguments->dry_run);
  command->callback([&run, arguments] { run = [arguments] { return RunInit(*arguments); }; });
}

void AddImport(CLI::App& app, Run& run) {
  const auto arguments = std::make_shared<DatasetArguments>();
  CLI::App* command =
      AddCommand(app, "import", "Liest einen Datenbestand in eine neue oder leere Datenbank");
  AddDatabase(*command, arguments->database);
  command->add_option("DATEI", arguments->file, "Der Datenbestand; - ist die Standardeingabe")
      ->required();
  AddDryRun(*command, arguments->dry_run);
  command->callback([&run, arguments] { run = [arguments] { return RunImport(*arguments); }; });
}

void AddExport(CLI::App& app, Run& run) {
  const auto arguments = std::make_shared<DatasetArguments>();
  arguments->file = formats::kStandardStream;
  CLI::App* command = AddCommand(app, "export", "Schreibt den Datenbestand einer Datenbank");
  AddDatabase(*command, arguments->database);
  command->add_option("DATEI", arguments->file,
                      "Wohin; ohne Angabe und bei - auf die Standardausgabe");
  command->add_flag("--force", arguments->force, "Auch über eine Datei, die eine Datenbank ist")
      ->group(kOptionGroup);
  command->callback([&run, arguments] { run = [arguments] { return RunExport(*arguments); }; });
}

}  // namespace pactora::cli
