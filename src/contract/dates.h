// The date rules of a contract. Terms and periods are whole months, a week is
// seven days, a time of day stays in the results. All raise error 5 when a
// result lies outside 01.01.0100 to 31.12.9999.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/Date.h"

namespace pactora::contract {

using platform::Date;

// Moves by calendar months, back for a negative number. The day of the month
// stays; in a shorter month it is that month's last day. Successive periods are
// added one at a time, so a clamped day stays low.
Date AddMonths(Date date, std::int32_t months);
Date AddDays(Date date, std::int32_t days);
Date AddWeeks(Date date, std::int32_t weeks);
// The day of an alarm so many weeks ahead of date.
Date WeeksBefore(Date date, std::int32_t weeks);

// The last day of a term that begins on start.
Date TermEnd(Date start, std::int32_t months);

// The last day for notice of a term that ends on end: the day after end less the
// notice period, in weeks if the unit is "Wochen", else in months.
Date NoticeDate(Date end, std::int32_t frist, std::string_view einheit);

// When a period that begins on start is invoiced: at once, or one payment period
// later in arrears (rechnungWann other than 0).
Date InvoiceDate(Date start, std::int32_t rechnungWann, std::int32_t periode);

// The date in the pattern "yyyyMMdd", for sorting; day 0 gives "18991230".
std::string SortText(Date date);

}  // namespace pactora::contract
