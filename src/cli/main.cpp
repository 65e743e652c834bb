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
#include "automation/formats/files.h"
#include "automation/workspace/database.h"
#include "cli/commands.h"
#include "cli/complain.h"
#include "cli/interrupt.h"
#include "cli/options.h"
#include "platform/Error.h"

namespace pactora::cli {

namespace {

constexpr std::array kCommands = {AddInit,     AddImport, AddExport, AddNewContract, AddRun,
                                  AddTakeover, AddList,   AddTypes,  AddCheck,       AddDesktop};

constexpr std::string_view kOptions = "[Optionen]";

// Shows the required options in the first line of a command's help.
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

// The innermost command that was named: "types" for "pactora types".
const CLI::App& Chosen(const CLI::App& app) {
  const std::vector<CLI::App*> commands = app.get_subcommands();
  return commands.empty() ? app : Chosen(*commands.front());
}

std::string FullName(const CLI::App& command) {
  const std::string& name = command.get_name();
  return command.get_parent() ? FullName(*command.get_parent()) + " " + name : name;
}

// What the command lacks; extra are the words that belong to no argument.
std::string MissingPart(const CLI::App& command, const std::string& extra) {
  if (command.get_require_subcommand_min() > command.get_subcommands().size())
    return extra.empty() ? "ein Befehl fehlt" : "unbekannter Befehl: " + extra;
  for (const CLI::Option* option : command.get_options())
    if (option->get_required() && option->count() == 0)
      return fmt::format("ein Argument fehlt: {}", option->get_name());
  return "ein Argument fehlt";
}

// The option that came too often, has a value but takes none, or lacks its value and so
// is the last word.
std::string MismatchedPart(const CLI::App& command, const std::vector<std::string>& words) {
  for (const CLI::Option* option : command.get_options()) {
    const auto most = static_cast<std::size_t>(std::max(option->get_items_expected_max(), 1));
    const bool refuses = option->get_multi_option_policy() == CLI::MultiOptionPolicy::Throw;
    if (refuses && option->count() > most)
      return fmt::format("mehrmals angegeben: {}", option->get_name());
  }
  for (const std::string& word : words) {
    const std::string name = word.substr(0, word.find('='));
    const CLI::Option* option = command.get_option_no_throw(name);
    if (option && name != word && option->get_items_expected_max() == 0)
      return fmt::format("{} hat keinen Wert", name);
  }
  return fmt::format("ein Wert fehlt: {}", words.back().substr(0, words.back().find('=')));
}

// What is wrong with the command line. The library's own words are English; its
// errors are distinguished by their codes, since some bear the command's name.
std::string UsageError(const CLI::ParseError& error, const CLI::App& app,
                       const std::vector<std::string>& words) {
  const std::string extra = Joined(app.remaining(true));
  switch (static_cast<CLI::ExitCodes>(error.get_exit_code())) {
    case CLI::ExitCodes::RequiredError:
      return MissingPart(Chosen(app), extra);
    case CLI::ExitCodes::ExtrasError:
      return "unbekanntes Argument: " + extra;
    case CLI::ExitCodes::ArgumentMismatch:
      return MismatchedPart(Chosen(app), words);
    default:
      return error.what();  // German: one of the checks of our own options
  }
}

// The status, or a failure where the output could not be written.
Status WithOutputWritten(Status status) {
  if (IsOutputWritten()) return status;
  Complain(kNoOutput);
  return status == Status::Done ? Status::Refused : status;
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
    const std::vector<std::string> words(argv + 1, argv + argc);
    Complain(
        fmt::format("{} (Hilfe: {} --help)", UsageError(error, app, words), FullName(Chosen(app))));
    return static_cast<int>(Status::BadInput);
  }

  CatchInterrupt();
  workspace::ReportMigrationTo(Tell);
  workspace::GiveUpWaitingWhen([](std::chrono::milliseconds) { return InterruptAsked(); });
  const Status status = WithOutputWritten(run());
  return static_cast<int>(status != Status::Done && InterruptAsked() ? Status::Interrupted
                                                                     : status);
}

}  // namespace

}  // namespace pactora::cli

int main(int argc, char** argv) {
  namespace cli = pactora::cli;
  pactora::formats::GuardStandardStreams();
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
