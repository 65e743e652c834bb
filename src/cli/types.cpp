// types: what there is to do with contract types.
#include <iostream>
#include <memory>
#include <string>

#include "automation/database.h"
#include "automation/type_check.h"
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
  const auto store = automation::OpenDatabase(arguments.database, automation::Access::Read);
  TextTable list(
      {{"Oid", "oid"}, {"Vertragstyp", "Bezeichnung"}, {"Schwere", "kind"}, {"Befund", "text"}});
  bool faults = false;
  const auto findings =
      automation::Naming(arguments.database, [&] { return automation::CheckTypes(*store); });
  for (const automation::TypeFinding& finding : findings) {
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
