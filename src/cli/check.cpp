// check: verifies a database.
#include <fmt/format.h>

#include <cstdint>
#include <iostream>
#include <memory>
#include <string>

#include "automation/checks/check.h"
#include "automation/dataset/dataset_files.h"
#include "automation/formats/visible.h"
#include "automation/workspace/database.h"
#include "cli/commands.h"
#include "cli/interrupt.h"
#include "cli/options.h"
#include "schema/names.h"
#include "store/errors.h"

namespace pactora::cli {

namespace {

// The number of contracts.
std::int64_t CheckRows(store::RecordStore& store, const checks::Finding& found,
                       const checks::Finding& hint) {
  try {
    checks::CheckDatabase(store, found, RaiseIfInterrupted);
    checks::CheckNumbers(store, hint);
    checks::CheckDerived(store, hint, RaiseIfInterrupted);
  } catch (const platform::Error& error) {
    // Too damaged to read on.
    if (error.Number() != store::Number(store::StoreError::NotADatabase)) throw;
    found(error.Description());
  }
  dataset::CheckProfile(store, found);
  return store.Count(store.Catalog().Table(schema::table::vv_Vertraege));
}

std::string Counted(std::int64_t count, const char* one, const char* many) {
  return fmt::format("{} {}", count, count == 1 ? one : many);
}

Status RunCheck(const std::string& database) {
  std::int64_t faults = 0;
  std::int64_t hints = 0;
  const auto found = [&faults](const std::string& text) {
    ++faults;
    std::cout << formats::Visible(text) << '\n';
  };
  const auto hint = [&hints](const std::string& text) {
    ++hints;
    std::cout << "Hinweis: " << formats::Visible(text) << '\n';
  };
  const workspace::StorageCheck storage = workspace::CheckStorage(database);
  for (const std::string& fault : storage.faults) found(fault);
  for (const std::string& addition : storage.additions) found(addition);
  std::string checked = "Nur die Datei";
  if (storage.store) {
    const std::int64_t contracts =
        workspace::Naming(database, [&] { return CheckRows(*storage.store, found, hint); });
    checked = Counted(contracts, "Vertrag", "Verträge");
  }
  Tell(fmt::format("{} geprüft, {}{}", checked, Counted(faults, "Mangel", "Mängel"),
                   hints == 0 ? "" : ", " + Counted(hints, "Hinweis", "Hinweise")));
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
