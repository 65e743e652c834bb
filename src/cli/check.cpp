// check: verifies a database.
#include <fmt/format.h>

#include <iostream>
#include <memory>
#include <string>

#include "automation/checks/check.h"
#include "automation/formats/errors.h"
#include "automation/workspace/database.h"
#include "cli/commands.h"
#include "cli/interrupt.h"
#include "cli/options.h"
#include "schema/names.h"

namespace pactora::cli {

namespace {

Status RunCheck(const std::string& database) {
  std::size_t faults = 0;
  const auto found = [&faults](const std::string& text) {
    ++faults;
    std::cout << formats::SingleLine(text) << '\n';
  };
  const auto store = workspace::OpenDatabase(database, workspace::Access::Read);
  for (const std::string& fault : workspace::CheckStorage(database)) found(fault);
  const auto contracts = workspace::Naming(database, [&] {
    checks::CheckDatabase(*store, found, RaiseIfInterrupted);
    return store->Count(store->Catalog().Table(schema::table::vv_Vertraege));
  });
  fmt::print(stderr, "{} {} geprüft, {} {}\n", contracts, contracts == 1 ? "Vertrag" : "Verträge",
             faults, faults == 1 ? "Mangel" : "Mängel");
  return faults == 0 ? Status::Done : Status::Refused;
}

}  // namespace

void AddCheck(CLI::App& app, Run& run) {
  const auto database = std::make_shared<std::string>();
  CLI::App* command = AddCommand(app, "check", "Prüft eine Datenbank und nennt, was nicht stimmt");
  AddDatabase(*command, *database);
  command->callback([&run, database] { run = [database] { return RunCheck(*database); }; });
}

}  // namespace pactora::cli
