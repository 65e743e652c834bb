// init, import and export.
#include <fmt/format.h>

#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <string>
#include <system_error>

#include "automation/database.h"
#include "automation/dataset_export.h"
#include "automation/dataset_head.h"
#include "automation/dataset_import.h"
#include "automation/errors.h"
#include "automation/sample/sample.h"
#include "cli/commands.h"
#include "cli/interrupt.h"
#include "cli/options.h"

namespace pactora::cli {

namespace {

using automation::DoorError;

struct Arguments {
  std::string database;
  std::string file;
  bool sample = false;
  bool dry_run = false;
};

void Tell(const std::string& done, bool dry_run) {
  fmt::print(stderr, "{}{}\n", done, dry_run ? " (Probelauf, nichts geschrieben)" : "");
}

// Into a new database, or into one that is there and empty.
void Import(const Arguments& arguments, const automation::TextSource& source) {
  const automation::DatasetSurvey survey = automation::SurveyDataset(source);
  const std::string name = automation::DefaultDatabaseName(arguments.database);
  const auto fill = [&](store::RecordStore& store) {
    automation::ImportDataset(store, source, survey, name, RaiseIfInterrupted);
  };
  const automation::Access access = AccessFor(arguments.dry_run);
  if (!automation::DatabaseExists(arguments.database)) {
    automation::MakeDatabase(arguments.database, survey.workflow_add_on,
                             automation::DefaultProfile(name), access, fill);
    return;
  }
  const auto store = automation::OpenDatabase(arguments.database, access);
  if (!automation::IsEmpty(*store))
    automation::Raise(DoorError::BadInput, arguments.database + ": die Datenbank ist nicht leer");
  if (store->Catalog().workflow_add_on != survey.workflow_add_on)
    automation::Raise(
        DoorError::BadInput,
        fmt::format("{}: die Datenbank wurde {} Workflow-Tabellen angelegt, {} ist {} sie",
                    arguments.database, survey.workflow_add_on ? "ohne" : "mit", source.name,
                    survey.workflow_add_on ? "mit" : "ohne"));
  fill(*store);
}

Status RunInit(const Arguments& arguments) {
  if (automation::DatabaseExists(arguments.database))
    automation::Raise(DoorError::BadInput, arguments.database + ": die Datei gibt es schon");
  if (arguments.sample) {
    Import(arguments,
           automation::MemorySource("Beispieldaten", std::string(automation::SampleDataset())));
  } else {
    const std::string name = automation::DefaultDatabaseName(arguments.database);
    automation::MakeDatabase(arguments.database, true, automation::DefaultProfile(name),
                             AccessFor(arguments.dry_run), [](store::RecordStore&) {});
  }
  Tell(fmt::format("{} angelegt", arguments.database), arguments.dry_run);
  return Status::Done;
}

Status RunImport(const Arguments& arguments) {
  const automation::TextSource source = automation::FileSource(arguments.file);
  Import(arguments, source);
  Tell(fmt::format("{} eingelesen in {}", source.name, arguments.database), arguments.dry_run);
  return Status::Done;
}

// Writes beside the file and puts it in its place when it is whole.
void ExportToFile(store::RecordStore& store, const std::string& file) {
  const std::string scratch = file + ".neu";
  std::error_code ignored;
  try {
    std::ofstream out(scratch, std::ios::binary);
    if (out) automation::ExportDataset(store, out, RaiseIfInterrupted);
    out.close();
    std::error_code failed;
    if (out) std::filesystem::rename(scratch, file, failed);
    if (!out || failed)
      automation::Raise(DoorError::NotCarriedOut,
                        file + ": die Datei kann nicht geschrieben werden");
  } catch (...) {
    std::filesystem::remove(scratch, ignored);
    throw;
  }
}

Status RunExport(const Arguments& arguments) {
  const auto store = automation::OpenDatabase(arguments.database, automation::Access::Write);
  std::error_code ignored;
  if (std::filesystem::equivalent(arguments.database, arguments.file, ignored))
    automation::Raise(DoorError::BadInput, arguments.file + ": das ist die Datenbank selbst");
  // Nobody writes while it is read, so that the dataset is of one moment.
  store->LockForUpdate();
  if (arguments.file == "-")
    automation::ExportDataset(*store, std::cout, RaiseIfInterrupted);
  else
    ExportToFile(*store, arguments.file);
  store->Rollback();
  return Status::Done;
}

}  // namespace

void AddInit(CLI::App& app, Run& run) {
  const auto arguments = std::make_shared<Arguments>();
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
  const auto arguments = std::make_shared<Arguments>();
  CLI::App* command =
      AddCommand(app, "import", "Liest einen Datenbestand in eine neue oder leere Datenbank");
  AddDatabase(*command, arguments->database);
  command->add_option("DATEI", arguments->file, "Der Datenbestand; - ist die Standardeingabe")
      ->required();
  AddDryRun(*command, arguments->dry_run);
  command->callback([&run, arguments] { run = [arguments] { return RunImport(*arguments); }; });
}

void AddExport(CLI::App& app, Run& run) {
  const auto arguments = std::make_shared<Arguments>();
  arguments->file = "-";
  CLI::App* command = AddCommand(app, "export", "Schreibt den Datenbestand einer Datenbank");
  AddDatabase(*command, arguments->database);
  command->add_option("DATEI", arguments->file,
                      "Wohin; ohne Angabe und bei - auf die Standardausgabe");
  command->callback([&run, arguments] { run = [arguments] { return RunExport(*arguments); }; });
}

}  // namespace pactora::cli
