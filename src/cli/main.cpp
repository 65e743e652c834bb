// The program "pactora".
#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <cstddef>
#include <iostream>
#include <memory>
#include <new>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "automation/formats/errors.h"
#include "automation/workspace/database.h"
#include "cli/commands.h"
#include "cli/interrupt.h"
#include "cli/options.h"
#include "cli/status.h"
#include "platform/Error.h"

namespace pactora::cli {

namespace {

constexpr std::array kCommands = {AddInit,     AddImport, AddExport, AddNewContract, AddRun,
                                  AddTakeover, AddList,   AddTypes,  AddCheck,       AddDesktop};

constexpr std::string_view kOptions = "[Optionen]";

// Names the options without which a command is not complete in its first line.
class HelpText final : public CLI::Formatter {
 public:
  std::string make_usage(const CLI::App* app, std::string name) const override {
    std::string usage = Formatter::make_usage(app, std::move(name));
    std::string required;
    for (const CLI::Option* option : app->get_options())
      if (option->get_required() && !option->get_positional())
        required += fmt::format(" {} {}", option->get_name(), option->get_type_name());
    const std::size_t options = usage.find(kOptions);
    if (options != std::string::npos) usage.insert(options + kOptions.size(), required);
    return usage;
  }
};

std::string Joined(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : " ") + word;
  return text;
}

// The command that was named, as far as it was: "pactora types".
std::string Named(const CLI::App& app) {
  const std::vector<CLI::App*> commands = app.get_subcommands();
  return app.get_name() + (commands.empty() ? "" : " " + Named(*commands.front()));
}

// What is wrong with the command line; the library's own words are English.
std::string UsageError(const CLI::ParseError& error, const CLI::App& app) {
  const std::string name = error.get_name();
  // Some of these errors bear the command's name instead of their own.
  const bool is_extra = error.get_exit_code() == static_cast<int>(CLI::ExitCodes::ExtrasError);
  std::string text = error.what();
  const std::string extra = Joined(app.remaining(true));
  const auto says = [&](std::string_view part) { return text.find(part) != std::string::npos; };
  if (name == "RequiredError" && says("subcommand"))
    return extra.empty() ? "ein Befehl fehlt" : "unbekannter Befehl: " + extra;
  if (name == "RequiredError")
    return fmt::format("ein Argument fehlt: {}", text.substr(0, text.find(' ')));
  if (is_extra) return "unbekanntes Argument: " + extra;
  if (name == "ArgumentMismatch") {
    const std::string option = text.substr(0, text.find_first_of(": "));
    if (says("At Most")) return fmt::format("mehrmals angegeben: {}", option);
    if (says("flag override")) return fmt::format("--{} hat keinen Wert", option);
    return fmt::format("ein Wert fehlt: {}", option);
  }
  return text;
}

// The status, unless what was printed did not arrive.
Status WithOutputWritten(Status status) {
  std::cout.flush();
  if (std::cout) return status;
  Complain("die Ausgabe kann nicht geschrieben werden");
  return Status::Refused;
}

int Main(int argc, char** argv) {
  CLI::App app("Verträge in einer Datenbank: anlegen, abschließen, prüfen", "pactora");
  app.set_help_flag("-h,--help", "Diese Hilfe")->group(kOptionGroup);
  app.set_version_flag("--version", "pactora " PACTORA_VERSION, "Die Version")->group(kOptionGroup);
  app.require_subcommand(1);
  app.option_defaults()->disable_flag_override();
  app.formatter(std::make_shared<HelpText>());
  app.get_formatter()->column_width(28);
  app.get_formatter()->label("Usage", "Aufruf");
  app.get_formatter()->label("REQUIRED", "");
  app.get_formatter()->label("TEXT", "");
  app.get_formatter()->label("SUBCOMMAND", "BEFEHL");
  app.get_formatter()->label("OPTIONS", "Optionen");
  app.get_formatter()->label("Positionals", "Argumente");
  Run run;
  for (const auto add : kCommands) add(app, run);

  // Names of files and databases, dates and numbers: nothing may be empty.
  if (std::any_of(argv + 1, argv + argc, [](const char* text) { return *text == 0; })) {
    Complain("ein Argument ist leer");
    return static_cast<int>(Status::BadInput);
  }
  try {
    app.parse(argc, argv);
  } catch (const CLI::Success& success) {
    app.exit(success);  // --help, --version
    return static_cast<int>(WithOutputWritten(Status::Done));
  } catch (const CLI::ParseError& error) {
    Complain(fmt::format("{} (Hilfe: {} --help)", UsageError(error, app), Named(app)));
    return static_cast<int>(Status::BadInput);
  }

  CatchInterrupt();
  workspace::GiveUpWaitingWhen(InterruptAsked);
  const Status status = WithOutputWritten(run());
  return static_cast<int>(status != Status::Done && InterruptAsked() ? Status::Interrupted
                                                                     : status);
}

}  // namespace

}  // namespace pactora::cli

int main(int argc, char** argv) {
  namespace cli = pactora::cli;
  try {
    return cli::Main(argc, argv);
  } catch (const pactora::platform::Error& error) {
    const bool interrupted = cli::InterruptAsked();
    cli::Complain(interrupted ? pactora::formats::kInterrupted : pactora::formats::Describe(error));
    return static_cast<int>(interrupted ? cli::Status::Interrupted : cli::StatusOf(error));
  } catch (const std::bad_alloc&) {
    cli::Complain("der Arbeitsspeicher reicht nicht");
  } catch (const std::exception& error) {
    cli::Complain(fmt::format("interner Fehler: {}", error.what()));
  }
  return static_cast<int>(cli::Status::Internal);
}
