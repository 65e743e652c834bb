#include "contract/default_start.h"

#include "contract/dates.h"

namespace pactora::contract {

platform::Date DefaultContractStart(platform::Date today) {
  constexpr std::int32_t kMiddle = 15;
  const platform::CivilDate civil = platform::ToCivil(today);
  if (civil.day < kMiddle) return platform::FromCivil(civil.year, civil.month, kMiddle);
  return AddMonths(platform::FromCivil(civil.year, civil.month, 1), 1);
}

}  // namespace pactora::contract
