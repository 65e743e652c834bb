// The five operations of the entry class, and the dialog that one of them holds.

#include "shell/entry/CVV.h"
#include "support/contract_world.h"
#include "support/fault_sweep.h"

namespace pactora::shell {
namespace {

namespace table = schema::table;
using support::ErrorOf;
using support::FailingProbe;

class Entry : public support::ContractWorldTest {
 protected:
  Entry() { world.Goto(table::Adressen, world.address); }

  // A contract type that the dialog for a new contract offers.
  void AddReleasedType() {
    world.Add(table::vv_Vertragsdefinitionen,
              support::Fields("Status=freigegeben, Typ=D, Bezeichnung=Wartung, Art=2, "
                              "ArtStr=einmalig, Dauer=12, Zahlungsperiode=12, RechnungWann=0, "
                              "NoBooking=False, NettoSumme=100"));
  }
  void ExpectNoReleasedType() {
    world.screen.ExpectMessage(
        {"Es muss mindestens ein freigegebener Vertragstyp definiert sein.\r\n"
         "Legen Sie einen Vertragstyp an!",
         48, "Tessarin Sorvane"});
  }
  void ExpectDialog(const std::string& click, const char* dialog = "frmNewContract") {
    world.screen.ExpectDialog(
        dialog, [click](ui::Form& form, ui::Person& person) { person.Click(*form.Find(click)); });
  }
  void New() { entry.NewContract(world.host.App(), ok, rows, show_def); }
  void New2() { entry.NewContract2(world.host.App(), ok, rows, show_def); }
  void ExpectResults(bool want_ok, std::int32_t want_rows, bool want_show_def) {
    EXPECT_EQ(ok, want_ok);
    EXPECT_EQ(rows, want_rows);
    EXPECT_EQ(show_def, want_show_def);
  }

  CVV entry{world.module};
  bool ok = true;
  std::int32_t rows = 7;
  bool show_def = false;
};

TEST_F(Entry, TheReporterLivesAsLongAsAnyEntryObject) {
  const auto first = world.module.gAddonError;
  ASSERT_TRUE(first);
  auto second = std::make_unique<CVV>(world.module);
  EXPECT_NE(world.module.gAddonError, first);
  second.reset();
  EXPECT_TRUE(world.module.gAddonError);
  {
    support::ContractWorld other;
    { CVV alone(other.module); }
    EXPECT_FALSE(other.module.gAddonError);
  }
}

TEST_F(Entry, EachCallTakesTheHostThatItIsHanded) {
  AddReleasedType();
  ExpectDialog("cmdCancel");
  New();
  EXPECT_EQ(world.module.gHostApp, world.host.App());
  EXPECT_EQ(world.module.gVersionText, "Version 2.9.0.2");
  support::ContractWorld other;
  world.screen.ExpectMessage(
      support::ReporterMessage("CVV.NewContractDebitor", platform::RuntimeError::ObjectNotSet));
  entry.NewContractDebitor(other.host.App(), nullptr, nullptr);
  EXPECT_EQ(world.module.gHostApp, other.host.App());
  EXPECT_EQ(world.module.gDb, other.host.App()->CurrentDb());
}

TEST_F(Entry, NewContractHandsOverWhatTheDialogDid) {
  AddReleasedType();
  ExpectDialog("cmdOK");
  New();
  ExpectResults(true, 1, false);
  ExpectDialog("cmdCancel");
  New2();
  ExpectResults(false, 0, false);
  EXPECT_EQ(world.Count(table::vv_Vertraege), 1u);
}

TEST_F(Entry, NewContractSwitchesTheFiltersOff) {
  AddReleasedType();
  world.Add(table::vv_Vertraege, {}, world.address);
  for (const auto kind : {embedded::FilterKind::First, embedded::FilterKind::Second}) {
    world.HideRows(table::vv_Vertraege, kind);
  }
  ExpectDialog("cmdCancel");
  New();
  EXPECT_EQ(world.host.Table(table::vv_Vertraege)->ScopeCount(), 1);
}

TEST_F(Entry, ADialogThatCouldNotBeFilledIsHeldForACallerWhoWantsDetails) {
  ExpectNoReleasedType();
  show_def = true;
  New();
  ExpectResults(false, 0, true);

  // NewContract2 touches nothing while it is held.
  ok = true, rows = 7;
  New2();
  ExpectResults(true, 7, true);

  // NewContract shows it again, without the entry steps.
  world.module.gVersionText = "unverändert";
  ExpectDialog("cmdCancel");
  entry.NewContract(nullptr, ok, rows, show_def);
  ExpectResults(false, 0, false);
  EXPECT_EQ(world.module.gVersionText, "unverändert");

  // It was released: the next calls make others, and hold none.
  for (const bool second_operation : {false, true}) {
    ExpectNoReleasedType();
    second_operation ? New2() : New();
    ExpectResults(false, 0, false);
  }
  EXPECT_EQ(world.module.gVersionText, "Version 2.9.0.2");
}

TEST_F(Entry, AnErrorWhileTheDialogIsShownIsReportedAndLeavesItBehind) {
  AddReleasedType();
  const auto fails = [](ui::Form&, ui::Person&) { throw platform::Error(5, "x", "Platte"); };
  world.screen.ExpectDialog("frmNewContract", fails);
  world.screen.ExpectMessage(support::ReporterMessage("CVV.NewContract2", 5, "Platte"));
  New2();
  ExpectResults(false, 0, false);
  // Shown again it is the caller who learns of an error.
  world.screen.ExpectDialog("frmNewContract", fails);
  EXPECT_EQ(ErrorOf([&] { New(); })->Source(), "Platte");
  ExpectDialog("cmdOK");
  New();
  ExpectResults(true, 1, false);
}

TEST_F(Entry, AnErrorBeforeTheDialogIsReportedAndOneOfTheHostRaised) {
  AddReleasedType();
  const platform::Error lost(5, "x", "Platte");
  {
    FailingProbe probe(world.host, 1, "FilterOff2", std::string(table::vv_Vertraege), lost);
    world.screen.ExpectMessage(support::ReporterMessage("CVV.NewContract", 5, "Platte"));
    New();
    ExpectResults(false, 0, false);
  }
  ok = true, rows = 7;
  FailingProbe probe(world.host, 1, "CurrentDb", "", lost);
  EXPECT_EQ(ErrorOf([&] { New(); })->Source(), "Platte");
  ExpectResults(true, 7, false);
}

TEST_F(Entry, EditContractDefinitionReadsTheSettingForAppointments) {
  host::HostSettings& settings = world.host.App()->CurrentDb()->DbSettings();
  settings.Add("CreateAppointment4AllContracts", "");
  for (const auto& [setting, flag] :
       {std::pair{"1", true}, {"0", false}, {"TRUE", true}, {"False", false}, {"-1", true}}) {
    settings.Item("CreateAppointment4AllContracts").SetValue(setting);
    ExpectDialog("cmdCancel", "frmFEditDefinitions");
    entry.EditContractDefinition(world.host.App(), true);
    EXPECT_EQ(world.module.gAppointment4AllContracts, flag) << setting;
  }
  world.module.gVersionText = "unverändert";
  settings.Item("CreateAppointment4AllContracts").SetValue("vielleicht");
  EXPECT_EQ(support::ErrorNumberOf([&] { entry.EditContractDefinition(world.host.App(), true); }),
            13);
  EXPECT_EQ(world.module.gVersionText, "unverändert");
}

}  // namespace
}  // namespace pactora::shell
