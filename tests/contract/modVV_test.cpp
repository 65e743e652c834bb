// What the dialogs and the dialog-free path share.

#include "contract/modVV.h"

#include "support/contract_world.h"
#include "support/row_text.h"

namespace pactora::contract {
namespace {

namespace field = schema::field;
namespace table = schema::table;
using support::Day;
using support::ErrorOf;
using support::Fields;
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

TEST_F(SharedRoutines, AnExistingAppointmentIsChangedAndAGoneOneIsLeftAlone) {
  const store::Oid contract = world.Add(table::vv_Vertraege, {}, world.address);
  const std::string appointment = std::to_string(
      world.Add(table::vv_VertragsAktivitaeten, Fields("Betreff=alt, Erledigt=True"), contract));
  world.Goto(table::vv_Vertraege, contract);
  world.HideRows(table::vv_VertragsAktivitaeten, embedded::FilterKind::First);
  const auto all = [&] { return All(world.TheOnly(table::vv_VertragsAktivitaeten)); };
  CreateOpenAlarm(world.module, "4711", Day(1, 2, 2025), "Anna");
  EXPECT_EQ(all(), "Betreff=alt, Erledigt=True");
  CreateCancellationAlarm(world.module, appointment, Day(1, 2, 2025), Day(15, 3, 2025), "Anna",
                          kAlarmEnd);
  EXPECT_EQ(all(),
            "Betreff=Vertrag läuft am  15.03.2025  aus, Datum=01.02.2025 09:00:00, "
            "Erledigt=False, Typ=Termin, Verantwortlich=Anna");
  EXPECT_TRUE(world.Rows(table::vv_Vertraege)[0][field::AlarmOID].IsEmpty());
}

}  // namespace
}  // namespace pactora::contract
