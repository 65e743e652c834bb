// The list of invoice periods and the default contract start.

#include "contract/invoice_periods.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "contract/dates.h"
#include "contract/default_start.h"
#include "contract/rule_texts.h"

namespace pactora::contract {
namespace {

using platform::ToCivil;

TEST(DefaultContractStart, IsTheNextFifteenthOrFirst) {
  const std::pair<const char*, const char*> cases[] = {
      {"01.03.2024", "15.03.2024"}, {"14.03.2024", "15.03.2024"}, {"15.03.2024", "01.04.2024"},
      {"31.01.2024", "01.02.2024"}, {"14.12.2024", "15.12.2024"}, {"15.12.2024", "01.01.2025"}};
  for (const auto& [today, start] : cases) {
    EXPECT_EQ(Text(DefaultContractStart(Day(today))), start) << "today " << today;
  }
}

// The starts of all rows, the last day of the last one, and the end of the list.
std::string Listed(const InvoicePeriodList& list) {
  std::string text;
  for (const InvoicePeriod& row : list.rows) text += Text(row.start) + " ";
  if (!list.rows.empty()) text += "- " + Text(list.rows.back().last_day);
  return text + (list.mdtListEnde ? " < " + Text(*list.mdtListEnde) : "");
}

TEST(InvoicePeriods, AreThese) {
  struct {
    const char* name;
    std::int32_t art, dauer, period, renewal_period;
    const char* begin;
    const char* today;
    const char* rows;
  } const cases[] = {
      {"renewals that start before today", 1, 12, 3, 3, "01.01.2023", "15.03.2024",
       "01.01.2023 01.04.2023 01.07.2023 01.10.2023 01.01.2024 - 31.03.2024"},
      {"renewal that starts today", 1, 6, 6, 12, "01.01.2023", "01.07.2023",
       "01.01.2023 - 30.06.2023"},
      {"renewal that started yesterday", 1, 6, 6, 12, "01.01.2023", "02.07.2023",
       "01.01.2023 01.07.2023 - 30.06.2024"},
      {"renewable in the future", 1, 3, 1, 1, "01.07.2024", "15.03.2024",
       "01.07.2024 01.08.2024 01.09.2024 - 30.09.2024"},
      {"row past a term that its period does not divide", 1, 4, 3, 3, "01.01.2024", "01.01.2024",
       "01.01.2024 01.04.2024 - 30.06.2024"},
      {"renewals after the term, not after that row", 1, 4, 3, 3, "01.01.2024", "02.05.2024",
       "01.01.2024 01.04.2024 01.05.2024 - 31.07.2024"},
      {"contract that ends, whatever today is", 2, 6, 3, 0, "01.02.2024", "01.01.2020",
       "01.02.2024 01.05.2024 - 31.07.2024 < 31.07.2024"},
      {"unlimited up to the first period from today on", 3, 0, 3, 0, "01.01.2024", "15.05.2024",
       "01.01.2024 01.04.2024 01.07.2024 - 30.09.2024 < 30.09.2024"},
      {"unlimited in the future", 3, 0, 12, 0, "01.07.2024", "15.05.2024",
       "01.07.2024 - 30.06.2025 < 30.06.2025"},
      {"unlimited whose period starts today", 3, 0, 1, 0, "01.04.2024", "01.05.2024",
       "01.04.2024 01.05.2024 - 31.05.2024 < 31.05.2024"},
      {"clamped day stays low", 2, 4, 1, 0, "31.01.2024", "01.01.2024",
       "31.01.2024 29.02.2024 29.03.2024 29.04.2024 29.05.2024 - 28.06.2024 < 30.05.2024"},
      {"period of zero", 2, 12, 0, 0, "01.01.2024", "01.01.2025", " < 31.12.2024"},
      {"first period of zero", 1, 12, 0, 12, "01.01.2023", "15.03.2024",
       "01.01.2024 - 31.12.2024"}};
  for (const auto& c : cases) {
    EXPECT_EQ(Listed(ListInvoicePeriods(
                  {c.art, Day(c.begin), c.dauer, c.period, c.renewal_period, Day(c.today)})),
              c.rows)
        << c.name;
  }
}

// Begins on every day of four years with a leap day: rows follow each other without
// a gap, one period at a time, and end where the kind's bound says.
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
        const Date bound = list.mdtListEnde   ? *list.mdtListEnde
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
