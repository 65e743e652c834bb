#include "platform/Clock.h"

#include <ctime>

namespace pactora::platform {

namespace {

std::tm LocalTime() {
  const std::time_t now = std::time(nullptr);
  return *std::localtime(&now);
}

Date DayOf(const std::tm& local) {
  return FromCivil(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday);
}

}  // namespace

Date SystemClock::Today() const { return DayOf(LocalTime()); }

Date SystemClock::Now() const {
  constexpr double kSecondsOfADay = 24.0 * 60 * 60;
  const std::tm local = LocalTime();
  const int seconds = (local.tm_hour * 60 + local.tm_min) * 60 + local.tm_sec;
  return {DayOf(local).days + seconds / kSecondsOfADay};
}

}  // namespace pactora::platform
