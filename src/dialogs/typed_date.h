// Dates as people type them.
#pragma once

#include <optional>
#include <string_view>

#include "platform/Date.h"

namespace pactora::dialogs {

// Reads day, month and year with a point, comma, slash, hyphen or blank between
// them; without any as "ddMMyyyy" or "ddMMyy"; or "yyyy-MM-dd". A year of two digits
// is the one from 1950 to 2049; without a year it is that of shown. Nothing else
// is a date, nor is a day that the calendar does not have.
std::optional<platform::Date> ReadTypedDate(std::string_view text, platform::Date shown);

}  // namespace pactora::dialogs
