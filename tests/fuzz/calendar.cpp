// A calendar of deadlines whose texts may hold anything.
#include <fuzzer/FuzzedDataProvider.h>
#include <libical/ical.h>

#include <string>
#include <vector>

#include "automation/deadlines/deadlines.h"
#include "automation/formats/visible.h"
#include "fuzz/fuzz.h"
#include "platform/Text.h"

namespace pactora::fuzz {

void Try(std::string_view input) {
  using deadlines::Deadline;
  FuzzedDataProvider some(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
  const auto day = [&](std::int32_t last) {
    return platform::Date{
        static_cast<double>(some.ConsumeIntegralInRange(platform::kFirstDay, last))};
  };
  const platform::Date today = day(platform::WholeDay(deadlines::kLastCalendarDay));
  const std::string database = some.ConsumeRandomLengthString(20);
  std::vector<Deadline> all, shown;
  while (some.remaining_bytes() > 0) {
    Deadline deadline;
    deadline.kind = some.PickValueInArray(
        {Deadline::Kind::Notice, Deadline::Kind::TermEnd, Deadline::Kind::End});
    deadline.date = day(platform::kLastDay);
    for (std::string* text :
         {&deadline.number, &deadline.name, &deadline.address, &deadline.responsible})
      *text = some.ConsumeRandomLengthString(200);
    if (deadline.date <= deadlines::kLastCalendarDay) shown.push_back(deadline);
    all.push_back(std::move(deadline));
  }
  const std::string text = deadlines::CalendarText(all, {database, database}, today);
  RequireVisible(text, "\r\n");
  icalcomponent* const calendar = icalparser_parse_string(text.c_str());
  Require(icalcomponent_count_errors(calendar) == 0, "a calendar can be read");
  std::size_t events = 0;
  for (icalcomponent* event = icalcomponent_get_first_component(calendar, ICAL_VEVENT_COMPONENT);
       event; event = icalcomponent_get_next_component(calendar, ICAL_VEVENT_COMPONENT)) {
    const Deadline& deadline = shown.at(events++);
    const std::string wanted = formats::Visible(": " + deadline.name + ", " + deadline.address);
    // Readers leave out blanks at the end.
    Require(platform::Trim(icalcomponent_get_summary(event)).ends_with(platform::Trim(wanted)),
            "an event reads as it was written");
  }
  Require(events == shown.size(), "each deadline is an event");
  icalcomponent_free(calendar);
}

}  // namespace pactora::fuzz
