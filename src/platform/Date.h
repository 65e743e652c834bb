// A date as the host keeps it, and its place in the calendar.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace pactora::platform {

// A point in time as a count of days since 30.12.1899 (day 0); the fraction is
// the time of day, so 0.375 is 09:00. Day 0 in a date field means "no date".
// Before day 0 the whole part alone is negative and the fraction still counts
// upwards from midnight: -1.25 is 29.12.1899 06:00.
struct Date {
  double days = 0.0;

  friend bool operator==(const Date&, const Date&) = default;
  friend auto operator<=>(const Date&, const Date&) = default;
};

// The calendar range: 01.01.0100 to 31.12.9999, whole days.
inline constexpr std::int32_t kFirstDay = -657434;
inline constexpr std::int32_t kLastDay = 2958465;

// 31.12.9999 stands for "no further invoice".
inline constexpr Date kNoInvoiceDate{2958465.0};
inline constexpr Date kNoDate{0.0};

// A day of the proleptic Gregorian calendar. month is 1 to 12, day 1 to 31.
struct CivilDate {
  std::int32_t year = 1899;
  std::int32_t month = 12;
  std::int32_t day = 30;

  friend bool operator==(const CivilDate&, const CivilDate&) = default;
};

// Requires: month is 1 to 12.
std::int32_t DaysInMonth(std::int32_t year, std::int32_t month);
bool IsValid(const CivilDate& date);

// Whole days since 30.12.1899, without regard to the calendar range.
// Requires: month is 1 to 12. A day past the month's end runs on into the next.
std::int32_t DayNumber(const CivilDate& date);
Date FromCivil(std::int32_t year, std::int32_t month, std::int32_t day);

// The whole day and the time of day of a date, the time from 0 to less than 1. A
// time within half a second of the next midnight is that midnight.
std::int32_t WholeDay(Date date);
double TimeOfDay(Date date);
CivilDate ToCivil(Date date);
// Whether the time, to the nearest second, is not midnight.
bool HasTimeOfDay(Date date);
// The date of a day and the seconds since its midnight.
// Requires: seconds is 0 to 86399.
Date FromDayAndSeconds(std::int32_t day, std::int32_t seconds);

// Formats a date, to the nearest second. The pattern's letters d, M, y, H, m, s
// stand for day, month, year, hour, minute and second ("dd" two digits, "d" at
// least one, "yy" the last two digits of the year, "yyyy" four); all else is
// copied. Where no hour stands before it, m is the month too: "dd.mm.yyyy" is what
// people write.
std::string FormatDate(Date date, std::string_view pattern);

inline constexpr std::string_view kSortPattern = "yyyyMMdd";
inline constexpr std::string_view kIsoPattern = "yyyy-MM-dd";
inline constexpr std::string_view kGermanPattern = "dd.MM.yyyy";
inline constexpr std::string_view kIsoTimePattern = "yyyy-MM-ddTHH:mm:ss";
inline constexpr std::string_view kGermanTimePattern = "dd.MM.yyyy HH:mm:ss";

// Reads "dd.MM.yyyy" or "yyyy-MM-dd", every digit given, nothing around it, a
// day that exists in the calendar range. Nothing else is a date.
std::optional<Date> ParseDate(std::string_view text);

// The form of exchange: "yyyy-MM-dd", with "THH:mm:ss" behind it where there is a
// time of day. Reading takes exactly these two.
std::string FormatIso(Date date);
std::optional<Date> ParseIso(std::string_view text);

}  // namespace pactora::platform
