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
  dialog.ChooseText("cboVerantwortlich", "Bert");
  dialog.Paste("txtMemo", "Rückruf am Montag");
  EXPECT_TRUE(dialog.TypeDiscount("12,5").Done());
  dialog.Check("chkRabattNurErsteLaufzeit", true);
  dialog.Check("chkNoBooking", true);
  Save();
  EXPECT_EQ(form.mlVSCount, 1);
  EXPECT_EQ(form.txtVertragnummer.Text(), "00000001");

  const Row contract = Contract();
  EXPECT_EQ(contract.parent, world.address);
  ExpectRow(contract, {{field::Typ, "D"},
                       {field::VertragBeginn, Day(15, 3, 2024)},
                       {field::VertragEnde, Day(14, 3, 2025)},
                       {field::GeschlossenAm, Day(10, 3, 2024)},
                       {field::Memo, "Rückruf am Montag"},
                       {field::Bezeichnung, "Wartung"},
                       {field::Art, 1},
                       {field::ArtStr, "verlängerbar"},
                       {field::Dauer, 12},
                       {field::Verlaengerungsdauer, 12},
                       {field::Kuendigungsfrist, 6},
                       {field::KuendigungsfristEinh, "Wochen"},
                       {field::KuendigungsfristBezug, "Vertragsende"},
                       {field::VerlKuendigungsfrist, 3},
                       {field::VerlKuendigungsfristEinh, "Monate"},
                       {field::Zahlungsperiode, 3},
                       {field::VerlaengerungsZahlungsperiode, 6},
                       {field::AktZahlungsperiode, 3},
                       {field::AktZahlungsperiodeStr, "vierteljährlich"},
                       {field::AktValue, 87.49},
                       {field::AktNaechsteRechnung, Day(15, 3, 2024)},
                       {field::AktNaechsteRechnungStr, "20240315"},
                       {field::KuendfristDatum, Day(1, 2, 2025)},
                       {field::Verantwortlich, "Bert"},
                       {field::ErfordertMerkmalGruppe, "Kunden"},
                       {field::SetztMerkmalGruppe, "Kunden"},
                       {field::SetztWert, "ja"},
                       {field::VertragsDefinitionID, "D1"},
                       {field::NoBooking, true},
                       {field::Vertragnummer, "00000001"},
                       {field::VerlaengerungsWorkflowID, "W9"},
                       {field::RabattNurErsteLaufzeit, true}});

  const Row status = Status();
  EXPECT_EQ(status.parent, contract.oid);
  ExpectRow(status, {{field::LaufzeitStart, Day(15, 3, 2024)},
                     {field::LaufzeitStartStr, "20240315"},
                     {field::LaufzeitEnde, Day(14, 3, 2025)},
                     {field::LaufzeitEndeStr, "20250314"},
                     {field::Zahlungsperiode, 3},
                     {field::ZahlungsperiodeStr, "vierteljährlich"},
                     {field::Value, 87.49},
                     {field::RechnungWann, 0},
                     {field::NaechsteRechnung, Day(15, 3, 2024)},
                     {field::NaechsteRechnungStr, "20240315"},
                     {field::Rabattprozent, 12.5}});

  const std::vector<Row> positions = world.Rows(table::vv_Vertragspositionen);
  ASSERT_EQ(positions.size(), 2u);
  const Values first = Position(
      {{field::Nettopreis, 26.25}, {field::Erloeskonto, 8400}, {field::Rabattprozent, 12.5}});
  ExpectRow(positions[0], first);
  ExpectRow(positions[1], With(first, {{field::Artikel, "Hotline"},
                                       {field::ArtikelID, "A2"},
                                       {field::Erloeskonto, 8300},
                                       {field::Row, "002"}}));
  EXPECT_EQ(positions[1].parent, status.oid);
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
  ExpectRow(world.Rows(table::vv_Vertragspositionen).at(0), {{field::Artikel, "Frei"},
                                                             {field::Nettopreis, 0.0},
                                                             {field::Erloeskonto, 0},
                                                             {field::Rabattprozent, 0.0}});
}

TEST_F(NewContract, WithoutPositionsFollowsTheTypesSum) {
  AddType(Quarterly());
  Open();
  Save();
  EXPECT_EQ(world.Count(table::vv_Vertragspositionen), 0u);
  EXPECT_EQ(Status()[field::Value].AsDouble(), 99.99);
  EXPECT_EQ(Contract()[field::AktValue].AsDouble(), 99.99);
}

TEST_F(NewContract, CopiesTheDocumentOfTheTypeAndNoOther) {
  const auto document = std::make_shared<store::NamedDocument>("Vertrag.docx");
  AddType(Quarterly({{field::Dokument, Value(document)}}));
  Open();
  Save();
  EXPECT_EQ(Shown(Status()[field::Dokument]), "(Objekt)");
}

struct RequiredCase {
  const char* name;
  const char* attribute;  // what the address has
  const char* value;
  bool passes;
};

class RequiredAttribute : public DialogTest, public testing::WithParamInterface<RequiredCase> {};

TEST_P(RequiredAttribute, IsCompared) {
  AddType(Quarterly({{field::ErfordertMerkmalGruppe, "Andere"},
                     {field::ErfordertMerkmal, "Kunde"},
                     {field::ErfordertWert, "A"}}));
  const auto& [name, attribute, value, passes] = GetParam();
  world.Add(table::Adressmerkmale, {{field::Merkmal, "Sprache"}, {field::Wert, "deutsch"}},
            world.address);
  world.Add(table::Adressmerkmale,
            {{field::Gruppe, "Kunden"}, {field::Merkmal, attribute}, {field::Wert, value}},
            world.address);
  world.Add(table::Adressmerkmale, {{field::Merkmal, "Kunde"}, {field::Wert, "A"}},
            world.other_address);
  Open();
  if (passes) {
    Save();
    return;
  }
  world.screen.ExpectMessage(Plain(
      "Das für diesen Vertrag erforderliche Adressmerkmal  \"Kunde -> A\"  ist nicht vorhanden!"));
  SaveRefused();
  EXPECT_EQ(world.Count(table::vv_Vertraege), 0u);
  EXPECT_EQ(world.Count(table::KELM_Nummern), 0u);
}

INSTANTIATE_TEST_SUITE_P(Table, RequiredAttribute,
                         testing::Values(RequiredCase{"PresentInAnyGroup", "Kunde", "A", true},
                                         RequiredCase{"OtherValue", "Kunde", "B", false},
                                         RequiredCase{"OtherCase", "kunde", "A", false},
                                         RequiredCase{"OtherCaseOfValue", "Kunde", "a", false},
                                         RequiredCase{"OtherAttribute", "Lieferant", "A", false}),
                         [](const auto& row) { return row.param.name; });

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
