// Deadlines of contracts, and their calendar.
#include "automation/deadlines/deadlines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "automation/company.h"

namespace pactora::deadlines {
namespace {

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
