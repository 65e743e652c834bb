#include "desktop/main_window/timeline.h"

#include <algorithm>

#include "contract/dates.h"
#include "schema/names.h"
#include "store/RowView.h"

namespace pactora::desktop {
namespace {

namespace field = schema::field;
namespace table = schema::table;
using platform::Date;

constexpr std::int32_t kMostYears = 100;
constexpr std::int32_t kYear = 12;  // months
// Months between two ticks.
constexpr std::int32_t kSteps[] = {1, 3, 6, 12, 24, 60, 120, 240, 600};

Date MonthOf(Date date) {
  const platform::CivilDate civil = platform::ToCivil(date);
  return platform::FromCivil(civil.year, civil.month, 1);
}

std::int32_t MonthsBetween(Date first, Date last) {
  const platform::CivilDate a = platform::ToCivil(first);
  const platform::CivilDate b = platform::ToCivil(last);
  return (b.year - a.year) * kYear + b.month - a.month;
}

std::string TickLabel(Date date, std::int32_t step) {
  return platform::FormatDate(date, step < kYear ? "MM/yyyy" : "yyyy");
}

}  // namespace

std::optional<Timeline> ReadTimeline(store::RecordStore& store, store::Oid contract) {
  const schema::Catalog& catalog = store.Catalog();
  const store::TableId contracts = catalog.Table(table::vv_Vertraege);
  const store::TableId terms = catalog.Table(table::vv_Vertragsstaende);
  store::Record record;
  if (contract == 0 || !store.Read(contracts, contract, record)) return std::nullopt;

  Timeline line;
  const store::RowView row(catalog.tables[contracts], record);
  line.title = row.Text(field::Vertragnummer) + "  " + row.Text(field::Bezeichnung);
  line.notice = row.Date(field::KuendfristDatum);
  for (std::int64_t after = 0; store.NextInParent(terms, contract, after, record);
       after = record.order) {
    const store::RowView stored(catalog.tables[terms], record);
    const auto start = stored.Date(field::LaufzeitStart);
    if (!start) continue;
    TimelineTerm term{*start, stored.Date(field::LaufzeitEnde),
                      stored.Date(field::NaechsteRechnung)};
    if (term.next_invoice == platform::kNoInvoiceDate) term.next_invoice.reset();
    line.terms.push_back(term);
  }
  return line;
}

TimeAxis::TimeAxis(const Timeline& line, Date today) : first_(today), last_(today) {
  const auto take = [this](std::optional<Date> date) {
    if (!date) return;
    first_ = std::min(first_, *date);
    last_ = std::max(last_, *date);
  };
  take(line.notice);
  for (const TimelineTerm& term : line.terms) {
    take(term.start);
    take(term.end);
    take(term.next_invoice);
    // A term without an end is drawn for a while.
    if (!term.end) take(contract::AddMonths(std::max(term.start, today), kYear));
  }
  const std::int32_t year = platform::ToCivil(today).year;
  first_ = std::max(first_, platform::FromCivil(std::max(year - kMostYears, 100), 1, 1));
  last_ = std::min(last_, platform::FromCivil(std::min(year + kMostYears, 9999), 11, 30));
  first_ = MonthOf(first_);
  last_ = contract::AddMonths(MonthOf(last_), 1);
}

double TimeAxis::Place(Date date) const {
  return std::clamp((date.days - first_.days) / (last_.days - first_.days), 0.0, 1.0);
}

std::vector<TimeTick> TimeAxis::Ticks(int most) const {
  const std::int32_t months = MonthsBetween(first_, last_);
  std::int32_t step = kSteps[std::size(kSteps) - 1];
  for (const std::int32_t candidate : kSteps) {
    if (months / candidate + 1 <= most) {
      step = candidate;
      break;
    }
  }
  const platform::CivilDate begin = platform::ToCivil(first_);
  const std::int32_t month = begin.year * kYear + begin.month - 1;
  std::vector<TimeTick> ticks;
  for (std::int32_t at = (month + step - 1) / step * step; at < month + months; at += step) {
    const Date date = platform::FromCivil(at / kYear, at % kYear + 1, 1);
    ticks.push_back({date, TickLabel(date, step)});
  }
  return ticks;
}

}  // namespace pactora::desktop
