// types: commands for contract types.
#include <iostream>
#include <memory>
#include <string>

#include "automation/checks/type_check.h"
#include "automation/workspace/database.h"
#include "cli/TextTable.h"
#include "cli/commands.h"
#include "cli/options.h"

namespace pactora::cli {

namespace {

struct TypesArguments {
  std::string database;
  bool json = false;
};

// Hints alone are no fault.
Status CheckTypes(const TypesArguments& arguments) {
  const auto store = workspace::OpenDatabase(arguments.database, workspace::Access::Read);
  TextTable list(
      {{"Oid", "oid"}, {"Vertragstyp", "Bezeichnung"}, {"Schwere", "kind"}, {"Befund", "text"}});
  bool faults = false;
  const auto findings =
      workspace::Naming(arguments.database, [&] { return checks::CheckTypes(*store); });
  for (const checks::TypeFinding& finding : findings) {
    list.Add({std::to_string(finding.type), finding.name, finding.hint ? "Hinweis" : "Mangel",
              finding.text});
    faults |= !finding.hint;
  }
  arguments.json ? list.PrintJson(std::cout) : list.PrintText(std::cout);
  return faults ? Status::Refused : Status::Done;
}

}  // namespace

void AddTypes(CLI::App& app, Run& run) {
  const auto arguments = std::make_shared<TypesArguments>();
  CLI::App* command = AddCommand(app, "types", "Vertragstypen");
  command->require_subcommand(1);
  CLI::App* check =
      AddCommand(*command, "check", "Nennt Vertragstypen, um die sich jemand kümmern muss");
  AddDatabase(*check, arguments->database);
  AddJson(*check, arguments->json);
  check->callback([&run, arguments] { run = [arguments] { return CheckTypes(*arguments); }; });
}

}  // namespace pactora::cli
