// Arguments that several commands have in common.
#pragma once

#include <CLI/CLI.hpp>
#include <memory>
#include <optional>
#include <string>

#include "automation/workspace/database.h"
#include "platform/Clock.h"

namespace pactora::cli {

inline constexpr const char* kOptionGroup = "Optionen";

// A command of that name; its options stand under one heading.
CLI::App* AddCommand(CLI::App& app, const std::string& name, const std::string& description);

void AddDatabase(CLI::App& command, std::string& name);
// more is added to the description of the option in this command.
void AddDryRun(CLI::App& command, bool& dry_run, const std::string& more = {});
void AddJson(CLI::App& command, bool& json, const std::string& more = {});
// A date as "2024-03-15"; anything else is wrong usage.
void AddToday(CLI::App& command, std::optional<platform::Date>& today,
              const std::string& more = {});

workspace::Access AccessFor(bool dry_run);

// Today's date for the program: the given one or the machine's.
std::unique_ptr<platform::Clock> ClockFor(const std::optional<platform::Date>& today);

}  // namespace pactora::cli
