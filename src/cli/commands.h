// The commands. Each adds itself to the command line and sets run to its work when the
// user has chosen it.
#pragma once

#include <CLI/CLI.hpp>
#include <functional>

#include "cli/complain.h"

namespace pactora::cli {

using Run = std::function<Status()>;

void AddInit(CLI::App& app, Run& run);
void AddImport(CLI::App& app, Run& run);
void AddExport(CLI::App& app, Run& run);
void AddNewContract(CLI::App& app, Run& run);
void AddRun(CLI::App& app, Run& run);
void AddTakeover(CLI::App& app, Run& run);
void AddList(CLI::App& app, Run& run);
void AddTypes(CLI::App& app, Run& run);
void AddCheck(CLI::App& app, Run& run);
void AddDesktop(CLI::App& app, Run& run);

}  // namespace pactora::cli
