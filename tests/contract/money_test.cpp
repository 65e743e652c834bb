// The money rules.

#include "contract/money.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "support/error_of.h"

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
      {"beyond 32 bits of cents", RoundCents(21474836.485), 21474836.48},
      {"no discount rounds nothing", ApplyDiscount(0.126, 0.0), 0.126},
      {"an eighth off", ApplyDiscount(99.99, 12.5), 87.49},
      {"everything off", ApplyDiscount(123.45, 100.0), 0.0},
      {"a negative discount adds", ApplyDiscount(10.0, -10.0), 11.0},
      {"only what is taken off is rounded", ApplyDiscount(0.333, 50.0), 0.333 - 0.17},
  };
  for (const Case& row : cases) EXPECT_DOUBLE_EQ(row.result, row.expected) << row.name;
  EXPECT_FALSE(std::signbit(RoundCents(-0.001)));
}

TEST(Money, HalvesOfACentGoToTheEvenCent) {
  // Odd multiples of an eighth are exact in binary and lie between two cents.
  for (int eighths = -99999; eighths <= 99999; eighths += 2) {
    const double cents = RoundCents(eighths / 8.0) * 100.0;
    ASSERT_EQ(std::remainder(std::round(cents), 2.0), 0.0) << eighths;
    ASSERT_NEAR(cents, eighths * 12.5, 0.5 + 1e-6) << eighths;
  }
}

TEST(Money, WhatCannotBeCountedInCentsOverflows) {
  for (const double amount : {90071992547411.0, -1e15, HUGE_VAL, std::nan("")}) {
    EXPECT_EQ(support::ErrorNumberOf([&] { RoundCents(amount); }), 6) << amount;
  }
  for (const double discount : {HUGE_VAL, std::nan("")}) {
    EXPECT_EQ(support::ErrorNumberOf([&] { ApplyDiscount(1.0, discount); }), 6) << discount;
  }
}

}  // namespace
}  // namespace pactora::contract
