// Saving a new contract from a stored type.

#include "newcontract/dialog_world.h"
#include "store/Document.h"

namespace pactora::newcontract {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class NewContract : public DialogTest {
 protected:
  std::vector<std::string> Appointments() {
    std::vector<std::string> lines;
    for (const Row& row : world.Rows(table::vv_VertragsAktivitaeten)) {
      lines.push_back(Line(row, {field::Datum, field::Betreff, field::Verantwortlich}));
    }
    return lines;
  }
  Row Status() { return world.Rows(table::vv_Vertragsstaende).at(0); }
};

TEST_F(NewContract, OfARenewingTypeWritesTheseRows) {
  const store::Oid type = AddType(Quarterly({{field::KuendigungsfristBezug, "Vertragsende"},
                                             {field::SetztMerkmalGruppe, "Kunden"},
                                             {field::SetztWert, "ja"},
                                             {field::ErfordertMerkmalGruppe, "Kunden"},
                                             {field::WorkflowID, "W9"}}));
  AddPosition(type);
  AddPosition(type, {{field::Artikel, "Hotline"}, {field::ArtikelID, "A2"}, {field::Row, "002"}});
  Open();
  dialog.Pick("DTPVertragBeginn", Day(15, 3, 2024));
  dialog.Pick("DTPGeschlossenAm", Day(10, 3, 2024));
  dialog.Choose("cboVerantwortlich", "Bert");
  dialog.Paste("txtMemo", "Rückruf am Montag");
  EXPECT_TRUE(dialog.TypeDiscount("12,5").Done());
  dialog.Check("chkRabattNurErsteLaufzeit", true);
  dialog.Check("chkNoBooking", true);
  Save();
  EXPECT_EQ(form.mlVSCount, 1);
  EXPECT_EQ(form.txtVertragnummer.Text(), "00000001");

  const Row contract = Contract();
  EXPECT_EQ(contract.parent, world.address);
  EXPECT_EQ(All(contract),
            "AktNaechsteRechnung=15.03.2024, AktNaechsteRechnungStr=20240315, AktValue=87,49, "
            "AktZahlungsperiode=3, AktZahlungsperiodeStr=vierteljährlich, Art=1, "
            "ArtStr=verlängerbar, Bezeichnung=Wartung, Dauer=12, "
            "ErfordertMerkmalGruppe=Kunden, GeschlossenAm=10.03.2024, "
            "KuendfristDatum=01.02.2025, Kuendigungsfrist=6, "
            "KuendigungsfristBezug=Vertragsende, KuendigungsfristEinh=Wochen, "
            "Memo=Rückruf am Montag, NoBooking=True, RabattNurErsteLaufzeit=True, "
            "SetztMerkmalGruppe=Kunden, SetztWert=ja, Typ=D, Verantwortlich=Bert, "
            "VerlKuendigungsfrist=3, VerlKuendigungsfristEinh=Monate, "
            "VerlaengerungsWorkflowID=W9, VerlaengerungsZahlungsperiode=6, "
            "Verlaengerungsdauer=12, VertragBeginn=15.03.2024, VertragEnde=14.03.2025, "
            "Vertragnummer=00000001, VertragsDefinitionID=D1, Zahlungsperiode=3");
  const Row status = Status();
  EXPECT_EQ(status.parent, contract.oid);
  EXPECT_EQ(All(status),
            "LaufzeitEnde=14.03.2025, LaufzeitEndeStr=20250314, LaufzeitStart=15.03.2024, "
            "LaufzeitStartStr=20240315, NaechsteRechnung=15.03.2024, "
            "NaechsteRechnungStr=20240315, Rabattprozent=12,5, RechnungWann=0, Value=87,49, "
            "Zahlungsperiode=3, ZahlungsperiodeStr=vierteljährlich");
  const std::vector<Row> positions = world.Rows(table::vv_Vertragspositionen);
  ASSERT_EQ(positions.size(), 2u);
  EXPECT_EQ(positions[1].parent, status.oid);
  EXPECT_EQ(All(positions[0]),
            "Anzahl=2, Artikel=Wartung Server, ArtikelID=A1, Artikelart=Dienst, "
            "Artikelnummer=1000, Beschreibung=Vor Ort, Einheit=Stück, Erloeskonto=8400, "
            "Gruppierung=Basis, Gruppierungsposition=1, NettoOhneRabatt=30, Nettopreis=26,25, "
            "Positionsnummer=1, Preis=120, PreisM1=10, PreisM12=110, PreisM24=200, PreisM3=30, "
            "PreisM36=300, PreisM48=400, PreisM6=59,99, PreisM60=500, Rabattprozent=12,5, "
            "Row=001, UStSatz=19");
  EXPECT_EQ(Line(positions[1], {field::Artikel, field::ArtikelID, field::Erloeskonto, field::Row}),
            "Hotline A2 8300 002");
  EXPECT_THAT(Appointments(), IsEmpty());
}

TEST_F(NewContract, OfARenewingTypeGetsANoticeAppointmentOnlyOnDemand) {
  AddType(Quarterly());
  Open();
  world.module.gAppointment4AllContracts = true;
  dialog.Pick("DTPVertragBeginn", Day(15, 3, 2024));
  dialog.Pick("DTPGeschlossenAm", std::nullopt);
  Save();
  EXPECT_THAT(Appointments(),
              ElementsAre("21.12.2024 09:00:00 Kündigungsfrist läuft am  01.02.2025  aus Anna",
                          "17.03.2024 09:00:00 Vertragsabschluss ist noch nicht erfolgt? Anna"));
  const Row contract = Contract();
  EXPECT_EQ(Shown(contract[field::GeschlossenAm]), Shown(platform::kNoDate));
  EXPECT_EQ(Shown(contract[field::AlarmOID]),
            std::to_string(world.Rows(table::vv_VertragsAktivitaeten)[1].oid));
}

TEST_F(NewContract, OfATypeThatEndsAlwaysGetsAnAppointment) {
  AddType(Once({{field::RechnungWann, 1}, {field::KuendigungsfristEinh, "Monate"}}));
  Open();
  dialog.Pick("DTPVertragBeginn", Day(1, 2, 2024));
  // The reach of the discount is asked of renewing contracts alone.
  form.chkRabattNurErsteLaufzeit.SetChecked(true);
  Save();
  const Row contract = Contract();
  EXPECT_EQ(Line(contract, {field::VertragEnde, field::KuendfristDatum, field::AktNaechsteRechnung,
                            field::RabattNurErsteLaufzeit}),
            "31.07.2024 (leer) 01.05.2024 (leer)");
  EXPECT_THAT(Appointments(),
              ElementsAre("03.07.2024 09:00:00 Vertrag läuft am  31.07.2024  aus Anna"));
  EXPECT_EQ(Line(Status(), {field::NaechsteRechnung, field::RechnungWann}), "01.05.2024 1");
}

TEST_F(NewContract, OfAnUnlimitedTypeHasNoEnd) {
  AddType(Unlimited());
  Open();
  world.module.gAppointment4AllContracts = true;
  dialog.Pick("DTPGeschlossenAm", std::nullopt);
  Save();
  const Row contract = Contract();
  EXPECT_EQ(Line(contract, {field::VertragEnde, field::Dauer, field::KuendfristDatum}),
            "30.12.1899 0 (leer)");
  EXPECT_EQ(Line(Status(), {field::LaufzeitEnde, field::LaufzeitEndeStr}), "30.12.1899 18991230");
  EXPECT_THAT(Appointments(),
              ElementsAre("17.03.2024 09:00:00 Vertragsabschluss ist noch nicht erfolgt? Anna"));
}

TEST_F(NewContract, OfALiabilityTakesItsTypedNumberAsItIs) {
  const store::Oid type = AddType(Once({{field::Typ, "K"}}));
  // Its only position has no article; the account was never written.
  AddPosition(type, {{field::ArtikelID, "00000000"}, {field::Erloeskonto, Value()}});
  Open();
  world.screen.ExpectMessage(Warning("Vergeben Sie bitte eine Vertragsnummer!"));
  SaveRefused();
  dialog.Paste("txtVertragnummer", " \t ");
  world.screen.ExpectMessage(Warning("Vergeben Sie bitte eine Vertragsnummer!"));
  SaveRefused();
  EXPECT_EQ(world.Count(table::vv_Vertraege), 0u);
  dialog.Paste("txtVertragnummer", " K 7 ");
  Save();
  EXPECT_EQ(Line(Contract(), {field::Typ, field::Vertragnummer}), "K  K 7 ");
  EXPECT_EQ(world.Count(table::KELM_Nummern), 0u);
  EXPECT_EQ(Shown(world.Rows(table::vv_Vertragspositionen).at(0)[field::Erloeskonto]), "0");
}

TEST_F(NewContract, KeepsTheAccountOfAnArticleThatIsGone) {
  const store::Oid type = AddType(Quarterly());
  AddPosition(type);
  AddPosition(type, {{field::ArtikelID, "weg"}});
  Open();
  Save();
  const std::vector<Row> positions = world.Rows(table::vv_Vertragspositionen);
  EXPECT_EQ(Line(positions.at(0), {field::Erloeskonto, field::ArtikelID}), "8400 A1");
  EXPECT_EQ(Line(positions.at(1), {field::Erloeskonto, field::ArtikelID}), "1111 weg");
}

TEST_F(NewContract, LeavesUnwrittenWhatTheTypeNeverHad) {
  const store::Oid type = AddType({{field::Status, schema::kReleased},
                                   {field::Typ, "D"},
                                   {field::Bezeichnung, "Leer"},
                                   {field::Art, 3},
                                   {field::Zahlungsperiode, 1}});
  world.Add(table::vv_Definitionspositionen, {{field::Artikel, "Frei"}}, type);
  Open();
  Save();
  EXPECT_EQ(Line(Contract(), {field::ArtStr, field::Kuendigungsfrist, field::KuendigungsfristEinh,
                              field::SetztMerkmal, field::VerlaengerungsWorkflowID}),
            "(leer) (leer) (leer) (leer) (leer)");
  EXPECT_EQ(All(world.Rows(table::vv_Vertragspositionen).at(0)),
            "Artikel=Frei, Erloeskonto=0, Nettopreis=0, Rabattprozent=0");
}

TEST_F(NewContract, WithoutPositionsFollowsTheTypesSum) {
  AddType(Quarterly());
  Open();
  Save();
  EXPECT_EQ(world.Count(table::vv_Vertragspositionen), 0u);
  EXPECT_EQ(Status()[field::Value].AsDouble(), 99.99);
  EXPECT_EQ(Contract()[field::AktValue].AsDouble(), 99.99);
}

TEST_F(NewContract, CopiesTheDocumentOfTheType) {
  const auto document = std::make_shared<store::NamedDocument>("Vertrag.docx");
  AddType(Quarterly({{field::Dokument, Value(document)}}));
  Open();
  Save();
  const auto copied =
      std::dynamic_pointer_cast<store::NamedDocument>(host::ToObject(Status()[field::Dokument]));
  ASSERT_NE(copied, nullptr);
  EXPECT_EQ(copied->Name(), "Vertrag.docx");
}

TEST_F(NewContract, OfATypeWithoutADocumentHasNone) {
  AddType(Quarterly());
  Open();
  Save();
  EXPECT_TRUE(Status()[field::Dokument].IsEmpty()) << "not written";
}

TEST(RequiredAttribute, IsComparedExactlyAndWithoutItsGroup) {
  struct {
    const char* attribute;
    const char* value;
    bool passes;
  } const cases[] = {{"Kunde", "A", true},
                     {"Kunde", "B", false},
                     {"kunde", "A", false},
                     {"Kunde", "a", false},
                     {"Lieferant", "A", false}};
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.attribute) + " " + c.value);
    support::ContractWorld world;
    world.Add(table::vv_Vertragsdefinitionen, Quarterly({{field::ErfordertMerkmalGruppe, "Andere"},
                                                         {field::ErfordertMerkmal, "Kunde"},
                                                         {field::ErfordertWert, "A"}}));
    world.Add(table::Adressmerkmale, {{field::Merkmal, "Sprache"}}, world.address);
    world.Add(table::Adressmerkmale,
              {{field::Gruppe, "Kunden"}, {field::Merkmal, c.attribute}, {field::Wert, c.value}},
              world.address);
    world.Add(table::Adressmerkmale, {{field::Merkmal, "Kunde"}, {field::Wert, "A"}},
              world.other_address);
    Dialog dialog(world);
    ASSERT_TRUE(dialog.Open());
    if (!c.passes) {
      world.screen.ExpectMessage(
          Plain("Das für diesen Vertrag erforderliche Adressmerkmal  \"Kunde -> A\"  ist nicht "
                "vorhanden!"));
    }
    dialog.Click("cmdOK");
    EXPECT_EQ(dialog.form.mbOK, c.passes);
    EXPECT_EQ(world.Count(table::vv_Vertraege), c.passes ? 1u : 0u);
    EXPECT_EQ(world.Count(table::KELM_Nummern), c.passes ? 1u : 0u);
    EXPECT_THAT(world.screen.Problems(), IsEmpty());
  }
}

TEST_F(NewContract, OfATypeDeletedMeanwhileIsRefusedInSilence) {
  AddType(Quarterly());
  Open();
  world.host.Table(table::vv_Vertragsdefinitionen)->DeleteRec(0);
  SaveRefused();
  EXPECT_EQ(world.Count(table::vv_Vertraege), 0u);
}

TEST_F(NewContract, BelongsToTheAddressThatIsCurrent) {
  AddType(Quarterly());
  Open();
  Save();
  world.Goto(table::Adressen, world.other_address);
  Dialog second(world);
  ASSERT_TRUE(second.form.InitNew());
  second.form.BeginModal();
  EXPECT_EQ(second.form.Caption(), "Neuer Vertrag für:   Beispiel AG");
  second.Click("cmdOK");
  const std::vector<Row> contracts = world.Rows(table::vv_Vertraege);
  EXPECT_EQ(contracts.at(1).parent, world.other_address);
  EXPECT_EQ(Shown(contracts.at(1)[field::Vertragnummer]), "00000002");
}

}  // namespace
}  // namespace pactora::newcontract
