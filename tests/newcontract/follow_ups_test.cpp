// The workflow controls, the address attribute and the host's macro.

#include "newcontract/dialog_world.h"
#include "support/attributes.h"
#include "support/fault_sweep.h"

namespace pactora::newcontract {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const Values kSets = Sets();

Values Named(std::string_view id, std::string_view name) {
  return {{field::KELDO_WorkflowID, id}, {field::KELDO_WorkflowName, name}};
}

// The three levels of that attribute, each with what it says about workflows, and
// the workflow W1.
void AddLevels(support::ContractWorld& world, const Values& group = {},
               const Values& attribute = {}, const Values& value = Named("W1", "w"),
               bool by_user = false, bool changeable = true) {
  const store::Oid g = support::AddGroup(world, "Kunden", With({{field::ID, "MG"}}, group));
  const store::Oid a =
      support::AddAttribute(world, g, "WARTUNG", {}, With({{field::ID, "ML"}}, attribute));
  world.Add(table::WerteMerkmalAdressen, With({{field::Wert, "Ja"}}, value), a);
  support::AddWorkflow(
      world, "W1", "Betreff W1", schema::kReleased,
      {{field::benutzerabhaengig, by_user}, {field::voreinstellungaenderbar, changeable}});
}

class Workflow : public DialogTest {
 protected:
  // A macro of that name, or one that fails.
  void AddMacro(bool fails) {
    world.ChangeProfile([&](store::Profile& profile) {
      profile.macros = {{"Project/vv_Macros/vv_CreateAttribute", fails, 5, "geht nicht"}};
    });
    world.host.SetMacroListener(
        [this](const std::string&, const host::ValueArray& args) { calls.push_back(args); });
  }
  std::vector<std::string> Attributes() {
    for (const Row& row : world.Rows(table::Adressmerkmale)) EXPECT_EQ(row.parent, world.address);
    return Lines(world, table::Adressmerkmale,
                 {field::Gruppe, field::Merkmal, field::Wert, field::GültigVom, field::GültigBis,
                  field::Beschreibung});
  }

