// Scripts: what is refused before anything runs, and the transcript of a run.
#include "automation/scripts/script.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "automation/company.h"
#include "automation/formats/errors.h"
#include "automation/scripts/script_run.h"
#include "automation/workspace/ForwardingStore.h"
#include "automation/workspace/exit_status.h"
#include "platform/Clock.h"
#include "store/errors.h"
#include "support/error_of.h"

namespace pactora::scripts {
namespace {

using support::Company;
using support::ErrorOf;
using support::kRecord;
using support::SampleCompany;

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

Script ReadText(const std::string& text) {
  std::istringstream in(text);
  return ReadScript(formats::ParseJson(in, "skript.json"), "skript.json");
}

TEST(Script, ABadStepIsRefusedNamingStepAndKey) {
  const std::pair<const char*, const char*> cases[] = {
      // step, message
      {"1", "[1]: ein Objekt wird erwartet"},
      {R"({"jump": 1})", "[1]: unbekannter Schlüssel „jump“"},
      {R"({"goto": "Adressen"})", "[1]: genau eines von where, oid und none wird erwartet"},
      {R"({"goto": "Kunden", "oid": "1"})", "[1].goto: die Tabelle „Kunden“ gibt es nicht"},
      {R"({"goto": "Adressen", "where": {"Ort": "X"}})", "[1].where.Ort: kein Feld von Adressen"},
      {R"({"goto": "Adressen", "where": {"Name": 7}})", "[1].where.Name: ein Text wird erwartet"},
      {R"({"goto": "Adressen", "none": false})", "[1].none: nur true ist möglich"},
      {R"({"call": "newcontract"})", "[1].call: die Operation „newcontract“ gibt es nicht"},
      {R"({"call": "DLLVersion", "pbNew": true})", "[1]: unbekannter Schlüssel „pbNew“"},
      {R"({"call": "NewContractDebitor", "without": ["Preis"]})",
       "[1].without[0]: die Eigenschaft „Preis“ gibt es nicht"},
      {R"({"call": "NewContract", "do": [{"klick": "cmdOK"}]})",
       "[1].do[0]: unbekannter Schlüssel „klick“"},
      {R"({"fault": {"op": "StoreNew"}})", "[1].fault: „number“ fehlt"},
      {R"({"fault": {"op": "StoreNow", "number": "0x5"}})",
       "[1].fault.op: die Operation „StoreNow“ gibt es nicht"},
      {R"({"fault": {"op": "StoreNew", "nth": 0, "number": "0x5"}})", "[1].fault.nth: zählt ab 1"},
      {R"({"dump": ["Adressen", "X"]})", "[1].dump[1]: die Tabelle „X“ gibt es nicht"},
  };
  for (const auto& [step, message] : cases) {
    const std::string text = std::string(R"({"steps": [{"dump": true}, )") + step + "]}";
    const auto error = ErrorOf([&] { ReadText(text); });
    ASSERT_TRUE(error) << step;
    EXPECT_EQ(error->Description(), std::string("skript.json: steps") + message);
    EXPECT_EQ(error->Number(), Number(formats::DoorError::BadInput)) << step;
  }
  for (const char* bad : {"{}", R"({"steps": {}})", R"({"steps": [], "heute": "2024-03-15"})",
                          R"({"steps": [], "today": "2024-03-15T09:00:00"})"})
    EXPECT_TRUE(ErrorOf([&] { ReadText(bad); })) << bad;
}

// A run on the company, on a fixed day.
struct Ran {
  // The rows of a table in the last event, a dump.
  formats::Json Rows(const char* table) const {
    return formats::Json::parse(events.back())["tables"][table];
  }

