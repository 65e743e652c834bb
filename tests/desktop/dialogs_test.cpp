// Whole pieces of work done with keyboard and mouse, and once more through ui::Person: both
// leave the same rows.
#include <QLabel>
#include <deque>

#include "desktop/office.h"
#include "support/sanitized.h"

namespace pactora::desktop {
namespace {

using support::Day;
using support::DialogUser;

class DialogsByEvents : public testing::Test {
 protected:
  // What is done in the next dialog. A dialog comes up within the acts of the one before it.
  template <typename AtWindow, typename Rehearsed>
  void In(const char* dialog, AtWindow at_window, Rehearsed rehearsed) {
    steps.Add(dialog, AsUser(at_window));
    rehearsed_.emplace_back(dialog, rehearsed);
  }
  template <typename Acts>
  void In(const char* dialog, Acts acts) {
    In(dialog, acts, acts);
  }
  void Call(void (Office::*call)()) {
    RunSteps(steps, [&] { (office.*call)(); });
    ExpectNext();
    (rehearsal.*call)();
    EXPECT_EQ(office.saved, rehearsal.saved);
    EXPECT_EQ(office.status_rows, rehearsal.status_rows);
  }
  void TearDown() override {
    EXPECT_THAT(rehearsal.world.screen.Problems(), testing::IsEmpty());
    EXPECT_EQ(Written(office.world), Written(rehearsal.world));
  }

  Office office{Office::On::Windows};
  Office rehearsal{Office::On::Expectations};
  WindowSteps steps;

 private:
  void ExpectNext() {
    if (rehearsed_.empty()) return;
    const auto next = rehearsed_.front();
    rehearsed_.pop_front();
    const auto acts = [this, next](DialogUser& user) {
      ExpectNext();
      next.second(user);
    };
    rehearsal.world.screen.ExpectDialog(next.first, support::AsUser(acts));
  }

  std::deque<std::pair<std::string, std::function<void(DialogUser& user)>>> rehearsed_;
};

TEST_F(DialogsByEvents, AContractThatIsTakenOver) {
  const auto fill = [](auto& user) {
    user.Choose("lvwBezeichnung", "Ohne Ende");
    user.Choose("lvwBezeichnung", "Wartung");
    user.Click("ChkAutoNumber");
    user.Retype("txtVertragnummer", "2024-007");
    user.Pick("DTPVertragBeginn", Day(1, 1, 2023));
    user.Retype("cboVerantwortlich", "Clara");
    user.Click("chkOldContract");
    user.ChooseRow("lstInvoices", 4);
  };
  const auto at_window = [fill](WindowUser& user) {
    fill(user);
    user.GoTo("txtRabatt");
    user.Key(Qt::Key_A, Qt::ControlModifier);
    user.Keys("12");
    user.TypeCharacter('.', Qt::KeypadModifier);
    user.Keys("5x");
    user.Click("chkRabattNurErsteLaufzeit");
    EXPECT_EQ(user.Text("txtRabatt"), "12,50");
    user.GoTo("txtMemo");
    user.Keys("Zeile 1");
    user.Key(Qt::Key_Return);
    user.Keys("Zeile 2ü");
    user.Key(Qt::Key_Tab);
    user.Key(Qt::Key_Return);
  };
  In("frmNewContract", at_window, [fill](DialogUser& user) {
    fill(user);
    user.Retype("txtRabatt", "12.5");
    user.Click("chkRabattNurErsteLaufzeit");
    user.Type("txtMemo", "Zeile 1\nZeile 2ü");
    user.Click("cmdOK");
  });
  Call(&Office::NewContract);
  EXPECT_EQ(office.world.Count(table::vv_Vertraege), 1u);
  EXPECT_EQ(office.status_rows, 2);
}

TEST_F(DialogsByEvents, AContractType) {
  In("frmFEditDefinitions", [](auto& user) {
    user.Retype("txtBezeichnung", "Rundum-Sorglos");
    user.Choose("cboStatus", "freigegeben");
    user.Paste("txtDauer", "24");
    user.Choose("cboZahlungsperiode", "jährlich");
    user.Choose("cboRechnungWann", "nachträglich");
    user.Click("chkNoBooking");
    user.Choose("cboKuendFrist", "3");
    user.Choose("cboKuendEinh", "Monate");
    user.Choose("cboRequiGroup", "Kunde");
    user.Choose("cboPutGroup", "Kunde");
    user.Choose("cboPutAttribute", "Kunde seit");
    user.Pick("DTPPutValue", Day(24, 12, 2024));
    user.Choose("cboWorkflow", "Verlängern");
    user.ChooseRow("lvwArtikel", 1);
    if constexpr (std::is_same_v<decltype(user), WindowUser&>)
      user.Key(Qt::Key_Return);
    else
      user.Click("cmdAddPos");
    user.Click("cmdSave");
  });
  In("frmFEditDefPositions", [](auto& user) {
    user.Retype("txtNettopreis", "12*30,5");
    user.Retype("txtAnzahl", "2");
    user.Click("cmdOk");
  });
  Call(&Office::NewType);
  EXPECT_EQ(office.world.Count(table::vv_Vertragsdefinitionen), 4u);
  EXPECT_EQ(office.world.Count(table::vv_Definitionspositionen), 4u);
}

TEST_F(DialogsByEvents, TheAccessKeyOfALabelGoesToItsBox) {
  steps.Add("frmNewContract", AsUser([](WindowUser& user) {
              EXPECT_TRUE(QTest::qWaitForWindowActive(&user.Window()));
              for (const auto& [label, box] : {std::pair{"lblRabatt", "txtRabatt"},
                                               {"lblVertragBeginn", "DTPVertragBeginn"},
                                               {"lblVerantwortlich", "cboVerantwortlich"},
                                               {"lblMemo", "txtMemo"}}) {
                user.AccessKey(user.Get<QLabel>(label).text());
                EXPECT_EQ(user.Focus(), box);
              }
              user.Key(Qt::Key_Escape);
            }));
  RunSteps(steps, [&] { office.NewContract(); });
}

// Opened, changed, cancelled and saved over and over: nothing piles up. Under the sanitizers
// it shows leaks, in fewer cycles.
TEST_F(DialogsByEvents, OverAndOver) {
  constexpr std::size_t kCycles = support::kSanitized ? 100 : 1000;
  for (std::size_t i = 0; i < kCycles; ++i) {
    const bool save = i % 4 == 0;
    In("frmNewContract", [save](auto& user) {
      user.Choose("lvwBezeichnung", "Wartung");
      user.Retype("txtRabatt", "5");
      user.Click(save ? "cmdOK" : "cmdCancel");
    });
    Call(&Office::NewContract);
    ASSERT_EQ(office.saved, save);
    ASSERT_TRUE(QApplication::topLevelWidgets().isEmpty());
  }
  EXPECT_EQ(office.world.Count(table::vv_Vertraege), kCycles / 4);
}

}  // namespace
}  // namespace pactora::desktop