  std::vector<host::ValueArray> calls;
};

TEST(WorkflowUsers, FollowTheWorkflow) {
  for (const auto& [by_user, changeable] :
       {std::pair{false, false}, {false, true}, {true, false}, {true, true}}) {
    support::ContractWorld world;
    AddLevels(world, {}, {}, Named("W1", "w"), by_user, changeable);
    world.Add(table::vv_Vertragsdefinitionen, Quarterly(kSets));
    Dialog dialog(world);
    ASSERT_TRUE(dialog.Open());
    const frmNewContract& form = dialog.form;
    EXPECT_EQ(form.optDefinierteBenutzer.Value(), !by_user);
    EXPECT_EQ(form.optneuerBenutzer.Value(), by_user);
    EXPECT_EQ(form.optDefinierteBenutzer.Enabled(), changeable);
    EXPECT_EQ(form.optneuerBenutzer.Enabled(), changeable);
    EXPECT_EQ(form.cmbUser.Enabled(), by_user || changeable);
  }
}

TEST(WorkflowLevels, TheMostSpecificOneThatSaysSomethingDecides) {
  const Values none;
  const Values no_group = With(kSets, {{field::SetztMerkmalGruppe, ""}});
  const Values other_value = With(kSets, {{field::SetztWert, "nein"}});
  const struct {
    Values group, attribute, value;
    std::optional<std::string> offered;
    Values sets = kSets;
  } cases[] = {{Named("W1", "g"), Named("W1", "m"), Named("W1", "w"), "w"},
               {Named("W1", "g"), Named("W1", "m"), none, "m"},
               {Named("W1", "g"), none, none, "g"},
               {none, Named("W1", "m"), Named("", "w"), {}},  // a name alone shadows
               {none, Named("W1", "m"), Named("W1", ""), ""},
               {Named("W1", "g"), none, Named("W8", "w"), {}},  // no such workflow
               {none, none, none, {}},
               {Named("W1", "g"), none, none, {}, no_group},
               {Named("W1", "g"), none, none, {}, other_value}};
  for (const auto& c : cases) {
    support::ContractWorld world;
    AddLevels(world, c.group, c.attribute, c.value);
    world.Add(table::vv_Vertragsdefinitionen, Quarterly(With(kSets, {{field::Bezeichnung, "A"}})));
    world.Add(table::vv_Vertragsdefinitionen, Quarterly(With(c.sets, {{field::Bezeichnung, "B"}})));
    world.host.Table(table::MerkmallisteAdressen)->Indexes().Select(schema::index::Merkmal, 0);
    Dialog dialog(world);
    ASSERT_TRUE(dialog.Open());
    dialog.Choose("lvwBezeichnung", "B");
    const frmNewContract& form = dialog.form;
    EXPECT_EQ(form.chkWorkflow.Caption(), c.offered ? "Workflow  '" + *c.offered + "'  erstellen"
                                                    : "   <kein Workflow zugewiesen>");
    EXPECT_EQ(form.chkWorkflow.Checked(), c.offered.has_value());
    for (const char* name : {"fraWorkflow", "fraResponsible", "cmbUser"}) {
      EXPECT_EQ(dialog[name].Enabled(), c.offered.has_value()) << name;
    }
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

TEST_F(Workflow, OfTheRenewalIsShownWhenReleased) {
  support::AddWorkflow(world, "W1", "Betreff W1");
  support::AddWorkflow(world, "W2", "Entwurf", "in Bearbeitung");
  const std::pair<const char*, const char*> cases[] = {{"W1", "Betreff W1 +"},
                                                       {"W2", "< kein Workflow zugeordnet > +"},
                                                       {"W3", "< kein Workflow zugeordnet > +"},
                                                       {"", "< kein Workflow zugeordnet > -"}};
  for (const auto& [id, shown] : cases) {
    AddType(Quarterly({{field::Bezeichnung, "Mit " + std::string(id)}, {field::WorkflowID, id}}));
  }
  Open();
  for (const auto& [id, shown] : cases) {
    dialog.Choose("lvwBezeichnung", "Mit " + std::string(id));
    EXPECT_EQ(form.lblWorkflow2.Caption() + (form.fraWorkflow2.Enabled() ? " +" : " -"), shown);
    EXPECT_EQ(form.lblWorkflow2.Enabled(), form.fraWorkflow2.Enabled());
  }
}

// Whether there is such a macro, and how it ends, is no matter of the contract.
TEST_F(Workflow, RunsTheMacroInsteadOfWritingTheAttribute) {
  AddLevels(world, {}, {}, Named("W1", "w"), /*by_user=*/true);
  AddType(Quarterly(kSets));
  for (const std::optional<bool> fails : {std::optional<bool>(), {true}, {false}}) {
    if (fails) AddMacro(*fails);
    Dialog user(world);
    ASSERT_TRUE(user.Open());
    user.Choose("cmbUser", "Bert");
    user.Click("cmdOK");
    EXPECT_TRUE(user.form.mbOK);
  }
  EXPECT_EQ(world.screen.PendingMessagePasses(), 3);
  const host::ValueArray expected = {
      "Kunden",        "Wartung",        "ja",   "00000003 / Wartung",
      Day(1, 4, 2024), Day(31, 3, 2025), "Bert", false};
  ASSERT_FALSE(calls.empty());
  EXPECT_EQ(calls.back(), expected);
  EXPECT_THAT(Attributes(), IsEmpty());
}

TEST_F(Workflow, UntickedOrNotOfferedLeavesTheAttributeToTheDialog) {
  AddLevels(world);
  AddMacro(/*fails=*/false);
  AddType(Unlimited(With(kSets, {{field::Bezeichnung, "A"}})));
  AddType(Quarterly(With(kSets, {{field::Bezeichnung, "B"}, {field::SetztMerkmalGruppe, ""}})));
  Open();
  dialog.Check("chkWorkflow", false);
  Save();
  Dialog second(world);
  ASSERT_TRUE(second.Open());
  second.Choose("lvwBezeichnung", "B");
  second.Click("cmdOK");
  EXPECT_THAT(calls, IsEmpty());
  EXPECT_THAT(Attributes(), ElementsAre("Kunden Wartung ja 01.04.2024 30.12.1899 00000001 / A",
                                        "(leer) Wartung ja 01.04.2024 31.03.2025 00000002 / B"));
}

TEST_F(Workflow, AnAttributeThatExistsCountsAsSaved) {
  AddType(Quarterly(kSets));
  Open();
  support::FailingProbe probe(world.host, 1, "StoreNew", "Adressmerkmale",
                              platform::Error(platform::ErrorNumber(0x80041096), "vorhanden"));
  Save();
  EXPECT_TRUE(probe.HasFailed());
  EXPECT_THAT(Attributes(), IsEmpty());
}

}  // namespace
}  // namespace pactora::newcontract