  RunResult result;
  std::vector<std::string> events;
};

Ran RunSteps(std::string steps, std::unique_ptr<store::RecordStore> store = Company(),
             bool dump_written = false) {
  const platform::FixedClock clock(platform::FromCivil(2024, 3, 15));
  std::ostringstream out;
  RunOptions options;
  options.dump_written = dump_written;
  if (steps.ends_with(", ")) steps.resize(steps.size() - 2);
  Ran ran;
  ran.result =
      RunScript(ReadText("{\"steps\": [" + steps + "]}"), std::move(store), clock, out, options);
  std::istringstream lines(out.str());
  for (std::string line; std::getline(lines, line);) ran.events.push_back(line);
  return ran;
}

const std::string kGoto = R"({"goto": "Adressen", "where": {"Name": "Beispiel AG"}}, )";
const std::string kCall = std::string(R"({"call": "NewContractDebitor", )") + kRecord + "}, ";
const std::string kCallEvent = R"({"event":"call","name":"NewContractDebitor"})";
const std::string kReturnEvent = R"({"event":"return","name":"NewContractDebitor"})";

TEST(ScriptRun, AtTheStartNoTableHasACurrentRow) {
  const Ran ran = RunSteps(kCall + kGoto + R"({"goto": "Adressen", "none": true}, )" + kCall +
                           R"({"call": "DLLVersion"})");
  EXPECT_THAT(
      ran.events,
      ElementsAre(kCallEvent,
                  HasSubstr(R"("number":"0x8004500A","source":"modAPI",)"
                            R"("description":"Keine Adresse ausgewählt!")"),
                  kCallEvent, HasSubstr("0x8004500A"), R"({"event":"call","name":"DLLVersion"})",
                  R"({"event":"return","name":"DLLVersion","result":"Version 2.9.0.2"})"));
  EXPECT_THAT(ran.result.problems,
              ElementsAre("steps[0]: Fehler 0x8004500A: Keine Adresse ausgewählt!",
                          "steps[3]: Fehler 0x8004500A: Keine Adresse ausgewählt!"));
}

TEST(ScriptRun, ARecordThatLacksAPropertyEndsInAMessageWhichIsNoFailure) {
  const Ran ran = RunSteps(kGoto +
                           R"({"call": "NewContractDebitor", "contract": {},
                          "without": ["Auftragsnummer"]})");
  EXPECT_THAT(ran.events.at(1), HasSubstr("unterstützt diese Eigenschaft"));
  EXPECT_THAT(ran.result.problems, IsEmpty());
}

TEST(ScriptRun, AFaultComesAtTheNthCallOnThatTableOnce) {
  const std::string fault =
      R"({"fault": {"op": "StoreNew", "table": "vv_Vertragspositionen", "nth": 2,
                    "number": "0x80041096", "description": "voll"}},
         {"fault": {"op": "StoreNew", "table": "vv_Vertragspositionen", "nth": 4,
                    "number": "0x80041097"}}, )";
  const Ran ran =
      RunSteps(fault + kGoto + kCall + kCall + kCall + kCall + R"({"dump": ["vv_Vertraege"]})");
  EXPECT_EQ(ran.events[1], kReturnEvent);
  EXPECT_EQ(ran.events[3], R"({"event":"error","number":"0x80041096",)"
                           R"("source":"modAPI.WriteNewPositions","description":"voll"})");
  EXPECT_EQ(ran.events[5], kReturnEvent);
  EXPECT_THAT(ran.events[7], HasSubstr("0x80041097"));
  const formats::Json contracts = ran.Rows("vv_Vertraege");
  ASSERT_EQ(contracts.size(), 4u);
  EXPECT_FALSE(contracts[1].contains("AktValue")) << "stored so far, and no further";
  EXPECT_THAT(ran.result.unused_faults, IsEmpty());
}

TEST(ExitStatus, IsTheSameForAnOutageWhicheverWayItIsTold) {
  using enum store::StoreError;
  const std::pair<std::vector<store::StoreError>, workspace::Status> cases[] = {
      {{Locked, NotReachable, OtherVersion, ReadOnly, Full, UnitLost, Uncertain},
       workspace::Status::NotReachable},
      {{NotADatabase}, workspace::Status::BadInput},
      {{HasChildren, Failed}, workspace::Status::Refused}};
  for (const auto& [errors, status] : cases) {
    for (const store::StoreError error : errors) {
      EXPECT_EQ(workspace::StatusOf(error), status);
      EXPECT_EQ(workspace::StatusOf(platform::Error(store::Number(error), "")), status);
    }
  }
}

