// Opening the dialog, and its rules of kind, term, period and notice.

#include "definition_world.h"

namespace pactora::definitions {
namespace {

using platform::RuntimeError;

ui::Message Misfit(int term) {
  return {"Die Zahlungsperiode passt nicht zur Vertragsdauer (" + std::to_string(term) + " Monate)",
          kInformation, "Pactora"};
}

// What the boxes show of the first contract and of the one that follows it.
std::string Terms(const DialogUser& user) {
  std::string terms;
  for (const char* name : {"txtDauer", "cboZahlungsperiode", "cboKuendFrist", "cboKuendEinh"}) {
    terms += user.Text(name) + " ";
  }
  terms += "|";
  for (const char* name : {"txtDauer2", "cboZahlungsperiode2", "cboKuendFrist2", "cboKuendEinh2"}) {
    terms += " " + user.Text(name);
  }
  return terms;
}

using OpeningTest = DefinitionTest;

TEST_F(OpeningTest, ANewTypeStandsAtItsStartValues) {
  OpenNew([&](DialogUser& user) {
    EXPECT_EQ(Terms(user), "12 monatlich 6 Wochen | 12 monatlich 6 Wochen");
    EXPECT_EQ(user.Items("cboZahlungsperiode").size(), 8u);
    EXPECT_THAT(user.Items("cboWorkflow"),
                testing::ElementsAre("<kein Workflow>", "Verlängern", "Nachfragen"));
    EXPECT_THAT(user.Items("cboRequiGroup"),
                testing::ElementsAre("<leer>", "Abteilung", "Kunde", "Zukunft"));
    user.Shows({{"cboStatus", "in Bearbeitung"}, {"cboRechnungWann", "im voraus"}});
    EXPECT_TRUE(user.Checked("chkVerlaengerbar"));
  });
}

TEST_F(OpeningTest, ATypeThatCannotBeShownIsNotOpened) {
  const std::vector<std::pair<Values, std::optional<RuntimeError>>> cases = {
      {{{field::Typ, "X"}}, std::nullopt},
      {{{field::Art, 4}}, std::nullopt},
      {{{field::Kuendigungsfrist, 5}}, RuntimeError::ValueNotInList},
      {{{field::VerlKuendigungsfristEinh, "Tage"}}, RuntimeError::ValueNotInList},
      {{{field::RechnungWann, 2}}, RuntimeError::IndexOutOfRange},
      {{{field::Dauer, -1}}, RuntimeError::TypeMismatch}};
  for (const auto& [values, error] : cases) {
    AddType(values);
    frmFEditDefinitions dialog(world.module);
    if (error) ExpectError("vv_FEditDefinitions.InitEdit", *error);
    EXPECT_FALSE(dialog.InitEdit()) << values.front().first;
  }
}

TEST(Opening, WithoutTheWorkflowTableLoadingIsReported) {
  support::ContractWorld world(false);
  world.Enter();
  world.screen.ExpectMessage(support::ReporterMessage(
      "vv_FEditDefinitions.Form_Load", Number(embedded::HostError::UnknownTable), "Tessarin"));
  const frmFEditDefinitions dialog(world.module);
  EXPECT_THAT(world.screen.Problems(), testing::IsEmpty());
}

class TermsTest : public DefinitionTest {
 protected:
  struct Case {
    const char* control;
    const char* entry;
    std::string terms;
    ui::Message message = {};
  };
  void Play(DialogUser& user, const std::vector<Case>& cases) {
    for (const Case& c : cases) {
      SCOPED_TRACE(std::string(c.control) + " " + c.entry);
      if (!c.message.text.empty()) world.screen.ExpectMessage(c.message);
      user.Enter({{c.control, c.entry}});
      EXPECT_EQ(Terms(user), c.terms);
    }
  }
};

TEST_F(TermsTest, EntriesActOnOneAnother) {
  OpenNew([&](DialogUser& user) {
    // From 12 months on, the term is the follow-up term as well.
    Play(user, {{"txtDauer", "6", "6 monatlich 6 Wochen | 12 monatlich 6 Wochen"},
                {"txtDauer", "0024", "24 monatlich 6 Wochen | 24 monatlich 6 Wochen"},
                {"txtDauer", "11", "11 monatlich 6 Wochen | 24 monatlich 6 Wochen"},
                {"txtDauer", "12", "12 monatlich 6 Wochen | 12 monatlich 6 Wochen"},
                {"cboZahlungsperiode", "jährlich", "12 jährlich 6 Wochen | 12 jährlich 6 Wochen"},
                {"txtDauer", "8", "8 jährlich 6 Wochen | 12 jährlich 6 Wochen", Misfit(8)},
                {"txtDauer", "0", "0 jährlich 6 Wochen | 12 jährlich 6 Wochen"},
                {"cboZahlungsperiode2", "monatlich", "0 jährlich 6 Wochen | 12 monatlich 6 Wochen"},
                {"cboKuendFrist", "3", "0 jährlich 3 Wochen | 12 monatlich 3 Wochen"},
                {"cboKuendEinh", "Monate", "0 jährlich 3 Monate | 12 monatlich 3 Monate"},
                {"cboKuendFrist2", "12", "0 jährlich 3 Monate | 12 monatlich 12 Monate"},
                {"cboKuendEinh2", "Wochen", "0 jährlich 3 Monate | 12 monatlich 12 Wochen"}});
    user.Choose("cboWorkflow", "Nachfragen");
    Play(user, {{"chkVerlaengerbar", "", "0 jährlich 0 Monate | 12 monatlich 0 Wochen"},
                {"optUnbefristet", "", "0 jährlich 6 Monate | 0 monatlich 6 Wochen"}});
    user.Shows({{"cboWorkflow", "<kein Workflow>"}, {"lblDauerEinheit2", "unbefristet"}});
    Play(user, {{"optBefristet", "", "12 jährlich 0 Monate | 12 jährlich 0 Wochen"},
                {"chkVerlaengerbar", "", "12 jährlich 6 Monate | 12 jährlich 6 Wochen"}});
    user.Shows({{"cboWorkflow", "Nachfragen"}, {"lblDauerEinheit2", "in Monaten"}});
  });
}

TEST_F(TermsTest, RefusedTermsAreReported) {
  OpenNew([&](DialogUser& user) {
    ExpectError("vv_FEditDefinitions.txtDauer_Change", RuntimeError::TypeMismatch);
    user.Paste("txtDauer", "ein Jahr");
    ExpectError("vv_FEditDefinitions.txtDauer_Change", RuntimeError::Overflow);
    user.Paste("txtDauer", "99999999999");
    ExpectError("vv_FEditDefinitions.cboZahlungsperiode_Click", RuntimeError::Overflow);
    user.Choose("cboZahlungsperiode", "jährlich");
    ExpectInputError("Vertragsdauer");
    user.Paste("txtDauer", "");
    EXPECT_TRUE(user.HasFocus("txtDauer"));
    // The misfit after the first key takes the focus from the second.
    world.screen.ExpectMessage(Misfit(2));
    user.Type("txtDauer", "24");
    EXPECT_TRUE(user.HasFocus("cboZahlungsperiode"));
    user.Retype("txtDauer2", "x0-7,");
    user.Leave("txtDauer2");
    user.Shows({{"txtDauer", "2"}, {"txtDauer2", "7"}});
    user.Paste("txtDauer2", "");
    ExpectInputError("Verlängerungsvertragsdauer");
    user.CannotLeave("txtDauer2");
  });
}

}  // namespace
}  // namespace pactora::definitions
