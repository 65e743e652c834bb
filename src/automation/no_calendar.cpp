// Built where the calendar library is missing.
#include "automation/deadlines.h"
#include "automation/errors.h"

namespace pactora::automation {

bool HasCalendars() { return false; }

std::string CalendarText(const std::vector<Deadline>&, const std::string&, platform::Date) {
  Raise(DoorError::NotAvailable, "Kalenderdateien sind in diesem Programm nicht enthalten");
}

}  // namespace pactora::automation
