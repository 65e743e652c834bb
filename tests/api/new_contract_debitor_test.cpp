// What one call of NewContractDebitor stores, field by field.

#include "api_world.h"
#include "support/row_text.h"

namespace pactora::api {
namespace {

namespace field = schema::field;
namespace table = schema::table;
using support::Lines;
using support::Row;
using testing::ElementsAre;

const std::string kTerm =
    "LaufzeitEnde=28.02.2025, LaufzeitEndeStr=20250228, LaufzeitStart=01.03.2024, "
    "LaufzeitStartStr=20240301, NaechsteRechnung=01.03.2024, NaechsteRechnungStr=20240301, "
    "Rabattprozent=10, RechnungWann=0, Value=18, Zahlungsperiode=1, ZahlungsperiodeStr=monatlich";
const std::string kPosition =
    "Anzahl=2, Artikel=Wartung Server, ArtikelID=A1, Artikelart=Dienst, Artikelnummer=1000, "
    "Auftragsnummer=, Beschreibung=Vor Ort, Einheit=Stück, Erloeskonto=8400, Gruppierung=, "
    "NettoOhneRabatt=10, Nettopreis=9, Preis=120, PreisM1=10, PreisM12=120, PreisM24=240, "
    "PreisM3=30, PreisM36=360, PreisM48=480, PreisM6=60, PreisM60=600, Rabattprozent=10, Row=001, "
    "UStSatz=19";
const std::string kAttribute =
    "Beschreibung=00000001 / Wartungsvertrag, Gruppe=Kunden, GültigBis=28.02.2025, "
    "GültigVom=01.03.2024, Merkmal=Status, Wert=A";

class NewContractDebitor : public support::ApiTest {
 protected:
  // All that a contract is made of; its appointment's Oid stands for itself.
  static std::vector<std::string> Stored(support::ApiWorld& world) {
    std::vector<std::string> lines;
    for (const std::string_view name :
         {table::vv_Vertraege, table::vv_Vertragsstaende, table::vv_Vertragspositionen,
          table::Adressmerkmale, table::vv_VertragsAktivitaeten}) {
      for (Row row : world.Rows(name)) {
        row.cells.erase(std::string(field::AlarmOID));
        lines.push_back(All(row));
      }
    }
    return lines;
  }
};

TEST_F(NewContractDebitor, StoresARenewableContract) {
  world.Article();
  world.Call();
  EXPECT_THAT(
      Stored(world),
      ElementsAre("AktNaechsteRechnung=01.03.2024, AktNaechsteRechnungStr=20240301, AktValue=18, "
                  "AktZahlungsperiode=1, AktZahlungsperiodeStr=monatlich, Art=1, "
                  "ArtStr=verlängerbar, Auftragsnummer=B-17, Bezeichnung=Wartungsvertrag, "
                  "Dauer=12, GeschlossenAm=01.03.2024, KuendfristDatum=18.01.2025, "
                  "Kuendigungsfrist=6, KuendigungsfristEinh=Wochen, Memo=Notiz, NoBooking=False, "
                  "RabattNurErsteLaufzeit=False, Typ=D, Verantwortlich=Anna, "
                  "VerlKuendigungsfrist=6, VerlKuendigungsfristEinh=Wochen, "
                  "VerlaengerungsZahlungsperiode=12, Verlaengerungsdauer=12, "
                  "VertragBeginn=01.03.2024, VertragEnde=28.02.2025, Vertragnummer=00000001, "
                  "Zahlungsperiode=1",
                  kTerm, kPosition, kAttribute));
  const Row contract = world.TheOnly(table::vv_Vertraege);
  const Row term = world.TheOnly(table::vv_Vertragsstaende);
  EXPECT_EQ(contract.parent, world.address);
  EXPECT_EQ(term.parent, contract.oid);
  EXPECT_EQ(world.TheOnly(table::vv_Vertragspositionen).parent, term.oid);
  EXPECT_EQ(world.TheOnly(table::Adressmerkmale).parent, world.address);
  EXPECT_TRUE(contract[field::AlarmOID].IsEmpty());
  EXPECT_EQ(world.host.Table(table::vv_Vertraege)->Oid(), std::to_string(contract.oid))
      << "the new contract is current";
}

TEST_F(NewContractDebitor, StoresAContractThatEndsWithoutARenewal) {
  world.contract->lVertragArt = 2;
  world.Article();
  world.Call();
  EXPECT_THAT(Lines(world, table::vv_Vertraege,
                    {field::Art, field::ArtStr, field::VertragEnde, field::KuendfristDatum,
                     field::Kuendigungsfrist, field::Verlaengerungsdauer}),
              ElementsAre("2 einmalig 28.02.2025 (leer) (leer) (leer)"));
}

TEST_F(NewContractDebitor, MakesTheseAppointmentsAndKeepsTheLastOnesOid) {
  const auto unsigned_yet = [](support::ApiWorld& w) {
    w.contract->VertragGeschlossenAm = platform::kNoDate;
  };
  const auto for_all = [](support::ApiWorld& w) { w.module.gAppointment4AllContracts = true; };
  const std::string signature =
      "17.03.2024 09:00:00 Vertragsabschluss ist noch nicht erfolgt? False";
  const struct {
    const char* name;
    std::function<void(support::ApiWorld&)> prepare;
    std::vector<std::string> appointments;
  } cases[] = {
      {"not signed yet", unsigned_yet, {signature}},
      {"the end comes before the missing signature",
       [&](auto& w) {
         unsigned_yet(w);
         w.contract->lVertragArt = 2;
         w.SetVariable("vv_AlarmWochenEnde", "8");
       },
       {"03.01.2025 09:00:00 Vertrag läuft am  28.02.2025  aus False", signature}},
      // The last day for notice less the six weeks that stand for no setting.
      {"all contracts",
       for_all,
       {"07.12.2024 09:00:00 Kündigungsfrist läuft am  18.01.2025  aus False"}},
      {"the setting for all contracts is not read",
       [](auto& w) {
         w.host.App()->CurrentDb()->DbSettings().Add("CreateAppointment4AllContracts", "true");
       },
       {}},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.name);
    support::ApiWorld fresh;
    fresh.Article();
    row.prepare(fresh);
    fresh.Call();
    EXPECT_EQ(Lines(fresh, table::vv_VertragsAktivitaeten,
                    {field::Datum, field::Betreff, field::Erledigt}),
              row.appointments);
    const auto rows = fresh.Rows(table::vv_VertragsAktivitaeten);
    const Row contract = fresh.TheOnly(table::vv_Vertraege);
    EXPECT_EQ(contract[field::GeschlossenAm], host::Value(fresh.contract->VertragGeschlossenAm));
    EXPECT_EQ(host::ToText(contract[field::AlarmOID]),
              rows.empty() ? "" : std::to_string(rows.back().oid));
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
  EXPECT_EQ(All(world.TheOnly(table::Adressmerkmale)),
            "Beschreibung=00000003 / Wartungsvertrag, GültigBis=28.02.2025, "
            "GültigVom=01.03.2024, Merkmal=Status, Wert=A");
}

TEST_F(NewContractDebitor, FiltersHideNothingFromIt) {
  world.HideRows(table::Artikel, embedded::FilterKind::First);
  for (const std::string_view name : {table::vv_Vertraege, table::Artikel}) {
    world.HideRows(name, embedded::FilterKind::Second);
  }
  world.Article();
  world.Call();
  EXPECT_EQ(world.host.Table(table::vv_Vertraege)->ScopeCount(), 1);
  EXPECT_EQ(world.Count(table::vv_Vertragspositionen), 1u);
}

TEST_F(NewContractDebitor, WithoutArticlesTheContractStaysWithoutValue) {
  world.Call();
  EXPECT_EQ(world.Counts(), (std::vector<std::size_t>{1, 0, 1, 0, 0}));
  EXPECT_THAT(Lines(world, table::vv_Vertraege, {field::AktValue}), ElementsAre("(leer)"));
  EXPECT_THAT(Lines(world, table::vv_Vertragsstaende, {field::Value}), ElementsAre("(leer)"));
}

}  // namespace
}  // namespace pactora::api
