// The date rules: a table of cases first, then what holds for every day.

#include "contract/dates.h"

#include <cmath>

#include "support/contract_world.h"

namespace pactora::contract {
namespace {

using support::Day;

Date At(Date day, double time) { return Date{day.days < 0 ? day.days - time : day.days + time}; }

std::string Text(Date date) { return platform::FormatDate(date, "dd.MM.yyyy HH:mm"); }

struct DateCase {
  std::string name;
  Date result;
  Date expected;
};

TEST(Dates, FollowTheTableOfCases) {
  const Date may = Day(15, 3, 2024);
  const std::vector<DateCase> cases = {
      {"a month later the day is clamped", AddMonths(Day(31, 1, 2024), 1), Day(29, 2, 2024)},
      {"no leap year", AddMonths(Day(31, 1, 2023), 1), Day(28, 2, 2023)},
      {"a century without a leap day", AddMonths(Day(31, 12, 2099), 2), Day(28, 2, 2100)},
      {"backwards over the year", AddMonths(Day(31, 1, 2024), -1), Day(31, 12, 2023)},
      {"a year from a leap day", AddMonths(Day(29, 2, 2024), 12), Day(28, 2, 2025)},
      {"a clamped day stays low", AddMonths(AddMonths(Day(31, 1, 2024), 1), 1), Day(29, 3, 2024)},
      {"the time of day stays", AddMonths(At(may, 0.375), 11), At(Day(15, 2, 2025), 0.375)},
      {"before day 0 as well", AddMonths(At(Day(31, 1, 1899), 0.25), 1),
       At(Day(28, 2, 1899), 0.25)},
      {"from before day 0 to after it", AddDays(At(Day(29, 12, 1899), 0.75), 2),
       At(Day(31, 12, 1899), 0.75)},
      {"weeks", AddWeeks(Day(15, 3, 2025), -6), Day(1, 2, 2025)},
      {"an alarm six weeks ahead", WeeksBefore(Day(1, 2, 2025), 6), Day(21, 12, 2024)},
      {"a year's term", TermEnd(may, 12), Day(14, 3, 2025)},
      {"half a year's term", TermEnd(Day(1, 2, 2024), 6), Day(31, 7, 2024)},
      {"a term of no month ends the day before", TermEnd(Day(1, 1, 2024), 0), Day(31, 12, 2023)},
      {"notice in weeks", NoticeDate(Day(14, 3, 2025), 6, "Wochen"), Day(1, 2, 2025)},
      {"notice in months", NoticeDate(Day(14, 3, 2025), 3, "Monate"), Day(15, 12, 2024)},
      {"the unit counts case", NoticeDate(Day(14, 3, 2025), 3, "wochen"), Day(15, 12, 2024)},
      {"no notice period", NoticeDate(Day(14, 3, 2025), 0, "Wochen"), Day(15, 3, 2025)},
      {"notice in months is clamped", NoticeDate(Day(30, 3, 2024), 1, "Monate"), Day(29, 2, 2024)},
      {"in advance", InvoiceDate(may, 0, 3), may},
      {"in arrears", InvoiceDate(may, 1, 3), Day(15, 6, 2024)},
      {"no further invoice, in arrears", InvoiceDate(platform::kNoInvoiceDate, 1, 3),
       platform::kNoInvoiceDate},
      {"the last day of the calendar", AddDays(Day(30, 12, 9999), 1), Day(31, 12, 9999)},
      {"the first day of the calendar", AddMonths(Day(1, 2, 100), -1), Day(1, 1, 100)},
  };
  for (const DateCase& row : cases) {
    EXPECT_EQ(row.result, row.expected)
        << row.name << ": " << Text(row.result) << " instead of " << Text(row.expected);
  }
}

TEST(Dates, OutsideTheCalendarAreInvalid) {
  const Date today = Day(15, 3, 2024);
  const Date last = Day(31, 12, 9999);
  const std::vector<std::pair<std::string, std::function<Date()>>> cases = {
      {"a day too late", [&] { return AddDays(last, 1); }},
      {"a day too early", [&] { return AddDays(Day(1, 1, 100), -1); }},
      {"a term beyond the end", [&] { return TermEnd(Day(1, 2, 9999), 12); }},
      {"notice of the last day", [&] { return NoticeDate(last, 0, "Wochen"); }},
      {"in arrears beyond the end", [&] { return InvoiceDate(Day(30, 12, 9999), 1, 1); }},
      {"the most months", [&] { return AddMonths(today, INT32_MAX); }},
      {"the fewest weeks", [&] { return WeeksBefore(today, INT32_MIN); }},
      {"the longest notice", [&] { return NoticeDate(today, INT32_MIN, "Monate"); }},
      {"from no number", [&] { return AddMonths(Date{std::nan("")}, 1); }},
  };
  for (const auto& [name, call] : cases) EXPECT_EQ(support::ErrorNumberOf(call), 5) << name;
}

// Every day from 1896 to 2104, which has leap years, a century without a leap day
// on either side and day 0 in it.
constexpr std::int32_t kSweepFirst = -1460;
constexpr std::int32_t kSweepLast = 74880;

TEST(Dates, AMonthAddedIsTheNextMonthAndTheSameDayOrItsLast) {
  for (std::int32_t day = kSweepFirst; day <= kSweepLast; ++day) {
    const platform::CivilDate from = platform::ToCivil(Date{double(day)});
    for (const std::int32_t months : {-60, -13, -1, 0, 1, 2, 11, 12, 25}) {
      const platform::CivilDate to = platform::ToCivil(AddMonths(Date{double(day)}, months));
      ASSERT_EQ(to.year * 12 + to.month, from.year * 12 + from.month + months);
      ASSERT_TRUE(platform::IsValid(to));
      const bool same_day = to.day == from.day;
      const bool last_of_shorter_month =
          to.day < from.day && to.day == platform::DaysInMonth(to.year, to.month);
      ASSERT_TRUE(same_day || last_of_shorter_month) << day << " + " << months;
    }
  }
}

TEST(Dates, TermsAndNoticePeriodsFollowOneAnother) {
  for (std::int32_t day = kSweepFirst; day <= kSweepLast; day += 3) {
    const Date start{double(day)};
    for (const std::int32_t months : {1, 2, 6, 12, 36}) {
      const Date end = TermEnd(start, months);
      ASSERT_LT(start, end);
      ASSERT_EQ(AddDays(end, 1), AddMonths(start, months));
      const Date notice = NoticeDate(end, months, "Wochen");
      ASSERT_EQ(end.days + 1 - notice.days, 7.0 * months);
      // Back by the same months is the start again, unless a day was clamped.
      if (platform::ToCivil(start).day <= 28) {
        ASSERT_EQ(NoticeDate(end, months, "Monate"), start);
      }
    }
  }
}

}  // namespace
}  // namespace pactora::contract
