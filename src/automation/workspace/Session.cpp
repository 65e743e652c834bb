#include "automation/workspace/Session.h"
#include "host/row.h"

#include <utility>

namespace pactora::workspace {

Session::Session(std::unique_ptr<store::RecordStore> store, ui::Screen& screen,
                 const platform::Clock& clock, const platform::Locale& locale)
    : host_(std::move(store)),
      module_(shell::Environment{screen, clock, locale, embedded::CreateErrorTexts,
                                 [this] { return host_.App(); }}),
      entry_(std::make_unique<shell::CVV>(module_)) {}

void Session::EndUnit() {
  try {
    host_.EndUnit();
  } catch (...) {
    entry_ = std::make_unique<shell::CVV>(module_);
    throw;
  }
}

void Session::GoTo(store::TableId table, store::Oid oid) {
  host_.Table(Store().Catalog().tables[table].name)->GotoOid(std::to_string(oid));
}

void Session::GoNowhere(store::TableId table) {
  const auto live = host_.Table(Store().Catalog().tables[table].name);
  if (live->Eof()) return;
  if (Store().Catalog().tables[table].parent) live->ParentTable();
  // Dropping a new row leaves the table at its end, whatever its number of rows.
  BeginNewRow(*live);
  live->DeleteRec(host::kFlagsNone);
}

}  // namespace pactora::workspace
