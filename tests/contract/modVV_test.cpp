// What the dialogs and the dialog-free path share.

#include "contract/modVV.h"

#include <gtest/gtest.h>

#include "support/contract_world.h"
#include "support/fault_sweep.h"
#include "support/row_text.h"

namespace pactora::contract {
namespace {

namespace field = schema::field;
namespace table = schema::table;
using support::Day;
using support::ErrorOf;
using support::Lines;

TEST(PeriodNames, NameTheStandardPeriodsAndSinglePayments) {
  const std::map<std::int32_t, std::string> names = {
      {1, "monatlich"},     {3, "vierteljährlich"}, {6, "halbjährlich"},  {12, "jährlich"},
      {24, "zweijährlich"}, {36, "dreijährlich"},   {48, "vierjährlich"}, {60, "fünfjährlich"}};
  for (std::int32_t months = -2; months <= 64; ++months) {
    const auto name = names.find(months);
    const bool once = months >= 2 && months <= 11;
    const std::string expected = name != names.end() ? name->second : once ? "einmalig" : "";
    EXPECT_EQ(GetPeriodName(months), expected) << months;
  }
}

std::string NextNumber(support::ContractWorld& world,
                       std::string_view name = field::Vertragnummer) {
  return GetNextNumber(world.module, world.host.Table(table::vv_Vertraege)->Fields().Item(name));
}
void AddCounter(support::ContractWorld& world, store::Oid client, std::string_view number,
                std::string_view counted = "VERTRAGNUMMER") {
  world.Add(table::KELM_Nummern,
            {{field::Tabelle, "VV_VERTRAEGE"}, {field::Feld, counted}, {field::Nummer, number}},
            client);
}
std::vector<std::string> Counters(support::ContractWorld& world) {
  return Lines(world, table::KELM_Nummern, {field::Tabelle, field::Feld, field::Nummer});
}

class SharedRoutines : public support::ContractWorldTest {
 protected:
  SharedRoutines() { world.Enter(); }

