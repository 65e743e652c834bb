#include "automation/scripts/script.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <string_view>

#include "automation/dataset/records.h"
#include "automation/dataset/values.h"
#include "automation/scripts/faults.h"

namespace pactora::scripts {

namespace {

constexpr std::array<std::pair<std::string_view, Operation>, 5> kOperations = {{
    {"DLLVersion", Operation::DLLVersion},
    {"NewContractDebitor", Operation::NewContractDebitor},
    {"NewContract", Operation::NewContract},
    {"NewContract2", Operation::NewContract2},
    {"EditContractDefinition", Operation::EditContractDefinition},
}};

const schema::Table& ReadTable(const formats::Json& name, const formats::Place& place) {
  const auto table = schema::WholeCatalog().FindTable(formats::RequireText(name, place));
  if (!table) place.Fail(fmt::format("die Tabelle „{}“ gibt es nicht", name.get<std::string>()));
  return schema::WholeCatalog().tables[*table];
}

std::string ReadName(const formats::Json& name, const formats::Place& place) {
  std::string text = formats::RequireText(name, place);
  if (text.empty()) place.Fail("ein Name wird erwartet");
  return text;
}

decltype(Step::what) ReadGoto(const formats::Json& step, const formats::Place& place) {
  formats::AllowKeys(step, {"goto", "where", "oid", "none"}, place);
  if (step.size() != 2) place.Fail("genau eines von where, oid und none wird erwartet");
  const schema::Table& table = ReadTable(step["goto"], place.Key("goto"));
  if (const formats::Json* where = formats::Find(step, "where"))
    return GotoStep{table.name, dataset::ReadWhere(table, *where, place.Key("where"))};
  if (const formats::Json* oid = formats::Find(step, "oid"))
    return GotoStep{table.name, dataset::RowSelector{dataset::ReadOid(*oid, place.Key("oid")), {}}};
  if (!formats::RequireBoolean(step["none"], place.Key("none")))
    place.Key("none").Fail("nur true ist möglich");
  return GotoStep{table.name, std::nullopt};
}

std::vector<std::string> ReadLacking(const formats::Json& names, const formats::Place& place) {
  const api::vv_CContractD record;
  const auto& known = record.Properties();
  std::vector<std::string> lacking;
  for (std::size_t i = 0; i < formats::RequireArray(names, place).size(); ++i) {
    const std::string name = formats::RequireText(names[i], place.Element(i));
    if (std::none_of(known.begin(), known.end(), [&](const auto& p) { return p.name == name; }))
      place.Element(i).Fail(fmt::format("die Eigenschaft „{}“ gibt es nicht", name));
    lacking.push_back(name);
  }
  return lacking;
}

decltype(Step::what) ReadCall(const formats::Json& step, const formats::Place& place) {
  const std::string name = formats::RequireText(step["call"], place.Key("call"));
  const auto found = std::find_if(kOperations.begin(), kOperations.end(),
                                  [&name](const auto& known) { return known.first == name; });
  if (found == kOperations.end())
    place.Key("call").Fail(fmt::format("die Operation „{}“ gibt es nicht", name));
  CallStep call;
  call.operation = found->second;
  const char* flag = nullptr;
  switch (call.operation) {
    case Operation::DLLVersion:
      formats::AllowKeys(step, {"call"}, place);
      break;
    case Operation::NewContractDebitor: {
      formats::AllowKeys(step, {"call", "contract", "articles", "without"}, place);
      const formats::Json* contract = formats::Find(step, "contract");
      const formats::Json* articles = formats::Find(step, "articles");
      call.contract = dataset::ReadContract(contract ? *contract : formats::Json::object(),
                                            place.Key("contract"));
      call.articles = dataset::ReadArticles(articles ? *articles : formats::Json::array(),
                                            place.Key("articles"));
      if (const formats::Json* without = formats::Find(step, "without"))
        call.contract =
            dataset::Without(call.contract, ReadLacking(*without, place.Key("without")));
      break;
    }
    case Operation::NewContract:
    case Operation::NewContract2:
      formats::AllowKeys(step, {"call", "pbShowDef", "do"}, place);
      flag = "pbShowDef";
      break;
    case Operation::EditContractDefinition:
      formats::AllowKeys(step, {"call", "pbNew", "do"}, place);
      flag = "pbNew";
      break;
  }
  if (flag)
    if (const formats::Json* value = formats::Find(step, flag))
      call.flag = formats::RequireBoolean(*value, place.Key(flag));
  if (const formats::Json* actions = formats::Find(step, "do"))
    call.actions = ParseActions(*actions, place.Key("do"));
  return call;
}

decltype(Step::what) ReadPersistVar(const formats::Json& step, const formats::Place& place) {
  formats::AllowKeys(step, {"persistVar", "value"}, place);
  return PersistVarStep{
      ReadName(step["persistVar"], place.Key("persistVar")),
      dataset::ReadFree(formats::Require(step, "value", place), place.Key("value"))};
}

decltype(Step::what) ReadDbSetting(const formats::Json& step, const formats::Place& place) {
  formats::AllowKeys(step, {"dbSetting", "value"}, place);
  return DbSettingStep{
      ReadName(step["dbSetting"], place.Key("dbSetting")),
      dataset::ReadFree(formats::Require(step, "value", place), place.Key("value"))};
}

decltype(Step::what) ReadFault(const formats::Json& step, const formats::Place& place) {
  formats::AllowKeys(step, {"fault"}, place);
  const formats::Place here = place.Key("fault");
  const formats::Json& object = formats::RequireObject(step["fault"], here);
  formats::AllowKeys(object, {"op", "table", "nth", "number", "description"}, here);
  FaultStep fault;
  fault.operation = ReadName(formats::Require(object, "op", here), here.Key("op"));
  if (!IsOperation(fault.operation))
    here.Key("op").Fail(fmt::format("die Operation „{}“ gibt es nicht", fault.operation));
  if (const formats::Json* table = formats::Find(object, "table"))
    fault.table = ReadTable(*table, here.Key("table")).name;
  if (const formats::Json* nth = formats::Find(object, "nth")) {
    fault.nth = formats::RequireLong(*nth, here.Key("nth"));
    if (fault.nth < 1) here.Key("nth").Fail("zählt ab 1");
  }
  fault.number =
      dataset::ReadErrorNumber(formats::Require(object, "number", here), here.Key("number"));
  if (const formats::Json* description = formats::Find(object, "description"))
    fault.description = formats::RequireText(*description, here.Key("description"));
  return fault;
}

decltype(Step::what) ReadDump(const formats::Json& step, const formats::Place& place) {
  formats::AllowKeys(step, {"dump"}, place);
  const formats::Place here = place.Key("dump");
  const formats::Json& tables = step["dump"];
  DumpStep dump;
  if (tables == true) return dump;
  if (!tables.is_array() || tables.empty())
    here.Fail("true oder eine Liste von Tabellen wird erwartet");
  for (std::size_t i = 0; i < tables.size(); ++i)
    dump.tables.push_back(ReadTable(tables[i], here.Element(i)).name);
  return dump;
}

using ReadStep = decltype(Step::what) (*)(const formats::Json& step, const formats::Place& place);

constexpr std::array<std::pair<std::string_view, ReadStep>, 6> kSteps = {{
    {"goto", ReadGoto},
    {"call", ReadCall},
    {"persistVar", ReadPersistVar},
    {"dbSetting", ReadDbSetting},
    {"fault", ReadFault},
    {"dump", ReadDump},
}};

Step ReadOneStep(const formats::Json& step, const formats::Place& place) {
  formats::RequireObject(step, place);
  for (const auto& [key, read] : kSteps)
    if (formats::Find(step, key)) return {read(step, place), place.Path()};
  if (step.empty()) place.Fail("ein Schritt wird erwartet");
  place.FailUnknownKey(step.begin().key());
}

}  // namespace

std::string_view Name(Operation operation) {
  for (const auto& [name, known] : kOperations)
    if (known == operation) return name;
  return {};
}

Script ReadScript(const formats::Json& script, const std::string& source) {
  const formats::Place root(source);
  formats::AllowKeys(formats::RequireObject(script, root), {"today", "steps"}, root);
  Script result;
  if (const formats::Json* today = formats::Find(script, "today")) {
    result.today = dataset::ReadDate(*today, root.Key("today"));
    if (platform::TimeOfDay(*result.today) != 0 || *result.today == platform::kNoDate)
      root.Key("today").Fail("ein Tag wird erwartet");
  }
  const formats::Place steps = root.Key("steps");
  const formats::Json& list = formats::RequireArray(formats::Require(script, "steps", root), steps);
  for (std::size_t i = 0; i < list.size(); ++i)
    result.steps.push_back(ReadOneStep(list[i], steps.Element(i)));
  return result;
}

}  // namespace pactora::scripts
