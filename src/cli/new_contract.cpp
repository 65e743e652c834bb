// new-contract: contract files through the add-on.
#include <fmt/format.h>

#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "automation/ContractMaker.h"
#include "automation/JsonWriter.h"
#include "automation/WrittenRows.h"
#include "automation/contract_file.h"
#include "automation/database.h"
#include "automation/errors.h"
#include "cli/ProgressBar.h"
#include "cli/commands.h"
#include "cli/interrupt.h"
#include "cli/options.h"

namespace pactora::cli {

namespace {

struct NewContractArguments {
  std::string database;
  std::vector<std::string> files;
  std::optional<platform::Date> today;
  bool dry_run = false;
  bool json = false;
};

class Bulk {
 public:
  explicit Bulk(const NewContractArguments& arguments) : arguments_(arguments) {
    for (const std::string& file : arguments.files) files_.push_back(automation::FileSource(file));
    // All files are looked through before anything is done.
    for (const auto& file : files_)
      automation::ForEachContract(file, [this](const automation::ContractOrder&) { ++total_; });
  }

  Status Run() {
    const auto clock = ClockFor(arguments_.today);
    auto store = automation::OpenDatabase(arguments_.database, AccessFor(arguments_.dry_run));
    automation::WrittenRows* written = nullptr;
    if (arguments_.dry_run) written = &automation::WrittenRows::Watch(store);
    automation::ContractMaker maker(std::move(store), *clock);
    ProgressBar bar(total_);
    bar_ = &bar;
    try {
      for (const auto& file : files_)
        automation::ForEachContract(
            file, [&](const automation::ContractOrder& order) { Make(maker, order); });
    } catch (const platform::Error& error) {
      // The rest is not tried: the database is out of reach or the user stops.
      bar.Clear();
      const std::string why = automation::Describe(automation::Named(arguments_.database, error));
      Complain(total_ > 1 ? fmt::format("{} ({} von {} angelegt)", why, made_, total_) : why);
      const Status status = StatusOf(error);
      return status == Status::Interrupted || made_ == 0 ? status : Status::PartlyDone;
    }
    bar.Clear();
    if (written) PrintRows(*written);
    if (made_ == total_) return Status::Done;
    if (total_ > 1)
      fmt::print(stderr, "{} von {} Verträgen {}\n", made_, total_,
                 arguments_.dry_run ? "wären angelegt" : "angelegt");
    return made_ > 0 ? Status::PartlyDone : Status::Refused;
  }

 private:
  void Make(automation::ContractMaker& maker, const automation::ContractOrder& order) {
    RaiseIfInterrupted();
    try {
      const automation::MadeContract made = maker.Make(order);
      ++made_;
      bar_->ClearForOutput();
      Print(order, made);
    } catch (const platform::Error& error) {
      if (StatusOf(error) != Status::Refused) throw;
      bar_->Clear();
      Complain(fmt::format("{}: {}", order.source, automation::Describe(error)));
    }
    bar_->Advance();
  }

  void Print(const automation::ContractOrder& order, const automation::MadeContract& made) {
    const std::string contract = fmt::format("Oid {} ({})", made.oid, order.source);
    if (arguments_.json) {
      std::cout << automation::OneLine({{"source", order.source},
                                        {"Vertragnummer", made.number},
                                        {"oid", made.oid}})
                << '\n';
    } else if (arguments_.dry_run) {
      fmt::print(stderr, "Vertrag {} wäre angelegt, {}\n", made.number, contract);
    } else {
      std::cout << fmt::format("Vertrag {} angelegt, {}\n", made.number, contract);
    }
    // The contract is stored: whatever happens next, it has been said.
    std::cout.flush();
  }

  // What the rehearsal would have written.
  void PrintRows(automation::WrittenRows& written) const {
    using automation::JsonWriter;
    JsonWriter out(std::cout,
                   arguments_.json ? JsonWriter::Layout::OneLine : JsonWriter::Layout::Indented);
    out.BeginObject();
    out.Key("tables");
    written.Write(out);
    out.EndObject();
    std::cout << '\n';
    fmt::print(stderr, "{}\n", automation::kRehearsed);
  }

  const NewContractArguments& arguments_;
  std::vector<automation::TextSource> files_;
  std::size_t total_ = 0;
  std::size_t made_ = 0;
  ProgressBar* bar_ = nullptr;
};

}  // namespace

void AddNewContract(CLI::App& app, Run& run) {
  const auto arguments = std::make_shared<NewContractArguments>();
  CLI::App* command = AddCommand(app, "new-contract", "Legt Verträge aus Vertragsdateien an");
  AddDatabase(*command, arguments->database);
  command
      ->add_option("DATEI", arguments->files,
                   "Vertragsdateien, auch mit einem Vertrag je Zeile; - ist die Standardeingabe")
      ->required();
  AddToday(*command, arguments->today);
  AddDryRun(*command, arguments->dry_run,
            "; die Zeilen, die entstanden "
            "wären, kommen als JSON auf die Standardausgabe");
  AddJson(*command, arguments->json);
  command->callback([&run, arguments] { run = [arguments] { return Bulk(*arguments).Run(); }; });
}

}  // namespace pactora::cli
