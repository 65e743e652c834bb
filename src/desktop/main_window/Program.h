// What the windows' program shows: an open database, or the window in which one is chosen.
#pragma once

#include <QSettings>
#include <memory>
#include <optional>
#include <string>

#include "desktop/main_window/MainWindow.h"
#include "desktop/main_window/OpenDatabase.h"
#include "desktop/main_window/RecentDatabases.h"
#include "desktop/main_window/StartWindow.h"
#include "desktop/main_window/WindowMemory.h"
#include "platform/Clock.h"
#include "platform/Error.h"
#include "platform/Locale.h"

namespace pactora::desktop {

class Program {
 public:
  // Settings and clock must outlive the program. Migrations are told by it as long as it lives.
  Program(QSettings& settings, const platform::Clock& clock, const platform::Locale& locale = {});
  ~Program();
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  // Shows the database; where none is named or it can't be opened the start window, the failure
  // on it.
  void Start(const std::optional<std::string>& database);
  // Shows the start window, with this failure on it.
  void StartOver(const platform::Error& failure);

  StartWindow& Choice() { return start_; }
  // Null while no database is open.
  MainWindow* Window() { return window_.get(); }

 private:
  // What was open stays open where it fails.
  std::optional<platform::Error> TryOpen(const std::string& database);
  void OpenInstead(const std::string& database);
  void ShowStart();
  void OfferRecent();
  void Use(std::unique_ptr<OpenDatabase> opened);

  QSettings& settings_;
  const platform::Clock& clock_;
  const platform::Locale locale_;
  RecentDatabases recent_{settings_};
  StartWindow start_{recent_};
  std::string migrated_;  // what is to be told of a migration
  // In the order in which they use each other.
  std::unique_ptr<OpenDatabase> database_;
  std::unique_ptr<WindowMemory> memory_;
  std::unique_ptr<MainWindow> window_;
};

}  // namespace pactora::desktop
