#include "platform/Clock.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <ctime>
#endif

namespace pactora::platform {

namespace {

struct LocalTime {
  Date day;
  int seconds;  // since midnight
};

LocalTime Local() {
#ifdef _WIN32
  // The C library knows the time zone of an environment variable, not the user's.
  SYSTEMTIME local{};
  GetLocalTime(&local);
  return {FromCivil(local.wYear, local.wMonth, local.wDay),
          (local.wHour * 60 + local.wMinute) * 60 + local.wSecond};
#else
  const std::time_t now = std::time(nullptr);
  const std::tm local = *std::localtime(&now);
  return {FromCivil(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday),
          (local.tm_hour * 60 + local.tm_min) * 60 + local.tm_sec};
#endif
}

}  // namespace

Date SystemClock::Today() const { return Local().day; }

Date SystemClock::Now() const {
  constexpr double kSecondsOfADay = 24.0 * 60 * 60;
  const LocalTime local = Local();
  return {local.day.days + local.seconds / kSecondsOfADay};
}

}  // namespace pactora::platform
