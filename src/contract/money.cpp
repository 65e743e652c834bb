#include "contract/money.h"

#include <algorithm>
#include <cmath>

#include "platform/Error.h"
#include "schema/names.h"

namespace pactora::contract {

namespace {

constexpr double kCentsPerUnit = 100.0;
constexpr double kMostCents = 9007199254740992.0;  // 2^53: whole numbers are exact up to here

}  // namespace

double RoundCents(double amount) {
  const double cents = std::nearbyint(amount * kCentsPerUnit);
  if (!(std::abs(cents) <= kMostCents)) platform::Raise(platform::RuntimeError::Overflow);
  // Through a whole number, which knows no negative zero.
  return static_cast<double>(static_cast<std::int64_t>(cents)) / kCentsPerUnit;
}

double ApplyDiscount(double amount, double percent) {
  if (percent == 0.0) return amount;
  return amount - RoundCents(amount / 100.0 * percent);
}

std::optional<std::size_t> PriceFieldOf(std::int32_t months) {
  const auto found = std::find(schema::kPeriods.begin(), schema::kPeriods.end(), months);
  if (found == schema::kPeriods.end()) return std::nullopt;
  return static_cast<std::size_t>(found - schema::kPeriods.begin());
}

}  // namespace pactora::contract
