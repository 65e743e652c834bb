// desktop: the windows, where the program was built with them.
#include <memory>
#include <string>

#include "cli/commands.h"
#include "cli/options.h"

namespace pactora::cli {

void AddDesktop(CLI::App& app, Run& run) {
  const auto database = std::make_shared<std::string>();
  CLI::App* command = AddCommand(app, "desktop", "Öffnet die Fenster");
  AddDatabase(*command, *database);
  command->callback([&run, database] {
    run = [] {
      Complain("die Fenster sind in diesem Programm nicht enthalten");
      return Status::BadInput;
    };
  });
}

}  // namespace pactora::cli
