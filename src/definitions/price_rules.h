// The rules of terms, payment periods and unit prices of a contract type.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "schema/names.h"

namespace pactora::definitions {

// The notice periods to choose from, in weeks or months, in list order.
inline constexpr std::array<std::string_view, 7> kNoticePeriods = {"1", "2",  "3", "4",
                                                                   "6", "12", "0"};

// A payment period fits a term that is a whole multiple of it; a term of 0
// months has none to fit. Raises error 11 for a period of 0 with any other term.
bool PeriodFitsTerm(std::int32_t term, std::int32_t period);

// The unit prices for the periods of schema::kPeriods, each worked out from the
// net price over the whole term of so many months and rounded to cents. A period
// longer than the term has a price as well. Raises error 11 for a term of 0 and
// error 6 for a price out of the range of amounts.
std::array<double, schema::kPeriods.size()> UnitPrices(double net_price, std::int32_t term);

}  // namespace pactora::definitions
