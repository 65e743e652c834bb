// An open database with the add-on on it and a screen: what the windows work with.
#pragma once

#include <QObject>
#include <functional>
#include <string>
#include <string_view>

#include "automation/workspace/Session.h"
#include "desktop/QtScreen.h"
#include "platform/Clock.h"
#include "platform/Error.h"
#include "platform/Locale.h"
#include "store/RecordStore.h"

namespace pactora::desktop {

class OpenDatabase {
 public:
  // Opens the database; raises what workspace::OpenDatabase raises, and
  // DoorError::BadInput for ":memory:", which keeps nothing. The clock must outlive
  // the opened database. Its dialogs read and write numbers by the locale.
  OpenDatabase(const std::string& database, const platform::Clock& clock,
               const platform::Locale& locale = {});

  // Called once, after its message, when the outcome of a save is uncertain: the database has
  // to be opened anew to show what holds.
  std::function<void()> Lost;

  const std::string& Name() const { return name_; }
  workspace::Session& Session() { return session_; }
  store::RecordStore& Store() { return session_.Store(); }
  QtScreen& Screen() { return screen_; }
  const platform::Clock& Clock() const { return clock_; }
  std::string UserName();

  // Requires: the table and its field are there.
  store::TableId Table(std::string_view name);
  const host::Value& Cell(store::TableId table, const store::Record& record,
                          std::string_view field);

  // The Oid of the table's current row; 0 for none.
  store::Oid Current(std::string_view table);
  // Makes the row the table's current row, the parents following; for 0 leaves the
  // table without one.
  void GoTo(std::string_view table, store::Oid oid);

  // Carries out what a person asked for and ends the unit of work. An error is shown
  // as a message, unless it says that the person asked to stop. Returns whether
  // all went well.
  bool Do(const std::function<void()>& action);
  // Carries out what a window reads while Qt asks it for something. An error is shown
  // when Qt is done. Returns whether all went well.
  bool Read(const std::function<void()>& reading);
  void ShowError(const platform::Error& error);
  // A message of the windows themselves.
  void Tell(const std::string& text);

 private:
  std::string name_;
  const platform::Clock& clock_;
  QtScreen screen_;
  workspace::Session session_;
  QObject context_;  // messages that wait are dropped with it
};

}  // namespace pactora::desktop
