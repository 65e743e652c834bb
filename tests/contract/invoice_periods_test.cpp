#include "contract/invoice_periods.h"

#include <gmock/gmock.h>

#include "contract/dates.h"
#include "contract/default_start.h"
#include "platform/Error.h"
#include "schema/names.h"

namespace pactora::contract {
namespace {

using platform::CivilDate;
using platform::FromCivil;
using platform::ToCivil;
using testing::ElementsAre;

std::string Text(Date date) { return FormatDate(date, platform::kGermanPattern); }

Date Day(std::string_view text) {  // "dd.MM.yyyy"
  const auto number = [&](std::size_t from, std::size_t count) {
    return std::stoi(std::string(text.substr(from, count)));
  };
  return FromCivil(number(6, 4), number(3, 2), number(0, 2));
}

std::vector<std::string> Rows(const InvoicePeriodList& list) {
  std::vector<std::string> rows;
  for (const InvoicePeriod& row : list.rows) {
    rows.push_back(Text(row.start) + " - " + Text(row.last_day));
  }
  return rows;
}

TEST(DefaultContractStart, IsTheNextFifteenthOrFirst) {
  const std::pair<const char*, const char*> cases[] = {
      {"01.03.2024", "15.03.2024"}, {"14.03.2024", "15.03.2024"}, {"15.03.2024", "01.04.2024"},
      {"31.01.2024", "01.02.2024"}, {"14.12.2024", "15.12.2024"}, {"15.12.2024", "01.01.2025"},
      {"31.12.2024", "01.01.2025"}};
  for (const auto& [today, start] : cases) {
    EXPECT_EQ(Text(DefaultContractStart(Day(today))), start) << "today " << today;
  }
}

struct ListCase {
  const char* name;
  std::int32_t art, dauer, period, renewal_period;
  const char* begin;
  const char* today;
  std::vector<std::string> rows;
  const char* list_end;  // empty for none
};

class InvoicePeriodCases : public testing::TestWithParam<ListCase> {};

TEST_P(InvoicePeriodCases, GiveTheseRows) {
  const ListCase& c = GetParam();
  const InvoicePeriodList list =
      ListInvoicePeriods({c.art, Day(c.begin), c.dauer, c.period, c.renewal_period, Day(c.today)});
  EXPECT_EQ(Rows(list), c.rows);
  EXPECT_EQ(list.list_end ? Text(*list.list_end) : "", c.list_end);
}

INSTANTIATE_TEST_SUITE_P(
    Table, InvoicePeriodCases,
    testing::Values(
        ListCase{"RenewableShowsRenewalsThatStartBeforeToday",
                 1,
                 12,
                 3,
                 3,
                 "01.01.2023",
                 "15.03.2024",
                 {"01.01.2023 - 31.03.2023", "01.04.2023 - 30.06.2023", "01.07.2023 - 30.09.2023",
                  "01.10.2023 - 31.12.2023", "01.01.2024 - 31.03.2024"},
                 ""},
        ListCase{"RenewalThatStartsTodayIsNotShown",
                 1,
                 6,
                 6,
                 12,
                 "01.01.2023",
                 "01.07.2023",
                 {"01.01.2023 - 30.06.2023"},
                 ""},
        ListCase{"RenewalThatStartedYesterdayIsShown",
                 1,
                 6,
                 6,
                 12,
                 "01.01.2023",
                 "02.07.2023",
                 {"01.01.2023 - 30.06.2023", "01.07.2023 - 30.06.2024"},
                 ""},
        ListCase{"FutureRenewableShowsItsFirstTerm",
                 1,
                 3,
                 1,
                 1,
                 "01.07.2024",
                 "15.03.2024",
                 {"01.07.2024 - 31.07.2024", "01.08.2024 - 31.08.2024", "01.09.2024 - 30.09.2024"},
                 ""},
        ListCase{"RowRunsPastATermThatItsPeriodDoesNotDivide",
                 1,
                 4,
                 3,
                 3,
                 "01.01.2024",
                 "01.01.2024",
                 {"01.01.2024 - 31.03.2024", "01.04.2024 - 30.06.2024"},
                 ""},
        ListCase{"RenewalsStartAfterTheTermNotAfterTheRowThatRanPastIt",
                 1,
                 4,
                 3,
                 3,
                 "01.01.2024",
                 "02.05.2024",
                 {"01.01.2024 - 31.03.2024", "01.04.2024 - 30.06.2024", "01.05.2024 - 31.07.2024"},
                 ""},
        ListCase{"EndingContractShowsAllOfItsTermWhateverTodayIs",
                 2,
                 6,
                 3,
                 0,
                 "01.02.2024",
                 "01.01.2020",
                 {"01.02.2024 - 30.04.2024", "01.05.2024 - 31.07.2024"},
                 "31.07.2024"},
        ListCase{"UnlimitedGoesUpToTheFirstPeriodFromTodayOn",
                 3,
                 0,
                 3,
                 0,
                 "01.01.2024",
                 "15.05.2024",
                 {"01.01.2024 - 31.03.2024", "01.04.2024 - 30.06.2024", "01.07.2024 - 30.09.2024"},
                 "30.09.2024"},
        ListCase{"UnlimitedThatStartsInTheFutureShowsOneRow",
                 3,
                 0,
                 12,
                 0,
                 "01.07.2024",
                 "15.05.2024",
                 {"01.07.2024 - 30.06.2025"},
                 "30.06.2025"},
        ListCase{"UnlimitedWhosePeriodStartsToday",
                 3,
                 0,
                 1,
                 0,
                 "01.04.2024",
                 "01.05.2024",
                 {"01.04.2024 - 30.04.2024", "01.05.2024 - 31.05.2024"},
                 "31.05.2024"},
        ListCase{"AnyOtherKindCountsAsUnlimited",
                 7,
                 0,
                 12,
                 0,
                 "01.07.2024",
                 "15.05.2024",
                 {"01.07.2024 - 30.06.2025"},
                 "30.06.2025"},
        ListCase{"ClampedDayStaysLow",
                 2,
                 4,
                 1,
                 0,
                 "31.01.2024",
                 "01.01.2024",
                 {"31.01.2024 - 28.02.2024", "29.02.2024 - 28.03.2024", "29.03.2024 - 28.04.2024",
                  "29.04.2024 - 28.05.2024", "29.05.2024 - 28.06.2024"},
                 "30.05.2024"},
        ListCase{
            "PeriodOfZeroGivesNoRow", 2, 12, 0, 0, "01.01.2024", "01.01.2025", {}, "31.12.2024"},
        ListCase{"NegativePeriodOfAnUnlimitedContractGivesNoRow",
                 3,
                 0,
                 -1,
                 0,
                 "01.01.2024",
                 "01.01.2025",
                 {},
                 "30.11.2023"},
        ListCase{"RenewalPeriodOfZeroLeavesTheRowsOfTheFirstTerm",
                 1,
                 12,
                 12,
                 0,
                 "01.01.2020",
                 "01.01.2025",
                 {"01.01.2020 - 31.12.2020"},
                 ""},
        ListCase{"FirstPeriodOfZeroLeavesTheRowsOfTheRenewals",
                 1,
                 12,
                 0,
                 12,
                 "01.01.2023",
                 "15.03.2024",
                 {"01.01.2024 - 31.12.2024"},
                 ""}),
    [](const auto& row) { return row.param.name; });

TEST(InvoicePeriods, RaiseErrorFiveWhenARowPassesTheCalendar) {
  const InvoicePeriodTerms terms{2, Day("01.06.9999"), 6, 12, 0, Day("01.01.2024")};
  try {
    ListInvoicePeriods(terms);
    FAIL() << "no error";
  } catch (const platform::Error& error) {
    EXPECT_EQ(error.Number(), 5);
  }
}

// Begins on every day of four years with a leap day: whatever the kind and the
// periods, rows follow each other without a gap, one period at a time.
TEST(InvoicePeriods, FollowEachOtherForEveryBegin) {
  const Date today = Day("17.05.2027");
  for (Date begin = Day("01.01.2023"); begin < Day("01.01.2027"); begin.days += 1) {
    for (const std::int32_t art : {1, 2, 3}) {
      for (const std::int32_t period : {1, 3, 5, 12}) {
        const InvoicePeriodList list = ListInvoicePeriods({art, begin, 12, period, period, today});
        const Date renewals = AddDays(TermEnd(begin, 12), 1);
        ASSERT_FALSE(list.rows.empty());
        ASSERT_EQ(list.rows.front().start, begin);
        for (std::size_t i = 0; i < list.rows.size(); ++i) {
          const Date start = list.rows[i].start;
          ASSERT_EQ(AddDays(list.rows[i].last_day, 1), AddMonths(start, period));
          if (i == 0 || (art == 1 && start == renewals)) continue;
          ASSERT_EQ(start, AddDays(list.rows[i - 1].last_day, 1)) << Text(begin);
          ASSERT_LE(ToCivil(start).day, ToCivil(list.rows[i - 1].start).day) << Text(begin);
        }
        const Date bound = list.list_end      ? *list.list_end
                           : renewals < today ? today
                                              : AddDays(renewals, -1);
        ASSERT_LT(list.rows.back().start, bound);
        ASSERT_GE(AddMonths(list.rows.back().start, period), bound);
      }
    }
  }
}

}  // namespace
}  // namespace pactora::contract
