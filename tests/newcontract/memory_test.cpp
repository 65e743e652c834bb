// A type changed in memory for one contract: the details button and the save.

#include "definitions/vv_CPosition.h"
#include "newcontract/dialog_world.h"

namespace pactora::newcontract {
namespace {

using definitions::vv_CDefinition;
using definitions::vv_CPosition;
using testing::ElementsAre;

class FromMemory : public DialogTest {
 protected:
  // Opens the dialog on a stored type and puts a changed copy of it into memory.
  vv_CDefinition& OpenChanged(const Values& stored) {
    AddPosition(AddType(stored));
    Open();
    auto type = std::make_shared<vv_CDefinition>();
    type->DefOid = form.lvwBezeichnung.Text(1, 2);
    type->Typ = "D";
    type->Bezeichnung = "Sonderwartung";
    type->Art = 1;
    type->ArtStr = "verlängerbar";
    type->Dauer = 6;
    type->Verlaengerungsdauer = 6;
    type->Kuendigungsfrist = 1;
    type->KuendigungsfristEinh = "Monate";
    type->VerlKuendigungsfrist = 2;
    type->VerlKuendigungsfristEinh = "Wochen";
    type->Zahlungsperiode = 6;
    type->VerlaengerungsZahlungsperiode = 6;
    type->RechnungWann = 1;
    type->NettoSumme = 50.0;
    world.module.gDefinition = type;
    return *type;
  }
  void AddToMemory(std::string article, std::string group = {}) {
    if (!world.module.gPositions) {
      world.module.gPositions = std::make_shared<shell::PositionCollection>();
    }
    auto position = std::make_shared<vv_CPosition>();
    position->Artikel = std::move(article);
    position->Gruppierung = std::move(group);
    position->ArtikelID = "A2";
    position->Erloeskonto = 5;
    position->Anzahl = 3.0;
    position->PreisM6 = 20.0;
    position->NettoOhneRabatt = 10.0;
    world.module.gPositions->push_back(std::move(position));
  }
};

TEST_F(FromMemory, TheDetailsButtonChangesTheContractAndNotTheType) {
  AddPosition(AddType(Quarterly()));
  Open();
  const auto types = world.Rows(table::vv_Vertragsdefinitionen);
  world.screen.ExpectDialog("frmFEditDefinitions", [](ui::Form& editor, ui::Person& person) {
    person.Paste(*editor.Find("txtBezeichnung"), "Sonderwartung");
    EXPECT_TRUE(person.Click(*editor.Find("cmdSave")).Done());
  });
  dialog.Click("cmdDetails");
  EXPECT_EQ(form.msOID, form.lvwBezeichnung.Text(1, 2));
  EXPECT_TRUE(form.lblDirty.Visible());
  Save();
  EXPECT_EQ(Line(Contract(), {field::Bezeichnung, field::VertragsDefinitionID, field::AktValue}),
            "Sonderwartung D1 60");
  EXPECT_EQ(Line(world.Rows(table::vv_Vertragspositionen).at(0),
                 {field::Artikel, field::Row, field::Positionsnummer, field::Erloeskonto}),
            "Wartung Server 001 1 8400");
  EXPECT_EQ(world.Rows(table::vv_Vertragsdefinitionen).at(0).cells, types.at(0).cells);
}

TEST_F(FromMemory, LeavingTheDetailsChangesNothing) {
  AddPosition(AddType(Quarterly()));
  Open();
  const auto cancel = [](ui::Form& editor, ui::Person& person) {
    EXPECT_TRUE(person.Click(*editor.Find("cmdCancel")).Done());
  };
  world.screen.ExpectDialog("frmFEditDefinitions", cancel);
  dialog.Click("cmdDetails");
  EXPECT_FALSE(form.lblDirty.Visible());
  Save();
  EXPECT_EQ(Shown(Contract()[field::Bezeichnung]), "Wartung");
}

// Opening the details of a change that is held brings it back and forgets it: left
// without saving, there is no type to conclude a contract from.
TEST_F(FromMemory, LeavingTheDetailsOfAHeldChangeLosesIt) {
  AddPosition(AddType(Quarterly()));
  Open();
  world.screen.ExpectDialog("frmFEditDefinitions", [](ui::Form& editor, ui::Person& person) {
    person.Click(*editor.Find("cmdSave"));
  });
  dialog.Click("cmdDetails");
  world.screen.ExpectDialog("frmFEditDefinitions", [](ui::Form& editor, ui::Person& person) {
    person.Click(*editor.Find("cmdCancel"));
  });
  dialog.Click("cmdDetails");
  EXPECT_TRUE(form.lblDirty.Visible());
  world.screen.ExpectMessage(
      Plain("Fehler &H5B\r\n(" + platform::RuntimeErrorText(platform::RuntimeError::ObjectNotSet) +
            ")\r\nin vv_FNewContract.SaveFromMemory"));
  SaveRefused();
  EXPECT_EQ(world.Count(table::vv_Vertraege), 0u);
}

TEST_F(FromMemory, AChangeOfAnotherTypeIsNotTaken) {
  OpenChanged(Quarterly()).DefOid = "999";
  form.InitAgain();
  EXPECT_FALSE(form.lblDirty.Visible());
}

TEST_F(FromMemory, WritesItsOwnValuesAndTheStoredTypesIdAndDocument) {
  vv_CDefinition& type = OpenChanged(Quarterly({{field::ErfordertMerkmal, "Kunde"},
                                                {field::ErfordertWert, "A"},
                                                {field::WorkflowID, "W1"},
                                                {field::Zahlungsperiode, 12}}));
  world.Add(table::Adressmerkmale, {{field::Merkmal, "Kunde"}, {field::Wert, "A"}}, world.address);
  type.ErfordertMerkmal = "anderes";
  type.SetztMerkmal = "Premium";
  type.SetztWert = "ja";
  type.VerlaengerungsWorkflowID = "W2";
  AddToMemory("Hotline");
  form.InitAgain();
  dialog.Pick("DTPVertragBeginn", Day(1, 4, 2024));
  Save();
  EXPECT_EQ(Line(Contract(), {field::Bezeichnung, field::VertragEnde, field::KuendfristDatum,
                              field::AktZahlungsperiodeStr, field::AktValue,
                              field::AktNaechsteRechnungStr, field::ErfordertMerkmal,
                              field::VertragsDefinitionID, field::VerlaengerungsWorkflowID}),
            "Sonderwartung 30.09.2024 01.09.2024 halbjährlich 50 20241001 anderes D1 W2");
  EXPECT_EQ(Shown(Contract()[field::KuendigungsfristBezug]), "");
  EXPECT_EQ(Line(world.Rows(table::Adressmerkmale).at(1),
                 {field::Merkmal, field::Wert, field::Beschreibung}),
            "Premium ja 00000001 / Sonderwartung");
}

TEST_F(FromMemory, NewPositionsAreWrittenGroupByGroup) {
  OpenChanged(Quarterly());
  AddToMemory("eins", "A");
  AddToMemory("zwei", "B");
  AddToMemory("drei", "A");
  AddToMemory("vier");
  form.InitAgain();
  Save();
  std::vector<std::string> lines;
  for (const Row& row : world.Rows(table::vv_Vertragspositionen)) {
    lines.push_back(Line(row, {field::Artikel, field::Positionsnummer, field::Row,
                               field::Gruppierungsposition, field::Gruppierung}));
  }
  EXPECT_THAT(lines,
              ElementsAre("eins 1 001 1 A", "drei 2 003 1 A", "zwei 3 002 2 B", "vier 4 004 3 "));
}

TEST_F(FromMemory, NoPositionsAndNoCollectionGiveNoRows) {
  OpenChanged(Quarterly());
  form.InitAgain();
  Save();
  EXPECT_EQ(world.Count(table::vv_Vertragspositionen), 0u);
  world.module.gPositions = std::make_shared<shell::PositionCollection>();
  Dialog second(world);
  ASSERT_TRUE(second.Open());
  second.form.InitAgain();
  second.Click("cmdOK");
  EXPECT_TRUE(second.form.mbOK);
  EXPECT_EQ(world.Count(table::vv_Vertragspositionen), 0u);
}

TEST_F(FromMemory, ATakeoverThatEndsInARenewalAlwaysGetsItsAppointment) {
  OpenChanged(Quarterly());
  AddToMemory("eins", "A");
  AddToMemory("zwei", "B");
  AddToMemory("drei", "A");
  form.InitAgain();
  dialog.Pick("DTPVertragBeginn", Day(1, 9, 2023));
  dialog.Check("chkOldContract", true);
  ASSERT_FALSE(world.module.gAppointment4AllContracts);
  Save();
  EXPECT_EQ(form.mlVSCount, 2);
  const std::vector<Row> appointments = world.Rows(table::vv_VertragsAktivitaeten);
  ASSERT_EQ(appointments.size(), 1u);
  EXPECT_EQ(Shown(appointments[0][field::Betreff]), "Kündigungsfrist läuft am  18.08.2024  aus");
  std::vector<std::string> lines;
  for (const Row& row : world.Rows(table::vv_Vertragspositionen)) {
    lines.push_back(Line(row, {field::Artikel, field::Row, field::Nettopreis,
                               field::NettoOhneRabatt, field::Erloeskonto, field::Gruppierung}));
  }
  EXPECT_THAT(lines, ElementsAre("eins 001 10 10 8300 (leer)", "zwei 002 10 10 8300 (leer)",
                                 "drei 003 10 10 8300 (leer)", "eins 001 20 20 8300 (leer)",
                                 "zwei 002 20 20 8300 (leer)", "drei 003 20 20 8300 (leer)"));
  EXPECT_EQ(Shown(world.Rows(table::vv_Vertragsstaende).at(1)[field::Value]), "180");
}

TEST_F(FromMemory, ATakeoverWithinTheFirstTermGetsNone) {
  OpenChanged(Quarterly()).Zahlungsperiode = 1;
  form.InitAgain();
  dialog.Pick("DTPVertragBeginn", Day(1, 9, 2023));
  dialog.Check("chkOldContract", true);
  Save();
  EXPECT_EQ(world.Count(table::vv_VertragsAktivitaeten), 0u);
}

}  // namespace
}  // namespace pactora::newcontract
