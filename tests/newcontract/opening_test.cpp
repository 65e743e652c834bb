// Opening the dialog, and what choosing a contract type does to it.

#include "newcontract/dialog_world.h"
#include "support/attributes.h"
#include "support/fault_sweep.h"

namespace pactora::newcontract {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

std::string Text(Date date) { return FormatDate(date, platform::kGermanPattern); }

class Opening : public DialogTest {};

TEST_F(Opening, ListsReleasedTypesByNameAndChoosesTheFirst) {
  AddType(Quarterly({{field::Bezeichnung, "Zaun"}}));
  AddType(Quarterly({{field::Status, "in Bearbeitung"}, {field::Bezeichnung, "Anker"}}));
  AddType(Quarterly({{field::Status, "Freigegeben"}, {field::Bezeichnung, "Boje"}}));
  const store::Oid type =
      AddType(Once(Fields("Typ=K, Bezeichnung=Miete, RechnungWann=1, NoBooking=True")));
  world.module.gVersionText = "Version 1.2";
  world.SetVariable("vv_AlarmWochenKuendigung", "8");
  world.module.gDb = world.App()->CurrentDb();
  world.module.gDb->DbSettings().Add("CreateAppointment4AllContracts", "1");
  Open();
  EXPECT_EQ(form.Caption(), "Neuer Vertrag für:   Muster GmbH");
  ASSERT_EQ(form.lvwBezeichnung.RowCount(), 2);
  EXPECT_EQ(dialog.Cells("lvwBezeichnung", 1, 0, 11),
            "Miete|einmalig|" + std::to_string(type) + "|K|2|1|6|3|0|6|Verbindlichkeit|True|");
  EXPECT_EQ(form.lvwBezeichnung.Text(2, 10), "Forderung");
  EXPECT_EQ(form.lvwBezeichnung.SelectedRow(), 1);
  EXPECT_EQ(world.host.Table(table::vv_Vertragsdefinitionen)->Oid(), std::to_string(type));
  EXPECT_THAT(dialog.Items("cboVerantwortlich"), ElementsAre("Anna", "Bert"));
  EXPECT_THAT(dialog.Items("cmbUser"), ElementsAre("Anna", "Bert"));
  dialog.Shows({{"lblVersion", "Version 1.2"}, {"cboVerantwortlich", "Anna"}, {"cmbUser", "Anna"}});
  EXPECT_EQ(world.module.gAlarmWochenKuendigung, 8);
  EXPECT_TRUE(world.module.gAppointment4AllContracts);
  EXPECT_TRUE(form.txtVertragnummer.Enabled()) << "a liability is numbered by hand";
}

TEST(OpeningWithoutWorkflows, NeedsNoWorkflowTable) {
  support::ContractWorld world(/*workflow_add_on=*/false);
  world.Add(table::vv_Vertragsdefinitionen, Quarterly(Sets()));
  const store::Oid group = support::AddGroup(world, "Kunden", {{field::ID, "MG"}});
  support::AddAttribute(world, group, "Wartung", {"ja"}, {{field::ID, "ML"}});
  Dialog dialog(world);
  EXPECT_TRUE(dialog.Open());
  EXPECT_FALSE(dialog.form.fraWorkflow.Enabled());
  EXPECT_EQ(dialog.form.lblWorkflow2.Caption(), "< kein Workflow zugeordnet >");
  EXPECT_THAT(world.screen.Messages(), testing::IsEmpty());
}

// Whichever operation of the host fails: a message says so, and a dialog that is
// not ready is not shown. Only the workflow controls and the date pattern can do
// without.
TEST(OpeningFailures, AreShownAndKeepTheDialogClosed) {
  std::size_t refused = 0;  // with types in the list
  std::size_t ready = 0;
  for (support::FaultSweep sweep; sweep.Next();) {
    support::ContractWorld world;
    world.Add(table::vv_Vertragsdefinitionen, Quarterly(Sets({{field::WorkflowID, "W1"}})));
    support::AddWorkflow(world, "W1", "Verlängern");
    world.Enter();
    frmNewContract form(world.module);
    bool opened = false;
    sweep.Run(world.host, [&] { opened = form.InitNew(); });
    if (!sweep.Fails()) {
      EXPECT_TRUE(opened);
      EXPECT_GT(sweep.Operations(), 50u);
      continue;
    }
    ASSERT_FALSE(world.screen.Messages().empty());
    const ui::Message message = world.screen.Messages().back();
    if (opened) {
      ++ready;
      EXPECT_TRUE(message.text.find("SetWorkflowFrameVisibility") != std::string::npos ||
                  message.title == "Fehler in modVV.ReadPersistVarSetting")
          << message.text;
      EXPECT_GT(form.lstInvoices.Count(), 0);
      continue;
    }
    EXPECT_THAT(message.text, HasSubstr("in vv_FNewContract.InitNew"));
    EXPECT_EQ(message.title, "Pactora");
    // A caller may keep it and show it again: it stores no half-known contract,
    // and says so where it lists types to choose from.
    const std::size_t told = world.screen.Messages().size();
    const bool lists_types = form.lvwBezeichnung.RowCount() > 0;
    form.BeginModal();
    ui::Person(form).Click(form.ChkAutoNumber);
    ui::Person(form).Click(form.cmdOK);
    ASSERT_EQ(world.screen.Messages().size(), told + lists_types);
    if (lists_types) {
      ++refused;
      const std::string what =
          "Der Dialog konnte nicht vollständig geöffnet werden. Es wird kein Vertrag gespeichert.";
      EXPECT_EQ(world.screen.Messages().back().text, Failure("5B", what).text);
    }
    EXPECT_EQ(world.Count(table::vv_Vertraege), 0u);
  }
  EXPECT_GT(refused, 10u);
  EXPECT_GT(ready, 3u);
}

class Choice : public DialogTest {
 protected:
  Choice() {
    AddType(Quarterly({{field::Bezeichnung, "A Wartung"}, {field::NoBooking, true}}));
    AddType(Once({{field::Bezeichnung, "B Projekt"}}));
    AddType(Once({{field::Bezeichnung, "C Miete"}, {field::Typ, "K"}}));
    AddType(Once({{field::Bezeichnung, "D Pacht"}, {field::Typ, "K"}}));
    Open();
  }
};

TEST_F(Choice, OfALiabilityLeavesOnlyATypedNumber) {
  dialog.Check("chkOldContract", true);
  dialog.Check("chkRabattNurErsteLaufzeit", true);
  dialog.Choose("lvwBezeichnung", "C Miete");
  EXPECT_FALSE(form.ChkAutoNumber.Checked());
  EXPECT_FALSE(form.chkOldContract.Checked());
  EXPECT_TRUE(form.chkRabattNurErsteLaufzeit.Checked()) << "only disabled, not reset";
  for (const char* name :
       {"ChkAutoNumber", "chkOldContract", "chkNoBooking", "chkRabattNurErsteLaufzeit"}) {
    EXPECT_FALSE(dialog[name].Enabled()) << name;
  }
  EXPECT_EQ(form.lstInvoices.Count(), 0);
  // The number is kept between liabilities alone.
  dialog.Paste("txtVertragnummer", "M-17");
  dialog.Choose("lvwBezeichnung", "D Pacht");
  EXPECT_EQ(form.txtVertragnummer.Text(), "M-17");
  dialog.Choose("lvwBezeichnung", "A Wartung");
  EXPECT_EQ(form.txtVertragnummer.Text(), "");
  EXPECT_FALSE(form.txtVertragnummer.Enabled());
}

TEST_F(Choice, FollowsTheTypeAndKeepsWhatTheUserEntered) {
  EXPECT_TRUE(form.chkNoBooking.Checked());
  dialog.Pick("DTPVertragBeginn", Day(1, 2, 2024));
  dialog.Pick("DTPGeschlossenAm", std::nullopt);
  dialog.Paste("txtMemo", "Notiz");
  dialog.Choose("cboVerantwortlich", "Bert");
  EXPECT_TRUE(dialog.TypeDiscount("5").Done());
  dialog.Check("chkOldContract", true);
  dialog.Choose("lvwBezeichnung", "B Projekt");
  EXPECT_FALSE(form.chkNoBooking.Checked());
  EXPECT_FALSE(form.chkOldContract.Checked());
  EXPECT_THAT(dialog.Items("lstInvoices"),
              ElementsAre("01.02.2024 - 30.04.2024", "01.05.2024 - 31.07.2024"));
  EXPECT_EQ(Text(form.DTPVertragBeginn.Value()), "01.02.2024");
  EXPECT_TRUE(form.DTPGeschlossenAm.IsNull());
  EXPECT_EQ(form.txtMemo.Text(), "Notiz");
  EXPECT_EQ(form.txtRabatt.Text(), "5,00");
  EXPECT_EQ(form.cboVerantwortlich.Text(), "Bert");
}

TEST_F(Choice, AsksBeforeAChangeInMemoryIsLost) {
  HoldChange(world, form).Dauer = 12;
  form.InitAgain();
  EXPECT_TRUE(form.lblDirty.Visible());
  EXPECT_FALSE(form.chkNoBooking.Checked()) << "the type in memory is invoiced here";
  EXPECT_EQ(form.lstInvoices.Count(), 2);

  dialog.Choose("lvwBezeichnung", "A Wartung");  // the chosen row: nothing to lose
  const ui::Message lost{
      "Die Änderungen, die Sie an der Vertragsdefinition gemacht haben, gehen verloren, wenn Sie "
      "eine andere Vertragsdefinition auswählen!\r\nWollen Sie das wirklich?",
      4 + 48 + 256, "Tessarin Sorvane"};
  for (const ui::Answer answer : {ui::Answer::No, ui::Answer::Yes}) {
    world.screen.ExpectMessage(lost, answer);
    dialog.Choose("lvwBezeichnung", "B Projekt");
    EXPECT_EQ(form.lvwBezeichnung.SelectedRow(), answer == ui::Answer::No ? 1 : 2);
    EXPECT_EQ(form.lblDirty.Visible(), answer == ui::Answer::No);
    EXPECT_EQ(form.lstInvoices.Count(), 2);
  }
  dialog.Choose("lvwBezeichnung", "A Wartung");
}

}  // namespace
}  // namespace pactora::newcontract
