// The main window: the pages, and the commands that start from them.
#pragma once

#include <QLabel>
#include <QMainWindow>
#include <QTabWidget>
#include <functional>
#include <string>
#include <vector>

#include "desktop/main_window/AddressPage.h"
#include "desktop/main_window/OpenDatabase.h"
#include "desktop/main_window/WindowMemory.h"
#include "desktop/main_window/list_pages.h"

class QAction;

namespace pactora::desktop {

class MainWindow final : public QMainWindow {
 public:
  // OpenDatabase and memory must outlive the window.
  MainWindow(OpenDatabase& database, WindowMemory& memory);
  ~MainWindow() override;

  AddressPage& Addresses() { return addresses_; }
  TypePage& Types() { return types_; }
  DeadlinePage& Deadlines() { return deadlines_; }
  AppointmentPage& Appointments() { return appointments_; }

  // Reads all pages again.
  void Reload();
  // Reads the rest of all lists at once.
  void FinishReading();

  // The add-on's dialogs, on the current rows.
  void NewContract();
  void NewType();
  void EditType();

  // Reads a dataset: into this database while it is empty, otherwise into the new one
  // of that name; in either case it is open afterwards. Returns whether all went well.
  bool ImportFrom(const QString& file, const QString& new_database);
  bool ExportTo(const QString& file);
  // The deadlines that their page shows.
  bool WriteCalendar(const QString& file);

  // Marks the chosen appointments as done, or as open again, and takes that back.
  void TickAppointment();
  void TakeBackTick();

  // The user asked to open another database, or this one again.
  std::function<void(const std::string& database)> OpenAsked;
  // The user asked to leave this database for the choice of one.
  std::function<void()> CloseAsked;
  // Other databases to open; who owns the window fills it.
  QMenu& RecentMenu() { return *recent_; }

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void MakeActions();
  void MakeLookMenu(QMenu& menu);
  void MakePages();
  QAction* Add(QMenu& menu, const char* name, const QString& text, const QKeySequence& keys,
               void (MainWindow::*act)());

  void AskOpen();
  void AskClose();
  void AskImport();
  // Whether a dataset can go into this database.
  bool TakesDataset();
  void AskExport();
  void AskCalendar();
  void AskTakeover();
  void SearchPage();
  void TellAbout();
  void Quit();

  std::vector<Page*> Pages() { return {&addresses_, &types_, &deadlines_, &appointments_}; }
  Page& PageShown() const;
  // After work that may have changed anything in the database but addresses.
  void ShowWork();
  // A word in the status line, for a while.
  void Say(const QString& text);
  void ReloadPage();
  void ShowContract(store::Oid contract);
  void ShowChoice();

  OpenDatabase& database_;
  WindowMemory& memory_;
  const bool read_only_;  // a database that was lost can't be asked any more
  QTabWidget pages_;
  AddressPage addresses_;
  TypePage types_;
  DeadlinePage deadlines_;
  AppointmentPage appointments_;
  std::vector<Page*> stale_;  // pages that are read when they come up
  QMenu* recent_ = nullptr;
  QAction* new_contract_ = nullptr;
  QAction* takeover_ = nullptr;
  QAction* new_type_ = nullptr;
  QAction* edit_type_ = nullptr;
  QAction* tick_ = nullptr;
  QAction* take_back_ = nullptr;
};

}  // namespace pactora::desktop
