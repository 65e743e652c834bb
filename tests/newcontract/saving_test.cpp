// Saving a new contract from a stored type.

#include "newcontract/dialog_world.h"
#include "store/Document.h"

namespace pactora::newcontract {
namespace {

using NewContract = DialogTest;

TEST_F(NewContract, OfARenewingTypeWritesTheseRows) {
  const store::Oid type =
      AddType(Quarterly(Fields("KuendigungsfristBezug=Vertragsende, SetztMerkmalGruppe=Kunden, "
                               "SetztWert=ja, ErfordertMerkmalGruppe=Kunden, WorkflowID=W9")));
  AddPosition(type);
  AddPosition(type, {{field::Artikel, "Hotline"}, {field::ArtikelID, "A2"}, {field::Row, "002"}});
  AddPosition(type, {{field::ArtikelID, "weg"}, {field::Row, "003"}});
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
  const Row status = world.TheOnly(table::vv_Vertragsstaende);
  EXPECT_EQ(status.parent, contract.oid);
  EXPECT_EQ(All(status),
            "LaufzeitEnde=14.03.2025, LaufzeitEndeStr=20250314, LaufzeitStart=15.03.2024, "
            "LaufzeitStartStr=20240315, NaechsteRechnung=15.03.2024, "
            "NaechsteRechnungStr=20240315, Rabattprozent=12,5, RechnungWann=0, Value=87,49, "
            "Zahlungsperiode=3, ZahlungsperiodeStr=vierteljährlich");
  const std::vector<Row> positions = world.Rows(table::vv_Vertragspositionen);
  ASSERT_EQ(positions.size(), 3u);
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
  EXPECT_EQ(Line(positions[2], {field::ArtikelID, field::Erloeskonto}), "weg 1111")
      << "the article is gone";
  EXPECT_EQ(world.Count(table::vv_VertragsAktivitaeten), 0u);
}

TEST_F(NewContract, OfALiabilityTakesItsTypedNumberAsItIs) {
  const store::Oid type = AddType(Once({{field::Typ, "K"}}));
  // Its only position has no article; the account was never written.
  AddPosition(type, {{field::ArtikelID, "00000000"}, {field::Erloeskonto, Value()}});
  Open();
  for (const char* none : {"", " \t "}) {
    dialog.Paste("txtVertragnummer", none);
    world.screen.ExpectMessage(Warning("Vergeben Sie bitte eine Vertragsnummer!"));
    SaveRefused();
  }
  EXPECT_EQ(world.Count(table::vv_Vertraege), 0u);
  dialog.Paste("txtVertragnummer", " K 7 ");
  Save();
  EXPECT_EQ(Line(Contract(), {field::Typ, field::Vertragnummer}), "K  K 7 ");
  EXPECT_EQ(world.Count(table::KELM_Nummern), 0u);
  EXPECT_EQ(Shown(world.Rows(table::vv_Vertragspositionen).at(0)[field::Erloeskonto]), "0");
}

TEST_F(NewContract, LeavesUnwrittenWhatTheTypeNeverHad) {
  const store::Oid type =
      AddType(Fields("Status=freigegeben, Typ=D, Bezeichnung=Leer, Art=3, Zahlungsperiode=1"));
  world.Add(table::vv_Definitionspositionen, {{field::Artikel, "Frei"}}, type);
  Open();
  Save();
  EXPECT_EQ(Line(Contract(), {field::ArtStr, field::Kuendigungsfrist, field::KuendigungsfristEinh,
                              field::SetztMerkmal, field::VerlaengerungsWorkflowID}),
            "(leer) (leer) (leer) (leer) (leer)");
  EXPECT_EQ(All(world.Rows(table::vv_Vertragspositionen).at(0)),
            "Artikel=Frei, Erloeskonto=0, Nettopreis=0, Rabattprozent=0");
}

TEST_F(NewContract, CopiesTheDocumentOfTheType) {
  const auto document = std::make_shared<store::NamedDocument>("Vertrag.docx");
  AddType(Quarterly({{field::Dokument, Value(document)}}));
  Open();
  Save();
  const auto copied = std::dynamic_pointer_cast<store::NamedDocument>(
      host::ToObject(world.TheOnly(table::vv_Vertragsstaende)[field::Dokument]));
  ASSERT_NE(copied, nullptr);
  EXPECT_EQ(copied->Name(), "Vertrag.docx");
}

TEST_F(NewContract, NeedsTheAttributeOfTheAddressComparedExactlyAndWithoutItsGroup) {
  AddType(
      Quarterly(Fields("ErfordertMerkmalGruppe=Andere, ErfordertMerkmal=Kunde, ErfordertWert=A")));
  const auto add = [&](store::Oid address, const char* attribute, const Value& value) {
    world.Add(table::Adressmerkmale,
              {{field::Gruppe, "Kunden"}, {field::Merkmal, attribute}, {field::Wert, value}},
              address);
  };
  add(world.other_address, "Kunde", "A");
  add(world.address, "Sprache", {});
  for (const char* value : {"B", "a"}) add(world.address, "Kunde", value);
  for (const char* attribute : {"kunde", "Lieferant"}) add(world.address, attribute, "A");
  Open();
  world.screen.ExpectMessage(Plain(
      "Das für diesen Vertrag erforderliche Adressmerkmal  \"Kunde -> A\"  ist nicht vorhanden!"));
  SaveRefused();
  EXPECT_EQ(world.Count(table::vv_Vertraege), 0u);
  EXPECT_EQ(world.Count(table::KELM_Nummern), 0u);
  add(world.address, "Kunde", "A");
  Save();
}

TEST_F(NewContract, OfATypeDeletedMeanwhileIsRefusedInSilence) {
  AddType(Quarterly());
  Open();
  world.host.Table(table::vv_Vertragsdefinitionen)->DeleteRec(0);
  SaveRefused();
  EXPECT_EQ(world.Count(table::vv_Vertraege), 0u);
}

}  // namespace
}  // namespace pactora::newcontract
