#include "cli/options.h"

#include "platform/Date.h"

namespace pactora::cli {

CLI::App* AddCommand(CLI::App& app, const std::string& name, const std::string& description) {
  CLI::App* command = app.add_subcommand(name, description);
  command->group("Befehle");
  command->set_help_flag("-h,--help", "Diese Hilfe")->group(kOptionGroup);
  return command;
}

void AddDatabase(CLI::App& command, std::string& name) {
  command.add_option("DB", name, "Die Datenbank: eine Datei oder :memory:")->required();
}

void AddDryRun(CLI::App& command, bool& dry_run, const std::string& more) {
  command
      .add_flag("--dry-run", dry_run,
                "Probelauf: alles läuft wirklich, nichts wird geschrieben" + more)
      ->group(kOptionGroup);
}

void AddJson(CLI::App& command, bool& json, const std::string& more) {
  command.add_flag("--json", json, "Ausgabe als JSON" + more)->group(kOptionGroup);
}

void AddToday(CLI::App& command, std::optional<platform::Date>& today, const std::string& more) {
  command
      .add_option_function<std::string>(
          "--today",
          [&today](const std::string& text) {
            today = platform::ParseIso(text);
            if (!today || platform::TimeOfDay(*today) != 0)
              throw CLI::ValidationError("--today", "ein Datum wie 2024-03-15 wird erwartet");
          },
          "Das Datum, das für heute gilt (JJJJ-MM-TT)" + more)
      ->type_name("DATUM")
      ->group(kOptionGroup);
}

workspace::Access AccessFor(bool dry_run) {
  return dry_run ? workspace::Access::Rehearsal : workspace::Access::Write;
}

std::unique_ptr<platform::Clock> ClockFor(const std::optional<platform::Date>& today) {
  if (today) return std::make_unique<platform::FixedClock>(*today);
  return std::make_unique<platform::SystemClock>();
}

}  // namespace pactora::cli
