// How a person comes to an open database, and what is said where none can be opened.
#include <QTabWidget>

#include "desktop/main_window/Program.h"
#include "desktop/text.h"
#include "desktop/window_user.h"
#include "store/SqliteFile.h"

namespace pactora::desktop {
namespace {

using testing::HasSubstr;

class StartTest : public testing::Test {
 protected:
  void MakeSample() {
    dataset::InitDatabase(database, dataset::Content::Sample, workspace::Access::Write,
                          [](std::size_t, std::size_t) {});
  }
  QTreeWidget& Recent() { return WindowUser(program.Choice()).Get<QTreeWidget>("start_recent"); }
  std::string Title() { return program.Window()->windowTitle().toStdString(); }

  support::TemporaryFolder folder;
  const std::string database = folder.File("firma.db");
  platform::FixedClock clock{platform::FromCivil(2026, 9, 5)};
  QSettings settings{ToQt(folder.File("windows.ini")), QSettings::IniFormat};
  Program program{settings, clock};
  WindowSteps steps;
};

TEST_F(StartTest, ADatabaseIsMadeAndLaterChosenFromTheList) {
  WindowUser user(program.Choice());
  program.Start(std::nullopt);
  EXPECT_FALSE(user.Get("start_open").isEnabled());
  program.Choice().Make(ToQt(database), dataset::Content::Sample);
  ASSERT_TRUE(program.Window());
  EXPECT_FALSE(program.Choice().isVisible());
  const QString dataset = ToQt(folder.File("firma.json"));
  ASSERT_TRUE(program.Window()->ExportTo(dataset));

  const auto close = [&] {
    program.Window()->CloseAsked();
    QApplication::processEvents();
    EXPECT_FALSE(program.Window());
    EXPECT_TRUE(program.Choice().isVisible());
  };
  close();
  ExpectMessage(steps, "firma.db");  // it is there
  RunSteps(steps, [&] { program.Choice().ImportFrom(dataset, ToQt(database)); });
  program.Choice().ImportFrom(dataset, ToQt(folder.File("zweite.db")));
  close();
  program.Choice().Make(ToQt(folder.File("leer.db")), dataset::Content::None);
  std::filesystem::remove(folder.File("leer.db"));
  close();
  EXPECT_EQ(Recent().topLevelItem(0)->text(0), "leer.db (fehlt)");
  user.Key(Qt::Key_Delete);
  user.Key(Qt::Key_Return);
  ASSERT_TRUE(program.Window());
  EXPECT_THAT(Title(), testing::StartsWith("HASELMOOR"));
  QStringList offered;
  for (const QAction* action : program.Window()->RecentMenu().actions())
    offered += action->text().section("  ", 1).section(" ", 0, 0);
  EXPECT_EQ(offered, (QStringList{"zweite.db", "firma.db"}));
}

TEST_F(StartTest, AFailureNamesCauseAndRemedyAndLeadsToTheChoice) {
  std::unique_ptr<store::sqlite::Connection> other;
  workspace::GiveUpWaitingWhen([](std::chrono::milliseconds) { return true; });
  const struct {
    const char* cause;
    const char* remedy;
    std::function<void()> prepare;
  } cases[] = {
      {"keine Datenbank", "andere Datei", [&] { std::filesystem::resize_file(database, 4096); }},
      {"anderer Version", "einem neueren",
       [&] { store::RunSql(database, "PRAGMA user_version=9"); }},
      {"gesperrt", "Warten Sie",
       [&] {
         other = std::make_unique<store::sqlite::Connection>(
             database, store::sqlite::Access::ReadWrite, std::chrono::seconds(1));
         other->Run("BEGIN EXCLUSIVE");
       }},
      {"nicht erreichbar", "Laufwerk",
       [&] {
         std::filesystem::remove(database);
         std::filesystem::create_directory(database);
       }},
      {"die Datei gibt es nicht", "andere Datenbank", [&] { std::filesystem::remove(database); }},
  };
  for (const auto& [cause, remedy, prepare] : cases) {
    SCOPED_TRACE(cause);
    MakeSample();
    prepare();
    for (const char* const text : {cause, remedy}) {
      ExpectMessage(steps, text);
      RunSteps(steps, [&] { program.Start(database); });
      EXPECT_TRUE(program.Choice().isVisible());
      EXPECT_FALSE(program.Window());
    }
    other.reset();
    std::filesystem::remove_all(database);
  }
  workspace::GiveUpWaitingWhen(nullptr);
}

TEST_F(StartTest, WhatWritesIsGreyWhereTheDatabaseIsReadOnly) {
  MakeSample();
  for (const bool read_only : {false, true}) {
    if (read_only)
      store::RunSql(database, "CREATE TRIGGER t AFTER UPDATE ON Adressen BEGIN SELECT 1; END");
    program.Start(database);
    MainWindow& window = *program.Window();
    EXPECT_EQ(Title().ends_with(" (schreibgeschützt) – Pactora"), read_only) << Title();
    window.FinishReading();
    WindowUser user(window);
    user.ClickRow("addresses", 0);
    auto& pages = user.Get<QTabWidget>("pages");
    for (const char* const list : {"types", "appointments"}) {
      pages.setCurrentWidget(&user.Get((std::string(list) + "_page").c_str()));
      window.FinishReading();
      user.ClickRow(list, 0);
    }
    for (const char* const name :
         {"new_contract", "takeover_list", "new_type", "edit_type", "tick"})
      EXPECT_NE(window.findChild<QAction*>(name)->isEnabled(), read_only) << name;
  }
}

TEST_F(StartTest, AMigrationIsTold) {
  MakeSample();
  store::MakeVersion1(database);
  ExpectMessage(steps, "firma.db: die Datenbank hat jetzt die Struktur dieser Version");
  RunSteps(steps, [&] { program.Start(database); });
  EXPECT_TRUE(program.Window());
}

}  // namespace
}  // namespace pactora::desktop
