// Deadlines of contracts, and their calendar.
#include "automation/deadlines/deadlines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "automation/company.h"
#ifdef PACTORA_HAS_CALENDAR
#include <libical/ical.h>
#endif

namespace pactora::deadlines {
namespace {

using testing::ElementsAre;

#ifdef PACTORA_HAS_CALENDAR
TEST(Deadlines, StandInACalendarOnTheSafeDayUntilTheTermIsOver) {
  const auto events = [](platform::Date today) {
    const std::string text =
        CalendarText(ReadDeadlines(*support::TwoAddresses(), today, 1), {"F", "Firma"}, today);
    icalcomponent* const calendar = icalparser_parse_string(text.c_str());
    EXPECT_EQ(icalcomponent_isa(calendar), ICAL_VCALENDAR_COMPONENT);
    EXPECT_EQ(icalcomponent_count_errors(calendar), 0);
    EXPECT_TRUE(icalrestriction_check(calendar));
    std::vector<std::string> lines;
    for (icalcomponent* event = icalcomponent_get_first_component(calendar, ICAL_VEVENT_COMPONENT);
         event; event = icalcomponent_get_next_component(calendar, ICAL_VEVENT_COMPONENT)) {
      std::string line = icalcomponent_get_uid(event);
      for (const icaltimetype& time :
           {icalcomponent_get_dtstamp(event), icalcomponent_get_dtstart(event),
            icalcomponent_get_dtend(event)})
        line += std::string(" ") + icaltime_as_ical_string(time);
      line += std::string(" ") + icalcomponent_get_summary(event);
      if (icalcomponent_get_first_component(event, ICAL_VALARM_COMPONENT)) line += " (Alarm)";
      lines.push_back(line);
    }
    icalcomponent_free(calendar);
    return lines;
  };
  const std::string end =
      "F-8-ende@pactora 20240501T000000Z 20240501 20240502 Vertrag 2 endet: , Muster (Alarm)";
  EXPECT_THAT(events(platform::FromCivil(2024, 4, 30)),
              ElementsAre("F-10-ende@pactora 20240430T000000Z 20240430 20240501 "
                          "Vertrag 4 endet: , Muster (Alarm)",
                          "F-7-kuendigung@pactora 20240430T000000Z 20240430 20240501 Kündigung "
                          "Vertrag 1 muss heute zugehen: Größe, Menge; usw., Muster (Alarm)",
                          testing::EndsWith("Vertrag 2 endet: , Muster (Alarm)")));
  // Until June 30 one may still want to know.
  EXPECT_THAT(events(platform::FromCivil(2024, 5, 1)),
              ElementsAre("F-7-kuendigung@pactora 20240501T000000Z 20240430 20240501 Kündigung "
                          "Vertrag 1 versäumt: Größe, Menge; usw., Muster",
                          end));
  EXPECT_THAT(events(platform::FromCivil(2024, 6, 30)),
              ElementsAre(testing::HasSubstr("versäumt"), testing::HasSubstr("Laufzeit")));
  EXPECT_THAT(events(platform::FromCivil(2024, 7, 1)), ElementsAre());
}
#endif

}  // namespace
}  // namespace pactora::deadlines