TEST(ScriptRun, TheScriptsOwnStepsNeitherFailNorCountAndSetVariablesForWhatFollows) {
  const Ran ran = RunSteps(R"({"fault": {"op": "GotoOid", "number": "0x5"}},
                         {"fault": {"op": "PersistVars.Item", "number": "0x5"}},
                         {"fault": {"op": "FilterOff", "nth": 99, "number": "0x5"}}, )" +
                           kGoto + R"({"persistVar": "x", "value": 1})");
  EXPECT_THAT(ran.result.problems, IsEmpty());
  EXPECT_THAT(ran.result.unused_faults, ElementsAre("steps[0]", "steps[1]", "steps[2]"));
  const Ran set = RunSteps(kGoto + R"({"persistVar": "vv_AlarmWochenEnde", "value": "2"},
                                 {"persistVar": "vv_AlarmWochenEnde", "value": "1"},
                                 {"dbSetting": "CreateAppointment4AllContracts", "value": "true"}, )" +
                           kCall + R"({"dump": ["vv_VertragsAktivitaeten"]})");
  EXPECT_THAT(set.events.back(), HasSubstr("2025-02-21T09:00:00"));
}

TEST(ScriptRun, ARowThatThereIsNotEndsTheScript) {
  const Ran ran = RunSteps(R"({"goto": "Adressen", "where": {"Name": "Niemand"}},
                         {"call": "DLLVersion"})");
  EXPECT_THAT(ran.events,
              ElementsAre(R"({"event":"failed","step":"steps[0]","action":null,)"
                          R"("reason":"Adressen: keine Zeile mit Name = \"Niemand\""})"));
  EXPECT_THAT(ran.result.problems,
              ElementsAre("steps[0]: Adressen: keine Zeile mit Name = \"Niemand\""));
}

TEST(ScriptRun, GotoFindsRowsBelowOthersAndTheirParentsFollow) {
  const Ran ran = RunSteps(kGoto + kCall + R"({"goto": "Adressen", "oid": "1"}, )" + kCall +
                           R"({"goto": "vv_Vertragspositionen",
                               "where": {"Row": "001", "Anzahl": 2, "Preis": 120}}, )" +
                           kCall + R"({"dump": ["Adressen", "vv_Vertraege"]})");
  EXPECT_THAT(ran.result.problems, IsEmpty());
  std::vector<std::string> numbers;
  for (const auto& contract : ran.Rows("vv_Vertraege"))
    numbers.push_back(contract["Vertragnummer"]);
  EXPECT_THAT(numbers, ElementsAre("00000001", "00000002", "00000003"))
      << "in their own order, whatever their addresses";
}

// Another user holds the database, or its second commit fails and gives the unit of work up.
class FailingStore final : public workspace::ForwardingStore {
 public:
  FailingStore(std::unique_ptr<store::RecordStore> store, store::StoreError error)
      : ForwardingStore(std::move(store)), error_(error) {}

  void Insert(store::TableId table, store::Record& record) override {
    if (error_ == store::StoreError::Locked) store::Raise(error_, "warum");
    ForwardingStore::Insert(table, record);
  }
  void Commit() override {
    if (InUnit() && ++commits_ == 2) {
      Rollback();
      store::Raise(error_);
    }
    ForwardingStore::Commit();
  }

 private:
  const store::StoreError error_;
  int commits_ = 0;
};

TEST(ScriptRun, AFailureOfTheWholeDatabaseIsNotedInWhateverWayItIsToldButNotARehearsedOne) {
  const auto failing = [](std::unique_ptr<store::RecordStore> company, store::StoreError error) {
    return std::make_unique<FailingStore>(std::move(company), error);
  };
  const Ran messages = RunSteps(R"({"goto": "Adressen", "oid": "1"}, {"call": "NewContract", "do": [
      {"select": "lvwBezeichnung", "text": "Wartung Server"}, {"click": "cmdOK"}]})",
                                failing(SampleCompany(), store::StoreError::Locked));
  EXPECT_THAT(messages.result.problems, IsEmpty());
  ASSERT_TRUE(messages.result.fatal_error);
  EXPECT_THAT(messages.result.fatal_error->Description(), HasSubstr("gesperrt. (warum)"));
  const Ran rehearsed =
      RunSteps(R"({"fault": {"op": "StoreNew", "number": "0x80041020"}}, )" + kGoto + kCall);
  EXPECT_THAT(rehearsed.result.problems, SizeIs(1));
  EXPECT_FALSE(rehearsed.result.fatal_error);

  // Nothing remains of what could not be committed, and the lost number is drawn again.
  const Ran ran =
      RunSteps(kGoto + kCall + kGoto + kCall + kGoto + kCall + R"({"dump": ["vv_Vertraege"]})",
               failing(Company(), store::StoreError::Full));
  ASSERT_EQ(ran.events.size(), 7u);
  EXPECT_EQ(ran.events[1], kReturnEvent);
  EXPECT_THAT(ran.events[3], HasSubstr(R"("event":"error","number":"0x80041024")"));
  ASSERT_TRUE(ran.result.fatal_error);
  EXPECT_EQ(ran.result.fatal_error->Number(), Number(store::StoreError::Full));
  EXPECT_EQ(ran.events[5], kReturnEvent);
  const formats::Json contracts = ran.Rows("vv_Vertraege");
  ASSERT_EQ(contracts.size(), 2u);
  EXPECT_EQ(contracts[1]["Vertragnummer"], "00000002");
}

