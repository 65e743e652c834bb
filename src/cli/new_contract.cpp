// new-contract: contract files through the add-on.
#include <fmt/format.h>

#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "automation/dataset/ContractMaker.h"
#include "automation/dataset/WrittenRows.h"
#include "automation/dataset/contract_file.h"
#include "automation/formats/JsonWriter.h"
#include "automation/formats/errors.h"
#include "automation/workspace/database.h"
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
    for (const std::string& file : arguments.files) files_.push_back(formats::FileSource(file));
    // All files are checked before the first contract is made.
    for (const auto& file : files_)
      dataset::ForEachContract(file, [this](const dataset::ContractOrder&) { ++total_; });
  }

  Status Run() {
    const auto clock = ClockFor(arguments_.today);
    auto store = workspace::OpenDatabase(arguments_.database, AccessFor(arguments_.dry_run));
    dataset::WrittenRows* written = nullptr;
    if (arguments_.dry_run) written = &dataset::WrittenRows::Watch(store);
    dataset::ContractMaker maker(std::move(store), *clock);
    ProgressBar bar(total_);
    bar_ = &bar;
    try {
      for (const auto& file : files_)
        dataset::ForEachContract(file,
                                 [&](const dataset::ContractOrder& order) { Make(maker, order); });
    } catch (const platform::Error& error) {
      // The rest is skipped: the database is not reachable, or the user stops.
      bar.Clear();
      const std::string why = formats::Describe(workspace::Named(arguments_.database, error));
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
  void Make(dataset::ContractMaker& maker, const dataset::ContractOrder& order) {
    RaiseIfInterrupted();
    try {
      const dataset::MadeContract made = maker.Make(order);
      ++made_;
      bar_->ClearForOutput();
      Print(order, made);
    } catch (const platform::Error& error) {
      if (StatusOf(error) != Status::Refused) throw;
      bar_->Clear();
      Complain(fmt::format("{}: {}", order.source, formats::Describe(error)));
    }
    bar_->Advance();
  }

  void Print(const dataset::ContractOrder& order, const dataset::MadeContract& made) {
    const std::string contract = fmt::format("Oid {} ({})", made.oid, order.source);
    if (arguments_.json) {
      std::cout << formats::OneLine({{"source", order.source},
                                     {"Vertragnummer", made.number},
                                     {"oid", made.oid}})
                << '\n';
    } else if (arguments_.dry_run) {
      fmt::print(stderr, "Vertrag {} wäre angelegt, {}\n", made.number, contract);
    } else {
      std::cout << fmt::format("Vertrag {} angelegt, {}\n", made.number, contract);
    }
    // The contract is stored: it is reported before anything else can fail.
    std::cout.flush();
  }

  // What the rehearsal would have written.
  void PrintRows(dataset::WrittenRows& written) const {
    using formats::JsonWriter;
    JsonWriter out(std::cout,
                   arguments_.json ? JsonWriter::Layout::OneLine : JsonWriter::Layout::Indented);
    out.BeginObject();
    out.Key("tables");
    written.Write(out);
    out.EndObject();
    std::cout << '\n';
    fmt::print(stderr, "{}\n", workspace::kRehearsed);
  }

  const NewContractArguments& arguments_;
  std::vector<formats::TextSource> files_;
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
