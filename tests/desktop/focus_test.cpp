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
  void ExpectRefusal() { ExpectMessage("Ungültige Eingabe !"); }

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

struct WayOut {
  const char* name;
  void (*go)(WindowUser& user);
};

class NobodyIsTrapped : public Focus, public testing::WithParamInterface<WayOut> {};

TEST_P(NobodyIsTrapped, InARefusingBox) {
  MakeRefuse();
  Show([&](WindowUser& user) {
    GetParam().go(user);
    EXPECT_FALSE(form.Visible());
    EXPECT_THAT(form.Ran(), ElementsAre("cmdCancel_Click"));
  });
}

INSTANTIATE_TEST_SUITE_P(
    Ways, NobodyIsTrapped,
    testing::Values(WayOut{"Escape", [](WindowUser& user) { user.Key(Qt::Key_Escape); }},
                    WayOut{"CancelByMouse", [](WindowUser& user) { user.Click("cmdCancel"); }},
                    WayOut{"WindowFrame", [](WindowUser& user) { user.Window().close(); }}),
    [](const auto& tested) { return tested.param.name; });

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

TEST_F(Focus, AnAccessKeyGoesToTheBoxOfItsLabel) {
  Show([&](WindowUser& user) {
    EXPECT_TRUE(QTest::qWaitForWindowActive(&user.Window()));
    const QString text = user.Get<QCheckBox>("chkFlag").text();
    const QChar key = text[text.indexOf('&') + 1];
    QTest::keyClick(&user.Window(), static_cast<Qt::Key>(key.toUpper().unicode()), Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return form.chkFlag.Checked(); }));
    EXPECT_EQ(user.Focus(), "chkFlag");
  });
}

TEST_F(Focus, AProgramMovesItAndDecidesWhereItIsAtFirst) {
  form.cboList.SetFocus();
  Show([&](WindowUser& user) {
    EXPECT_EQ(user.Focus(), "cboList");
    form.dtpClosed.SetFocus();
    EXPECT_EQ(user.Focus(), "dtpClosed");
  });
}

TEST_F(Focus, AControlThatIsDisabledUnderTheFocusLetsTheTabKeyGoOn) {
  form.chkFlag.Click = [&] { form.chkFlag.SetEnabled(false); };
  Show([&](WindowUser& user) {
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

TEST_F(Focus, AUnitThatFailsEndsTheDialogAndIsRaisedWhereItWasShown) {
  steps.Add("frmSample", [&](QWidget& window) {
    on_unit = [] { throw platform::Error(7, "Platte voll"); };
    WindowUser(window).Click("chkFlag");
  });
  std::string raised;
  steps.Run([&] {
    try {
      form.Show(screen);
    } catch (const platform::Error& error) {
      raised = error.Description();
    }
  });
  EXPECT_EQ(raised, "Platte voll");
  EXPECT_FALSE(form.Visible());
  EXPECT_TRUE(steps.Problems().isEmpty());
}

TEST_F(Focus, AnErrorThatTheFormDoesNotHandleIsRaisedWhereItWasShown) {
  form.on_ok = [] { throw platform::Error(9, "Index"); };
  steps.Add("frmSample", [&](QWidget& window) { WindowUser(window).Click("cmdOK"); });
  steps.Run([&] { EXPECT_THROW(form.Show(screen), platform::Error); });
}

}  // namespace
}  // namespace pactora::desktop
