// The workflow controls, the address attribute and the host's macro.

#include "newcontract/dialog_world.h"
#include "support/failing_probe.h"

namespace pactora::newcontract {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

const Values kSets = {{field::SetztMerkmalGruppe, "Kunden"},
                      {field::SetztMerkmal, "Wartung"},
                      {field::SetztWert, "ja"}};

class Workflow : public DialogTest {
 protected:
  // The three levels of the attribute that the type sets, each with what it says
  // about workflows.
  void AddAttribute(const Values& group, const Values& attribute, const Values& value) {
    const store::Oid g = world.Add(table::MerkmalgruppeAdressen,
                                   With({{field::ID, "MG"}, {field::Gruppe, "Kunden"}}, group));
    const store::Oid a =
        world.Add(table::MerkmallisteAdressen,
                  With({{field::ID, "ML"}, {field::Merkmal, "WARTUNG"}}, attribute), g);
    world.Add(table::WerteMerkmalAdressen, With({{field::Wert, "Ja"}}, value), a);
  }
  static Values Named(std::string_view id, std::string_view name) {
    return {{field::KELDO_WorkflowID, id}, {field::KELDO_WorkflowName, name}};
  }
  void AddWorkflow(std::string_view id, bool by_user, bool changeable) {
    world.Add(table::KELDO_Vorgaenge, {{field::ID, id},
                                       {field::Betreff, "Betreff " + std::string(id)},
                                       {field::Status, "freigegeben"},
                                       {field::benutzerabhaengig, by_user},
                                       {field::voreinstellungaenderbar, changeable}});
  }
  // A macro of that name, or one that fails.
  void AddMacro(bool fails) {
    store::Profile profile = world.host.Store().ReadProfile();
    profile.macros = {{"Project/vv_Macros/vv_CreateAttribute", fails, 5, "geht nicht"}};
    world.host.Store().WriteProfile(profile);
    world.host.ReloadProfile();
    world.host.SetMacroListener(
        [this](const std::string&, const host::ValueArray& args) { calls.push_back(args); });
  }
  std::vector<std::string> Attributes() {
    std::vector<std::string> lines;
    for (const Row& row : world.Rows(table::Adressmerkmale)) {
      EXPECT_EQ(row.parent, world.address);
      lines.push_back(Line(row, {field::Gruppe, field::Merkmal, field::Wert, field::GültigVom,
                                 field::GültigBis, field::Beschreibung}));
    }
    return lines;
  }

