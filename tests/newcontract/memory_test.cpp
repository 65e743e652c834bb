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
    return HoldChange(world, form);
  }
  void AddToMemory(std::string group) {
    if (!world.module.gPositions) {
      world.module.gPositions = std::make_shared<shell::PositionCollection>();
    }
    auto position = std::make_shared<vv_CPosition>();
    position->Gruppierung = std::move(group);
    position->ArtikelID = "A2";
    position->Erloeskonto = 5;
    position->Anzahl = 3.0;
    position->PreisM6 = 20.0;
    position->NettoOhneRabatt = 10.0;
    world.module.gPositions->push_back(std::move(position));
  }
  // Opens the details and leaves them with that button.
  void Details(const char* button, const char* name = "Wartung") {
    const auto acts = [=](support::DialogUser& editor) {
      editor.Paste("txtBezeichnung", name);
      editor.Click(button);
    };
    world.screen.ExpectDialog("frmFEditDefinitions", support::AsUser(acts));
    dialog.Click("cmdDetails");
  }
};

TEST_F(FromMemory, TheDetailsButtonChangesTheContractAndNotTheType) {
  AddPosition(AddType(Quarterly()));
  Open();
  const auto types = world.Rows(table::vv_Vertragsdefinitionen);
  Details("cmdSave", "Sonderwartung");
  EXPECT_EQ(form.msOID, form.lvwBezeichnung.Text(1, 2));
  EXPECT_TRUE(form.lblDirty.Visible());
  Save();
  EXPECT_EQ(Line(Contract(), {field::Bezeichnung, field::VertragsDefinitionID, field::AktValue}),
            "Sonderwartung D1 60");
  EXPECT_THAT(Lines(world, table::vv_Vertragspositionen,
                    {field::Artikel, field::Row, field::Positionsnummer, field::Erloeskonto}),
              ElementsAre("Wartung Server 001 1 8400"));
  EXPECT_EQ(world.Rows(table::vv_Vertragsdefinitionen).at(0).cells, types.at(0).cells);
}

// Opening the details of a change that is held brings it back and forgets it: left
// without saving, there is no type to conclude a contract from.
TEST_F(FromMemory, LeavingTheDetailsChangesNothingButLosesAHeldChange) {
  AddPosition(AddType(Quarterly()));
  Open();
  Details("cmdCancel", "Sonderwartung");
  EXPECT_FALSE(form.lblDirty.Visible());
  Details("cmdSave");
  Details("cmdCancel");
  EXPECT_TRUE(form.lblDirty.Visible());
  world.screen.ExpectMessage(Failure(
      "5B", platform::RuntimeErrorText(platform::RuntimeError::ObjectNotSet), "SaveFromMemory"));
  SaveRefused();
  EXPECT_EQ(world.Count(table::vv_Vertraege), 0u);
}

TEST_F(FromMemory, WritesItsOwnValuesAndTheStoredTypesId) {
  vv_CDefinition& type = OpenChanged(Quarterly(
      Fields("ErfordertMerkmal=Kunde, ErfordertWert=A, WorkflowID=W1, Zahlungsperiode=12")));
  world.Add(table::Adressmerkmale, {{field::Merkmal, "Kunde"}, {field::Wert, "A"}}, world.address);
  type.ErfordertMerkmal = "anderes";
  type.SetztMerkmal = "Premium";
  type.SetztWert = "ja";
  type.VerlaengerungsWorkflowID = "W2";
  const std::string oid = std::exchange(type.DefOid, "999");
  form.InitAgain();
  EXPECT_FALSE(form.lblDirty.Visible()) << "the change is one of another type";
  type.DefOid = oid;
  form.InitAgain();
  dialog.Pick("DTPVertragBeginn", Day(1, 4, 2024));
  Save();
  EXPECT_EQ(
      Line(Contract(), {field::Bezeichnung, field::VertragEnde, field::KuendfristDatum,
                        field::KuendigungsfristBezug, field::AktZahlungsperiodeStr, field::AktValue,
                        field::AktNaechsteRechnungStr, field::ErfordertMerkmal,
                        field::VertragsDefinitionID, field::VerlaengerungsWorkflowID}),
      "Sonderwartung 30.09.2024 01.09.2024  halbjährlich 50 20241001 anderes D1 W2");
  EXPECT_EQ(
      Lines(world, table::Adressmerkmale, {field::Merkmal, field::Wert, field::Beschreibung}).at(1),
      "Premium ja 00000001 / Sonderwartung");
  EXPECT_EQ(world.Count(table::vv_Vertragspositionen), 0u) << "there is no collection";
}

TEST_F(FromMemory, NewPositionsAreWrittenGroupByGroup) {
  OpenChanged(Quarterly());
  for (const char* group : {"A", "B", "A", ""}) AddToMemory(group);
  form.InitAgain();
  Save();
  EXPECT_THAT(
      Lines(world, table::vv_Vertragspositionen,
            {field::Row, field::Positionsnummer, field::Gruppierungsposition, field::Gruppierung}),
      ElementsAre("001 1 1 A", "003 2 1 A", "002 3 2 B", "004 4 3 "));
}

TEST_F(FromMemory, ATakeoverThatEndsInARenewalAlwaysGetsItsAppointment) {
  OpenChanged(Quarterly());
  for (const char* group : {"A", "B", "A"}) AddToMemory(group);
  form.InitAgain();
  dialog.Pick("DTPVertragBeginn", Day(1, 9, 2023));
  dialog.Check("chkOldContract", true);
  ASSERT_FALSE(world.module.gAppointment4AllContracts);
  Save();
  EXPECT_THAT(Lines(world, table::vv_VertragsAktivitaeten, {field::Betreff}),
              ElementsAre("Kündigungsfrist läuft am  18.08.2024  aus"));
  EXPECT_THAT(
      Lines(world, table::vv_Vertragspositionen,
            {field::Row, field::Nettopreis, field::NettoOhneRabatt, field::Erloeskonto,
             field::Gruppierung}),
      ElementsAre("001 10 10 8300 (leer)", "002 10 10 8300 (leer)", "003 10 10 8300 (leer)",
                  "001 20 20 8300 (leer)", "002 20 20 8300 (leer)", "003 20 20 8300 (leer)"));
  EXPECT_EQ(Lines(world, table::vv_Vertragsstaende, {field::Value}).at(1), "180");
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
