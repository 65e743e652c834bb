// The money rules of a contract. Amounts are Double; only discounts and period
// prices are rounded.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

namespace pactora::contract {

// Rounded to whole cents, exact halves of a cent to the nearest even one. Raises
// error 6 for an amount that is not finite or beyond 2^53 cents.
double RoundCents(double amount);

// amount less percent of it; the amount taken off is rounded to cents. For
// percent exactly 0 amount itself, not rounded.
double ApplyDiscount(double amount, double percent);

// Which of the eight price fields (schema::kPriceFields) belongs to a period of
// so many months; none for any other number.
std::optional<std::size_t> PriceFieldOf(std::int32_t months);

}  // namespace pactora::contract
