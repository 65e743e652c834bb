// What one call of NewContractDebitor stores, field by field.

#include <gtest/gtest.h>

#include <functional>
#include <utility>

#include "api_world.h"

namespace pactora::api {
namespace {

namespace field = schema::field;
namespace table = schema::table;
using host::Value;
using support::Day;
using support::Row;
using support::Values;
using support::With;

class NewContractDebitor : public support::ApiTest {
 protected:
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

struct AppointmentCase {
  std::string name;
  std::function<void(support::ApiWorld&)> prepare;
  std::vector<Values> appointments;
};

TEST_F(NewContractDebitor, MakesTheseAppointmentsAndKeepsTheLastOnesOid) {
  const auto unsigned_yet = [](support::ApiWorld& w) {
    w.contract->VertragGeschlossenAm = platform::kNoDate;
  };
  const auto for_all = [](support::ApiWorld& w) { w.module.gAppointment4AllContracts = true; };
  const Values signature =
      Appointment(Day(17, 3, 2024), "Vertragsabschluss ist noch nicht erfolgt?");
  const auto notice = [](platform::Date day) {
    return Appointment(day, "Kündigungsfrist läuft am  18.01.2025  aus");
  };
  const std::vector<AppointmentCase> cases = {
      {"signed, even in the future",
       [](auto& w) { w.contract->VertragGeschlossenAm = Day(1, 1, 2030); },
       {}},
      {"not signed yet", unsigned_yet, {signature}},
      {"the end comes before the missing signature",
       [&](auto& w) {
         unsigned_yet(w);
         w.contract->lVertragArt = 2;
         w.SetVariable("vv_AlarmWochenEnde", "8");
       },
       {Appointment(Day(3, 1, 2025), "Vertrag läuft am  28.02.2025  aus"), signature}},
      // The last day for notice less the six weeks that stand for no setting.
      {"all contracts", for_all, {notice(Day(7, 12, 2024))}},
      {"all contracts, a week before",
       [&](auto& w) {
         for_all(w);
         w.SetVariable("vv_AlarmWochenKuendigung", 1);
       },
       {notice(Day(11, 1, 2025))}},
      {"the setting for all contracts is not read",
       [](auto& w) {
         w.host.App()->CurrentDb()->DbSettings().Add("CreateAppointment4AllContracts", "true");
       },
       {}},
  };
  for (const AppointmentCase& row : cases) {
    SCOPED_TRACE(row.name);
    support::ApiWorld fresh;
    fresh.Article();
    row.prepare(fresh);
    fresh.Call();
    const auto rows = fresh.Rows(table::vv_VertragsAktivitaeten);
    ASSERT_EQ(rows.size(), row.appointments.size());
    for (std::size_t i = 0; i < rows.size(); ++i) ExpectRow(rows[i], row.appointments[i]);
    const Row contract = fresh.TheOnly(table::vv_Vertraege);
    EXPECT_EQ(contract[field::GeschlossenAm], Value(fresh.contract->VertragGeschlossenAm));
    EXPECT_EQ(host::ToText(contract[field::AlarmOID]),
              rows.empty() ? "" : std::to_string(rows.back().oid));
  }
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

TEST_F(NewContractDebitor, WritesAnAttributeWithNameAndValueAndPerhapsAGroup) {
  world.Article();
  for (std::string vv_CContractD::*property :
       {&vv_CContractD::SetztMerkmal, &vv_CContractD::SetztWert}) {
    const std::string value = std::exchange((*world.contract).*property, "");
    world.Call();
    (*world.contract).*property = value;
  }
  EXPECT_EQ(world.Counts(), (std::vector<std::size_t>{2, 0, 2, 2, 0}));
  world.contract->SetztMerkmalGruppe = "";
  world.Call();
  ExpectRow(world.TheOnly(table::Adressmerkmale),
            With(AttributeRow(),
                 {{field::Gruppe, {}}, {field::Beschreibung, "00000003 / Wartungsvertrag"}}));
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

TEST_F(NewContractDebitor, WithoutArticlesTheContractStaysWithoutValue) {
  world.Call();
  EXPECT_EQ(world.Counts(), (std::vector<std::size_t>{1, 0, 1, 0, 0}));
  EXPECT_TRUE(world.TheOnly(table::vv_Vertraege)[field::AktValue].IsEmpty());
  EXPECT_TRUE(world.TheOnly(table::vv_Vertragsstaende)[field::Value].IsEmpty());
}

}  // namespace
}  // namespace pactora::api
