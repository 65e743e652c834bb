// Opening the dialog, and its rules of kind, term, period and notice.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "definition_world.h"

namespace pactora::definitions {
namespace {

using testing::ElementsAre;

using OpeningTest = DefinitionTest;

std::vector<std::string> Texts(const DialogUser& user, const std::vector<std::string>& names) {
  std::vector<std::string> texts;
  for (const std::string& name : names) texts.push_back(user.Text(name));
  return texts;
}

const std::vector<std::string> kTermBoxes = {
    "txtDauer",  "cboZahlungsperiode",  "cboKuendFrist",  "cboKuendEinh",
    "txtDauer2", "cboZahlungsperiode2", "cboKuendFrist2", "cboKuendEinh2"};

void ExpectMisfit(support::ContractWorld& world, int term) {
  world.screen.ExpectMessage(
      {"Die Zahlungsperiode passt nicht zur Vertragsdauer (" + std::to_string(term) + " Monate)",
       kInformation, "Pactora"});
}

TEST_F(OpeningTest, ANewTypeStandsAtItsStartValues) {
  OpenNew([&](DialogUser& user) {
    EXPECT_EQ(user.Caption(), "Vertragstyp [Neu]");
    EXPECT_THAT(Texts(user, kTermBoxes),
                ElementsAre("12", "monatlich", "6", "Wochen", "12", "monatlich", "6", "Wochen"));
    EXPECT_THAT(user.Items("cboZahlungsperiode"),
                ElementsAre("monatlich", "vierteljährlich", "halbjährlich", "jährlich",
                            "zweijährlich", "dreijährlich", "vierjährlich", "fünfjährlich"));
    EXPECT_THAT(user.Items("cboKuendFrist2"), ElementsAre("1", "2", "3", "4", "6", "12", "0"));
    EXPECT_THAT(user.Items("cboKuendEinh"), ElementsAre("Wochen", "Monate"));
    EXPECT_THAT(user.Items("cboRechnungWann"), ElementsAre("im voraus", "nachträglich"));
    EXPECT_THAT(user.Items("cboWorkflow"),
                ElementsAre("<kein Workflow>", "Verlängern", "Nachfragen"));
    EXPECT_THAT(user.Items("cboRequiGroup"),
                ElementsAre("<leer>", "Abteilung", "Kunde", "Zukunft"));
    EXPECT_THAT(user.Items("cboStatus"), ElementsAre("in Bearbeitung", "freigegeben"));
    EXPECT_EQ(user.Text("cboStatus"), "in Bearbeitung");
    EXPECT_EQ(user.Text("cboPutAttribute"), "<leer>");
    EXPECT_EQ(user.Text("cboWorkflow"), "<kein Workflow>");
    EXPECT_TRUE(user.Reaches("cboWorkflow"));
    EXPECT_FALSE(user.Reaches("cboKuenfristBezug"));
    EXPECT_TRUE(user.Checked("chkVerlaengerbar"));
    EXPECT_EQ(user.Cell("lvwArtikel", 1, 1), "120,00");
  });
}

TEST_F(OpeningTest, AStoredTypeShowsTheFollowUpTermsAsStored) {
  AddType({{field::Art, 2},
           {field::Dauer, 24},
           {field::Verlaengerungsdauer, 18},
           {field::Zahlungsperiode, 12},
           {field::VerlaengerungsZahlungsperiode, 6},
           {field::Kuendigungsfrist, 3},
           {field::KuendigungsfristEinh, "Monate"},
           {field::VerlKuendigungsfrist, 4},
           {field::Status, "veraltet"},
           {field::RechnungWann, 1},
           {field::NoBooking, true}});
  OpenEdit([&](DialogUser& user) {
    EXPECT_EQ(user.Caption(), "Vertragstyp [Ändern]");
    EXPECT_THAT(Texts(user, kTermBoxes),
                ElementsAre("24", "jährlich", "3", "Monate", "18", "halbjährlich", "4", "Wochen"));
    EXPECT_THAT(user.Items("cboStatus"), ElementsAre("in Bearbeitung", "freigegeben", "veraltet"));
    EXPECT_EQ(user.Text("cboStatus"), "veraltet");
    EXPECT_EQ(user.Text("cboRechnungWann"), "nachträglich");
    EXPECT_TRUE(user.Checked("chkNoBooking"));
    EXPECT_FALSE(user.Checked("chkVerlaengerbar"));
    EXPECT_FALSE(user.Reaches("optKreditor"));
  });
}

TEST_F(OpeningTest, ATypeThatCannotBeShownIsNotOpened) {
  struct Case {
    Values values;
    std::optional<platform::RuntimeError> error;
  };
  using platform::RuntimeError;
  const std::vector<Case> cases = {
      {{{field::Typ, "X"}}, std::nullopt},
      {{{field::Art, 4}}, std::nullopt},
      {{{field::Kuendigungsfrist, 5}}, RuntimeError::ValueNotInList},
      {{{field::VerlKuendigungsfristEinh, "Tage"}}, RuntimeError::ValueNotInList},
      {{{field::RechnungWann, 2}}, RuntimeError::IndexOutOfRange},
      {{{field::Dauer, -1}}, RuntimeError::TypeMismatch}};
  for (const Case& c : cases) {
    AddType(c.values);
    frmFEditDefinitions dialog(world.module);
    if (c.error) ExpectError("vv_FEditDefinitions.InitEdit", *c.error);
    EXPECT_FALSE(dialog.InitEdit()) << c.values.front().first;
  }
}

TEST_F(OpeningTest, AStoredPeriodOutsideTheListShowsMonthly) {
  AddType({{field::Dauer, 18}, {field::Zahlungsperiode, 18}});
  OpenEdit([&](DialogUser& user) { EXPECT_EQ(user.Text("cboZahlungsperiode"), "monatlich"); });
}

TEST(Opening, WithoutTheWorkflowTableLoadingIsReported) {
  support::ContractWorld world(false);
  world.Enter();
  world.screen.ExpectMessage(support::ReporterMessage(
      "vv_FEditDefinitions.Form_Load",
      "Fehler &H80041001 in Tessarin\r\n" +
          embedded::CreateErrorTexts()->Text(embedded::Number(embedded::HostError::UnknownTable))));
  const frmFEditDefinitions dialog(world.module);
  EXPECT_THAT(world.screen.Problems(), testing::IsEmpty());
}

TEST_F(OpeningTest, WithoutLookupListsTheBoxesTakeFreeText) {
  world.SetVariable(schema::setting::vv_lt_VertragstypStatus, host::ValueArray{});
  OpenNew([&](DialogUser& user) {
    EXPECT_THAT(user.Items("cboStatus"), ElementsAre());
    user.Type("cboStatus", "neu");
    EXPECT_EQ(user.Text("cboStatus"), "neu");
  });
}

using TermsTest = DefinitionTest;

TEST_F(TermsTest, ThePeriodIsCheckedAfterEachKey) {
  OpenNew([&](DialogUser& user) {
    user.Choose("cboZahlungsperiode", "jährlich");
    EXPECT_EQ(user.Text("cboZahlungsperiode2"), "jährlich");
    Expect("Ungültige Eingabe in Vertragsdauer !", kInformation, "Bitte ändern ...");
    user.Paste("txtDauer", "");
    EXPECT_TRUE(user.HasFocus("txtDauer"));
    ExpectMisfit(world, 2);
    user.Type("txtDauer", "24");
    EXPECT_EQ(user.Text("txtDauer"), "2");
    EXPECT_TRUE(user.HasFocus("cboZahlungsperiode"));
    user.Type("txtDauer", "4");
    EXPECT_EQ(user.Text("txtDauer2"), "24");
    user.Paste("txtDauer", "0");
    EXPECT_EQ(user.Text("txtDauer2"), "24");
    user.Choose("cboZahlungsperiode2", "monatlich");
    EXPECT_EQ(user.Text("cboZahlungsperiode"), "jährlich");
  });
}

TEST_F(TermsTest, TermsFromTwelveMonthsOnSetTheFollowUpTerm) {
  OpenNew([&](DialogUser& user) {
    user.Paste("txtDauer", "6");
    EXPECT_EQ(user.Text("txtDauer2"), "12");
    user.Paste("txtDauer", "0024");
    EXPECT_EQ(user.Text("txtDauer"), "24");
    EXPECT_EQ(user.Text("txtDauer2"), "24");
    user.Paste("txtDauer", "11");
    EXPECT_EQ(user.Text("txtDauer2"), "24");
    user.Paste("txtDauer", "12");
    EXPECT_EQ(user.Text("txtDauer2"), "12");
    user.Retype("txtDauer2", "x0-7,");
    user.Leave("txtDauer2");
    EXPECT_EQ(user.Text("txtDauer2"), "7");
    user.Paste("txtDauer2", "");
    Expect("Ungültige Eingabe in Verlängerungsvertragsdauer !", kInformation, "Bitte ändern ...");
    user.CannotLeave("txtDauer2");
  });
}

TEST_F(TermsTest, PastedTermsThatAreNoNumberAreReported) {
  OpenNew([&](DialogUser& user) {
    ExpectError("vv_FEditDefinitions.txtDauer_Change", platform::RuntimeError::TypeMismatch);
    user.Paste("txtDauer", "ein Jahr");
    ExpectError("vv_FEditDefinitions.txtDauer_Change", platform::RuntimeError::Overflow);
    user.Paste("txtDauer", "99999999999");
    ExpectError("vv_FEditDefinitions.cboZahlungsperiode_Click", platform::RuntimeError::Overflow);
    user.Choose("cboZahlungsperiode", "jährlich");
  });
}

TEST_F(TermsTest, NoticeIsTheDefaultForTheFollowUpContract) {
  OpenNew([&](DialogUser& user) {
    user.Choose("cboKuendFrist", "3");
    user.Choose("cboKuendEinh", "Monate");
    EXPECT_EQ(user.Text("cboKuendFrist2"), "3");
    EXPECT_EQ(user.Text("cboKuendEinh2"), "Monate");
    user.Choose("cboKuendFrist2", "12");
    EXPECT_EQ(user.Text("cboKuendFrist"), "3");
  });
}

TEST_F(TermsTest, TheKindSetsTermsAndNotice) {
  OpenNew([&](DialogUser& user) {
    user.Choose("cboWorkflow", "Nachfragen");
    user.Click("chkVerlaengerbar");
    EXPECT_THAT(Texts(user, kTermBoxes),
                ElementsAre("12", "monatlich", "0", "Wochen", "12", "monatlich", "0", "Wochen"));
    EXPECT_EQ(user.Text("cboWorkflow"), "<kein Workflow>");
    user.Click("optUnbefristet");
    EXPECT_THAT(Texts(user, kTermBoxes),
                ElementsAre("0", "monatlich", "6", "Wochen", "0", "monatlich", "6", "Wochen"));
    user.Click("optBefristet");
    EXPECT_THAT(Texts(user, kTermBoxes),
                ElementsAre("12", "monatlich", "0", "Wochen", "12", "monatlich", "0", "Wochen"));
    EXPECT_EQ(user.Text("lblDauerEinheit2"), "in Monaten");
    user.Click("chkVerlaengerbar");
    EXPECT_EQ(user.Text("cboKuendFrist2"), "6");
    EXPECT_EQ(user.Text("cboWorkflow"), "Nachfragen");
    EXPECT_TRUE(user.Reaches("cboWorkflow"));
  });
}

TEST_F(TermsTest, PricesAreRemindedOfWhenThereArePositions) {
  AddPosition(AddType(), "A1", "");
  OpenEdit([&](DialogUser& user) {
    Expect(kReminder, 0);
    user.Choose("cboZahlungsperiode", "jährlich");
    Expect(kReminder, 0);
    user.Paste("txtDauer", "24");
    EXPECT_EQ(user.Cell("lvwPositionen", 1, 3), "10,00");
    ExpectMisfit(world, 6);
    user.Paste("txtDauer", "6");
    // Leading zeros are dropped by a change of their own, which reminds as well.
    Expect(kReminder, 0);
    Expect(kReminder, 0);
    user.Paste("txtDauer", "012");
  });
}

}  // namespace
}  // namespace pactora::definitions
