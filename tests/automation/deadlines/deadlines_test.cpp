// Deadlines of contracts, and their calendar.
#include "automation/deadlines/deadlines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "automation/company.h"

namespace pactora::deadlines {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

std::unique_ptr<store::RecordStore> Contracts() {
  return support::StoreWith(
      R"({"tables": {"Adressen": [{"@oid": "1", "Name": "Muster", "vv_Vertraege": [
    {"@oid": "7", "Vertragnummer": "1", "Art": 1, "KuendfristDatum": "2024-05-01", "VertragEnde": "2024-06-30"},
    {"@oid": "8", "Vertragnummer": "2", "VertragEnde": "2024-05-01", "Bezeichnung": "x"},
    {"@oid": "9", "Vertragnummer": "3", "VertragEnde": 0},
    {"@oid": "10", "Vertragnummer": "4", "VertragEnde": "2024-04-30"}]}]}})");
}

TEST(Deadlines, AreThoseFromTodayOnByDateAndANoticeNamesItsSafeDay) {
  const auto store = Contracts();
  const auto texts = [&](std::optional<std::int32_t> weeks) {
    std::vector<std::string> lines;
    for (const Deadline& d : ReadDeadlines(*store, platform::FromCivil(2024, 5, 1), weeks)) {
      lines.push_back(
          Text(d.kind) + " " + d.number + " " +
          platform::FormatDate(d.date, platform::kIsoPattern) + " " +
          (d.safe_receipt ? platform::FormatDate(*d.safe_receipt, platform::kIsoPattern) : "-"));
    }
    return lines;
  };
  EXPECT_THAT(texts({}), ElementsAre("Kündigung 1 2024-05-01 2024-04-30", "Ende 2 2024-05-01 -",
                                     "Laufzeitende 1 2024-06-30 -"));
  EXPECT_EQ(texts(8).size(), 2u);
  EXPECT_EQ(texts(9).size(), 3u) << "30.06. is 60 days away";
  // A notice counts by the day on which it must have arrived.
  const auto week_before = platform::FromCivil(2024, 4, 23);
  EXPECT_EQ(ReadDeadlines(*store, week_before, 1).size(), 2u);
  EXPECT_EQ(ReadDeadlines(*store, platform::Date{platform::kLastDay - 1.0}, kMostWeeks).size(), 0u);
}

TEST(Deadlines, StandInACalendarOnTheSafeDay) {
  if (!HasCalendars()) GTEST_SKIP() << "built without calendars";
  const auto store = Contracts();
  const platform::Date today = platform::FromCivil(2024, 5, 1);
  const std::string text = CalendarText(ReadDeadlines(*store, today, 1), "F", today);
  EXPECT_THAT(text, HasSubstr("UID:F-7-kuendigung@pactora\r\nDTSTAMP:20240501T000000Z\r\n"
                              "DTSTART;VALUE=DATE:20240430\r\nDTEND;VALUE=DATE:20240501\r\n"));
  EXPECT_THAT(text, HasSubstr("UID:F-8-ende@pactora"));
  EXPECT_THAT(text, Not(HasSubstr("F-7-ende")));
  EXPECT_THAT(CalendarText({}, "F", today), HasSubstr("BEGIN:VTIMEZONE\r\nTZID:UTC\r\n"));
}

}  // namespace
}  // namespace pactora::deadlines
