#include "automation/workspace/Session.h"

#include <utility>

#include "automation/workspace/contract_numbers.h"
#include "host/row.h"
#include "schema/names.h"

namespace pactora::workspace {

Session::Session(std::unique_ptr<store::RecordStore> store, ui::Screen& screen,
                 const platform::Clock& clock, const platform::Locale& locale)
    : host_(std::move(store)),
      module_(shell::Environment{screen, clock, locale, embedded::CreateErrorTexts,
                                 [this] { return host_.App(); }}),
      entry_(std::make_unique<shell::CVV>(module_)) {}

store::Oid Session::CurrentContract() {
  return store::ParseOid(host_.Table(schema::table::vv_Vertraege)->Oid()).value_or(0);
}

void Session::EndUnit() {
  try {
    host_.EndUnit();
  } catch (...) {
    entry_ = std::make_unique<shell::CVV>(module_);
    throw;
  }
}

void Session::EndUnit(store::Oid contract_before) {
  std::vector<std::string> made;
  try {
    const store::Oid contract = CurrentContract();
    if (contract != 0 && contract != contract_before)
      made = {
          host::GetText(*host_.Table(schema::table::vv_Vertraege), schema::field::Vertragnummer)};
  } catch (const platform::Error&) {
    // The database can't be read any more; EndUnit says why.
  }
  try {
    EndUnit();
  } catch (const platform::Error& error) {
    throw NamingUncertain(error, made);
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
