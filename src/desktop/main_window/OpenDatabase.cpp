#include "desktop/main_window/OpenDatabase.h"

#include <QApplication>
#include <QTimer>
#include <optional>
#include <utility>

#include "automation/formats/errors.h"
#include "automation/workspace/database.h"
#include "desktop/MessageBox.h"
#include "desktop/main_window/failures.h"
#include "host/HostTable.h"
#include "host/row.h"
#include "schema/names.h"
#include "store/RowView.h"
#include "store/errors.h"

namespace pactora::desktop {
namespace {

using formats::DoorError;

std::unique_ptr<store::RecordStore> Open(const std::string& database) {
  if (database == workspace::kMemoryName)
    formats::Raise(DoorError::BadInput,
                   database + ": die Fenster brauchen eine Datenbank, die bleibt");
  // A write-protected database can still be read.
  return workspace::OpenDatabase(database, workspace::Access::Any);
}

}  // namespace

OpenDatabase::OpenDatabase(const std::string& database, const platform::Clock& clock,
                           const platform::Locale& locale)
    : name_(database),
      clock_(clock),
      screen_([this] { session_.Host().SaveUnit(); }),
      session_(Open(database), screen_, clock, locale) {}

std::string OpenDatabase::UserName() {
  return session_.App()->CurrentDb()->Users().CurrentUser().Name();
}

store::TableId OpenDatabase::Table(std::string_view name) { return Store().Catalog().Table(name); }

const host::Value& OpenDatabase::Cell(store::TableId table, const store::Record& record,
                                      std::string_view field) {
  return store::RowView(Store().Catalog().tables[table], record)[field];
}

store::Oid OpenDatabase::Current(std::string_view table) {
  const std::string oid = session_.Host().Table(table)->Oid();
  return oid.empty() ? 0 : std::stoll(oid);
}

void OpenDatabase::GoTo(std::string_view table, store::Oid oid) {
  if (Current(table) == oid) return;
  if (oid != 0)
    session_.GoTo(Table(table), oid);
  else
    session_.GoNowhere(Table(table));
}

bool OpenDatabase::Do(const std::function<void()>& action) {
  const store::Oid contract_before = Current(schema::table::vv_Vertraege);
  std::optional<platform::Error> failed = ErrorOf(action);
  // What was stored before a failure stays, as everywhere.
  if (const auto lost = ErrorOf([&] { session_.EndUnit(contract_before); })) failed = lost;
  if (failed) ShowError(*failed);
  return !failed;
}

bool OpenDatabase::Read(const std::function<void()>& reading) {
  try {
    reading();
    return true;
  } catch (const platform::Error& error) {
    QTimer::singleShot(0, &context_, [this, error] { ShowError(error); });
    return false;
  }
}

void OpenDatabase::ShowError(const platform::Error& error) {
  if (error.Number() == formats::Number(DoorError::Interrupted)) return;
  Tell(formats::Describe(error));
  // What is shown may not be what is stored.
  if (error.Number() == Number(store::StoreError::Uncertain) && Lost)
    QTimer::singleShot(0, &context_, std::exchange(Lost, nullptr));
}

void OpenDatabase::Tell(const std::string& text) {
  // Not through the screen: it would end the unit of work, and that may be what failed.
  ShowMessageBox({text, ui::style::kExclamation, "Pactora"}, QApplication::activeWindow());
}

}  // namespace pactora::desktop
