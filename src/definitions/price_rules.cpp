#include "definitions/price_rules.h"

#include <cstddef>

#include "contract/money.h"
#include "platform/Error.h"

namespace pactora::definitions {

bool PeriodFitsTerm(std::int32_t term, std::int32_t period) {
  if (term == 0) return true;
  if (period == 0) platform::Raise(platform::RuntimeError::DivisionByZero);
  return static_cast<std::int64_t>(term) % period == 0;
}

std::array<double, schema::kPeriods.size()> UnitPrices(double net_price, std::int32_t term) {
  if (term == 0) platform::Raise(platform::RuntimeError::DivisionByZero);
  std::array<double, schema::kPeriods.size()> prices{};
  for (std::size_t i = 0; i < prices.size(); ++i) {
    prices[i] = contract::RoundCents(net_price * schema::kPeriods[i] / term);
  }
  return prices;
}

}  // namespace pactora::definitions
