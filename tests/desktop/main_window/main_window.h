// The main window on the sample company, in a folder of the test's own.
#pragma once

#include <QAction>
#include <QLabel>
#include <QSettings>
#include <QTreeView>
#include <memory>
#include <string>
#include <vector>

#include "automation/dataset/dataset_files.h"
#include "automation/dataset/sample/sample.h"
#include "automation/workspace/row_walk.h"
#include "desktop/main_window/MainWindow.h"
#include "desktop/main_window/OpenDatabase.h"
#include "desktop/main_window/WindowMemory.h"
#include "desktop/text.h"
#include "desktop/window_user.h"
#include "platform/Clock.h"
#include "schema/names.h"
#include "support/TemporaryFolder.h"

namespace pactora::desktop {

namespace table = schema::table;
namespace field = schema::field;

class MainWindowTest : public testing::Test {
 protected:
  MainWindowTest() {
    dataset::ImportDatabase(database,
                            formats::MemorySource("sample", std::string(dataset::SampleDataset())),
                            workspace::Access::Write, [](std::size_t, std::size_t) {});
    Open();
  }
  // Opens the window, anew if there is one.
  void Open() {
    window.reset();
    memory.reset();
    desk = std::make_unique<OpenDatabase>(database, clock);
    memory = std::make_unique<WindowMemory>(settings, QString::fromStdString(desk->UserName()));
    window = std::make_unique<MainWindow>(*desk, *memory);
    window->show();
    window->FinishReading();
    QApplication::processEvents();
  }
  WindowUser User() { return WindowUser(*window); }

  void ShowPage(int page) {
    window->findChild<QTabWidget*>("pages")->setCurrentIndex(page);
    window->FinishReading();
  }
  void ClickRow(const char* list, const char* text) { User().ClickRow(list, text); }
  // The texts of a list's row.
  std::vector<std::string> Texts(const ListPage& page, int row) const {
    std::vector<std::string> texts;
    const QAbstractItemModel& model = *page.findChild<QTableView*>()->model();
    for (int column = 0; column < model.columnCount(); ++column) {
      texts.push_back(model.index(row, column).data().toString().toStdString());
    }
    return texts;
  }
  QAction& Action(const char* name) { return *window->findChild<QAction*>(name); }
  std::string Text(const char* label) {
    return window->findChild<QLabel*>(label)->text().toStdString();
  }
  std::string CurrentText(std::string_view of, std::string_view name) {
    const auto live = desk->Session().Host().Table(of);
    return live->Eof() ? "" : host::ToText(live->Fields().Item(name).Value());
  }
  std::size_t Count(std::string_view name) {
    const auto store = workspace::OpenDatabase(database, workspace::Access::Write);
    return workspace::AllRows(*store, store->Catalog().Table(name)).size();
  }

  support::TemporaryFolder folder;
  const std::string database = folder.File("firma.db");
  platform::FixedClock clock{platform::FromCivil(2026, 9, 5)};
  QSettings settings{ToQt(folder.File("windows.ini")), QSettings::IniFormat};
  std::unique_ptr<OpenDatabase> desk;
  std::unique_ptr<WindowMemory> memory;
  std::unique_ptr<MainWindow> window;
  WindowSteps steps;
};

}  // namespace pactora::desktop
