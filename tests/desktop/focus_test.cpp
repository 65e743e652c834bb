// Where the focus goes, and what keeps it.
#include <QPushButton>

#include "desktop/sample_window.h"
#include "support/error_of.h"

namespace pactora::desktop {
namespace {

using testing::ElementsAre;

class Focus : public SampleWindowTest {};

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
  form.on_validate = [this](bool& cancel) {
    cancel = true;
    screen.ShowMessage({"Ungültige Eingabe !"});
  };
  form.lvwRows.AddRow("", {"eins"});
  Show([&](WindowUser& user) {
    EXPECT_TRUE(QTest::qWaitForWindowActive(&user.Window()));
    const std::vector<std::function<void()>> ways = {
        [&] { user.Key(Qt::Key_Tab); },
        [&] { user.Click("cmdOK"); },
        [&] { user.Click("chkFlag"); },
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
      ExpectMessage(steps, "Ungültige Eingabe !");
      ways[i]();
      EXPECT_EQ(user.Focus(), "txtDauer") << i;
      EXPECT_EQ(form.Focus(), &form.txtDauer) << i;
      EXPECT_THAT(form.Ran(), ElementsAre("txtDauer_Validate")) << i;
    }
    EXPECT_FALSE(form.chkFlag.Checked());
    EXPECT_FALSE(user.Get<QCheckBox>("chkFlag").isChecked());
    // But nobody is trapped there.
    user.Click("cmdCancel");
    EXPECT_THAT(form.Ran(), ElementsAre("cmdCancel_Click"));
    EXPECT_FALSE(form.Visible());
  });
}

TEST_F(Focus, AProgramMovesItAndMayDisableWhatHasIt) {
  form.cboList.SetFocus();
  form.chkFlag.Click = [&] { form.chkFlag.SetEnabled(false); };
  Show([&](WindowUser& user) {
    EXPECT_EQ(user.Focus(), "cboList");
    form.dtpClosed.SetFocus();
    EXPECT_EQ(user.Focus(), "dtpClosed");
    const int before = units;
    user.Click("chkFlag");
    EXPECT_EQ(units, before + 2) << "a unit of work ends after going there and after ticking it";
    EXPECT_FALSE(form.chkFlag.Enabled());
    user.Key(Qt::Key_Tab);
    EXPECT_EQ(user.Focus(), "dtpStart");
  });
}

TEST_F(Focus, WhatTheDialogDoesNotHandleEndsItAndIsRaisedWhereItWasShown) {
  form.on_ok = [] { throw platform::Error(9, "Index"); };
  for (const bool unit_fails : {false, true}) {
    steps.Add("frmSample", AsUser([&](WindowUser& user) {
                if (unit_fails) on_unit = [] { throw platform::Error(7, "Platte voll"); };
                user.Click(unit_fails ? "chkFlag" : "cmdOK");
              }));
    RunSteps(steps, [&] {
      EXPECT_EQ(support::ErrorNumberOf([&] { form.Show(screen); }), unit_fails ? 7 : 9);
    });
    EXPECT_FALSE(form.Visible());
  }
}

}  // namespace
}  // namespace pactora::desktop
