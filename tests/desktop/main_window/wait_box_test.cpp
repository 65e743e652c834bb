// A database that another user keeps behind an open window, and one whose file fails.
// Nobody waits here: the wait says at once that it has lasted a second.
#include "desktop/main_window/WaitBox.h"

#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include "automation/workspace/database.h"
#include "desktop/main_window/main_window.h"
#include "store/sqlite/Connection.h"
#include "support/FailingFiles.h"

namespace pactora::desktop {
namespace {

// Counts the keys that reach a window.
struct Visitor final : QObject {
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::KeyPress) ++keys;
    return false;
  }
  int keys = 0;
};

class WaitBoxTest : public MainWindowTest {
 protected:
  WaitBoxTest() {
    window->installEventFilter(&visitor);
    QObject::connect(&timer, &QTimer::timeout, window.get(), [this] { ++ticks; });
    waiting = this;
    workspace::GiveUpWaitingWhen([](std::chrono::milliseconds) { return waiting->Ask(); });
  }

  // The dialog's OK while another user writes; on_ask is called when the box is up.
  void Save(const std::function<void()>& on_ask) {
    asked = on_ask;
    ClickRow("addresses", "Quendelbach");
    steps.Add("frmNewContract", [&](QWidget& dialog) {
      WindowUser user(dialog);
      user.ClickRow("lvwBezeichnung", 1);
      other.Run("BEGIN IMMEDIATE");
      timer.start(0);
      QCoreApplication::postEvent(window.get(),
                                  new QKeyEvent(QEvent::KeyPress, Qt::Key_F5, Qt::NoModifier));
      user.Click("cmdOK");
    });
    steps.Run([&] { window->NewContract(); });
    QApplication::processEvents();
    EXPECT_EQ(steps.Problems(), QStringList());
    EXPECT_EQ(Box(), nullptr) << "the box stays";
  }

  static QMessageBox* Box() {
    for (QWidget* widget : QApplication::topLevelWidgets())
      if (widget->objectName() == QStringLiteral("waiting"))
        return qobject_cast<QMessageBox*>(widget);
    return nullptr;
  }

  bool Ask() {
    EXPECT_FALSE(Box() == nullptr && box.GiveUp(std::chrono::milliseconds(999)));
    const int ticks_before = ticks;
    const bool gives_up = box.GiveUp(std::chrono::seconds(1));
    EXPECT_EQ(ticks, ticks_before) << "a timer fired during the wait";
    EXPECT_EQ(visitor.keys, 0) << "a key was taken during the wait";
    EXPECT_NE(Box(), nullptr);
    if (!gives_up) asked();
    return gives_up;
  }

  static inline WaitBoxTest* waiting = nullptr;
  WaitBox box;
  store::sqlite::Connection other{database, store::sqlite::Access::ReadWrite,
                                  std::chrono::milliseconds(0)};
  Visitor visitor;
  QTimer timer;
  int ticks = 0;
  std::function<void()> asked;
};

TEST_F(WaitBoxTest, IsGoneWhenTheOtherUserIsReady) {
  Save([&] { other.Run("ROLLBACK"); });
  EXPECT_EQ(Count(table::vv_Vertraege), 5u);
}

TEST_F(WaitBoxTest, GivesUpWhenAPersonHasEnough) {
  Save([&] {
    Box()->findChild<QPushButton*>()->click();
    steps.Add("message", [](QWidget& message) {
      EXPECT_THAT(message.property("text").toString().toStdString(),
                  testing::HasSubstr("von einem anderen Benutzer gesperrt"));
      QTest::keyClick(&message, Qt::Key_Return);
    });
    steps.Add("frmNewContract", [](QWidget& dialog) { WindowUser(dialog).Click("cmdCancel"); });
  });
  other.Run("ROLLBACK");
  EXPECT_EQ(Count(table::vv_Vertraege), 4u);
}

// A save of which nobody knows whether it reached the disk.
struct WithFailingFiles {
  support::FailingFiles files;
};
struct UncertainTest : WithFailingFiles, MainWindowTest {};

TEST_F(UncertainTest, ASaveIsNeitherClaimedNorDeniedAndTheDatabaseOpenedAnew) {
  int opened_anew = 0;
  desk->Lost = [&] { ++opened_anew; };
  ClickRow("addresses", "Quendelbach");
  steps.Add("frmNewContract", [&](QWidget& dialog) {
    WindowUser user(dialog);
    user.ClickRow("lvwBezeichnung", 1);
    files.Fail({support::FailingFiles::kSync}, 1);
    user.Click("cmdOK");
  });
  ExpectMessage(steps, "muss neu geöffnet werden. Betroffen ist Vertrag 00000004.");
  RunSteps(steps, [&] { window->NewContract(); });
  QApplication::processEvents();
  EXPECT_EQ(opened_anew, 1);
}

}  // namespace
}  // namespace pactora::desktop
