#include "platform/Clock.h"

#include <ctime>

namespace pactora::platform {

Date SystemClock::Today() const {
  const std::time_t now = std::time(nullptr);
  const std::tm local = *std::localtime(&now);
  return FromCivil(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday);
}

}  // namespace pactora::platform
