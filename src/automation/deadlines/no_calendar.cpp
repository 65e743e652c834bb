// Built where the calendar library is missing.
#include "automation/deadlines/deadlines.h"
#include "automation/formats/errors.h"

namespace pactora::deadlines {

bool HasCalendars() { return false; }

std::string CalendarText(const std::vector<Deadline>&, const Publisher&, platform::Date) {
  formats::Raise(formats::DoorError::NotAvailable,
                 "Kalenderdateien sind in diesem Programm nicht enthalten");
}

}  // namespace pactora::deadlines
