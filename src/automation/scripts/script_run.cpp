#include "automation/scripts/script_run.h"

#include <fmt/format.h>

#include <set>
#include <sstream>
#include <utility>

#include "automation/dataset/WrittenRows.h"
#include "automation/dataset/dataset_export.h"
#include "automation/dataset/values.h"
#include "automation/formats/JsonWriter.h"
#include "automation/formats/errors.h"
#include "automation/scripts/ScriptScreen.h"
#include "automation/scripts/faults.h"
#include "automation/workspace/Session.h"
#include "automation/workspace/contract_numbers.h"
#include "automation/workspace/fatal_store_error.h"
#include "host/HostTable.h"
#include "platform/Error.h"
#include "schema/names.h"

namespace pactora::scripts {

namespace {

class Run {
 public:
  Run(std::unique_ptr<store::RecordStore> store, const platform::Clock& clock,
      std::ostream& transcript)
      : transcript_(transcript),
        screen_([this](const formats::Json& event) { Write(event); },
                [this] { session_.Host().SaveUnit(); }),
        session_(std::move(store), screen_, clock),
        faults_(session_.Host()) {
    session_.Host().SetMacroListener([this](const std::string& path, const host::ValueArray& args) {
      if (screen_.Failed()) return;
      formats::Json values = formats::Json::array();
      for (const host::Value& arg : args) values.push_back(dataset::ToJson(arg));
      Write({{"event", "macro"}, {"name", path}, {"args", std::move(values)}});
    });
  }

  void Dump(const std::function<void(formats::JsonWriter&)>& write_tables) {
    std::ostringstream line;  // so that a failure leaves no half line
    formats::JsonWriter out(line, formats::JsonWriter::Layout::OneLine);
    out.BeginObject();
    out.Key("event");
    out.Text("dump");
    out.Key("tables");
    write_tables(out);
    out.EndObject();
    transcript_ << line.str() << '\n';
  }

  RunResult Steps(const Script& script, const std::function<void()>& at_step) {
    for (const Step& step : script.steps) {
      if (at_step) at_step();
      place_ = step.place;
      std::visit([this](const auto& what) { CarryOut(what); }, step.what);
      if (failed_) break;
    }
    result_.unused_faults = faults_.Unused();
    transcript_.flush();
    return std::move(result_);
  }

 private:
  void Write(const formats::Json& event) {
    const auto& shown = session_.AddOn().last_shown_error;
    if (shown && event["event"] == "message") NoteFatalError(*shown);
    transcript_ << formats::OneLine(event) << '\n';
  }

  void NoteFatalError(const platform::Error& error) {
    if (workspace::FatalStoreErrorOf(error.Number()) && !rehearsed_.contains(error.Number()))
      result_.fatal_error = error;
  }

  // Ends the script because this action failed; null stands for the whole step.
  void Fail(const formats::Json& action, const std::string& reason) {
    Write({{"event", "failed"}, {"step", place_}, {"action", action}, {"reason", reason}});
    result_.problems.push_back(
        fmt::format("{}: {}", action.is_string() ? action.get<std::string>() : place_, reason));
    failed_ = true;
  }
  void Fail(const std::string& reason) { Fail(nullptr, reason); }

  // Runs steps that are the script's own work: a failure ends the script.
  template <typename Body>
  void Own(const Body& body) {
    const Faults::Silence silence(faults_);
    try {
      body();
    } catch (const platform::Error& error) {
      NoteFatalError(error);
      Fail(error.Description());
    }
  }

  std::optional<store::TableId> Table(const std::string& name) {
    const auto table = session_.Store().Catalog().FindTable(name);
    if (!table) Fail(fmt::format("diese Datenbank hat die Tabelle {} nicht", name));
    return table;
  }

  void CarryOut(const GotoStep& step) {
    Own([&] {
      const auto table = Table(step.table);
      if (!table) return;
      if (!step.row) return session_.GoNowhere(*table);
      const auto row = dataset::RowFinder(session_.Store()).Find(*table, *step.row);
      if (!row) return Fail(fmt::format("{}: keine Zeile mit {}", step.table, Describe(*step.row)));
      session_.GoTo(*table, row->oid);
    });
  }

  void CarryOut(const PersistVarStep& step) {
    Own([&] {
      auto& variables = session_.App()->CurrentDb()->Formulas().PersistVars();
      if (host::HostPersistVar* variable = variables.Item(step.name))
        variable->SetValue(step.value);
      else
        variables.Add(step.name, step.value);
      session_.EndUnit();
    });
  }