  std::vector<host::ValueArray> calls;
};

struct UserCase {
  const char* name;
  bool by_user, changeable;
  bool options_enabled, user_enabled;
};

class WorkflowUser : public Workflow, public testing::WithParamInterface<UserCase> {};

TEST_P(WorkflowUser, FollowsTheWorkflow) {
  const UserCase& c = GetParam();
  AddAttribute({}, {}, Named("W1", "Begrüßung"));
  AddWorkflow("W1", c.by_user, c.changeable);
  AddType(Quarterly(kSets));
  Open();
  EXPECT_TRUE(form.fraWorkflow.Enabled());
  EXPECT_TRUE(form.fraResponsible.Enabled());
  EXPECT_TRUE(form.chkWorkflow.Checked());
  EXPECT_EQ(form.chkWorkflow.Caption(), "Workflow  'Begrüßung'  erstellen");
  EXPECT_EQ(form.optDefinierteBenutzer.Value(), !c.by_user);
  EXPECT_EQ(form.optneuerBenutzer.Value(), c.by_user);
  EXPECT_EQ(form.optDefinierteBenutzer.Enabled(), c.options_enabled);
  EXPECT_EQ(form.optneuerBenutzer.Enabled(), c.options_enabled);
  EXPECT_EQ(form.cmbUser.Enabled(), c.user_enabled);
}

INSTANTIATE_TEST_SUITE_P(Table, WorkflowUser,
                         testing::Values(UserCase{"Preset", false, false, false, false},
                                         UserCase{"PresetChangeable", false, true, true, true},
                                         UserCase{"ByUser", true, false, false, true},
                                         UserCase{"ByUserChangeable", true, true, true, true}),
                         [](const auto& row) { return row.param.name; });

struct LevelCase {
  const char* name;
  Values group, attribute, value;
  const char* caption;  // of the workflow that is offered; empty for none
};

TEST(WorkflowLevels, TheMostSpecificOneThatSaysSomethingDecides) {
  const auto named = [](std::string_view id, std::string_view name) {
    return Values{{field::KELDO_WorkflowID, id}, {field::KELDO_WorkflowName, name}};
  };
  const LevelCase cases[] = {
      {"value", named("W1", "g"), named("W1", "m"), named("W1", "w"), "w"},
      {"attribute", named("W1", "g"), named("W1", "m"), {}, "m"},
      {"group", named("W1", "g"), {}, {}, "g"},
      {"a name without an ID shadows", {}, named("W1", "m"), named("", "w"), ""},
      {"an ID without a name", {}, named("W1", "m"), named("W1", ""), ""},
      {"an ID that does not exist", named("W1", "g"), named("W1", "m"), named("W8", "w"), ""},
      {"none", {}, {}, {}, ""}};
  for (const LevelCase& c : cases) {
    support::ContractWorld world;
    world.Add(table::KELDO_Vorgaenge, {{field::ID, "W1"}});
    world.Add(table::vv_Vertragsdefinitionen, With(Quarterly(), kSets));
    const store::Oid group =
        world.Add(table::MerkmalgruppeAdressen,
                  With({{field::ID, "MG"}, {field::Gruppe, "Kunden"}}, c.group));
    const store::Oid attribute =
        world.Add(table::MerkmallisteAdressen,
                  With({{field::ID, "ML"}, {field::Merkmal, "Wartung"}}, c.attribute), group);
    world.Add(table::WerteMerkmalAdressen, With({{field::Wert, "ja"}}, c.value), attribute);
    world.host.Table(table::MerkmallisteAdressen)->Indexes().Select(schema::index::Merkmal, 0);
    Dialog dialog(world);
    ASSERT_TRUE(dialog.Open());
    const std::string offered = "Workflow  '" + std::string(c.caption) + "'  erstellen";
    const bool offers = std::string_view(c.name) == "an ID without a name" || *c.caption != '\0';
    EXPECT_EQ(dialog.form.chkWorkflow.Caption(), offers ? offered : "   <kein Workflow zugewiesen>")
        << c.name;
    EXPECT_EQ(dialog.form.fraWorkflow.Enabled(), offers) << c.name;
    // The indexes are those from before.
    const auto index = [&](std::string_view name) {
      return world.host.Table(name)->Indexes().Current();
    };
    EXPECT_EQ(index(table::MerkmallisteAdressen)->Name(), "Merkmal");
    EXPECT_EQ(index(table::MerkmalgruppeAdressen), nullptr);
    EXPECT_EQ(index(table::WerteMerkmalAdressen), nullptr);
    EXPECT_THAT(world.screen.Messages(), IsEmpty());
  }
}

TEST_F(Workflow, IsOfferedForACompleteAttributeAlone) {
  AddAttribute({}, {}, Named("W1", "w"));
  AddWorkflow("W1", false, true);
  AddType(Quarterly(With(kSets, {{field::Bezeichnung, "A"}})));
  AddType(Quarterly(With(kSets, {{field::Bezeichnung, "B"}, {field::SetztMerkmalGruppe, ""}})));
  AddType(Quarterly(With(kSets, {{field::Bezeichnung, "C"}, {field::SetztWert, "nein"}})));
  Open();
  EXPECT_TRUE(form.chkWorkflow.Checked());
  for (const char* name : {"B", "C"}) {
    dialog.ChooseText("lvwBezeichnung", name);
    EXPECT_FALSE(form.chkWorkflow.Checked()) << name;
    EXPECT_FALSE(form.fraResponsible.Enabled()) << name;
    EXPECT_FALSE(form.cmbUser.Enabled()) << name;
    EXPECT_EQ(form.chkWorkflow.Caption(), "   <kein Workflow zugewiesen>") << name;
  }
  dialog.ChooseText("lvwBezeichnung", "B");
  Save();
  EXPECT_THAT(Attributes(), ElementsAre("(leer) Wartung ja 01.04.2024 31.03.2025 00000001 / B"));
}

TEST_F(Workflow, OfTheRenewalIsShownWhenReleased) {
  AddWorkflow("W1", false, false);
  world.Add(table::KELDO_Vorgaenge,
            {{field::ID, "W2"}, {field::Betreff, "Entwurf"}, {field::Status, "in Bearbeitung"}});
  AddType(Quarterly({{field::Bezeichnung, "A"}, {field::WorkflowID, "W1"}}));
  AddType(Quarterly({{field::Bezeichnung, "B"}, {field::WorkflowID, "W2"}}));
  AddType(Quarterly({{field::Bezeichnung, "C"}, {field::WorkflowID, "W3"}}));
  AddType(Quarterly({{field::Bezeichnung, "D"}, {field::WorkflowID, ""}}));
  Open();
  std::vector<std::string> shown;
  for (const char* name : {"A", "B", "C", "D"}) {
    dialog.ChooseText("lvwBezeichnung", name);
    EXPECT_EQ(form.lblWorkflow2.Enabled(), form.fraWorkflow2.Enabled());
    shown.push_back(form.lblWorkflow2.Caption() + (form.fraWorkflow2.Enabled() ? " +" : " -"));
  }
  EXPECT_THAT(shown,
              ElementsAre("Betreff W1 +", "< kein Workflow zugeordnet > +",
                          "< kein Workflow zugeordnet > +", "< kein Workflow zugeordnet > -"));
}

TEST_F(Workflow, RunsTheMacroInsteadOfWritingTheAttribute) {
  AddAttribute({}, {}, Named("W1", "w"));
  AddWorkflow("W1", true, true);
  AddMacro(/*fails=*/false);
  AddType(Quarterly(kSets));
  Open();
  dialog.Pick("DTPVertragBeginn", Day(1, 4, 2024));
  dialog.ChooseText("cmbUser", "Bert");
  Save();
  ASSERT_THAT(calls, SizeIs(1));
  const host::ValueArray expected = {
      "Kunden",        "Wartung",        "ja",   "00000001 / Wartung",
      Day(1, 4, 2024), Day(31, 3, 2025), "Bert", false};
  EXPECT_EQ(calls[0], expected);
  EXPECT_EQ(world.screen.PendingMessagePasses(), 1);
  EXPECT_THAT(Attributes(), IsEmpty());
}

TEST_F(Workflow, AMissingOrFailingMacroIsNoFailureOfTheContract) {
  AddAttribute({}, {}, Named("W1", "w"));
  AddWorkflow("W1", false, true);
  AddType(Quarterly(kSets));
  Open();
  Save();
  EXPECT_EQ(world.screen.PendingMessagePasses(), 1);
  AddMacro(/*fails=*/true);
  Dialog second(world);
  ASSERT_TRUE(second.Open());
  second.Click("cmdOK");
  EXPECT_TRUE(second.form.mbOK);
  EXPECT_THAT(Attributes(), IsEmpty());
}

TEST_F(Workflow, UntickedLeavesTheAttributeToTheDialog) {
  AddAttribute({}, {}, Named("W1", "w"));
  AddWorkflow("W1", false, true);
  AddMacro(/*fails=*/false);
  AddType(Unlimited(kSets));
  Open();
  dialog.Check("chkWorkflow", false);
  Save();
  EXPECT_THAT(calls, IsEmpty());
  EXPECT_THAT(Attributes(),
              ElementsAre("Kunden Wartung ja 01.04.2024 30.12.1899 00000001 / Wartung"));
}

TEST_F(Workflow, AnAttributeThatExistsCountsAsSaved) {
  AddType(Quarterly(kSets));
  Open();
  support::FailingProbe probe(
      world.host, 1, "StoreNew", "Adressmerkmale",
      platform::Error(platform::ErrorNumber(0x80041096), "Merkmal ist schon vorhanden"));
  Save();
  EXPECT_TRUE(probe.HasFailed());
}

TEST_F(Workflow, AnAttributeThatCannotBeStoredIsShownAfterTheContractIs) {
  AddType(Quarterly(kSets));
  Open();
  support::FailingProbe probe(world.host, 1, "StoreNew", "Adressmerkmale",
                              platform::Error(platform::ErrorNumber(0x80041095), "gesperrt"));
  world.screen.ExpectMessage(
      Plain("Fehler &H80041095\r\n(gesperrt)\r\nin vv_FNewContract.cmdOK_Click"));
  SaveRefused();
  EXPECT_EQ(world.Count(table::vv_Vertragsstaende), 1u);
}

TEST_F(Workflow, NoRowOfItsOwnLeavesOtherAttributesAlone) {
  AddType(
      Quarterly(With(kSets, {{field::ErfordertMerkmal, "Kunde"}, {field::ErfordertWert, "A"}})));
  world.Add(table::Adressmerkmale, {{field::Merkmal, "Kunde"}, {field::Wert, "A"}}, world.address);
  Open();
  support::FailingProbe probe(world.host, 1, "NewRecordOid", "Adressmerkmale",
                              platform::Error(platform::ErrorNumber(0x80041095), "gesperrt"));
  world.screen.ExpectMessage(
      Plain("Fehler &H80041095\r\n(gesperrt)\r\nin vv_FNewContract.cmdOK_Click"));
  SaveRefused();
  EXPECT_EQ(Shown(world.host.Table(table::Adressmerkmale)->Fields().Item(field::Merkmal).Value()),
            "Kunde");
}

TEST_F(Workflow, AFailingLookUpIsShownAndTheDialogGoesOn) {
  AddAttribute({}, {}, Named("W1", "w"));
  AddType(Quarterly(kSets));
  world.Enter();
  support::FailingProbe probe(world.host, 1, "SeekKey", "MerkmallisteAdressen",
                              platform::Error(platform::ErrorNumber(0x80041095), "gesperrt"));
  world.screen.ExpectMessage(
      Plain("Fehler &H80041095\r\n(gesperrt)\r\nin vv_FNewContract.SetWorkflowFrameVisibility"));
  EXPECT_TRUE(form.InitNew());
  EXPECT_EQ(form.lstInvoices.Count(), 4);
}

}  // namespace
}  // namespace pactora::newcontract
