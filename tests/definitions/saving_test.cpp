// Checking and storing a type, and handing it over to memory and back.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "definition_world.h"

namespace pactora::definitions {
namespace {

using testing::ElementsAre;

class SavingTest : public DefinitionTest {
 protected:
  void ExpectRefused(DialogUser& user, const std::string& text,
                     const std::string& title = "Pactora") {
    Expect(text, kInformation, title);
    user.Click("cmdSave");
    EXPECT_TRUE(user.IsOpen());
    EXPECT_EQ(Types().size(), 0u);
  }
  std::string Value(const Row& row, std::string_view name) { return host::ToText(row[name]); }
};

TEST_F(SavingTest, EntriesAreCheckedInOrder) {
  OpenNew([&](DialogUser& user) {
    user.Paste("txtBezeichnung", "  ");
    Expect("Die Zahlungsperiode passt nicht zur Vertragsdauer (12 Monate)");
    user.Choose("cboZahlungsperiode", "zweijährlich");
    user.Choose("cboZahlungsperiode2", "dreijährlich");
    ExpectRefused(user, "Geben Sie dem Vertragstyp bitte einen Namen !", "Bitte ändern ...");
    EXPECT_TRUE(user.HasFocus("txtBezeichnung"));
    user.Paste("txtBezeichnung", " Wartung ");
    ExpectNoPositionsQuestion(Answer::No);
    user.Click("cmdSave");
    ExpectNoPositionsQuestion(Answer::Yes);
    ExpectRefused(user, "Die Zahlungsperiode passt nicht zur Vertragsdauer (12 Monate)");
    EXPECT_TRUE(user.HasFocus("cboZahlungsperiode"));
    user.Paste("txtDauer", "0");
    ExpectNoPositionsQuestion(Answer::Yes);
    ExpectRefused(user,
                  "Die Zahlungsperiode (Folgevertrag) passt nicht zur Vertragsdauer (12 Monate)");
    EXPECT_TRUE(user.HasFocus("cboZahlungsperiode2"));
    user.Choose("cboZahlungsperiode2", "monatlich");
    ExpectNoPositionsQuestion(Answer::Yes);
    ExpectRefused(user, "Für diesen Vertragstyp müssen Sie eine Vertragsdauer eingeben !");
    Expect("Ungültige Eingabe in Vertragsdauer !", kInformation, "Bitte ändern ...");
    user.Paste("txtDauer", "");
    ExpectNoPositionsQuestion(Answer::Yes);
    ExpectError("vv_FEditDefinitions.cmdSave_Click", platform::RuntimeError::TypeMismatch);
    user.Click("cmdSave");
    user.Paste("txtDauer", "24");
    ExpectNoPositionsQuestion(Answer::Yes);
    user.Click("cmdSave");
    EXPECT_FALSE(user.IsOpen());
  });
  EXPECT_EQ(Types().front()[field::Bezeichnung], host::Value(" Wartung "));
}

TEST_F(SavingTest, ANewTypeIsStoredWithItsPositions) {
  OpenNew([&](DialogUser& user) {
    user.Type("txtBezeichnung", "Wartung");
    user.Choose("cboStatus", "freigegeben");
    user.Paste("txtDauer", "24");
    user.Choose("cboZahlungsperiode", "jährlich");
    user.Choose("cboZahlungsperiode2", "halbjährlich");
    user.Choose("cboRechnungWann", "nachträglich");
    user.Choose("cboKuendFrist", "3");
    user.Choose("cboKuendEinh2", "Monate");
    user.Click("chkNoBooking");
    user.Choose("cboWorkflow", "Nachfragen");
    AddArticle(user, 1);
    AddArticle(user, 2);
    user.Click("cmdSave");
    EXPECT_FALSE(user.IsOpen());
  });
  ASSERT_EQ(Types().size(), 1u);
  const Row type = Types().front();
  const std::vector<std::pair<std::string_view, host::Value>> fields = {
      {field::Status, "freigegeben"},
      {field::NoBooking, true},
      {field::Typ, "D"},
      {field::Bezeichnung, "Wartung"},
      {field::Art, 1},
      {field::ArtStr, "verlängerbar"},
      {field::Dauer, 24},
      {field::Verlaengerungsdauer, 24},
      {field::Kuendigungsfrist, 3},
      {field::KuendigungsfristEinh, "Wochen"},
      {field::VerlKuendigungsfrist, 3},
      {field::VerlKuendigungsfristEinh, "Monate"},
      {field::Zahlungsperiode, 12},
      {field::VerlaengerungsZahlungsperiode, 6},
      {field::RechnungWann, 1},
      {field::WorkflowID, "W3"},
      {field::SetztMerkmal, ""},
      {field::KuendigungsfristBezug, {}},
      {field::NettoSumme, 65.0}};
  for (const auto& [name, value] : fields) EXPECT_EQ(type[name], value) << name;
  ASSERT_EQ(Positions().size(), 2u);
  for (const Row& position : Positions()) EXPECT_EQ(position.parent, type.oid);
}

TEST_F(SavingTest, KindsClearWhatTheyHaveNoUseFor) {
  OpenNew([&](DialogUser& user) {
    user.Type("txtBezeichnung", "einmalig");
    user.Choose("cboWorkflow", "Nachfragen");
    user.Choose("cboKuendFrist2", "4");
    user.Click("chkVerlaengerbar");
    ExpectNoPositionsQuestion(Answer::Yes);
    user.Click("cmdSave");
  });
  OpenNew([&](DialogUser& user) {
    user.Type("txtBezeichnung", "unbefristet");
    user.Click("optUnbefristet");
    user.Choose("cboZahlungsperiode", "fünfjährlich");
    ExpectNoPositionsQuestion(Answer::Yes);
    user.Click("cmdSave");
  });
  const std::vector<Row> types = Types();
  EXPECT_EQ(Value(types[0], field::ArtStr), "einmalig");
  EXPECT_EQ(Value(types[0], field::Kuendigungsfrist), "0");
  EXPECT_EQ(Value(types[0], field::VerlKuendigungsfrist), "0");
  EXPECT_EQ(Value(types[0], field::WorkflowID), "");
  EXPECT_EQ(Value(types[1], field::ArtStr), "unbefristet");
  EXPECT_EQ(Value(types[1], field::Dauer), "0");
  EXPECT_EQ(Value(types[1], field::Verlaengerungsdauer), "0");
  EXPECT_EQ(Value(types[1], field::Zahlungsperiode), "60");
}

TEST_F(SavingTest, ACreditorTypeHasOnePlaceholder) {
  OpenNew([&](DialogUser& user) {
    AddArticle(user, 1);
    user.Type("txtBezeichnung", "Miete");
    user.Click("optKreditor");
    user.Click("cmdSave");
  });
  ASSERT_EQ(Positions().size(), 1u);
  const Row dummy = Positions().front();
  EXPECT_EQ(Value(dummy, field::Artikel), "Tragen Sie hier die Bezeichnung ein!");
  EXPECT_EQ(Value(dummy, field::Artikelnummer), "00000000");
  EXPECT_EQ(Value(dummy, field::Artikelart), "Verbindlichkeit");
  EXPECT_EQ(Value(dummy, field::Einheit), "Stück");
  EXPECT_EQ(Value(dummy, field::ArtikelID), "00000000");
  EXPECT_EQ(Value(dummy, field::Row), "001");
  EXPECT_EQ(dummy[field::Positionsnummer], host::Value(""));
  EXPECT_EQ(dummy[field::Anzahl], host::Value(1.0));
  EXPECT_EQ(dummy[field::PreisM60], host::Value(0.0));
  EXPECT_EQ(dummy[field::Gruppierungsposition], host::Value(0));
  EXPECT_TRUE(dummy[field::UStSatz].IsEmpty());
  EXPECT_TRUE(dummy[field::Erloeskonto].IsEmpty());
  EXPECT_EQ(Types().front()[field::NettoSumme], host::Value(0.0));

  OpenEdit([&](DialogUser& user) { user.Click("cmdSave"); });
  EXPECT_EQ(Positions().size(), 1u);
  AddType({{field::Typ, "K"}});
  OpenEdit([&](DialogUser& user) { user.Click("cmdSave"); });
  EXPECT_EQ(Positions().size(), 2u);
  EXPECT_EQ(Positions().back().parent, Types().back().oid);
}

using MemoryTest = SavingTest;

TEST_F(MemoryTest, AChangeForOneContractTouchesNoTable) {
  const store::Oid type = AddType({{field::Dauer, 18},
                                   {field::Zahlungsperiode, 6},
                                   {field::WorkflowID, "W1"},
                                   {field::ErfordertMerkmalGruppe, "Kunde"},
                                   {field::ErfordertMerkmal, "Branche"},
                                   {field::ErfordertWert, "Handel"}});
  AddPosition(type, "P1", "Netz", 10.125, 3);
  const auto types = Types().front().cells;
  const auto positions = Positions().front().cells;
  OpenForNewContract([&](DialogUser& user) {
    EXPECT_EQ(user.Get<ui::Button>("cmdSave").Caption(), "Übernehmen");
    EXPECT_FALSE(user.Reaches("cboStatus"));
    EXPECT_FALSE(user.Reaches("cboRequiGroup"));
    EXPECT_TRUE(user.Reaches("cboPutGroup"));
    user.Paste("txtBezeichnung", "Sonderfall");
    Expect(kReminder, 0);
    user.Choose("cboZahlungsperiode", "einmalig");
    EXPECT_EQ(user.Text("cboZahlungsperiode2"), "monatlich");
    Expect(kReminder, 0);
    user.Paste("txtDauer", "7");
    user.Choose("cboPutGroup", "Abteilung");
    user.Click("cmdSave");
    EXPECT_FALSE(user.IsOpen());
  });
  EXPECT_EQ(Types().front().cells, types);
  EXPECT_EQ(Positions().front().cells, positions);
  const vv_CDefinition& definition = *world.module.gDefinition;
  EXPECT_EQ(definition.Bezeichnung, "Sonderfall");
  EXPECT_EQ(definition.Dauer, 7);
  EXPECT_EQ(definition.Verlaengerungsdauer, 12);
  EXPECT_EQ(definition.Zahlungsperiode, 7);
  EXPECT_EQ(definition.VerlaengerungsZahlungsperiode, 1);
  EXPECT_EQ(definition.VerlaengerungsWorkflowID, "W1");
  EXPECT_EQ(definition.ErfordertWert, "Handel");
  EXPECT_EQ(definition.SetztWert, "Vertrieb");
  EXPECT_EQ(definition.NettoSumme, 30.38);
  EXPECT_TRUE(definition.Dirty);
  EXPECT_EQ(definition.DefOid, std::to_string(type));
  ASSERT_EQ(world.module.gPositions->size(), 1u);
  const vv_CPosition& position = *world.module.gPositions->front();
  EXPECT_EQ(position.Nettopreis, 10.13);
  EXPECT_EQ(position.NettoOhneRabatt, 10.125);
  EXPECT_EQ(position.PreisM60, 607.5);
  EXPECT_EQ(position.Erloeskonto, 8400);
  EXPECT_EQ(position.Gruppierung, "Netz");
}

TEST_F(MemoryTest, AnEarlierChangeComesBackAndLeavesMemory) {
  const store::Oid type = AddType();
  AddPosition(type, "P1", "Netz");
  OpenForNewContract([&](DialogUser& user) {
    Expect(kReminder, 0);
    user.Paste("txtDauer", "7");
    Expect(kReminder, 0);
    user.Choose("cboZahlungsperiode", "einmalig");
    user.Choose("cboKuendFrist", "3");
    user.Choose("cboKuendFrist2", "4");
    user.Paste("txtDauer2", "24");
    user.Choose("cboPutGroup", "Kunde");
    user.Choose("cboPutValue", "Industrie");
    user.Choose("cboWorkflow", "Verlängern");
    user.Click("cmdSave");
  });
  OpenForNewContract([&](DialogUser& user) {
    EXPECT_EQ(world.module.gDefinition, nullptr);
    EXPECT_EQ(user.Text("txtDauer"), "7");
    EXPECT_EQ(user.Text("cboZahlungsperiode"), "einmalig");
    EXPECT_EQ(user.Text("cboKuendFrist"), "3");
    EXPECT_EQ(user.Text("cboKuendFrist2"), "4");
    EXPECT_EQ(user.Text("txtDauer2"), "24");
    EXPECT_EQ(user.Text("cboPutValue"), "Industrie");
    EXPECT_EQ(user.Text("cboWorkflow"), "Verlängern");
    EXPECT_EQ(user.Cell("lvwPositionen", 1, 1), "P1");
    EXPECT_EQ(user.Cell("lvwPositionen", 1, 22), "");
    user.Click("cmdSave");
  });
  EXPECT_EQ(world.module.gPositions->front()->Gruppierung, "");
  OpenForNewContract([&](DialogUser& user) { user.Click("cmdCancel"); });
  EXPECT_EQ(world.module.gDefinition, nullptr);
  EXPECT_NE(world.module.gPositions, nullptr);
}

TEST_F(MemoryTest, AChangeOfAnotherTypeStaysInMemoryUnseen) {
  AddType();
  world.module.gDefinition = std::make_shared<vv_CDefinition>();
  world.module.gDefinition->Bezeichnung = "anderer";
  OpenForNewContract([&](DialogUser& user) { EXPECT_EQ(user.Text("txtBezeichnung"), "Wartung"); });
  EXPECT_EQ(world.module.gDefinition->Bezeichnung, "anderer");
}

TEST_F(MemoryTest, ASinglePaymentOfATermInTheListShowsAsThatPeriod) {
  AddType();
  OpenForNewContract([&](DialogUser& user) {
    user.Choose("cboZahlungsperiode", "einmalig");
    ExpectNoPositionsQuestion(Answer::Yes);
    user.Click("cmdSave");
  });
  EXPECT_EQ(world.module.gDefinition->Zahlungsperiode, 12);
  OpenForNewContract(
      [&](DialogUser& user) { EXPECT_EQ(user.Text("cboZahlungsperiode"), "jährlich"); });
}

TEST_F(MemoryTest, PositionsOfACreditorAndOfNone) {
  AddPosition(AddType({{field::Typ, "K"}}), "P1", "");
  OpenForNewContract([&](DialogUser& user) { user.Click("cmdSave"); });
  ASSERT_EQ(world.module.gPositions->size(), 1u);
  EXPECT_EQ(world.module.gPositions->front()->Artikelart, "Verbindlichkeit");
  AddType();
  world.module.gDefinition->Dirty = false;
  OpenForNewContract([&](DialogUser& user) {
    ExpectNoPositionsQuestion(Answer::Yes);
    user.Click("cmdSave");
  });
  // The collection of the earlier change stays.
  EXPECT_EQ(world.module.gPositions->front()->Artikelart, "Verbindlichkeit");
  EXPECT_EQ(world.module.gDefinition->NettoSumme, 0.0);
}

TEST_F(MemoryTest, AChangeThatCannotBeShownIsDropped) {
  AddType();
  world.module.gDefinition = std::make_shared<vv_CDefinition>();
  world.module.gDefinition->Dirty = true;
  world.module.gDefinition->Art = 1;
  world.module.gDefinition->KuendigungsfristEinh = "Tage";
  ExpectError("vv_FEditDefinitions.ShowFromMemory", platform::RuntimeError::ValueNotInList);
  OpenForNewContract([&](DialogUser& user) { EXPECT_TRUE(user.IsOpen()); });
  EXPECT_EQ(world.module.gDefinition, nullptr);
}

}  // namespace
}  // namespace pactora::definitions
