// The two attribute choosers and what they restore and store.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "definition_world.h"

namespace pactora::definitions {
namespace {

using testing::ElementsAre;

class AttributesTest : public DefinitionTest {
 protected:
  // The stored triple of a new type after the acts, for the required attribute.
  std::vector<std::string> Saved(const Acts& acts) {
    OpenNew([&](DialogUser& user) {
      acts(user);
      user.Paste("txtBezeichnung", "Typ");
      ExpectNoPositionsQuestion(Answer::Yes);
      user.Click("cmdSave");
      EXPECT_FALSE(user.IsOpen());
    });
    return Triple("Erfordert");
  }
  std::vector<std::string> Triple(const std::string& prefix) {
    const Row type = Types().back();
    std::vector<std::string> triple;
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
    EXPECT_EQ(user.Text("cboRequiValue"), "Handel");
    user.Choose("cboRequiAttribute", "Betreuer");
    EXPECT_THAT(user.Items("cboRequiValue"), ElementsAre("Anna", "Bert"));
    user.Choose("cboRequiAttribute", "Kunde seit");
    EXPECT_FALSE(user.Reaches("cboRequiValue"));
    EXPECT_TRUE(user.Reaches("DTPRequiValue"));
    EXPECT_EQ(user.Get<ui::DatePicker>("DTPRequiValue").Value(), support::Day(15, 3, 2024));
    user.Choose("cboRequiAttribute", "Sperre");
    EXPECT_TRUE(user["cboRequiValue"].Visible());
    EXPECT_FALSE(user["DTPRequiValue"].Visible());
    EXPECT_FALSE(user.Reaches("cboRequiValue"));
    user.Choose("cboRequiGroup", "<leer>");
    EXPECT_THAT(user.Items("cboRequiAttribute"), ElementsAre("<leer>"));
    EXPECT_EQ(user.Text("cboRequiAttribute"), "<leer>");
    EXPECT_THAT(user.Items("cboRequiValue"), ElementsAre());
  });
}

TEST_F(AttributesTest, TheTwoChoosersShareTablesAndNothingElse) {
  OpenNew([&](DialogUser& user) {
    user.Choose("cboRequiGroup", "Kunde");
    user.Choose("cboPutGroup", "Abteilung");
    EXPECT_THAT(user.Items("cboPutValue"), ElementsAre("Vertrieb"));
    // The tables stand on the other group now.
    user.Choose("cboRequiAttribute", "Betreuer");
    EXPECT_THAT(user.Items("cboRequiValue"), ElementsAre("Anna", "Bert"));
    user.Choose("cboRequiAttribute", "Branche");
    EXPECT_THAT(user.Items("cboRequiValue"), ElementsAre("Handel", "Industrie"));
    EXPECT_EQ(user.Text("cboPutValue"), "Vertrieb");
  });
}

TEST_F(AttributesTest, WhatIsChosenIsStored) {
  EXPECT_THAT(Saved([](DialogUser&) {}), ElementsAre("", "", ""));
  EXPECT_THAT(Saved([](DialogUser& user) {
                user.Choose("cboRequiGroup", "Kunde");
                user.Choose("cboRequiValue", "Industrie");
              }),
              ElementsAre("Kunde", "Branche", "Industrie"));
  EXPECT_THAT(Saved([](DialogUser& user) {
                user.Choose("cboRequiGroup", "Kunde");
                user.Choose("cboRequiAttribute", "Kunde seit");
                user.Pick("DTPRequiValue", support::Day(1, 2, 2023));
              }),
              ElementsAre("Kunde", "Kunde seit", "2023-02-01"));
  // A group without attributes keeps what the value box shows.
  EXPECT_THAT(Saved([](DialogUser& user) {
                user.Choose("cboRequiGroup", "Kunde");
                user.Choose("cboRequiGroup", "Zukunft");
                EXPECT_EQ(user.Text("cboRequiAttribute"), "");
                EXPECT_EQ(user.Text("cboRequiValue"), "Handel");
              }),
              ElementsAre("Zukunft", "", "Handel"));
  EXPECT_THAT(Saved([](DialogUser& user) {
                user.Choose("cboPutGroup", "Abteilung");
                user.Choose("cboPutGroup", "<leer>");
              }),
              ElementsAre("", "", ""));
  EXPECT_THAT(Triple("Setzt"), ElementsAre("", "", ""));
}

TEST_F(AttributesTest, StoredTriplesComeBackAlsoWhenTheyAreGone) {
  using Strings = std::vector<std::string>;
  const std::vector<Strings> cases = {{"Kunde", "Branche", "Industrie"},
                                      {"Kunde", "Betreuer", "Bert"},
                                      {"Kunde", "Branche", "value gone"},
                                      {"Kunde", "attribute gone", "A"},
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
             {field::ErfordertWert, stored[2]}});
    Strings expected = stored;
    if (stored[0] == "group gone") expected[0] = "";
    OpenEdit([&](DialogUser& user) {
      Strings shown = {user.Text("cboRequiGroup"), user.Text("cboRequiAttribute"),
                       user.Text("cboRequiValue")};
      std::replace(shown.begin(), shown.end(), std::string("<leer>"), std::string());
      EXPECT_EQ(shown, expected);
      ExpectNoPositionsQuestion(Answer::Yes);
      user.Click("cmdSave");
    });
    // The picker does not take the stored day: today is stored.
    if (stored[1] == "Kunde seit") expected[2] = "2024-03-15";
    EXPECT_EQ(Triple("Erfordert"), expected);
  }
}

TEST_F(AttributesTest, AWorkflowThatIsNotReleasedAnyMoreIsDropped) {
  AddType({{field::WorkflowID, "W3"}});
  OpenEdit([&](DialogUser& user) { EXPECT_EQ(user.Text("cboWorkflow"), "Nachfragen"); });
  AddType({{field::WorkflowID, "W2"}});
  OpenEdit([&](DialogUser& user) {
    EXPECT_EQ(user.Text("cboWorkflow"), "<kein Workflow>");
    ExpectNoPositionsQuestion(Answer::Yes);
    user.Click("cmdSave");
  });
  EXPECT_EQ(host::ToText(Types().back()[field::WorkflowID]), "");
}

}  // namespace
}  // namespace pactora::definitions
