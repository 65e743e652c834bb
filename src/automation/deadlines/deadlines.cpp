#include "automation/deadlines/deadlines.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <system_error>
#include <tuple>

#include "automation/formats/files.h"
#include "automation/workspace/database.h"
#include "automation/workspace/row_walk.h"
#include "contract/dates.h"
#include "schema/names.h"
#include "store/RowView.h"

namespace pactora::deadlines {
namespace {

namespace field = schema::field;
namespace table = schema::table;

std::string AddressName(store::RecordStore& store, store::Oid oid) {
  const store::TableId addresses = store.Catalog().Table(table::Adressen);
  store::Record record;
  if (!store.Read(addresses, oid, record)) return {};
  return store::RowView(store.Catalog().tables[addresses], record).Text(field::Name);
}

// Calendars are written again and again; any other file is not replaced.
void RequireCalendarOrNothing(const std::string& path) {
  std::error_code ignored;
  if (!std::filesystem::is_regular_file(path, ignored)) return;
  constexpr std::string_view kBegin = "BEGIN:VCALENDAR";
  std::string begin(kBegin.size(), '\0');
  std::ifstream in(path, std::ios::binary);
  in.read(begin.data(), static_cast<std::streamsize>(begin.size()));
  if (in.gcount() > 0 && begin != kBegin) formats::RaiseTaken(path);
}

}  // namespace

std::string Text(Deadline::Kind kind) {
  switch (kind) {
    case Deadline::Kind::Notice:
      return "Kündigung";
    case Deadline::Kind::TermEnd:
      return "Laufzeitende";
    case Deadline::Kind::End:
      return "Ende";
  }
  return {};
}

std::vector<Deadline> DeadlinesOf(const schema::Table& contracts, const store::Record& contract,
                                  const std::string& address, platform::Date today) {
  std::vector<Deadline> deadlines;
  const store::RowView row(contracts, contract);
  const auto add = [&](Deadline::Kind kind, std::optional<platform::Date> date) {
    if (!date || *date < today) return;
    Deadline deadline;
    deadline.kind = kind;
    deadline.contract = contract.oid;
    deadline.date = *date;
    if (kind == Deadline::Kind::Notice) deadline.safe_receipt = contract::AddDays(*date, -1);
    deadline.address = address;
    deadline.number = row.Text(field::Vertragnummer);
    deadline.name = row.Text(field::Bezeichnung);
    deadline.side = row.Text(field::Typ);
    deadline.responsible = row.Text(field::Verantwortlich);
    deadlines.push_back(std::move(deadline));
  };
  add(Deadline::Kind::Notice, row.Date(field::KuendfristDatum));
  const bool renews = row.Long(field::Art) == schema::kArtRenewable;
  add(renews ? Deadline::Kind::TermEnd : Deadline::Kind::End, row.Date(field::VertragEnde));
  return deadlines;
}

platform::Date LastDayWithin(platform::Date today, std::int32_t weeks) {
  const std::int64_t room = platform::kLastDay - platform::WholeDay(today);
  constexpr std::int64_t kDaysPerWeek = 7;
  return contract::AddDays(today, static_cast<std::int32_t>(std::min(room, weeks * kDaysPerWeek)));
}

std::vector<Deadline> ReadDeadlines(store::RecordStore& store, platform::Date today,
                                    std::optional<std::int32_t> weeks) {
  std::optional<platform::Date> last;
  if (weeks) last = LastDayWithin(today, *weeks);
  const store::TableId contracts = store.Catalog().Table(table::vv_Vertraege);
  const schema::Table& schema = store.Catalog().tables[contracts];
  std::vector<Deadline> deadlines;
  workspace::ForEachRow(store, contracts, [&](const store::Record& record) {
    for (Deadline& deadline : DeadlinesOf(schema, record, {}, today)) {
      if (last && deadline.ActBy() > *last) continue;
      deadline.address = AddressName(store, record.parent);
      deadlines.push_back(std::move(deadline));
    }
    return true;
  });
  std::sort(deadlines.begin(), deadlines.end(), [](const Deadline& a, const Deadline& b) {
    return std::tie(a.date, a.contract, a.kind) < std::tie(b.date, b.contract, b.kind);
  });
  return deadlines;
}

void WriteCalendar(const std::vector<Deadline>& deadlines, const std::string& database,
                   store::RecordStore& store, platform::Date today, const std::string& file) {
  workspace::RequireOutside(database, file);
  RequireCalendarOrNothing(file);
  formats::WriteOutput(file, [&](std::ostream& out) {
    out << CalendarText(deadlines, store.ReadProfile().name, today);
  });
}

}  // namespace pactora::deadlines