// A call of the new-contract dialog in which a person does that and presses a button.
std::string Dialog(const std::string& actions, const char* button) {
  return R"({"goto": "Adressen", "oid": "1"}, {"call": "NewContract", "do": [
      {"select": "lvwBezeichnung", "text": "Wartung Server"}, )" +
         actions + R"({"click": ")" + button + "\"}]}, ";
}

TEST(ScriptRun, ALostSaveIsTheCallsErrorAndNoLaterCallClaimsIt) {
  const Ran ran = RunSteps(
      Dialog({}, "cmdOK") + Dialog({}, "cmdOK") + Dialog({}, "cmdCancel") + Dialog({}, "cmdOK"),
      std::make_unique<FailingStore>(SampleCompany(), store::StoreError::Full));
  std::vector<std::string> ends;
  for (const std::string& event : ran.events)
    if (event.find("\"return\"") + event.find("\"error\"") + 1 != std::string::npos)
      ends.push_back(event);
  EXPECT_THAT(ends, ElementsAre(HasSubstr("\"pbOK\":true"), HasSubstr("0x80041024"),
                                HasSubstr("\"pbOK\":false"), HasSubstr("\"pbOK\":true")));
  ASSERT_TRUE(ran.result.fatal_error);
  EXPECT_EQ(ran.result.fatal_error->Number(), Number(store::StoreError::Full));
}

TEST(ScriptRun, ADrawnNumberThatWasTypedBeforeIsTold) {
  const Ran ran = RunSteps(Dialog(R"({"set": "ChkAutoNumber", "value": false},
                                     {"set": "txtVertragnummer", "value": "00000005"}, )",
                                  "cmdOK") +
                               Dialog({}, "cmdOK") + Dialog({}, "cmdOK"),
                           SampleCompany());
  EXPECT_THAT(ran.result.hints,
              ElementsAre(HasSubstr("steps[1]: die Vertragsnummer 00000005 liegt vor dem Zähler"),
                          HasSubstr("steps[5]: die Vertragsnummer 00000005 hat schon")));
}

TEST(ScriptRun, ARehearsalEndsWithTheRowsThatWereWritten) {
  std::string company = support::kCompany;
  const std::string client = R"("TessarinName": "FIRMA")";
  company.insert(company.find(client) + client.size(), R"(, "KELM_Nummern": [
    {"Tabelle": "vv_Vertraege", "Feld": "Vertragnummer", "Nummer": "00000006"}])");
  const Ran ran = RunSteps(kGoto + kCall, support::StoreWith(company), true);
  const formats::Json tables = formats::Json::parse(ran.events.back())["tables"];
  std::vector<std::string> names;
  for (const auto& table : tables.items()) names.push_back(table.key());
  ASSERT_THAT(names, ElementsAre("vv_Vertraege", "vv_Vertragsstaende", "vv_Vertragspositionen",
                                 "vv_VertragsAktivitaeten", "KELM_Nummern"));
  EXPECT_FALSE(tables["vv_Vertraege"][0].contains("vv_Vertragsstaende"));
  EXPECT_EQ(tables["KELM_Nummern"][0]["Nummer"], "00000007") << "changed, not made";
}

}  // namespace
}  // namespace pactora::scripts
