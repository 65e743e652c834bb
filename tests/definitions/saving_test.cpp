// Checking and storing a type, and handing it over to memory and back.

#include "definition_world.h"

namespace pactora::definitions {
namespace {

using SavingTest = DefinitionTest;

TEST_F(SavingTest, EntriesAreCheckedInOrder) {
  const auto misfit = [](const std::string& contract) {
    return "Die Zahlungsperiode" + contract + " passt nicht zur Vertragsdauer (12 Monate)";
  };
  OpenNew([&](DialogUser& user) {
    const auto refused = [&](const std::string& text, const std::string& focus) {
      ExpectNoPositionsQuestion(Answer::Yes);
      Expect(text);
      user.Click("cmdSave");
      EXPECT_TRUE(user.IsOpen() && Types().empty());
      EXPECT_TRUE(focus.empty() || user.HasFocus(focus)) << text;
    };
    user.Paste("txtBezeichnung", "  ");
    Expect(misfit(""));
    user.Choose("cboZahlungsperiode", "zweijährlich");
    user.Choose("cboZahlungsperiode2", "dreijährlich");
    Expect("Geben Sie dem Vertragstyp bitte einen Namen !", kInformation, "Bitte ändern ...");
    user.Click("cmdSave");
    EXPECT_TRUE(user.HasFocus("txtBezeichnung"));
    user.Paste("txtBezeichnung", " Wartung ");
    ExpectNoPositionsQuestion(Answer::No);
    user.Click("cmdSave");
    refused(misfit(""), "cboZahlungsperiode");
    user.Paste("txtDauer", "0");
    refused(misfit(" (Folgevertrag)"), "cboZahlungsperiode2");
    user.Choose("cboZahlungsperiode2", "monatlich");
    refused("Für diesen Vertragstyp müssen Sie eine Vertragsdauer eingeben !", "");
    ExpectInputError("Vertragsdauer");
    user.Paste("txtDauer", "");
    ExpectNoPositionsQuestion(Answer::Yes);
    ExpectError("vv_FEditDefinitions.cmdSave_Click", platform::RuntimeError::TypeMismatch);
    user.Click("cmdSave");
    user.Paste("txtDauer", "24");
    SaveWithoutPositions(user);
    EXPECT_FALSE(user.IsOpen());
  });
  EXPECT_EQ(Types().front()[field::Bezeichnung], host::Value(" Wartung "));
}

TEST_F(SavingTest, ANewTypeIsStoredWithItsPositions) {
  OpenNew([&](DialogUser& user) {
    user.Enter({{"txtBezeichnung", "Wartung"},
                {"cboStatus", "freigegeben"},
                {"txtDauer", "24"},
                {"cboZahlungsperiode", "jährlich"},
                {"cboZahlungsperiode2", "halbjährlich"},
                {"cboRechnungWann", "nachträglich"},
                {"cboKuendFrist", "3"},
                {"cboKuendFrist2", "4"},
                {"cboKuendEinh2", "Monate"},
                {"chkNoBooking", ""},
                {"cboWorkflow", "Nachfragen"},
                {"txtDauer2", "36"}});
    AddArticle(user, 1);
    AddArticle(user, 2);
    user.Click("cmdSave");
    EXPECT_FALSE(user.IsOpen());
  });
  const Row type = world.TheOnly(table::vv_Vertragsdefinitionen);
  EXPECT_EQ(Written(type),
            "Art=1, ArtStr=verlängerbar, Bezeichnung=Wartung, Dauer=24, ErfordertMerkmal=, "
            "ErfordertMerkmalGruppe=, ErfordertWert=, Kuendigungsfrist=3, "
            "KuendigungsfristEinh=Wochen, NettoSumme=65, NoBooking=True, RechnungWann=1, "
            "SetztMerkmal=, SetztMerkmalGruppe=, SetztWert=, Status=freigegeben, Typ=D, "
            "VerlKuendigungsfrist=4, VerlKuendigungsfristEinh=Monate, "
            "VerlaengerungsZahlungsperiode=6, Verlaengerungsdauer=36, WorkflowID=W3, "
            "Zahlungsperiode=12");
  ASSERT_EQ(Positions().size(), 2u);
  for (const Row& position : Positions()) EXPECT_EQ(position.parent, type.oid);
}

TEST_F(SavingTest, ACreditorTypeHasOnePlaceholder) {
  OpenNew([&](DialogUser& user) {
    AddArticle(user, 1);
    user.Enter({{"txtBezeichnung", "Miete"}, {"chkNoBooking", ""}, {"optKreditor", ""}});
    user.Click("cmdSave");
  });
  EXPECT_EQ(Written(world.TheOnly(table::vv_Definitionspositionen)),
            "Anzahl=1, Artikel=Tragen Sie hier die Bezeichnung ein!, ArtikelID=00000000, "
            "Artikelart=Verbindlichkeit, Artikelnummer=00000000, Beschreibung=, Einheit=Stück, "
            "Gruppierung=, Gruppierungsposition=0, NettoOhneRabatt=0, Nettopreis=0, "
            "Positionsnummer=, Preis=0, PreisM1=0, PreisM12=0, PreisM24=0, PreisM3=0, PreisM36=0, "
            "PreisM48=0, PreisM6=0, PreisM60=0, Row=001");
  EXPECT_EQ(Types().front()[field::NettoSumme], host::Value(0.0));
  EXPECT_EQ(Types().front()[field::NoBooking], host::Value(false))
      << "nothing is ticked for creditors";

  OpenEdit([&](DialogUser& user) { user.Click("cmdSave"); });
  EXPECT_EQ(Positions().size(), 1u);
  AddType({{field::Typ, "K"}});
  OpenEdit([&](DialogUser& user) { user.Click("cmdSave"); });
  EXPECT_EQ(Positions().size(), 2u);
  EXPECT_EQ(Positions().back().parent, Types().back().oid);
}

using MemoryTest = SavingTest;

TEST_F(MemoryTest, AChangeForOneContractTouchesNoTable) {
  const store::Oid type =
      AddType(Fields("Dauer=18, Zahlungsperiode=6, WorkflowID=W1, ErfordertMerkmalGruppe=Kunde, "
                     "ErfordertMerkmal=Branche, ErfordertWert=Handel"));
  AddPosition(type, "P1", "Netz", 10.125, 3);
  const auto types = Types().front().cells;
  const auto positions = Positions().front().cells;
  OpenForNewContract([&](DialogUser& user) {
    EXPECT_EQ(user.Get<ui::Button>("cmdSave").Caption(), "Übernehmen");
    EXPECT_FALSE(user.Reaches("cboStatus"));
    EXPECT_TRUE(user.Reaches("cboPutGroup"));
    Expect(kReminder, 0);
    Expect(kReminder, 0);
    user.Enter({{"txtBezeichnung", "Sonderfall"},
                {"cboZahlungsperiode", "einmalig"},
                {"txtDauer", "7"},
                {"cboPutGroup", "Abteilung"},
                {"cmdSave", ""}});
    EXPECT_FALSE(user.IsOpen());
  });
  EXPECT_EQ(Types().front().cells, types);
  EXPECT_EQ(Positions().front().cells, positions);
  const vv_CDefinition& definition = *world.module.gDefinition;
  EXPECT_EQ(definition.Bezeichnung, "Sonderfall");
  EXPECT_EQ(definition.Dauer, 7);
  EXPECT_EQ(definition.Zahlungsperiode, 7);
  EXPECT_EQ(definition.VerlaengerungsWorkflowID, "W1");
  EXPECT_EQ(definition.SetztWert, "Vertrieb");
  EXPECT_EQ(definition.NettoSumme, 30.38);
  EXPECT_TRUE(definition.Dirty);
  EXPECT_EQ(definition.DefOid, std::to_string(type));
  ASSERT_EQ(world.module.gPositions->size(), 1u);
  const vv_CPosition& position = *world.module.gPositions->front();
  EXPECT_EQ(position.Nettopreis, 10.13);
  EXPECT_EQ(position.NettoOhneRabatt, 10.125);
  EXPECT_EQ(position.Erloeskonto, 8400);
}

TEST_F(MemoryTest, PositionsOfACreditorAndOfNone) {
  AddPosition(AddType({{field::Typ, "K"}}), "P1", "");
  OpenForNewContract([&](DialogUser& user) { user.Click("cmdSave"); });
  ASSERT_EQ(world.module.gPositions->size(), 1u);
  EXPECT_EQ(world.module.gPositions->front()->Artikelart, "Verbindlichkeit");
  AddType();
  world.module.gDefinition->Dirty = false;
  OpenForNewContract([&](DialogUser& user) { SaveWithoutPositions(user); });
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
