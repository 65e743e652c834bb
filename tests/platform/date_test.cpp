#include "platform/Date.h"

#include <gtest/gtest.h>

namespace pactora::platform {
namespace {

TEST(Dates, EveryDayOfTheCalendarFollowsTheDayBefore) {
  CivilDate expected{100, 1, 1};
  for (std::int32_t day = kFirstDay; day <= kLastDay; ++day) {
    ASSERT_EQ(ToCivil(Date{static_cast<double>(day)}), expected) << day;
    ASSERT_EQ(DayNumber(expected), day);
    if (++expected.day > DaysInMonth(expected.year, expected.month)) {
      expected.day = 1;
      if (++expected.month > 12) expected = {expected.year + 1, 1, 1};
    }
  }
  EXPECT_EQ(expected, (CivilDate{10000, 1, 1}));
}

TEST(Dates, TheTimeOfDayCountsUpwardsOnBothSidesOfDayZero) {
  struct {
    double days;
    std::int32_t day;
    double time;
  } const rows[] = {{45366.375, 45366, 0.375},   {0.25, 0, 0.25}, {-1.25, -1, 0.25},
                    {-657434.75, -657434, 0.75}, {-0.5, 0, 0.5},  {2958465.5, 2958465, 0.5},
                    {1.9999999, 2, 0.0},  // a hundredth of a second before midnight
                    {-1.9999999, 0, 0.0}};
  for (const auto& [days, day, time] : rows) {
    EXPECT_EQ(WholeDay(Date{days}), day) << days;
    EXPECT_DOUBLE_EQ(TimeOfDay(Date{days}), time) << days;
  }
}

TEST(Dates, EverySecondOfADayReadsBack) {
  for (const std::int32_t day : {-40000, -1, 0, 45366, kLastDay}) {
    for (std::int32_t second = 1; second < 86400; second += 61) {
      const Date date = FromDayAndSeconds(day, second);
      ASSERT_EQ(ParseIso(FormatIso(date)), date) << day << " " << second;
    }
  }
}

TEST(Dates, PatternsFormat) {
  const Date morning = FromDayAndSeconds(DayNumber({2024, 3, 5}), 9 * 3600 + 7 * 60 + 2);
  struct {
    Date date;
    std::string_view pattern;
    std::string_view text;
  } const rows[] = {{morning, "dd.mm.yyyy HH:mm", "05.03.2024 09:07"},
                    {morning, kSortPattern, "20240305"},
                    {morning, kIsoPattern, "2024-03-05"},
                    {morning, kGermanPattern, "05.03.2024"},
                    {morning, "d.M.yy H:m:s", "5.3.24 9:7:2"},
                    {morning, kGermanTimePattern, "05.03.2024 09:07:02"},
                    {morning, "", ""},
                    {morning, "Tag: dd ä", "Tag: 05 ä"},
                    {kNoDate, kSortPattern, "18991230"},
                    {kNoInvoiceDate, kSortPattern, "99991231"},
                    {FromCivil(100, 1, 2), kGermanPattern, "02.01.0100"},
                    {FromCivil(2000, 12, 31), "yy", "00"},
                    {Date{45366.9999999}, kGermanTimePattern, "16.03.2024 00:00:00"}};
  for (const auto& [date, pattern, text] : rows) EXPECT_EQ(FormatDate(date, pattern), text);
}

TEST(Dates, OnlyFullDatesAreRead) {
  const Date day = FromCivil(2024, 2, 29);
  EXPECT_EQ(ParseDate("29.02.2024"), day);
  EXPECT_EQ(ParseDate("2024-02-29"), day);
  EXPECT_EQ(ParseIso("2024-02-29"), day);
  EXPECT_EQ(ParseIso("2024-02-29T06:00:00"), Date{day.days + 0.25});
  EXPECT_EQ(ParseIso("1899-12-29T06:00:00"), Date{-1.25});
  for (const char* text :
       {"", "29.2.2024", "29.02.24", "30.02.2024", "29.02.2023", "2024-2-29", "2024-13-01",
        "2024-02-29 ", " 2024-02-29", "29-02-2024", "2024.02.29", "29.02.2O24", "20240229",
        "0099-12-31", "+024-02-29", "2024-02-29T06:00:00"}) {
    EXPECT_EQ(ParseDate(text), std::nullopt) << text;
  }
  for (const char* text : {"29.02.2024", "2024-02-29T24:00:00", "2024-02-29T06:60:00",
                           "2024-02-29T06:00:60", "2024-02-29T06:00", "2024-02-29 06:00:00"}) {
    EXPECT_EQ(ParseIso(text), std::nullopt) << text;
  }
}

TEST(Dates, TheFormOfExchangeHasATimeOnlyWhereThereIsOne) {
  EXPECT_EQ(FormatIso(Date{45366.0}), "2024-03-15");
  EXPECT_EQ(FormatIso(Date{45366.375}), "2024-03-15T09:00:00");
  EXPECT_EQ(FormatIso(Date{45366.000000001}), "2024-03-15");
  EXPECT_EQ(FormatIso(Date{45367.0 - 0.4 / 86400.0}), "2024-03-16");
}

}  // namespace
}  // namespace pactora::platform
