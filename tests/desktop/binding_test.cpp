// Each kind of control and its widget, in both directions: the program changes the
// control and the widget shows it; a person acts on the widget and the control has it.
#include <QCalendarWidget>
#include <QInputMethodEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeView>

#include "desktop/sample_window.h"
#include "support/contract_world.h"

namespace pactora::desktop {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using support::Day;

class Binding : public SampleWindowTest {
 protected:
  Binding() { form.txtDauer.Validate = nullptr; }  // it has the focus at first
};

TEST_F(Binding, EveryControlHasOneWidgetThatFollowsTheProgram) {
  Show([&](WindowUser& user) {
    for (ui::Control* control : form.Controls()) {
      SCOPED_TRACE(control->Name());
      const QString name = QString::fromStdString(control->Name());
      EXPECT_EQ(user.Window().findChildren<QWidget*>(name).size(), 1);
      const QWidget& widget = user.Get(control->Name().c_str());
      control->SetToolTip("Hilfe");
      EXPECT_EQ(widget.toolTip(), "Hilfe");
      const auto* frame = dynamic_cast<const ui::Frame*>(control);
      for (const bool on : {false, true}) {
        control->SetEnabled(on);
        EXPECT_EQ(widget.isEnabledTo(widget.parentWidget()), on);
        if (frame && !frame->Overlapping().empty()) continue;
        control->SetVisible(on);
        EXPECT_EQ(widget.isHidden(), !on);
      }
    }
    form.lblDauer.SetCaption("A & B");
    EXPECT_EQ(user.Get<QLabel>("lblDauer").text(), "A & B");
    form.cmdOK.SetCaption("Übernehmen");
    EXPECT_EQ(user.Get<QPushButton>("cmdOK").text().remove('&'), "Übernehmen");
    EXPECT_TRUE(user.Get("cmdAdd").isVisible() && !user.Get("txtNote").isVisible());
    form.fraPositionenK.BringToFront();
    EXPECT_TRUE(!user.Get("cmdAdd").isVisible() && user.Get("txtNote").isVisible());
    form.fraTyp.SetEnabled(false);
    EXPECT_FALSE(user.Get("txtDauer").isEnabled());
    // A red text is told in words as well.
    const auto& edit = user.Get<QLineEdit>("txtDauer");
    const QColor usual = edit.palette().color(QPalette::Text);
    form.txtDauer.SetForeColor(ui::color::kRed);
    EXPECT_EQ(edit.palette().color(QPalette::Active, QPalette::Text), QColor(255, 0, 0));
    EXPECT_EQ(edit.accessibleDescription(), "rot hervorgehoben");
    form.txtDauer.SetForeColor(ui::color::kWindowText);
    EXPECT_EQ(edit.palette().color(QPalette::Text), usual);
    EXPECT_EQ(edit.accessibleDescription(), "");
  });
}

TEST_F(Binding, ATextBoxTakesKeysAtTheCaretThroughItsFilterAndPastedTextPastIt) {
  Show([&](WindowUser& user) {
    form.on_key = [](std::int32_t& key) {
      if (key == '.') key = ',';
      if (key == 'x') key = 0;
    };
    auto& edit = user.Get<QLineEdit>("txtDauer");
    form.txtDauer.SetText("12");
    user.Key(Qt::Key_Home);
    form.Ran();
    user.Keys("3x");
    user.TypeCharacter('.', Qt::KeypadModifier);
    user.Pause();
    EXPECT_EQ(form.txtDauer.Text(), "3,12");
    EXPECT_EQ(edit.cursorPosition(), 2);
    user.Key(Qt::Key_Backspace);
    user.Pause();
    user.Key(Qt::Key_Delete);
    user.Pause();
    EXPECT_THAT(form.Ran(),
                ElementsAre("txtDauer_KeyPress 51", "txtDauer_Change", "txtDauer_KeyPress 120",
                            "txtDauer_KeyPress 46", "txtDauer_Change", "txtDauer_KeyPress 8",
                            "txtDauer_Change", "txtDauer_Change"));
    QInputMethodEvent composed;
    composed.setCommitString("ôx.");
    QApplication::sendEvent(&edit, &composed);
    EXPECT_EQ(form.txtDauer.Text(), "3ô,2");
    edit.insert("x.");
    EXPECT_EQ(form.txtDauer.Text(), "3ô,x.2");

    // The program may rewrite what is being typed; the caret stays behind it.
    form.txtDauer.Change = [&] { form.txtDauer.SetText("0" + form.txtDauer.Text().substr(1)); };
    user.Key(Qt::Key_A, Qt::ControlModifier);
    user.Keys("12");
    EXPECT_EQ(user.Text("txtDauer"), "12");
    EXPECT_EQ(form.txtDauer.Text(), "3ô,x.2") << "not before the person pauses";
    user.Pause();
    user.Key(Qt::Key_Home);
    user.Keys("3");
    user.Pause();
    EXPECT_EQ(user.Text("txtDauer"), "002");
    EXPECT_EQ(edit.cursorPosition(), 1);

    form.txtMemo.SetText("eins\r\nzwei");
    EXPECT_EQ(user.Get<QPlainTextEdit>("txtMemo").toPlainText(), "eins\nzwei");
  });
}

TEST_F(Binding, ListsOptionsAndTicksShowAndTakeAChoiceOnce) {
  Show([&](WindowUser& user) {
    const auto& list = user.Get<QComboBox>("cboList");
    const auto& view = user.Get<QAbstractItemView>("lstRows");
    const auto& flag = user.Get<QCheckBox>("chkFlag");
    form.cboList.AddItem("Jahre", 365);
    form.cboList.SetListIndex(1);
    form.lstRows.SetListIndex(1);
    form.optA.SetValue(true);
    form.chkFlag.SetChecked(true);
    QApplication::processEvents();
    EXPECT_EQ(list.currentText(), "Monate");
    EXPECT_EQ(view.currentIndex().row(), 1);
    EXPECT_TRUE(flag.isChecked() && user.Get<QRadioButton>("optA").isChecked());
    form.Ran();
    user.Choose("cboList", "Jahre");
    user.Choose("cboList", "Jahre");
    user.ClickRow("lstRows", 0);
    user.Key(Qt::Key_Down);
    user.Click("optB");
    user.Click("optB");
    user.Click("optElsewhere");
    user.Click("chkFlag");
    EXPECT_THAT(form.Ran(), ElementsAre("cboList_Click", "lstRows_Click", "lstRows_Click",
                                        "optB_Click", "optElsewhere_Click", "chkFlag_Click"));
    EXPECT_EQ(form.cboList.Text(), "Jahre");
    EXPECT_EQ(form.lstRows.ListIndex(), 1);
    EXPECT_TRUE(form.optB.Value() && !form.optA.Value() && !form.chkFlag.Checked());
    user.Retype("cboFree", "Stück");
    EXPECT_EQ(form.cboFree.ListIndex(), 0);
    form.optB.SetValue(false);
    EXPECT_FALSE(user.Get<QRadioButton>("optB").isChecked());
  });
}

TEST_F(Binding, AListViewHidesItsStorageAndCountsEveryClick) {
  Show([&](WindowUser& user) {
    const auto& view = user.Get<QTreeView>("lvwRows");
    EXPECT_TRUE(view.isColumnHidden(0));
    EXPECT_FALSE(view.isColumnHidden(1));
    form.lvwRows.AddRow("7", {"Wartung"}, "Wartung eines Servers");
    form.lvwRows.AddRow("8", {"Hotline"});
    QApplication::processEvents();
    ASSERT_EQ(view.model()->rowCount(), 2);
    const QModelIndex first = view.model()->index(0, 1);
    EXPECT_EQ(first.data(), "Wartung");
    EXPECT_EQ(first.data(Qt::ToolTipRole), "Wartung eines Servers");
    EXPECT_EQ(view.currentIndex().row(), 0);
    user.ClickRow("lvwRows", 1);
    user.ClickRow("lvwRows", 1);
    user.Key(Qt::Key_Up);
    EXPECT_EQ(form.lvwRows.SelectedRow(), 1);
    EXPECT_THAT(form.Ran(),
                ElementsAre("lvwRows_ItemClick 2", "lvwRows_ItemClick 2", "lvwRows_ItemClick 1"));
    // A row that the click's handler does not keep.
    form.lvwRows.RowClick = [&](std::int32_t) {
      screen.ShowMessage({"Nein."});
      form.lvwRows.SelectRow(1);
    };
    ExpectMessage(steps, "Nein.");
    user.ClickRow("lvwRows", 1);
    EXPECT_EQ(view.currentIndex().row(), 0);
    form.lvwRows.RemoveRow(1);
    QApplication::processEvents();
    EXPECT_FALSE(view.currentIndex().isValid());
  });
}

TEST_F(Binding, ADateIsTypedSteppedAndChosenInTheCalendar) {
  form.dtpStart.SetValue(Day(1, 2, 2024));
  Show([&](WindowUser& user) {
    user.Retype("dtpStart", "15-3-24");
    EXPECT_THAT(form.Ran(), IsEmpty());
    user.Key(Qt::Key_Tab);
    EXPECT_EQ(form.dtpStart.Value(), Day(15, 3, 2024));
    EXPECT_EQ(user.Text("dtpStart_edit"), "15.03.2024");
    EXPECT_THAT(form.Ran(), ElementsAre("dtpStart_Change"));
    user.GoTo("dtpStart");
    for (const auto key : {Qt::Key_Up, Qt::Key_Plus, Qt::Key_Minus, Qt::Key_PageDown})
      user.Key(key);
    EXPECT_EQ(form.dtpStart.Value(), Day(16, 2, 2024));
    user.Key(Qt::Key_F4);
    auto* calendar = user.Window().findChild<QCalendarWidget*>();
    ASSERT_TRUE(calendar && calendar->isVisible());
    EXPECT_EQ(calendar->selectedDate(), QDate(2024, 2, 16));
    emit calendar->clicked(QDate(2024, 2, 29));
    EXPECT_EQ(form.dtpStart.Value(), Day(29, 2, 2024));
    EXPECT_FALSE(calendar->isVisible());
    user.Retype("dtpStart", "1.1.23");
    user.Key(Qt::Key_Return);
    EXPECT_EQ(form.dtpStart.Value(), Day(1, 1, 2023));
    EXPECT_EQ(form.Ran().back(), "cmdOK_Click");
  });
}

TEST_F(Binding, WhatIsNoDateIsNotLeft) {
  form.dtpStart.SetValue(Day(1, 2, 2024));
  for (const bool by_mouse : {false, true}) {
    Show([&](WindowUser& user) {
      ExpectMessage(steps, "„31.2.“ ist kein Datum.\nGeben Sie es in der Form TT.MM.JJJJ ein!");
      user.Retype("dtpStart", "31.2.");
      user.Click("chkFlag");
      EXPECT_EQ(user.Focus(), "dtpStart");
      EXPECT_FALSE(form.chkFlag.Checked());
      if (!by_mouse) ExpectDiscardQuestion(steps, "&Verwerfen");
      by_mouse ? user.Click("cmdCancel") : user.Key(Qt::Key_Escape);
      EXPECT_FALSE(form.Visible());
      EXPECT_EQ(form.dtpStart.Value(), Day(1, 2, 2024));
    });
  }
}

TEST_F(Binding, ADateIsUntickedAndTickedAgain) {
  form.dtpClosed.SetValue(Day(1, 2, 2024));
  Show([&](WindowUser& user) {
    user.Click("dtpClosed_tick");
    EXPECT_TRUE(form.dtpClosed.IsNull());
    EXPECT_FALSE(user.Get("dtpClosed_edit").isEnabled());
    user.Key(Qt::Key_Space);
    EXPECT_EQ(form.dtpClosed.Value(), Day(1, 2, 2024));
    EXPECT_THAT(form.Ran(), ElementsAre("dtpClosed_Change", "dtpClosed_Change"));
    form.dtpClosed.SetNull();
    EXPECT_FALSE(user.Get<QCheckBox>("dtpClosed_tick").isChecked());
  });
}

}  // namespace
}  // namespace pactora::desktop
