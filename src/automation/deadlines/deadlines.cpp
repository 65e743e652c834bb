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

std::int64_t KeyOf(const Deadline& deadline) {
  return 2 * deadline.contract + (deadline.kind == Deadline::Kind::Notice ? 0 : 1);
}

std::vector<Deadline> DeadlinesOf(const workspace::RowWalk& contracts, platform::Date today) {
  std::vector<Deadline> deadlines;
  const store::RowView row = contracts.Row(table::vv_Vertraege);
  const std::optional<platform::Date> end = row.Date(field::VertragEnde);
  const bool goes_on = end && *end >= today;
  const auto add = [&](Deadline::Kind kind, std::optional<platform::Date> date) {
    if (!date || (*date < today && !(kind == Deadline::Kind::Notice && goes_on))) return;
    Deadline deadline;
    deadline.kind = kind;
    deadline.contract = contracts.Row().oid;
    deadline.date = *date;
    if (kind == Deadline::Kind::Notice) {
      deadline.safe_receipt = contract::AddDays(*date, -1);
      deadline.missed = *deadline.safe_receipt < today;
    }
    deadline.address = contracts.Row(table::Adressen).Text(field::Name);
    deadline.number = row.Text(field::Vertragnummer);
    deadline.name = row.Text(field::Bezeichnung);
    deadline.side = row.Text(field::Typ);
    deadline.responsible = row.Text(field::Verantwortlich);
    deadlines.push_back(std::move(deadline));
  };
  add(Deadline::Kind::Notice, row.Date(field::KuendfristDatum));
  const bool renews = row.Long(field::Art) == schema::kArtRenewable;
  add(renews ? Deadline::Kind::TermEnd : Deadline::Kind::End, end);
  return deadlines;
}

bool IsWithin(platform::Date day, platform::Date today, std::int32_t weeks) {
  constexpr std::int64_t kDaysPerWeek = 7;
  return platform::WholeDay(day) <= platform::WholeDay(today) + weeks * kDaysPerWeek;
}

std::vector<Deadline> ReadDeadlines(store::RecordStore& store, platform::Date today,
                                    std::optional<std::int32_t> weeks) {
  std::vector<Deadline> deadlines;
  workspace::RowWalk walk(store, store.Catalog().FindTable(table::vv_Vertraege).value());
  while (walk.Next()) {
    for (Deadline& deadline : DeadlinesOf(walk, today))
      if (!weeks || IsWithin(deadline.ActBy(), today, *weeks))
        deadlines.push_back(std::move(deadline));
  }
  std::sort(deadlines.begin(), deadlines.end(), [](const Deadline& a, const Deadline& b) {
    return std::tie(b.missed, a.date, a.contract, a.kind) <
           std::tie(a.missed, b.date, b.contract, b.kind);
  });
  return deadlines;
}

void WriteCalendar(const std::vector<Deadline>& deadlines, const std::string& database,
                   store::RecordStore& store, platform::Date today, const std::string& file) {
  workspace::RequireNoDatabase(database, file);
  RequireCalendarOrNothing(file);
  formats::WriteOutput(file, [&](std::ostream& out) {
    const store::Profile profile = store.ReadProfile();
    out << CalendarText(deadlines, {workspace::IdOf(profile), profile.name}, today);
  });
}

}  // namespace pactora::deadlines