  // A stored contract that is current.
  store::Oid AddContract() {
    const store::Oid contract = world.Add(table::vv_Vertraege, {}, world.address);
    world.Goto(table::vv_Vertraege, contract);
    return contract;
  }
  std::vector<std::string> Appointments() {
    return Lines(
        world, table::vv_VertragsAktivitaeten,
        {field::Typ, field::Datum, field::Betreff, field::Erledigt, field::Verantwortlich});
  }
};

TEST_F(SharedRoutines, VariablesAreFoundByTheirExactName) {
  const auto read = [&](std::string_view name) {
    return ReadPersistVarSetting(world.module, name, "4");
  };
  EXPECT_EQ(read("vv_AlarmWochenEnde"), "4");
  EXPECT_FALSE(world.module.gDb->Formulas().PersistVars().Exists("vv_AlarmWochenEnde"));
  world.SetVariable("VV_ALARMWOCHENENDE", "7");
  EXPECT_EQ(read("vv_AlarmWochenEnde"), "4") << "case counts";
  EXPECT_EQ(read("VV_ALARMWOCHENENDE"), "7");
  world.SetVariable("Schlüssel_mit_genau_dreißig_Zei", "31 characters");
  world.SetVariable("Schlüssel_mit_genau_dreißig_Ze", 12);
  EXPECT_EQ(read("Schlüssel_mit_genau_dreißig_Zeichen"), "12") << "30 characters of the name";
}

TEST_F(SharedRoutines, AHostErrorWhileReadingAVariableIsShownAndGivesNothing) {
  support::FailingProbe probe(world.host, 1, platform::Error(5, "x", "Probe"));
  world.screen.ExpectMessage(
      support::ReporterMessage("modVV.ReadPersistVarSetting",
                               "Fehler &H5 in Probe\r\n" + embedded::CreateErrorTexts()->Text(5)));
  EXPECT_EQ(ReadPersistVarSetting(world.module, "vv_AlarmWochenEnde", "4"), "");
  EXPECT_TRUE(probe.HasFailed());
}

TEST(NextNumbers, ANewCounterStartsWhereThereIsNoneOfOurs) {
  enum class Held { Nothing, OfOtherClients, OfAnotherField };
  for (const Held held : {Held::Nothing, Held::OfOtherClients, Held::OfAnotherField}) {
    SCOPED_TRACE(static_cast<int>(held));
    support::ContractWorld world;
    world.Enter();
    for (const char* name : {"ANDERE", "ZWEITE"}) {
      const store::Oid client = world.Add(table::KELM_Mandanten, {{field::TessarinName, name}});
      if (held == Held::OfOtherClients) AddCounter(world, client, "00000500");
    }
    if (held == Held::OfAnotherField) AddCounter(world, world.client, "99", "VERTRAGNUMMERX");
    std::vector<std::string> expected = Counters(world);
    EXPECT_EQ(NextNumber(world), "00000001");
    EXPECT_EQ(NextNumber(world), "00000002");
    expected.push_back("VV_VERTRAEGE VERTRAGNUMMER 00000002");
    EXPECT_THAT(Counters(world), testing::UnorderedElementsAreArray(expected));
    EXPECT_EQ(world.Rows(table::KELM_Nummern).back().parent, world.client);
  }
}

TEST(NextNumbers, CountersGoUpFromWhatTheyHold) {
  const std::vector<std::array<std::string, 3>> cases = {
      {"carry", "00000009", "00000010"}, {"a ninth digit", "99999999", "100000000"},
      {"not padded", "41", "00000042"},  {"empty", "", "00000001"},
      {"no number", "abc", "00000001"},  {"a number and more", "12x7", "00000013"},
      {"below zero", "-5", "-00000004"}, {"a half", "11.5", "00000013"}};
  for (const auto& [name, held, expected] : cases) {
    support::ContractWorld world;
    world.Enter();
    AddCounter(world, world.client, held);
    AddCounter(world, world.client, held, "AKTNAECHSTERECHNUNGSTR");
    EXPECT_EQ(NextNumber(world), expected) << name;
    // A field of eight characters gets the last of them.
    EXPECT_EQ(NextNumber(world, field::AktNaechsteRechnungStr),
              expected.substr(expected.size() - 8))
        << name;
    EXPECT_THAT(Lines(world, table::KELM_Nummern, {field::Nummer}), testing::Each(expected));
  }
}

TEST_F(SharedRoutines, AClientIsFoundWithoutRegardToCaseAndAMissingOneGetsNoCounter) {
  const auto rename_client = [&](std::string_view name) {
    world.Goto(table::KELM_Mandanten, world.client);
    const auto clients = world.host.Table(table::KELM_Mandanten);
    clients->Fields().Item(field::TessarinName).SetValue(name);
    clients->Store(256);
  };
  rename_client("ANDERE");
  const auto error = ErrorOf([&] { NextNumber(world); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Number(), platform::ErrorNumber(0x80040002));
  EXPECT_EQ(error->Description(), "Mandant Firma GmbH fehlt in Mandantentabelle!");
  EXPECT_EQ(world.Count(table::KELM_Nummern), 0u);
  rename_client("Firma");
  EXPECT_EQ(NextNumber(world), "00000001");
  EXPECT_EQ(NextNumber(world), "00000002");
}

TEST_F(SharedRoutines, AnAlarmIsANewAppointmentOfTheContract) {
  const store::Oid contract = AddContract();
  CreateCancellationAlarm(world.module, "", Day(1, 2, 2025), Day(15, 3, 2025), "Bert",
                          kAlarmNotice);
  CreateCancellationAlarm(world.module, "", Day(1, 2, 2025), Day(16, 3, 2025), "Bert", kAlarmEnd);
  CreateOpenAlarm(world.module, "", Day(3, 2, 2025), "Anna");
  EXPECT_THAT(
      Appointments(),
      testing::ElementsAre(
          "Termin 01.02.2025 09:00:00 Kündigungsfrist läuft am  15.03.2025  aus False Bert",
          "Termin 01.02.2025 09:00:00 Vertrag läuft am  16.03.2025  aus False Bert",
          "Termin 03.02.2025 09:00:00 Vertragsabschluss ist noch nicht erfolgt? False Anna"));
  const auto rows = world.Rows(table::vv_VertragsAktivitaeten);
  for (const support::Row& row : rows) EXPECT_EQ(row.parent, contract);
  EXPECT_EQ(Lines(world, table::vv_Vertraege, {field::AlarmOID}).at(0),
            std::to_string(rows.back().oid));
}

TEST_F(SharedRoutines, AnExistingAppointmentIsChangedAndAGoneOneIsLeftAlone) {
  const store::Oid appointment =
      world.Add(table::vv_VertragsAktivitaeten, {{field::Betreff, "alt"}, {field::Erledigt, true}},
                AddContract());
  world.HideRows(table::vv_VertragsAktivitaeten, embedded::FilterKind::First);
  CreateOpenAlarm(world.module, "4711", Day(1, 2, 2025), "Anna");
  EXPECT_THAT(Lines(world, table::vv_VertragsAktivitaeten, {field::Betreff}),
              testing::ElementsAre("alt"));
  CreateCancellationAlarm(world.module, std::to_string(appointment), Day(1, 2, 2025),
                          Day(15, 3, 2025), "Anna", kAlarmEnd);
  EXPECT_THAT(Appointments(),
              testing::ElementsAre(
                  "Termin 01.02.2025 09:00:00 Vertrag läuft am  15.03.2025  aus False Anna"));
  EXPECT_TRUE(world.Rows(table::vv_Vertraege)[0][field::AlarmOID].IsEmpty());
}

TEST_F(SharedRoutines, AFailingAlarmIsShownInlineAndEndsNormally) {
  AddContract();
  const platform::Error full(platform::ErrorNumber(0x80041024), "Kein Platz", "Platte");
  const auto fail = [&](const char* operation, std::string_view name, const std::string& routine) {
    world.screen.ExpectMessage({"Fehler &H80041024\r\n(Kein Platz)\r\nin modVV." + routine});
    return support::FailingProbe(world.host, 1, operation, std::string(name), full);
  };
  {
    const auto probe = fail("StoreNew", table::vv_VertragsAktivitaeten, "CreateCancellationAlarm");
    CreateCancellationAlarm(world.module, "", Day(1, 2, 2025), Day(15, 3, 2025), "Anna", kAlarmEnd);
  }
  const auto probe = fail("Store", table::vv_Vertraege, "CreateOpenAlarm");
  CreateOpenAlarm(world.module, "", Day(1, 2, 2025), "Anna");
  EXPECT_EQ(world.Count(table::vv_VertragsAktivitaeten), 1u) << "the second one was stored before";
  EXPECT_TRUE(world.Rows(table::vv_Vertraege)[0][field::AlarmOID].IsEmpty());
}

}  // namespace
}  // namespace pactora::contract
