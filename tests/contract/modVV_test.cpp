// What the dialogs and the dialog-free path share.

#include "contract/modVV.h"

#include <gtest/gtest.h>

#include "support/contract_world.h"
#include "support/failing_probe.h"

namespace pactora::contract {
namespace {

namespace field = schema::field;
namespace table = schema::table;
using support::Day;
using support::ErrorOf;
using support::Row;

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

class SharedRoutines : public support::ContractWorldTest {
 protected:
  SharedRoutines() { world.Enter(); }

  std::string NextNumber() {
    return GetNextNumber(
        world.module, world.host.Table(table::vv_Vertraege)->Fields().Item(field::Vertragnummer));
  }
  store::Oid AddCounter(store::Oid client, std::string_view number) {
    return world.Add(
        table::KELM_Nummern,
        {{field::Tabelle, "VV_VERTRAEGE"}, {field::Feld, "VERTRAGNUMMER"}, {field::Nummer, number}},
        client);
  }
  // A stored contract that is current.
  store::Oid AddContract() {
    const store::Oid contract = world.Add(table::vv_Vertraege, {}, world.address);
    world.Goto(table::vv_Vertraege, contract);
    return contract;
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

TEST_F(SharedRoutines, TheFirstNumberMakesTheCounter) {
  EXPECT_EQ(NextNumber(), "00000001");
  EXPECT_EQ(NextNumber(), "00000002");
  const auto counters = world.Rows(table::KELM_Nummern);
  ASSERT_EQ(counters.size(), 1u);
  EXPECT_EQ(counters[0].parent, world.client);
  EXPECT_EQ(counters[0][field::Tabelle], host::Value("VV_VERTRAEGE"));
  EXPECT_EQ(counters[0][field::Feld], host::Value("VERTRAGNUMMER"));
  EXPECT_EQ(counters[0][field::Nummer], host::Value("00000002"));
}

TEST_F(SharedRoutines, CountersGoUpFromWhatTheyHold) {
  const std::vector<std::array<std::string, 3>> cases = {
      {"carry", "00000009", "00000010"}, {"a ninth digit", "99999999", "100000000"},
      {"not padded", "41", "00000042"},  {"empty", "", "00000001"},
      {"no number", "abc", "00000001"},  {"a number and more", "12x7", "00000013"},
      {"below zero", "-5", "-00000004"}, {"a half", "11.5", "00000013"},
  };
  for (const auto& [name, held, expected] : cases) {
    support::ContractWorld fresh;
    fresh.Enter();
    fresh.Add(
        table::KELM_Nummern,
        {{field::Tabelle, "VV_VERTRAEGE"}, {field::Feld, "VERTRAGNUMMER"}, {field::Nummer, held}},
        fresh.client);
    auto& number = fresh.host.Table(table::vv_Vertraege)->Fields().Item(field::Vertragnummer);
    EXPECT_EQ(GetNextNumber(fresh.module, number), expected) << name;
    EXPECT_EQ(fresh.Rows(table::KELM_Nummern)[0][field::Nummer], host::Value(expected)) << name;
  }
}

TEST_F(SharedRoutines, ANumberIsCutToTheLastCharactersOfAShortField) {
  world.Add(table::KELM_Nummern,
            {{field::Tabelle, "VV_VERTRAEGE"},
             {field::Feld, "AKTNAECHSTERECHNUNGSTR"},
             {field::Nummer, "100000000"}},
            world.client);
  auto& short_field =
      world.host.Table(table::vv_Vertraege)->Fields().Item(field::AktNaechsteRechnungStr);
  ASSERT_EQ(short_field.Size(), 8);
  EXPECT_EQ(GetNextNumber(world.module, short_field), "00000001");
  EXPECT_EQ(world.Rows(table::KELM_Nummern)[0][field::Nummer], host::Value("100000001"));
}

TEST_F(SharedRoutines, EachClientCountsForItself) {
  const store::Oid first = world.Add(table::KELM_Mandanten, {{field::TessarinName, "ANDERE"}});
  const store::Oid last = world.Add(table::KELM_Mandanten, {{field::TessarinName, "ZWEITE"}});
  AddCounter(first, "00000500");
  AddCounter(last, "00000700");
  EXPECT_EQ(NextNumber(), "00000001") << "no counter of ours among those of the key";
  EXPECT_EQ(NextNumber(), "00000002");
  std::map<store::Oid, host::Value> numbers;
  for (const Row& row : world.Rows(table::KELM_Nummern)) numbers[row.parent] = row[field::Nummer];
  EXPECT_EQ(numbers[first], host::Value("00000500"));
  EXPECT_EQ(numbers[last], host::Value("00000700"));
  EXPECT_EQ(numbers[world.client], host::Value("00000002"));
}

TEST_F(SharedRoutines, CountersOfOtherFieldsAreNoneOfOurs) {
  world.Add(table::KELM_Nummern,
            {{field::Tabelle, "VV_VERTRAEGE"},
             {field::Feld, "VERTRAGNUMMERX"},
             {field::Nummer, "00000099"}},
            world.client);
  EXPECT_EQ(NextNumber(), "00000001") << "the nearest key is another one";
  EXPECT_EQ(NextNumber(), "00000002");
}

TEST_F(SharedRoutines, AClientIsFoundWithoutRegardToCaseAndAMissingOneGetsNoCounter) {
  const auto rename_client = [&](std::string_view name) {
    world.Goto(table::KELM_Mandanten, world.client);
    const auto clients = world.host.Table(table::KELM_Mandanten);
    clients->Fields().Item(field::TessarinName).SetValue(name);
    clients->Store(256);
  };
  rename_client("ANDERE");
  const auto error = ErrorOf([&] { NextNumber(); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Number(), platform::ErrorNumber(0x80040002));
  EXPECT_EQ(error->Description(), "Mandant Firma GmbH fehlt in Mandantentabelle!");
  EXPECT_EQ(world.Count(table::KELM_Nummern), 0u);
  rename_client("Firma");
  EXPECT_EQ(NextNumber(), "00000001");
  EXPECT_EQ(NextNumber(), "00000002");
}

TEST_F(SharedRoutines, AnAlarmIsANewAppointmentOfTheContract) {
  const store::Oid contract = AddContract();
  CreateCancellationAlarm(world.module, "", Day(1, 2, 2025), Day(15, 3, 2025), "Bert",
                          kAlarmNotice);
  CreateCancellationAlarm(world.module, "", Day(2, 2, 2025), Day(16, 3, 2025), "Bert", kAlarmEnd);
  CreateOpenAlarm(world.module, "", Day(3, 2, 2025), "Anna");
  const auto rows = world.Rows(table::vv_VertragsAktivitaeten);
  ASSERT_EQ(rows.size(), 3u);
  const std::array<std::string, 3> subjects = {"Kündigungsfrist läuft am  15.03.2025  aus",
                                               "Vertrag läuft am  16.03.2025  aus",
                                               "Vertragsabschluss ist noch nicht erfolgt?"};
  for (std::size_t i = 0; i < rows.size(); ++i) {
    EXPECT_EQ(rows[i].parent, contract);
    EXPECT_EQ(rows[i][field::Typ], host::Value("Termin"));
    EXPECT_EQ(rows[i][field::Betreff], host::Value(subjects[i]));
    EXPECT_EQ(rows[i][field::Datum].AsDate().days, Day(1, 2, 2025).days + double(i) + 0.375);
    EXPECT_EQ(rows[i][field::Erledigt], host::Value(false));
    EXPECT_EQ(rows[i][field::Verantwortlich], host::Value(i == 2 ? "Anna" : "Bert"));
  }
  EXPECT_EQ(world.Rows(table::vv_Vertraege)[0][field::AlarmOID],
            host::Value(std::to_string(rows[2].oid)));
}

TEST_F(SharedRoutines, AnExistingAppointmentIsChangedAndAGoneOneIsLeftAlone) {
  const store::Oid contract = AddContract();
  const store::Oid appointment = world.Add(
      table::vv_VertragsAktivitaeten, {{field::Betreff, "alt"}, {field::Erledigt, true}}, contract);
  world.host.SetFilter(table::vv_VertragsAktivitaeten, embedded::FilterKind::First,
                       [](const store::Record&) { return false; });
  CreateOpenAlarm(world.module, "4711", Day(1, 2, 2025), "Anna");
  EXPECT_EQ(world.Rows(table::vv_VertragsAktivitaeten)[0][field::Betreff], host::Value("alt"));
  CreateCancellationAlarm(world.module, std::to_string(appointment), Day(1, 2, 2025),
                          Day(15, 3, 2025), "Anna", kAlarmEnd);
  const auto rows = world.Rows(table::vv_VertragsAktivitaeten);
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(rows[0][field::Betreff], host::Value("Vertrag läuft am  15.03.2025  aus"));
  EXPECT_EQ(rows[0][field::Erledigt], host::Value(false));
  EXPECT_TRUE(world.Rows(table::vv_Vertraege)[0][field::AlarmOID].IsEmpty());
}

TEST_F(SharedRoutines, AFailingAlarmIsShownInlineAndEndsNormally) {
  AddContract();
  const platform::Error full(platform::ErrorNumber(0x80041024), "Kein Platz", "Platte");
  const auto inline_message = [](const std::string& routine) {
    return ui::Message{"Fehler &H80041024\r\n(Kein Platz)\r\nin modVV." + routine};
  };
  {
    support::FailingProbe probe(world.host, 1, "StoreNew",
                                std::string(table::vv_VertragsAktivitaeten), full);
    world.screen.ExpectMessage(inline_message("CreateCancellationAlarm"));
    CreateCancellationAlarm(world.module, "", Day(1, 2, 2025), Day(15, 3, 2025), "Anna", kAlarmEnd);
  }
  {
    support::FailingProbe probe(world.host, 1, "Store", std::string(table::vv_Vertraege), full);
    world.screen.ExpectMessage(inline_message("CreateOpenAlarm"));
    CreateOpenAlarm(world.module, "", Day(1, 2, 2025), "Anna");
  }
  EXPECT_EQ(world.Count(table::vv_VertragsAktivitaeten), 1u) << "the second one was stored before";
  EXPECT_TRUE(world.Rows(table::vv_Vertraege)[0][field::AlarmOID].IsEmpty());
}

}  // namespace
}  // namespace pactora::contract
