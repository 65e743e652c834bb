// The two attribute choosers and what they restore and store.

#include "definition_world.h"

namespace pactora::definitions {
namespace {

using testing::ElementsAre;

using Strings = std::vector<std::string>;

class AttributesTest : public DefinitionTest {
 protected:
  // The triple that the last type stores for the required or the set attribute.
  Strings Stored(const std::string& prefix) {
    const Row type = Types().back();
    Strings triple;
    for (const char* part : {"MerkmalGruppe", "Merkmal", "Wert"}) {
      triple.push_back(host::ToText(type[prefix + part]));
    }
    return triple;
  }
};

TEST_F(AttributesTest, GroupAttributeAndValueFollowEachOther) {
  OpenNew([&](DialogUser& user) {
    EXPECT_FALSE(user.Reaches("cboRequiValue"));
    user.Choose("cboRequiGroup", "Kunde");
    EXPECT_THAT(user.Items("cboRequiAttribute"),
                ElementsAre("Branche", "Betreuer", "Kunde seit", "Sperre"));
    EXPECT_THAT(user.Items("cboRequiValue"), ElementsAre("Handel", "Industrie"));
    user.Shows({{"cboRequiValue", "Handel"}});
    // The other chooser takes the shared tables to another group.
    user.Choose("cboPutGroup", "Abteilung");
    user.Shows({{"cboRequiValue", "Handel"}, {"cboPutValue", "Vertrieb"}});
    user.Choose("cboRequiAttribute", "Betreuer");
    EXPECT_THAT(user.Items("cboRequiValue"), ElementsAre("Anna", "Bert"));
    user.Choose("cboRequiAttribute", "Kunde seit");
    EXPECT_FALSE(user.Reaches("cboRequiValue"));
    EXPECT_TRUE(user.Reaches("DTPRequiValue"));
    EXPECT_EQ(user.Get<ui::DTPicker>("DTPRequiValue").Value(), support::Day(15, 3, 2024));
    user.Choose("cboRequiAttribute", "Sperre");
    EXPECT_TRUE(user["cboRequiValue"].Visible());
    EXPECT_FALSE(user.Reaches("cboRequiValue"));
    user.Choose("cboRequiGroup", "<leer>");
    EXPECT_THAT(user.Items("cboRequiAttribute"), ElementsAre("<leer>"));
    EXPECT_THAT(user.Items("cboRequiValue"), ElementsAre());
    user.Shows({{"cboRequiAttribute", "<leer>"}, {"cboPutValue", "Vertrieb"}});
  });
}

TEST_F(AttributesTest, WhatIsChosenIsStored) {
  const std::vector<std::pair<DialogUser::Texts, Strings>> cases = {
      {{}, {"", "", ""}},
      {{{"cboRequiGroup", "Kunde"}, {"cboRequiValue", "Industrie"}},
       {"Kunde", "Branche", "Industrie"}},
      {{{"cboRequiGroup", "Kunde"}, {"cboRequiAttribute", "Kunde seit"}},
       {"Kunde", "Kunde seit", "2023-02-01"}},
      // A group without attributes keeps what the value box shows.
      {{{"cboRequiGroup", "Kunde"}, {"cboRequiGroup", "Zukunft"}}, {"Zukunft", "", "Handel"}},
      {{{"cboRequiGroup", "Kunde"}, {"cboRequiGroup", "<leer>"}}, {"", "", ""}}};
  for (const auto& [entries, stored] : cases) {
    OpenNew([&, &entries = entries](DialogUser& user) {
      user.Enter(entries);
      if (user.Reaches("DTPRequiValue")) user.Pick("DTPRequiValue", support::Day(1, 2, 2023));
      user.Enter({{"cboPutGroup", "Kunde"}, {"cboPutGroup", "<leer>"}, {"txtBezeichnung", "Typ"}});
      SaveWithoutPositions(user);
      EXPECT_FALSE(user.IsOpen());
    });
    EXPECT_EQ(Stored("Erfordert"), stored);
    EXPECT_EQ(Stored("Setzt"), Strings({"", "", ""}));
  }
}

TEST_F(AttributesTest, StoredTriplesComeBackAlsoWhenTheyAreGone) {
  const std::vector<Strings> cases = {{"Kunde", "Branche", "Industrie"},
                                      {"Kunde", "Betreuer", "Bert"},
                                      {"Kunde", "Branche", "value gone"},
                                      {"group gone", "attribute gone", "A"},
                                      {"Zukunft", "attribute of a group without any", "A"},
                                      {"Zukunft", "Sperre", "another group's attribute"},
                                      {"Abteilung", "Betreuer", "another group's attribute"},
                                      {"", "", ""},
                                      {"Kunde", "Kunde seit", "2020-01-31"}};
  for (const Strings& stored : cases) {
    SCOPED_TRACE(testing::PrintToString(stored));
    AddType({{field::ErfordertMerkmalGruppe, stored[0]},
             {field::ErfordertMerkmal, stored[1]},
             {field::ErfordertWert, stored[2]},
             {field::WorkflowID, "W2"}});
    Strings expected = stored;
    if (stored[0] == "group gone") expected[0] = "";
    OpenEdit([&](DialogUser& user) {
      Strings shown = {user.Text("cboRequiGroup"), user.Text("cboRequiAttribute"),
                       user.Text("cboRequiValue")};
      std::replace(shown.begin(), shown.end(), std::string("<leer>"), std::string());
      EXPECT_EQ(shown, expected);
      user.Shows({{"cboWorkflow", "<kein Workflow>"}});  // that one is not released any more
      SaveWithoutPositions(user);
    });
    // The picker does not take the stored day: today is stored.
    if (stored[1] == "Kunde seit") expected[2] = "2024-03-15";
    EXPECT_EQ(Stored("Erfordert"), expected);
    EXPECT_EQ(host::ToText(Types().back()[field::WorkflowID]), "");
  }
}

}  // namespace
}  // namespace pactora::definitions