  void CarryOut(const DbSettingStep& step) {
    Own([&] {
      auto& settings = session_.App()->CurrentDb()->DbSettings();
      if (settings.Exists(step.name))
        settings.Item(step.name).SetValue(step.value);
      else
        settings.Add(step.name, step.value);
      session_.EndUnit();
    });
  }

  void CarryOut(const FaultStep& step) {
    faults_.Add(step, place_);
    rehearsed_.insert(step.number);
  }

  void CarryOut(const DumpStep& step) {
    Own([&] {
      std::vector<store::TableId> tables;
      for (const std::string& name : step.tables) {
        const auto table = Table(name);
        if (!table) return;
        tables.push_back(*table);
      }
      Dump([&](formats::JsonWriter& out) { dataset::WriteTables(out, session_.Store(), tables); });
    });
  }

  void CarryOut(const CallStep& call) {
    const std::string name(Name(call.operation));
    Write({{"event", "call"}, {"name", name}});
    formats::Json returned = {{"event", "return"}, {"name", name}};
    const store::Oid contract_before = CurrentContract();
    const auto end_unit = [&] {
      const Faults::Silence silence(faults_);
      session_.EndUnit(contract_before);
    };
    try {
      // What was stored before an error is committed nevertheless.
      try {
        screen_.Run(call.actions, [&] { Call(call, returned); });
      } catch (...) {
        end_unit();
        throw;
      }
      end_unit();
      if (!screen_.Failed()) Write(returned);
    } catch (const platform::Error& error) {
      // A full disk fails every later call too: it is a problem once.
      const bool is_known = result_.fatal_error && result_.fatal_error->Number() == error.Number();
      NoteFatalError(error);
      // The store works no more.
      failed_ = result_.fatal_error &&
                result_.fatal_error->Number() == Number(store::StoreError::Uncertain);
      if (!screen_.Failed()) {
        Write({{"event", "error"},
               {"number", formats::ErrorNumberText(error.Number())},
               {"source", error.Source()},
               {"description", error.Description()}});
        if (!is_known)
          result_.problems.push_back(fmt::format("{}: Fehler {}: {}", place_,
                                                 formats::ErrorNumberText(error.Number()),
                                                 error.Description()));
      }
    }
    if (screen_.Failed()) Fail(screen_.Failed()->place, screen_.Failed()->reason);
    transcript_.flush();
    if (failed_) return;
    const store::Oid contract = CurrentContract();
    if (contract == contract_before) return;
    Own([&] {
      const std::string hint = workspace::NumberHint(session_.Store(), contract);
      if (!hint.empty()) result_.hints.push_back(fmt::format("{}: {}", place_, hint));
    });
  }

  // 0 for none.
  store::Oid CurrentContract() {
    const Faults::Silence silence(faults_);
    return session_.CurrentContract();
  }

  void Call(const CallStep& call, formats::Json& returned) {
    shell::CVV& entry = session_.Entry();
    bool pbOK = false;
    std::int32_t plVsCount = 0;
    bool pbShowDef = call.flag;
    switch (call.operation) {
      case Operation::DLLVersion:
        returned["result"] = entry.DLLVersion();
        return;
      case Operation::NewContractDebitor:
        return entry.NewContractDebitor(session_.App(), call.contract, call.articles);
      case Operation::EditContractDefinition:
        return entry.EditContractDefinition(session_.App(), call.flag);
      case Operation::NewContract:
        entry.NewContract(session_.App(), pbOK, plVsCount, pbShowDef);
        break;
      case Operation::NewContract2:
        entry.NewContract2(session_.App(), pbOK, plVsCount, pbShowDef);
        break;
    }
    returned["pbOK"] = pbOK;
    returned["plVsCount"] = plVsCount;
    returned["pbShowDef"] = pbShowDef;
  }

  std::ostream& transcript_;
  ScriptScreen screen_;
  workspace::Session session_;
  Faults faults_;
  std::set<std::int32_t> rehearsed_;  // numbers of the faults so far
  std::string place_;
  RunResult result_;
  bool failed_ = false;
};

}  // namespace

RunResult RunScript(const Script& script, std::unique_ptr<store::RecordStore> store,
                    const platform::Clock& clock, std::ostream& transcript,
                    const RunOptions& options) {
  dataset::WrittenRows* written = nullptr;
  if (options.dump_written) written = &dataset::WrittenRows::Watch(store);
  Run run(std::move(store), clock, transcript);
  RunResult result = run.Steps(script, options.at_step);
  if (written) run.Dump([written](formats::JsonWriter& out) { written->Write(out); });
  return result;
}

}  // namespace pactora::scripts
