// An automation script, read and checked as a whole before anything runs.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "api/ArticleCollection.h"
#include "api/PropertyBag.h"
#include "automation/dataset/row_selector.h"
#include "automation/formats/json.h"
#include "automation/scripts/dialog_actions.h"
#include "host/Value.h"
#include "platform/Date.h"

namespace pactora::scripts {

// Tables are named as in the catalogue; a database without the workflow add-on
// may lack one.
struct GotoStep {
  std::string table;
  std::optional<dataset::RowSelector> row;  // nothing: no current row
};

enum class Operation {
  DLLVersion,
  NewContractDebitor,
  NewContract,
  NewContract2,
  EditContractDefinition,
};

struct CallStep {
  Operation operation = Operation::DLLVersion;
  std::shared_ptr<api::PropertyBag> contract;        // NewContractDebitor
  std::shared_ptr<api::ArticleCollection> articles;  // NewContractDebitor
  bool flag = false;  // pbShowDef of NewContract and NewContract2, pbNew of the other dialog
  Actions actions;
};

struct PersistVarStep {
  std::string name;
  host::Value value;
};

struct DbSettingStep {
  std::string name;
  host::Value value;
};

// The nth following call of the host operation raises the error, once.
struct FaultStep {
  std::string operation;
  std::string table;  // empty: on any
  std::int32_t nth = 1;
  std::int32_t number = 0;
  std::string description;
};

struct DumpStep {
  std::vector<std::string> tables;  // empty: all
};

struct Step {
  std::variant<GotoStep, CallStep, PersistVarStep, DbSettingStep, FaultStep, DumpStep> what;
  std::string place;  // in the script: "steps[2]"
};

struct Script {
  std::optional<platform::Date> today;
  std::vector<Step> steps;
};

// The operation's name as a script and a transcript spell it.
std::string_view Name(Operation operation);

// Raises DoorError::BadInput at the first fault.
Script ReadScript(const formats::Json& script, const std::string& source);

}  // namespace pactora::scripts
