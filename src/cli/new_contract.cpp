// new-contract: contract files through the add-on.
#include <fmt/format.h>

#include <iostream>
#include <memory>
#include <optional>
#include <string>

#include "automation/bulk/report.h"
#include "automation/dataset/ContractJob.h"
#include "automation/formats/JsonWriter.h"
#include "automation/formats/errors.h"
#include "automation/formats/visible.h"
#include "automation/workspace/database.h"
#include "cli/ProgressBar.h"
#include "cli/commands.h"
#include "cli/interrupt.h"
#include "cli/options.h"

namespace pactora::cli {

namespace {

struct NewContractArguments {
  dataset::ContractJobOrder order;
  std::optional<platform::Date> today;
  bool json = false;
};

class ContractsCommand {
 public:
  explicit ContractsCommand(const NewContractArguments& arguments)
      : arguments_(arguments), job_(arguments.order), bar_(job_.Size()) {}

  Status Run() {
    RequireOutput();
    const auto clock = ClockFor(arguments_.today);
    const bulk::Count& count = job_.Count();
    try {
      job_.CarryOut(
          *clock, InterruptAsked, [this](const auto& results) { Print(results); },
          [this](dataset::WrittenRows& written) { PrintRows(written); });
    } catch (const platform::Error& error) {
      // The rest is left out: the database is not reachable, or the user stops.
      bar_.Clear();
      if (Done() + count.Rejected() == 0) throw;
      const std::string why = InterruptAsked() ? formats::kInterrupted : formats::Describe(error);
      Complain(
          fmt::format("{} ({} von {} angelegt{})", why, count.created, job_.Size(), SkippedText()));
      const Status status = StatusOf(error);
      const bool is_partly_done = status != Status::Interrupted && Done() > 0;
      return is_partly_done ? Status::PartlyDone : status;
    }
    bar_.Clear();
    if (count.created < job_.Size() && job_.Size() > 1)
      Tell(fmt::format("{} von {} Verträgen {}{}", count.created, job_.Size(),
                       arguments_.order.rehearsal ? "wären angelegt" : "angelegt", SkippedText()));
    if (count.Rejected() == 0) return Status::Done;
    return Done() > 0 ? Status::PartlyDone : Status::Refused;
  }

 private:
  std::size_t Done() const { return job_.Count().created + job_.Count().skipped; }
  std::string SkippedText() const {
    const std::size_t skipped = job_.Count().skipped;
    return skipped > 0 ? fmt::format(", {} übersprungen", skipped) : std::string();
  }

  void Print(const dataset::ContractRun::Results& results) {
    for (const dataset::ContractResult& result : results) {
      const bulk::ReportLine& line = result.line;
      if (!bulk::IsRejected(line.outcome)) {
        bar_.ClearForOutput();
        PrintContract(result);
      }
      if (!line.message.empty()) {
        bar_.Clear();
        Complain(fmt::format("{}: {}", result.source, line.message));
      }
      bar_.Advance();
    }
    // The contracts are stored: they are reported before anything else can fail.
    RequireOutput();
  }

  void PrintContract(const dataset::ContractResult& result) const {
    const bulk::ReportLine& line = result.line;
    const bool is_known = line.outcome == bulk::Outcome::Skipped;
    if (arguments_.json) {
      formats::Json text = {{"source", result.source},
                            {"Vertragnummer", line.number},
                            {"oid", std::to_string(result.oid)}};
      if (is_known) {
        text["Ergebnis"] = bulk::Text(line.outcome);
        text["Liste"] = line.list;
      }
      std::cout << formats::OneLine(text) << '\n';
      return;
    }
    // The standard output of a rehearsal is the rows.
    const bool rehearsal = arguments_.order.rehearsal;
    const std::string what = is_known    ? fmt::format("übersprungen, schon aus {}", line.list)
                             : rehearsal ? "wäre angelegt"
                                         : "angelegt";
    const std::string text =
        fmt::format("Vertrag {} {}, Oid {} ({})", line.number, what, result.oid, result.source);
    if (rehearsal)
      Tell(text);
    else
      std::cout << formats::Visible(text) << '\n';
  }

  // What the rehearsal would have written.
  void PrintRows(dataset::WrittenRows& written) {
    using formats::JsonWriter;
    bar_.Clear();
    JsonWriter out(std::cout,
                   arguments_.json ? JsonWriter::Layout::OneLine : JsonWriter::Layout::Indented);
    out.BeginObject();
    out.Key("tables");
    written.Write(out);
    out.EndObject();
    std::cout << '\n';
    Tell(workspace::kRehearsed);
  }

  const NewContractArguments& arguments_;
  dataset::ContractJob job_;
  ProgressBar bar_;
};

}  // namespace

void AddNewContract(CLI::App& app, Run& run) {
  const auto arguments = std::make_shared<NewContractArguments>();
  CLI::App* command = AddCommand(app, "new-contract", "Legt Verträge aus Vertragsdateien an");
  AddDatabase(*command, arguments->order.database);
  command
      ->add_option("DATEI", arguments->order.files,
                   "Vertragsdateien, auch mit einem Vertrag je Zeile; - ist die Standardeingabe")
      ->required();
  command
      ->add_option("--key-from", arguments->order.key_field,
                   "Die Eigenschaft des Vertrags, die sein Schlüssel ist, wo „key“ fehlt: was "
                   "unter einem Schlüssel angelegt ist, wird kein zweites Mal angelegt")
      ->type_name("FELD")
      ->group(kOptionGroup);
  command
      ->add_option("--report", arguments->order.report, "Der Bericht: was aus jedem Vertrag wurde")
      ->type_name("BERICHT")
      ->group(kOptionGroup);
  AddToday(*command, arguments->today);
  AddDryRun(*command, arguments->order.rehearsal,
            "; die Zeilen, die entstanden "
            "wären, kommen als JSON auf die Standardausgabe");
  AddJson(*command, arguments->json);
  command->callback(
      [&run, arguments] { run = [arguments] { return ContractsCommand(*arguments).Run(); }; });
}

}  // namespace pactora::cli
