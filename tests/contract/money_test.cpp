// The money rules.

#include "contract/money.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "platform/Error.h"
#include "schema/names.h"

namespace pactora::contract {
namespace {

TEST(Money, FollowsTheTableOfCases) {
  struct Case {
    std::string name;
    double result;
    double expected;
  };
  const std::vector<Case> cases = {
      {"half a cent to the even one below", RoundCents(0.125), 0.12},
      {"half a cent to the even one above", RoundCents(0.375), 0.38},
      {"half a cent, negative", RoundCents(-0.125), -0.12},
      {"more than a half", RoundCents(12.49875), 12.5},
      {"beyond 32 bits of cents", RoundCents(21474836.485), 21474836.48},
      {"a large amount with a half", RoundCents(30000000.125), 30000000.12},
      {"the largest", RoundCents(90071992547409.92), 90071992547409.92},
      {"no discount rounds nothing", ApplyDiscount(0.126, 0.0), 0.126},
      {"an eighth off", ApplyDiscount(99.99, 12.5), 87.49},
      {"a third off", ApplyDiscount(10.0, 33.33), 6.67},
      {"everything off", ApplyDiscount(123.45, 100.0), 0.0},
      {"a negative discount adds", ApplyDiscount(10.0, -10.0), 11.0},
      {"only what is taken off is rounded", ApplyDiscount(0.333, 50.0), 0.333 - 0.17},
      {"prices of a year spread", RoundCents(100.0 / 12), 8.33},
  };
  for (const Case& row : cases) EXPECT_DOUBLE_EQ(row.result, row.expected) << row.name;
}

TEST(Money, NeverGivesANegativeZero) {
  EXPECT_FALSE(std::signbit(RoundCents(-0.001)));
  EXPECT_FALSE(std::signbit(RoundCents(-0.0)));
}

TEST(Money, HalvesOfACentGoToTheEvenCent) {
  // Odd multiples of an eighth are exact in binary and lie between two cents.
  for (int eighths = -99999; eighths <= 99999; eighths += 2) {
    const double cents = RoundCents(eighths / 8.0) * 100.0;
    ASSERT_EQ(std::remainder(std::round(cents), 2.0), 0.0) << eighths;
    ASSERT_NEAR(cents, eighths * 12.5, 0.5 + 1e-6) << eighths;
  }
}

TEST(Money, RoundedAmountsStayAsTheyAre) {
  for (int i = -20000; i <= 20000; ++i) {
    const double amount = i * 0.00731;
    const double rounded = RoundCents(amount);
    ASSERT_EQ(RoundCents(rounded), rounded) << amount;
    ASSERT_NEAR(rounded, amount, 0.005 + 1e-9);
  }
}

TEST(Money, WhatCannotBeCountedInCentsOverflows) {
  constexpr double kInfinite = std::numeric_limits<double>::infinity();
  const std::vector<std::pair<std::string, std::function<double()>>> cases = {
      {"too many cents", [] { return RoundCents(90071992547411.0); }},
      {"too many negative cents", [] { return RoundCents(-1e15); }},
      {"infinite", [] { return RoundCents(kInfinite); }},
      {"no number", [] { return RoundCents(std::nan("")); }},
      {"a discount without end", [] { return ApplyDiscount(1.0, kInfinite); }},
      {"a discount that is no number", [] { return ApplyDiscount(1.0, std::nan("")); }},
  };
  for (const auto& [name, call] : cases) {
    try {
      ADD_FAILURE() << name << " gives " << call();
    } catch (const platform::Error& error) {
      EXPECT_EQ(error.Number(), 6) << name;
    }
  }
}

TEST(Money, EachStandardPeriodHasThePriceFieldThatNamesIt) {
  for (std::int32_t months = -1; months <= 70; ++months) {
    const auto index = PriceFieldOf(months);
    const std::string name = "PreisM" + std::to_string(months);
    const bool standard = std::find(schema::kPriceFields.begin(), schema::kPriceFields.end(),
                                    name) != schema::kPriceFields.end();
    ASSERT_EQ(index.has_value(), standard) << months;
    if (standard) {
      EXPECT_EQ(schema::kPriceFields.at(index.value()), name);
    }
  }
}

}  // namespace
}  // namespace pactora::contract
