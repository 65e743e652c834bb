// desktop: starts the program of the windows, which lies beside this one where it was
// built with them.
#include <filesystem>
#include <memory>
#include <string>
#include <system_error>
#include <vector>

#include "automation/formats/files.h"
#include "cli/commands.h"
#include "cli/options.h"

namespace pactora::cli {

namespace {

constexpr const char* kWindows = "pactora-desktop";

Status RunDesktop(const std::string& database) {
  std::error_code failed;
  const std::filesystem::path here = std::filesystem::read_symlink("/proc/self/exe", failed);
  const std::string program = (here.parent_path() / kWindows).string();
  if (failed || !std::filesystem::exists(program, failed)) {
    Complain("die Fenster sind in diesem Programm nicht enthalten");
    return Status::BadInput;
  }
  formats::BecomeProgram(program,
                         database.empty() ? std::vector<std::string>() : std::vector{database});
  Complain(program + ": das Programm der Fenster kann nicht gestartet werden");
  return Status::Internal;
}

}  // namespace

void AddDesktop(CLI::App& app, Run& run) {
  const auto database = std::make_shared<std::string>();
  CLI::App* command = AddCommand(app, "desktop", "Öffnet die Fenster");
  command->add_option("DB", *database,
                      "Die Datenbank; ohne Angabe steht sie im Startfenster zur Wahl");
  command->callback([&run, database] { run = [database] { return RunDesktop(*database); }; });
}

}  // namespace pactora::cli
