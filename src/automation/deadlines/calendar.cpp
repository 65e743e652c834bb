// Deadlines as a calendar.
#include <fmt/format.h>
#include <libical/ical.h>

#include <memory>
#include <string>

#include "automation/deadlines/deadlines.h"
#include "automation/formats/visible.h"
#include "platform/Date.h"

namespace pactora::deadlines {
namespace {

struct FreeComponent {
  void operator()(icalcomponent* component) const { icalcomponent_free(component); }
};
using Component = std::unique_ptr<icalcomponent, FreeComponent>;

icaltimetype Day(platform::Date date) {
  const platform::CivilDate civil = platform::ToCivil(date);
  icaltimetype day = icaltime_null_date();
  day.year = civil.year;
  day.month = civil.month;
  day.day = civil.day;
  return day;
}

std::string What(const Deadline& deadline) {
  switch (deadline.kind) {
    case Deadline::Kind::Notice:
      if (deadline.missed) return fmt::format("Kündigung Vertrag {} versäumt", deadline.number);
      return fmt::format("Kündigung Vertrag {} muss heute zugehen", deadline.number);
    case Deadline::Kind::TermEnd:
      return fmt::format("Laufzeit von Vertrag {} endet, ohne Kündigung verlängert er sich",
                         deadline.number);
    case Deadline::Kind::End:
      return fmt::format("Vertrag {} endet", deadline.number);
  }
  return {};
}

std::string Summary(const Deadline& deadline) {
  return formats::Visible(
      fmt::format("{}: {}, {}", What(deadline), deadline.name, deadline.address));
}

std::string Description(const Deadline& deadline) {
  std::string text;
  if (deadline.kind == Deadline::Kind::Notice) {
    text = fmt::format("Kündigungsfrist läuft am {} aus.\n",
                       platform::FormatDate(deadline.date, platform::kGermanPattern));
  }
  return text + formats::Visible(fmt::format("Verantwortlich: {}", deadline.responsible));
}

// A week before, in the morning: the day itself is too late for most letters.
icalcomponent* Alarm(const std::string& text) {
  return icalcomponent_vanew(ICAL_VALARM_COMPONENT, icalproperty_new_action(ICAL_ACTION_DISPLAY),
                             icalproperty_new_trigger(icaltriggertype_from_string("-P6DT15H")),
                             icalproperty_new_description(text.c_str()), nullptr);
}

// A published event must name who publishes it; a database has no mail address.
icalproperty* Organizer(const std::string& name) {
  icalproperty* organizer = icalproperty_new_organizer("invalid:nomail");
  icalproperty_add_parameter(organizer, icalparameter_new_cn(name.c_str()));
  return organizer;
}

icalcomponent* Event(const Deadline& deadline, const Publisher& publisher, icaltimetype stamp) {
  const platform::Date day = deadline.ActBy();
  const bool notice = deadline.kind == Deadline::Kind::Notice;
  const std::string uid = fmt::format("{}-{}-{}@pactora", formats::Visible(publisher.id),
                                      deadline.contract, notice ? "kuendigung" : "ende");
  const std::string summary = Summary(deadline);
  icalcomponent* event = icalcomponent_vanew(
      ICAL_VEVENT_COMPONENT, icalproperty_new_uid(uid.c_str()), icalproperty_new_dtstamp(stamp),
      Organizer(formats::Visible(publisher.name)), icalproperty_new_dtstart(Day(day)),
      icalproperty_new_dtend(Day(platform::Date{day.days + 1})),
      icalproperty_new_summary(summary.c_str()),
      icalproperty_new_description(Description(deadline).c_str()),
      icalproperty_new_transp(ICAL_TRANSP_TRANSPARENT), nullptr);
  if (!deadline.missed) icalcomponent_add_component(event, Alarm(summary));
  return event;
}

// A calendar needs one component at least; this one shows nothing.
icalcomponent* UniversalTime() {
  icalcomponent* standard = icalcomponent_vanew(
      ICAL_XSTANDARD_COMPONENT, icalproperty_new_dtstart(icaltime_from_string("19700101T000000")),
      icalproperty_new_tzoffsetfrom(0), icalproperty_new_tzoffsetto(0), nullptr);
  return icalcomponent_vanew(ICAL_VTIMEZONE_COMPONENT, icalproperty_new_tzid("UTC"), standard,
                             nullptr);
}

}  // namespace

bool HasCalendars() { return true; }

std::string CalendarText(const std::vector<Deadline>& deadlines, const Publisher& publisher,
                         platform::Date today) {
  icaltimetype stamp = Day(today);
  stamp.is_date = 0;
  stamp.hour = stamp.minute = stamp.second = 0;
  stamp.zone = icaltimezone_get_utc_timezone();
  const Component calendar(
      icalcomponent_vanew(ICAL_VCALENDAR_COMPONENT, icalproperty_new_version("2.0"),
                          icalproperty_new_method(ICAL_METHOD_PUBLISH),
                          icalproperty_new_prodid("-//Pactora//Fristen//DE"), nullptr));
  for (const Deadline& deadline : deadlines)
    if (deadline.ActBy() <= kLastCalendarDay)
      icalcomponent_add_component(calendar.get(), Event(deadline, publisher, stamp));
  if (icalcomponent_count_components(calendar.get(), ICAL_VEVENT_COMPONENT) == 0)
    icalcomponent_add_component(calendar.get(), UniversalTime());
  char* text = icalcomponent_as_ical_string_r(calendar.get());
  std::string result = text;
  icalmemory_free_buffer(text);
  return result;
}

}  // namespace pactora::deadlines
