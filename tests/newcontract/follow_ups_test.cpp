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

// The three levels of that attribute, each with what it says about workflows.
void AddAttribute(support::ContractWorld& world, const Values& group, const Values& attribute,
                  const Values& value) {
  const store::Oid g = world.Add(table::MerkmalgruppeAdressen,
                                 With({{field::ID, "MG"}, {field::Gruppe, "Kunden"}}, group));
  const store::Oid a =
      world.Add(table::MerkmallisteAdressen,
                With({{field::ID, "ML"}, {field::Merkmal, "WARTUNG"}}, attribute), g);
  world.Add(table::WerteMerkmalAdressen, With({{field::Wert, "Ja"}}, value), a);
}

Values Named(std::string_view id, std::string_view name) {
  return {{field::KELDO_WorkflowID, id}, {field::KELDO_WorkflowName, name}};
}

void AddWorkflow(support::ContractWorld& world, std::string_view id, bool by_user,
                 bool changeable) {
  world.Add(table::KELDO_Vorgaenge, {{field::ID, id},
                                     {field::Betreff, "Betreff " + std::string(id)},
                                     {field::Status, "freigegeben"},
                                     {field::benutzerabhaengig, by_user},
                                     {field::voreinstellungaenderbar, changeable}});
}

class Workflow : public DialogTest {
 protected:
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

TEST(WorkflowUsers, FollowTheWorkflow) {
  for (const auto& [by_user, changeable] :
       {std::pair{false, false}, {false, true}, {true, false}, {true, true}}) {
    support::ContractWorld world;
    AddAttribute(world, {}, {}, Named("W1", "Begrüßung"));
    AddWorkflow(world, "W1", by_user, changeable);
    world.Add(table::vv_Vertragsdefinitionen, Quarterly(kSets));
    Dialog dialog(world);
    ASSERT_TRUE(dialog.Open());
    const frmNewContract& form = dialog.form;
    EXPECT_TRUE(form.fraWorkflow.Enabled());
    EXPECT_TRUE(form.fraResponsible.Enabled());
    EXPECT_TRUE(form.chkWorkflow.Checked());
    EXPECT_EQ(form.chkWorkflow.Caption(), "Workflow  'Begrüßung'  erstellen");
    EXPECT_EQ(form.optDefinierteBenutzer.Value(), !by_user);
    EXPECT_EQ(form.optneuerBenutzer.Value(), by_user);
    EXPECT_EQ(form.optDefinierteBenutzer.Enabled(), changeable);
    EXPECT_EQ(form.optneuerBenutzer.Enabled(), changeable);
    EXPECT_EQ(form.cmbUser.Enabled(), by_user || changeable);
  }
}

TEST(WorkflowLevels, TheMostSpecificOneThatSaysSomethingDecides) {
  const Values none;
  const struct {
    Values group, attribute, value;
    std::optional<std::string> offered;
  } cases[] = {{Named("W1", "g"), Named("W1", "m"), Named("W1", "w"), "w"},
               {Named("W1", "g"), Named("W1", "m"), none, "m"},
               {Named("W1", "g"), none, none, "g"},
               {none, Named("W1", "m"), Named("", "w"), std::nullopt},  // a name alone shadows
               {none, Named("W1", "m"), Named("W1", ""), ""},
               {Named("W1", "g"), none, Named("W8", "w"), std::nullopt},  // no such workflow
               {none, none, none, std::nullopt}};
  for (const auto& c : cases) {
    support::ContractWorld world;
    AddAttribute(world, c.group, c.attribute, c.value);
    AddWorkflow(world, "W1", false, true);
    world.Add(table::vv_Vertragsdefinitionen, Quarterly(kSets));
    world.host.Table(table::MerkmallisteAdressen)->Indexes().Select(schema::index::Merkmal, 0);
    Dialog dialog(world);
    ASSERT_TRUE(dialog.Open());
    EXPECT_EQ(dialog.form.chkWorkflow.Caption(), c.offered
                                                     ? "Workflow  '" + *c.offered + "'  erstellen"
                                                     : "   <kein Workflow zugewiesen>");
    EXPECT_EQ(dialog.form.fraWorkflow.Enabled(), c.offered.has_value());
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
  AddAttribute(world, {}, {}, Named("W1", "w"));
  AddWorkflow(world, "W1", false, true);
  AddType(Quarterly(With(kSets, {{field::Bezeichnung, "A"}})));
  AddType(Quarterly(With(kSets, {{field::Bezeichnung, "B"}, {field::SetztMerkmalGruppe, ""}})));
  AddType(Quarterly(With(kSets, {{field::Bezeichnung, "C"}, {field::SetztWert, "nein"}})));
  Open();
  EXPECT_TRUE(form.chkWorkflow.Checked());
  for (const char* name : {"B", "C"}) {
    dialog.Choose("lvwBezeichnung", name);
    EXPECT_FALSE(form.chkWorkflow.Checked()) << name;
    EXPECT_FALSE(form.fraResponsible.Enabled()) << name;
    EXPECT_FALSE(form.cmbUser.Enabled()) << name;
    EXPECT_EQ(form.chkWorkflow.Caption(), "   <kein Workflow zugewiesen>") << name;
  }
  dialog.Choose("lvwBezeichnung", "B");
  Save();
  EXPECT_THAT(Attributes(), ElementsAre("(leer) Wartung ja 01.04.2024 31.03.2025 00000001 / B"));
}

TEST_F(Workflow, OfTheRenewalIsShownWhenReleased) {
  AddWorkflow(world, "W1", false, false);
  world.Add(table::KELDO_Vorgaenge,
            {{field::ID, "W2"}, {field::Betreff, "Entwurf"}, {field::Status, "in Bearbeitung"}});
  AddType(Quarterly({{field::Bezeichnung, "A"}, {field::WorkflowID, "W1"}}));
  AddType(Quarterly({{field::Bezeichnung, "B"}, {field::WorkflowID, "W2"}}));
  AddType(Quarterly({{field::Bezeichnung, "C"}, {field::WorkflowID, "W3"}}));
  AddType(Quarterly({{field::Bezeichnung, "D"}, {field::WorkflowID, ""}}));
  Open();
  std::vector<std::string> shown;
  for (const char* name : {"A", "B", "C", "D"}) {
    dialog.Choose("lvwBezeichnung", name);
    EXPECT_EQ(form.lblWorkflow2.Enabled(), form.fraWorkflow2.Enabled());
    shown.push_back(form.lblWorkflow2.Caption() + (form.fraWorkflow2.Enabled() ? " +" : " -"));
  }
  EXPECT_THAT(shown,
              ElementsAre("Betreff W1 +", "< kein Workflow zugeordnet > +",
                          "< kein Workflow zugeordnet > +", "< kein Workflow zugeordnet > -"));
}

TEST_F(Workflow, RunsTheMacroInsteadOfWritingTheAttribute) {
  AddAttribute(world, {}, {}, Named("W1", "w"));
  AddWorkflow(world, "W1", true, true);
  AddMacro(/*fails=*/false);
  AddType(Quarterly(kSets));
  Open();
  dialog.Pick("DTPVertragBeginn", Day(1, 4, 2024));
  dialog.Choose("cmbUser", "Bert");
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
  AddAttribute(world, {}, {}, Named("W1", "w"));
  AddWorkflow(world, "W1", false, true);
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
  AddAttribute(world, {}, {}, Named("W1", "w"));
  AddWorkflow(world, "W1", false, true);
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
  AddAttribute(world, {}, {}, Named("W1", "w"));
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
