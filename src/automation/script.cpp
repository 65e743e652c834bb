#include "automation/script.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <string_view>

#include "automation/faults.h"
#include "automation/records.h"
#include "automation/values.h"

namespace pactora::automation {

namespace {

constexpr std::array<std::pair<std::string_view, Operation>, 5> kOperations = {{
    {"DLLVersion", Operation::DLLVersion},
    {"NewContractDebitor", Operation::NewContractDebitor},
    {"NewContract", Operation::NewContract},
    {"NewContract2", Operation::NewContract2},
    {"EditContractDefinition", Operation::EditContractDefinition},
}};

// Every table that a database can have.
const schema::Catalog& AllTables() {
  static const schema::Catalog catalog = schema::ContractCatalog(true);
  return catalog;
}

const schema::Table& ReadTable(const Json& name, const Place& place) {
  const auto table = AllTables().FindTable(RequireText(name, place));
  if (!table) place.Fail(fmt::format("die Tabelle „{}“ gibt es nicht", name.get<std::string>()));
  return AllTables().tables[*table];
}

std::string ReadName(const Json& name, const Place& place) {
  std::string text = RequireText(name, place);
  if (text.empty()) place.Fail("ein Name wird erwartet");
  return text;
}

decltype(Step::what) ReadGoto(const Json& step, const Place& place) {
  AllowKeys(step, {"goto", "where", "oid", "none"}, place);
  if (step.size() != 2) place.Fail("genau eines von where, oid und none wird erwartet");
  const schema::Table& table = ReadTable(step["goto"], place.Key("goto"));
  if (const Json* where = Find(step, "where"))
    return GotoStep{table.name, ReadWhere(table, *where, place.Key("where"))};
  if (const Json* oid = Find(step, "oid"))
    return GotoStep{table.name, RowChoice{ReadOid(*oid, place.Key("oid")), {}}};
  if (!RequireBoolean(step["none"], place.Key("none")))
    place.Key("none").Fail("nur true ist möglich");
  return GotoStep{table.name, std::nullopt};
}

std::vector<std::string> ReadLacking(const Json& names, const Place& place) {
  const api::vv_CContractD record;
  const auto& known = record.Properties();
  std::vector<std::string> lacking;
  for (std::size_t i = 0; i < RequireArray(names, place).size(); ++i) {
    const std::string name = RequireText(names[i], place.Element(i));
    if (std::none_of(known.begin(), known.end(), [&](const auto& p) { return p.name == name; }))
      place.Element(i).Fail(fmt::format("die Eigenschaft „{}“ gibt es nicht", name));
    lacking.push_back(name);
  }
  return lacking;
}

decltype(Step::what) ReadCall(const Json& step, const Place& place) {
  const std::string name = RequireText(step["call"], place.Key("call"));
  const auto found = std::find_if(kOperations.begin(), kOperations.end(),
                                  [&name](const auto& known) { return known.first == name; });
  if (found == kOperations.end())
    place.Key("call").Fail(fmt::format("die Operation „{}“ gibt es nicht", name));
  CallStep call;
  call.operation = found->second;
  const char* flag = nullptr;
  switch (call.operation) {
    case Operation::DLLVersion:
      AllowKeys(step, {"call"}, place);
      break;
    case Operation::NewContractDebitor: {
      AllowKeys(step, {"call", "contract", "articles", "without"}, place);
      const Json* contract = Find(step, "contract");
      const Json* articles = Find(step, "articles");
      call.contract = ReadContract(contract ? *contract : Json::object(), place.Key("contract"));
      call.articles = ReadArticles(articles ? *articles : Json::array(), place.Key("articles"));
      if (const Json* without = Find(step, "without"))
        call.contract = Without(call.contract, ReadLacking(*without, place.Key("without")));
      break;
    }
    case Operation::NewContract:
    case Operation::NewContract2:
      AllowKeys(step, {"call", "pbShowDef", "do"}, place);
      flag = "pbShowDef";
      break;
    case Operation::EditContractDefinition:
      AllowKeys(step, {"call", "pbNew", "do"}, place);
      flag = "pbNew";
      break;
  }
  if (flag)
    if (const Json* value = Find(step, flag)) call.flag = RequireBoolean(*value, place.Key(flag));
  if (const Json* actions = Find(step, "do"))
    call.actions = ParseActions(*actions, place.Key("do"));
  return call;
}

decltype(Step::what) ReadPersistVar(const Json& step, const Place& place) {
  AllowKeys(step, {"persistVar", "value"}, place);
  return PersistVarStep{ReadName(step["persistVar"], place.Key("persistVar")),
                        ReadFree(Require(step, "value", place), place.Key("value"))};
}

decltype(Step::what) ReadDbSetting(const Json& step, const Place& place) {
  AllowKeys(step, {"dbSetting", "value"}, place);
  return DbSettingStep{ReadName(step["dbSetting"], place.Key("dbSetting")),
                       ReadFree(Require(step, "value", place), place.Key("value"))};
}

decltype(Step::what) ReadFault(const Json& step, const Place& place) {
  AllowKeys(step, {"fault"}, place);
  const Place here = place.Key("fault");
  const Json& object = RequireObject(step["fault"], here);
  AllowKeys(object, {"op", "table", "nth", "number", "description"}, here);
  FaultStep fault;
  fault.operation = ReadName(Require(object, "op", here), here.Key("op"));
  if (!IsOperation(fault.operation))
    here.Key("op").Fail(fmt::format("die Operation „{}“ gibt es nicht", fault.operation));
  if (const Json* table = Find(object, "table"))
    fault.table = ReadTable(*table, here.Key("table")).name;
  if (const Json* nth = Find(object, "nth")) {
    fault.nth = RequireLong(*nth, here.Key("nth"));
    if (fault.nth < 1) here.Key("nth").Fail("zählt ab 1");
  }
  fault.number = ReadErrorNumber(Require(object, "number", here), here.Key("number"));
  if (const Json* description = Find(object, "description"))
    fault.description = RequireText(*description, here.Key("description"));
  return fault;
}

decltype(Step::what) ReadDump(const Json& step, const Place& place) {
  AllowKeys(step, {"dump"}, place);
  const Place here = place.Key("dump");
  const Json& tables = step["dump"];
  DumpStep dump;
  if (tables == true) return dump;
  if (!tables.is_array() || tables.empty())
    here.Fail("true oder eine Liste von Tabellen wird erwartet");
  for (std::size_t i = 0; i < tables.size(); ++i)
    dump.tables.push_back(ReadTable(tables[i], here.Element(i)).name);
  return dump;
}

using ReadStep = decltype(Step::what) (*)(const Json& step, const Place& place);

constexpr std::array<std::pair<std::string_view, ReadStep>, 6> kSteps = {{
    {"goto", ReadGoto},
    {"call", ReadCall},
    {"persistVar", ReadPersistVar},
    {"dbSetting", ReadDbSetting},
    {"fault", ReadFault},
    {"dump", ReadDump},
}};

Step ReadOneStep(const Json& step, const Place& place) {
  RequireObject(step, place);
  for (const auto& [key, read] : kSteps)
    if (Find(step, key)) return {read(step, place), place.Path()};
  if (step.empty()) place.Fail("ein Schritt wird erwartet");
  place.FailUnknownKey(step.begin().key());
}

}  // namespace

std::string_view Name(Operation operation) {
  for (const auto& [name, known] : kOperations)
    if (known == operation) return name;
  return {};
}

Script ReadScript(const Json& script, const std::string& source) {
  const Place root(source);
  AllowKeys(RequireObject(script, root), {"today", "steps"}, root);
  Script result;
  if (const Json* today = Find(script, "today")) {
    result.today = ReadDate(*today, root.Key("today"));
    if (platform::TimeOfDay(*result.today) != 0 || *result.today == platform::kNoDate)
      root.Key("today").Fail("ein Tag wird erwartet");
  }
  const Place steps = root.Key("steps");
  const Json& list = RequireArray(Require(script, "steps", root), steps);
  for (std::size_t i = 0; i < list.size(); ++i)
    result.steps.push_back(ReadOneStep(list[i], steps.Element(i)));
  return result;
}

}  // namespace pactora::automation
