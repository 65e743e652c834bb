#include "platform/Date.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <limits>

namespace pactora::platform {
namespace {

constexpr std::int32_t kSecondsOfDay = 86400;
constexpr double kHalfSecond = 0.5 / kSecondsOfDay;

constexpr std::chrono::sys_days kDayZero =
    std::chrono::year{1899} / std::chrono::December / std::chrono::day{30};

// The calendar repeats after an era of 400 years. The library's years have 16
// bits, so whole eras are reckoned beside them.
constexpr std::int32_t kYearsOfEra = 400;
constexpr std::int32_t kDaysOfEra = 146097;

constexpr std::chrono::year YearOfEra(std::int32_t year) {
  return std::chrono::year{year % kYearsOfEra};
}

constexpr std::chrono::month Month(std::int32_t month) {
  return std::chrono::month{static_cast<unsigned>(month)};
}

struct Moment {
  std::int32_t day = 0;
  double time = 0.0;
};

// A number of days beyond 32 bits gives the nearest day number.
Moment Split(Date date) {
  constexpr double kLow = std::numeric_limits<std::int32_t>::min();
  constexpr double kHigh = std::numeric_limits<std::int32_t>::max();
  if (!(date.days > kLow)) return {std::numeric_limits<std::int32_t>::min(), 0.0};
  if (date.days >= kHigh) return {std::numeric_limits<std::int32_t>::max(), 0.0};
  const auto day = static_cast<std::int32_t>(date.days);
  const double time = std::abs(date.days - day);
  if (time >= 1.0 - kHalfSecond) return {day + 1, 0.0};
  return {day, time};
}

CivilDate CivilOfDay(std::int32_t day_number) {
  const std::chrono::year_month_day civil(kDayZero + std::chrono::days(day_number % kDaysOfEra));
  return {static_cast<int>(civil.year()) + day_number / kDaysOfEra * kYearsOfEra,
          static_cast<std::int32_t>(static_cast<unsigned>(civil.month())),
          static_cast<std::int32_t>(static_cast<unsigned>(civil.day()))};
}

void AppendNumber(std::string& out, std::int64_t number, std::size_t digits) {
  std::array<char, 20> buffer{};
  if (number < 0) out.push_back('-');
  const auto end =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), number < 0 ? -number : number);
  const auto length = static_cast<std::size_t>(end.ptr - buffer.data());
  if (length < digits) out.append(digits - length, '0');
  out.append(buffer.data(), length);
}

// Reads a text of the pattern's length whose digits stand where the pattern has
// letters of "dMyHms" and that otherwise is the pattern itself.
std::optional<Date> ParseFixed(std::string_view text, std::string_view pattern) {
  if (text.size() != pattern.size()) return std::nullopt;
  constexpr std::string_view kLetters = "dMyHms";
  std::array<std::int32_t, kLetters.size()> fields{};
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::size_t letter = kLetters.find(pattern[i]);
    if (letter == std::string_view::npos) {
      if (text[i] != pattern[i]) return std::nullopt;
      continue;
    }
    if (text[i] < '0' || text[i] > '9') return std::nullopt;
    fields[letter] = fields[letter] * 10 + (text[i] - '0');
  }
  const auto [day, month, year, hour, minute, second] = fields;
  const CivilDate civil{year, month, day};
  if (!IsValid(civil) || hour > 23 || minute > 59 || second > 59) return std::nullopt;
  return FromDayAndSeconds(DayNumber(civil), (hour * 60 + minute) * 60 + second);
}

}  // namespace

std::int32_t DaysInMonth(std::int32_t year, std::int32_t month) {
  const std::chrono::day last = (YearOfEra(year) / Month(month) / std::chrono::last).day();
  return static_cast<std::int32_t>(static_cast<unsigned>(last));
}

bool IsValid(const CivilDate& date) {
  return date.year >= 100 && date.year <= 9999 && date.month >= 1 && date.month <= 12 &&
         date.day >= 1 && date.day <= DaysInMonth(date.year, date.month);
}

std::int32_t DayNumber(const CivilDate& date) {
  const std::chrono::sys_days first = YearOfEra(date.year) / Month(date.month) / 1;
  const std::int64_t eras = date.year / kYearsOfEra;
  return static_cast<std::int32_t>(eras * kDaysOfEra + (first - kDayZero).count() + date.day - 1);
}

Date FromCivil(std::int32_t year, std::int32_t month, std::int32_t day) {
  return Date{static_cast<double>(DayNumber({year, month, day}))};
}

std::int32_t WholeDay(Date date) { return Split(date).day; }

double TimeOfDay(Date date) { return Split(date).time; }

CivilDate ToCivil(Date date) { return CivilOfDay(WholeDay(date)); }

bool HasTimeOfDay(Date date) { return TimeOfDay(date) >= kHalfSecond; }

Date FromDayAndSeconds(std::int32_t day, std::int32_t seconds) {
  const double time = static_cast<double>(seconds) / kSecondsOfDay;
  return Date{day < 0 ? day - time : day + time};
}

std::string FormatDate(Date date, std::string_view pattern) {
  const Moment moment = Split(date);
  const CivilDate civil = CivilOfDay(moment.day);
  const auto seconds = static_cast<std::int32_t>(std::lround(moment.time * kSecondsOfDay));
  std::string out;
  out.reserve(pattern.size() + 8);
  bool after_hour = false;
  for (std::size_t i = 0; i < pattern.size();) {
    const char letter = pattern[i];
    const std::size_t end = std::min(pattern.find_first_not_of(letter, i), pattern.size());
    const std::size_t count = end - i;
    switch (letter) {
      case 'd':
        AppendNumber(out, civil.day, count);
        break;
      case 'M':
        AppendNumber(out, civil.month, count);
        break;
      case 'y':
        AppendNumber(out, count <= 2 ? std::abs(civil.year) % 100 : civil.year,
                     count <= 2 ? 2 : count);
        break;
      case 'H':
        AppendNumber(out, seconds / 3600, count);
        after_hour = true;
        break;
      case 'm':
        AppendNumber(out, after_hour ? seconds / 60 % 60 : civil.month, count);
        break;
      case 's':
        AppendNumber(out, seconds % 60, count);
        break;
      default:
        out.append(count, letter);
    }
    i = end;
  }
  return out;
}

std::optional<Date> ParseDate(std::string_view text) {
  const auto german = ParseFixed(text, kGermanPattern);
  return german ? german : ParseFixed(text, kIsoPattern);
}

std::string FormatIso(Date date) {
  return FormatDate(date, HasTimeOfDay(date) ? kIsoTimePattern : kIsoPattern);
}

std::optional<Date> ParseIso(std::string_view text) {
  const auto day = ParseFixed(text, kIsoPattern);
  return day ? day : ParseFixed(text, kIsoTimePattern);
}

}  // namespace pactora::platform
