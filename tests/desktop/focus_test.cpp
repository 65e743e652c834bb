// Where the focus goes, and what keeps it.
#include <QLabel>
#include <QPushButton>

#include "desktop/DialogWindow.h"
#include "desktop/sample_window.h"

namespace pactora::desktop {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Focus : public SampleWindowTest {
 protected:
  // txtDauer refuses to be left, with a message, until refuses is false.
  void MakeRefuse() {
    form.on_validate = [this](bool& cancel) {
      cancel = refuses;
      if (refuses) screen.ShowMessage({"Ungültige Eingabe !"});
    };
  }
  void ExpectRefusal() { ExpectMessage(steps, "Ungültige Eingabe !"); }

  bool refuses = true;
};

TEST_F(Focus, TheTabKeyGoesThroughTheControlsInTheirOrderAndBack) {
  form.optA.SetValue(true);
  form.chkFlag.SetEnabled(false);
  Show([&](WindowUser& user) {
    const std::vector<std::string> order = {
        "txtDauer",     "txtMemo",  "cboList",   "cboFree", "lstRows", "lvwRows",  "optA",
        "optElsewhere", "dtpStart", "dtpClosed", "cmdAdd",  "cmdOK",   "cmdCancel"};
    std::vector<std::string> seen;
    for (std::size_t i = 0; i < order.size(); ++i) {
      seen.push_back(user.Focus());
      EXPECT_EQ(form.Focus()->Name(), user.Focus());
      user.Key(Qt::Key_Tab);
      if (user.Focus() == "dtpClosed" && seen.back() == "dtpClosed") user.Key(Qt::Key_Tab);
    }
    EXPECT_EQ(seen, order);
    EXPECT_EQ(user.Focus(), "txtDauer");
    user.Key(Qt::Key_Backtab);
    EXPECT_EQ(user.Focus(), "cmdCancel");
  });
}

TEST_F(Focus, ARefusingBoxKeepsTheFocusWhateverThePersonDoes) {
  MakeRefuse();
  form.lvwRows.AddRow("", {"eins"});
  Show([&](WindowUser& user) {
    EXPECT_TRUE(QTest::qWaitForWindowActive(&user.Window()));
    const std::vector<std::function<void()>> ways = {
        [&] { user.Key(Qt::Key_Tab); },
        [&] { user.Key(Qt::Key_Backtab); },
        [&] { user.Click("cmdOK"); },
        [&] { user.Click("chkFlag"); },
        [&] { user.Click("txtMemo"); },
        [&] { user.ClickRow("lvwRows", 0); },
        [&] { user.Get<QPushButton>("cmdOK").click(); },
        [&] {
          // A message leaves no window active where no window system looks after it.
          user.Window().activateWindow();
          EXPECT_TRUE(QTest::qWaitForWindowActive(&user.Window()));
          user.Get("dtpStart_edit").setFocus(Qt::ShortcutFocusReason);
        },
        [&] { user.Key(Qt::Key_Return); },
    };
    for (std::size_t i = 0; i < ways.size(); ++i) {
      ExpectRefusal();
      ways[i]();
      EXPECT_EQ(user.Focus(), "txtDauer") << i;
      EXPECT_EQ(form.Focus(), &form.txtDauer) << i;
      EXPECT_THAT(form.Ran(), ElementsAre("txtDauer_Validate")) << i;
    }
    EXPECT_FALSE(form.chkFlag.Checked());
    EXPECT_FALSE(user.Get<QCheckBox>("chkFlag").isChecked());
    refuses = false;
    user.Click("cmdOK");
    EXPECT_THAT(form.Ran(), ElementsAre("txtDauer_Validate", "cmdOK_Click"));
  });
}

TEST_F(Focus, NobodyIsTrappedInARefusingBox) {
  MakeRefuse();
  const std::function<void(WindowUser & user)> ways[] = {
      [](WindowUser& user) { user.Key(Qt::Key_Escape); },
      [](WindowUser& user) { user.Click("cmdCancel"); },
      [](WindowUser& user) { user.Window().close(); }};
  for (std::size_t i = 0; i < std::size(ways); ++i) {
    Show([&](WindowUser& user) {
      ways[i](user);
      EXPECT_FALSE(form.Visible()) << i;
      EXPECT_THAT(form.Ran(), ElementsAre("cmdCancel_Click")) << i;
    });
  }
}

TEST_F(Focus, TheReturnKeyIsTheDefaultButtonExceptInAMemo) {
  Show([&](WindowUser& user) {
    user.Key(Qt::Key_Return);
    EXPECT_THAT(form.Ran(), ElementsAre("txtDauer_Validate", "cmdOK_Click"));
    user.GoTo("cboFree");
    form.Ran();
    user.Key(Qt::Key_Return);
    EXPECT_THAT(form.Ran(), ElementsAre("cmdOK_Click"));
    user.GoTo("txtMemo");
    form.Ran();
    user.Key(Qt::Key_Return);
    EXPECT_THAT(form.Ran(), IsEmpty());
  });
}

TEST_F(Focus, AnAccessKeyGoesToItsBox) {
  Show([&](WindowUser& user) {
    EXPECT_TRUE(QTest::qWaitForWindowActive(&user.Window()));
    user.AccessKey(user.Get<QCheckBox>("chkFlag").text());
    EXPECT_TRUE(QTest::qWaitFor([&] { return form.chkFlag.Checked(); }));
    EXPECT_EQ(user.Focus(), "chkFlag");
  });
}

TEST_F(Focus, AProgramMovesItAndMayDisableWhatHasIt) {
  form.cboList.SetFocus();
  form.chkFlag.Click = [&] { form.chkFlag.SetEnabled(false); };
  Show([&](WindowUser& user) {
    EXPECT_EQ(user.Focus(), "cboList");
    form.dtpClosed.SetFocus();
    EXPECT_EQ(user.Focus(), "dtpClosed");
    user.Click("chkFlag");
    EXPECT_FALSE(form.chkFlag.Enabled());
    user.Key(Qt::Key_Tab);
    EXPECT_EQ(user.Focus(), "dtpStart");
  });
}

TEST_F(Focus, AUnitOfWorkEndsAfterEachThingThatIsDone) {
  Show([&](WindowUser& user) {
    const int before = units;
    user.Click("chkFlag");
    // Going there and ticking it.
    EXPECT_EQ(units, before + 2);
  });
}

TEST_F(Focus, WhatTheDialogDoesNotHandleEndsItAndIsRaisedWhereItWasShown) {
  form.on_ok = [] { throw platform::Error(9, "Index"); };
  for (const bool unit_fails : {false, true}) {
    steps.Add("frmSample", AsUser([&](WindowUser& user) {
                if (unit_fails) on_unit = [] { throw platform::Error(7, "Platte voll"); };
                user.Click(unit_fails ? "chkFlag" : "cmdOK");
              }));
    std::int32_t raised = 0;
    RunSteps(steps, [&] {
      try {
        form.Show(screen);
      } catch (const platform::Error& error) {
        raised = error.Number();
      }
    });
    EXPECT_EQ(raised, unit_fails ? 7 : 9);
    EXPECT_FALSE(form.Visible());
  }
}

}  // namespace
}  // namespace pactora::desktop
