#include "contract/dates.h"

#include <algorithm>

#include "platform/Error.h"
#include "schema/names.h"

namespace pactora::contract {

namespace {

constexpr std::int64_t kFirstYear = 100;
constexpr std::int64_t kLastYear = 9999;
constexpr std::int32_t kMonthsPerYear = 12;
constexpr std::int32_t kDaysPerWeek = 7;

// Before day 0 the time of day counts away from zero, as in the host's dates.
Date FromDay(std::int64_t day, double time_of_day) {
  if (day < platform::kFirstDay || day > platform::kLastDay) {
    platform::Raise(platform::RuntimeError::InvalidArgument);
  }
  const auto whole = static_cast<double>(day);
  return Date{day < 0 ? whole - time_of_day : whole + time_of_day};
}

// The comparison is false for a date that is no number.
void RequireInCalendar(Date date) {
  if (date.days > platform::kFirstDay - 1.0 && date.days < platform::kLastDay + 1.0) return;
  platform::Raise(platform::RuntimeError::InvalidArgument);
}

Date MoveByDays(Date date, std::int64_t days) {
  RequireInCalendar(date);
  return FromDay(platform::WholeDay(date) + days, platform::TimeOfDay(date));
}

Date MoveByMonths(Date date, std::int64_t months) {
  RequireInCalendar(date);
  const platform::CivilDate from = platform::ToCivil(date);
  const std::int64_t month_count =
      std::int64_t{from.year} * kMonthsPerYear + (from.month - 1) + months;
  if (month_count < kFirstYear * kMonthsPerYear ||
      month_count >= (kLastYear + 1) * kMonthsPerYear) {
    platform::Raise(platform::RuntimeError::InvalidArgument);
  }
  platform::CivilDate to;
  to.year = static_cast<std::int32_t>(month_count / kMonthsPerYear);
  to.month = static_cast<std::int32_t>(month_count % kMonthsPerYear) + 1;
  to.day = std::min(from.day, platform::DaysInMonth(to.year, to.month));
  return FromDay(platform::DayNumber(to), platform::TimeOfDay(date));
}

}  // namespace

Date AddMonths(Date date, std::int32_t months) { return MoveByMonths(date, months); }

Date AddDays(Date date, std::int32_t days) { return MoveByDays(date, days); }

Date AddWeeks(Date date, std::int32_t weeks) {
  return MoveByDays(date, std::int64_t{weeks} * kDaysPerWeek);
}

Date WeeksBefore(Date date, std::int32_t weeks) {
  return MoveByDays(date, -std::int64_t{weeks} * kDaysPerWeek);
}

Date TermEnd(Date start, std::int32_t months) { return AddDays(AddMonths(start, months), -1); }

Date NoticeDate(Date end, std::int32_t frist, std::string_view einheit) {
  const Date day_after = AddDays(end, 1);
  if (einheit == schema::kWeeks) return WeeksBefore(day_after, frist);
  return MoveByMonths(day_after, -std::int64_t{frist});
}

Date InvoiceDate(Date start, std::int32_t rechnungWann, std::int32_t periode) {
  if (rechnungWann == schema::kInAdvance || start == platform::kNoInvoiceDate) return start;
  return AddMonths(start, periode);
}

std::string SortText(Date date) { return platform::FormatDate(date, platform::kSortPattern); }

}  // namespace pactora::contract
