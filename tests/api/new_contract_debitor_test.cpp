// What one call of NewContractDebitor stores, field by field.

#include <gtest/gtest.h>

#include <limits>

#include "api_world.h"
#include "support/fault_sweep.h"

namespace pactora::api {
namespace {

namespace field = schema::field;
namespace table = schema::table;
using host::Value;
using support::Day;
using support::ErrorOf;
using support::Row;
using support::Values;
using support::With;

class NewContractDebitor : public support::ApiTest {
 protected:
  std::string AlarmOid() {
    return host::ToText(world.TheOnly(table::vv_Vertraege)[field::AlarmOID]);
  }

  static Values ContractRow() {
    return {{field::Typ, "D"},
            {field::Vertragnummer, "00000001"},
            {field::Bezeichnung, "Wartungsvertrag"},
            {field::Art, 1},
            {field::ArtStr, "verlängerbar"},
            {field::VertragBeginn, Day(1, 3, 2024)},
            {field::VertragEnde, Day(28, 2, 2025)},
            {field::GeschlossenAm, Day(1, 3, 2024)},
            {field::Memo, "Notiz"},
            {field::Auftragsnummer, "B-17"},
            {field::Dauer, 12},
            {field::Verlaengerungsdauer, 12},
            {field::Kuendigungsfrist, 6},
            {field::KuendigungsfristEinh, "Wochen"},
            {field::VerlKuendigungsfrist, 6},
            {field::VerlKuendigungsfristEinh, "Wochen"},
            {field::KuendfristDatum, Day(18, 1, 2025)},
            {field::Zahlungsperiode, 1},
            {field::VerlaengerungsZahlungsperiode, 12},
            {field::AktZahlungsperiode, 1},
            {field::AktZahlungsperiodeStr, "monatlich"},
            {field::AktValue, 18.0},
            {field::AktNaechsteRechnung, Day(1, 3, 2024)},
            {field::AktNaechsteRechnungStr, "20240301"},
            {field::Verantwortlich, "Anna"},
            {field::NoBooking, false},
            {field::RabattNurErsteLaufzeit, false}};
  }
  static Values StatusRow() {
    return {{field::LaufzeitStart, Day(1, 3, 2024)},
            {field::LaufzeitStartStr, "20240301"},
            {field::LaufzeitEnde, Day(28, 2, 2025)},
            {field::LaufzeitEndeStr, "20250228"},
            {field::Zahlungsperiode, 1},
            {field::ZahlungsperiodeStr, "monatlich"},
            {field::Value, 18.0},
            {field::RechnungWann, 0},
            {field::NaechsteRechnung, Day(1, 3, 2024)},
            {field::NaechsteRechnungStr, "20240301"},
            {field::Rabattprozent, 10.0}};
  }
  static Values PositionRow() {
    return {{field::Artikel, "Wartung Server"},
            {field::Nettopreis, 9.0},
            {field::Artikelnummer, "1000"},
            {field::Artikelart, "Dienst"},
            {field::Einheit, "Stück"},
            {field::UStSatz, 19.0},
            {field::Beschreibung, "Vor Ort"},
            {field::Anzahl, 2.0},
            {field::Erloeskonto, 8400},
            {field::ArtikelID, "A1"},
            {field::PreisM1, 10.0},
            {field::PreisM3, 30.0},
            {field::PreisM6, 60.0},
            {field::PreisM12, 120.0},
            {field::PreisM24, 240.0},
            {field::PreisM36, 360.0},
            {field::PreisM48, 480.0},
            {field::PreisM60, 600.0},
            {field::Preis, 120.0},
            {field::NettoOhneRabatt, 10.0},
            {field::Row, "001"},
            {field::Rabattprozent, 10.0},
            {field::Auftragsnummer, ""},
            {field::Gruppierung, ""}};
  }
  static Values AttributeRow() {
    return {{field::Gruppe, "Kunden"},
            {field::Merkmal, "Status"},
            {field::Wert, "A"},
            {field::GültigVom, Day(1, 3, 2024)},
            {field::GültigBis, Day(28, 2, 2025)},
            {field::Beschreibung, "00000001 / Wartungsvertrag"}};
  }
  static Values Appointment(platform::Date day, const std::string& subject) {
    return {{field::Typ, "Termin"},
            {field::Betreff, subject},
            {field::Datum, platform::Date{day.days + 0.375}},
            {field::Erledigt, false},
            {field::Verantwortlich, "Anna"}};
  }
};

TEST_F(NewContractDebitor, StoresARenewableContract) {
  world.Article();
  world.Call();
  const Row contract = world.TheOnly(table::vv_Vertraege);
  const Row term = world.TheOnly(table::vv_Vertragsstaende);
  const Row position = world.TheOnly(table::vv_Vertragspositionen);
  const Row attribute = world.TheOnly(table::Adressmerkmale);
  ExpectRow(contract, ContractRow());
  ExpectRow(term, StatusRow());
  ExpectRow(position, PositionRow());
  ExpectRow(attribute, AttributeRow());
  EXPECT_EQ(contract.parent, world.address);
  EXPECT_EQ(term.parent, contract.oid);
  EXPECT_EQ(position.parent, term.oid);
  EXPECT_EQ(attribute.parent, world.address);
  EXPECT_EQ(world.Count(table::vv_VertragsAktivitaeten), 0u);
  EXPECT_EQ(world.host.Table(table::vv_Vertraege)->Oid(), std::to_string(contract.oid))
      << "the new contract is current";
}

TEST_F(NewContractDebitor, StoresAContractThatEnds) {
  world.contract->lVertragArt = 2;
  world.Article();
  world.Call();
  const Row appointment = world.TheOnly(table::vv_VertragsAktivitaeten);
  ExpectRow(world.TheOnly(table::vv_Vertraege),
            With(ContractRow(), {{field::Art, 2},
                                 {field::ArtStr, "einmalig"},
                                 {field::Verlaengerungsdauer, {}},
                                 {field::Kuendigungsfrist, {}},
                                 {field::KuendigungsfristEinh, {}},
                                 {field::VerlKuendigungsfrist, {}},
                                 {field::VerlKuendigungsfristEinh, {}},
                                 {field::VerlaengerungsZahlungsperiode, {}},
                                 {field::KuendfristDatum, {}},
                                 {field::AlarmOID, std::to_string(appointment.oid)}}));
  ExpectRow(world.TheOnly(table::vv_Vertragsstaende), StatusRow());
  ExpectRow(world.TheOnly(table::vv_Vertragspositionen), PositionRow());
  ExpectRow(world.TheOnly(table::Adressmerkmale), AttributeRow());
  ExpectRow(appointment, Appointment(Day(31, 1, 2025), "Vertrag läuft am  28.02.2025  aus"));
}

TEST_F(NewContractDebitor, RemindsOfASignatureThatIsMissing) {
  world.contract->VertragGeschlossenAm = platform::kNoDate;
  world.Article();
  world.Call();
  const Row appointment = world.TheOnly(table::vv_VertragsAktivitaeten);
  ExpectRow(appointment,
            Appointment(Day(17, 3, 2024), "Vertragsabschluss ist noch nicht erfolgt?"));
  EXPECT_EQ(world.TheOnly(table::vv_Vertraege)[field::GeschlossenAm], Value(platform::kNoDate));
  EXPECT_EQ(AlarmOid(), std::to_string(appointment.oid));
}

TEST_F(NewContractDebitor, TheEndComesBeforeTheMissingSignatureAndTheLastAlarmIsKept) {
  world.contract->lVertragArt = 2;
  world.contract->VertragGeschlossenAm = platform::kNoDate;
  world.SetVariable("vv_AlarmWochenEnde", "8");
  world.Article();
  world.Call();
  const auto rows = world.Rows(table::vv_VertragsAktivitaeten);
  ASSERT_EQ(rows.size(), 2u);
  ExpectRow(rows[0], Appointment(Day(3, 1, 2025), "Vertrag läuft am  28.02.2025  aus"));
  EXPECT_EQ(rows[1][field::Betreff], Value("Vertragsabschluss ist noch nicht erfolgt?"));
  EXPECT_EQ(AlarmOid(), std::to_string(rows[1].oid));
}

TEST_F(NewContractDebitor, ASignatureInTheFutureIsOne) {
  world.contract->VertragGeschlossenAm = Day(1, 1, 2030);
  world.Article();
  world.Call();
  EXPECT_EQ(world.Count(table::vv_VertragsAktivitaeten), 0u);
}

TEST_F(NewContractDebitor, IfAllContractsGetAnAppointmentARenewableOneGetsItsNoticeDate) {
  world.module.gAppointment4AllContracts = true;
  world.Article();
  world.Call();
  // The last day for notice less the six weeks that stand for no setting.
  ExpectRow(world.TheOnly(table::vv_VertragsAktivitaeten),
            Appointment(Day(7, 12, 2024), "Kündigungsfrist läuft am  18.01.2025  aus"));
  world.SetVariable("vv_AlarmWochenKuendigung", 1);
  world.Call();
  EXPECT_EQ(world.Rows(table::vv_VertragsAktivitaeten).at(1)[field::Datum],
            Value(platform::Date{Day(11, 1, 2025).days + 0.375}));
}

TEST_F(NewContractDebitor, DatesFollowTheTerm) {
  struct Case {
    std::string name;
    platform::Date begin;
    std::int32_t term, weeks;
    platform::Date end, notice;
  };
  const std::vector<Case> cases = {
      {"clamped", Day(31, 1, 2024), 1, 0, Day(28, 2, 2024), Day(29, 2, 2024)},
      {"six weeks", Day(1, 3, 2024), 12, 6, Day(28, 2, 2025), Day(18, 1, 2025)},
      {"negative notice", Day(1, 3, 2024), 12, -2, Day(28, 2, 2025), Day(15, 3, 2025)},
      {"a time of day", platform::Date{Day(1, 3, 2024).days + 0.5}, 12, 6,
       platform::Date{Day(28, 2, 2025).days + 0.5}, platform::Date{Day(18, 1, 2025).days + 0.5}},
  };
  for (const Case& row : cases) {
    support::ApiWorld fresh;
    fresh.Article();
    fresh.contract->VertragBeginn = row.begin;
    fresh.contract->Dauer = row.term;
    fresh.contract->KuendFristInWochen = row.weeks;
    fresh.Call();
    const Row contract = fresh.Rows(table::vv_Vertraege).at(0);
    EXPECT_EQ(contract[field::VertragEnde], Value(row.end)) << row.name;
    EXPECT_EQ(contract[field::KuendfristDatum], Value(row.notice)) << row.name;
    EXPECT_EQ(contract[field::Kuendigungsfrist], Value(row.weeks)) << row.name;
    EXPECT_EQ(fresh.Rows(table::Adressmerkmale).at(0)[field::GültigBis], Value(row.end))
        << row.name;
  }
}

TEST_F(NewContractDebitor, ADateBeyondTheCalendarStoresNothing) {
  for (const bool renewable : {true, false}) {
    support::ApiWorld fresh;
    fresh.Article();
    fresh.contract->lVertragArt = renewable ? 1 : 2;
    fresh.contract->VertragBeginn = renewable ? Day(1, 3, 2024) : Day(1, 2, 9999);
    fresh.contract->KuendFristInWochen = std::numeric_limits<std::int32_t>::min();
    const auto error = ErrorOf([&] { fresh.Call(); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 5);
    EXPECT_EQ(error->Source(), "modAPI.CreateVandVS");
    EXPECT_EQ(fresh.Counts(), std::vector<std::size_t>(5, 0));
  }
}

TEST_F(NewContractDebitor, WritesNoAttributeWithoutANameOrAValue) {
  world.Article();
  world.contract->SetztWert = "";
  world.Call();
  world.contract->SetztMerkmal = "";
  world.contract->SetztWert = "A";
  world.Call();
  EXPECT_EQ(world.Count(table::Adressmerkmale), 0u);
  EXPECT_EQ(world.Count(table::vv_Vertraege), 2u);
}

TEST_F(NewContractDebitor, WritesAnAttributeWithoutAGroup) {
  world.Article();
  world.contract->SetztMerkmalGruppe = "";
  world.Call();
  ExpectRow(world.TheOnly(table::Adressmerkmale), With(AttributeRow(), {{field::Gruppe, {}}}));
}

TEST_F(NewContractDebitor, NumbersCountUpAndEachContractStandsForItself) {
  world.Article();
  world.Call();
  world.Goto(table::Adressen, world.other_address);
  world.Call();
  const auto contracts = world.Rows(table::vv_Vertraege);
  ASSERT_EQ(contracts.size(), 2u);
  EXPECT_EQ(contracts[1][field::Vertragnummer], Value("00000002"));
  EXPECT_EQ(contracts[1].parent, world.other_address);
  const auto terms = world.Rows(table::vv_Vertragsstaende);
  ASSERT_EQ(terms.size(), 2u);
  EXPECT_EQ(terms[0].parent, contracts[0].oid);
  EXPECT_EQ(terms[1].parent, contracts[1].oid);
  EXPECT_EQ(contracts[0][field::AktValue], Value(18.0));
}

TEST_F(NewContractDebitor, AFilterOnTheContractsIsSwitchedOff) {
  world.HideRows(table::vv_Vertraege, embedded::FilterKind::Second);
  world.Article();
  world.Call();
  EXPECT_EQ(world.host.Table(table::vv_Vertraege)->ScopeCount(), 1);
}

TEST_F(NewContractDebitor, ReadsNoSettingForAppointments) {
  world.host.App()->CurrentDb()->DbSettings().Add("CreateAppointment4AllContracts", "true");
  world.Article();
  world.Call();
  EXPECT_EQ(world.Count(table::vv_VertragsAktivitaeten), 0u);
}

TEST_F(NewContractDebitor, WithoutArticlesTheContractStaysWithoutValue) {
  world.Call();
  EXPECT_EQ(world.Counts(), (std::vector<std::size_t>{1, 0, 1, 0, 0}));
  EXPECT_TRUE(world.TheOnly(table::vv_Vertraege)[field::AktValue].IsEmpty());
  EXPECT_TRUE(world.TheOnly(table::vv_Vertragsstaende)[field::Value].IsEmpty());
}

}  // namespace
}  // namespace pactora::api
