#include "platform/Locale.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <limits>
#include <string>

#include "platform/Error.h"

namespace pactora::platform {
namespace {

constexpr Locale kGerman{','};
constexpr Locale kEnglish{'.'};

TEST(Numbers, FixedHasTwoDecimals) {
  struct {
    double value;
    std::string_view text;
  } const rows[] = {{-0.0, "0,00"},
                    {0.0049999, "0,00"},
                    {0.0004, "0,00"},
                    {1234567.891, "1234567,89"},
                    {0.1 + 0.2, "0,30"},
                    {1e15, "1000000000000000,00"},
                    {1e22, "10000000000000000000000,00"},
                    {5e-324, "0,00"}};
  for (const auto& [value, text] : rows) EXPECT_EQ(FormatFixed(value, kGerman), text) << value;
  EXPECT_EQ(FormatFixed(1234.5, kEnglish), "1234.50");
}

// Though the nearest double of many, such as 2.675, lies below.
TEST(Numbers, FixedRoundsThousandthsAsTheirTextReads) {
  for (std::int64_t thousandths = -100000; thousandths <= 100000; ++thousandths) {
    const std::int64_t cents = (std::abs(thousandths) + 5) / 10;
    std::string expected = std::to_string(cents % 100);
    if (expected.size() < 2) expected.insert(0, 1, '0');
    expected = std::to_string(cents / 100) + "," + expected;
    if (thousandths < 0 && cents != 0) expected.insert(0, 1, '-');
    ASSERT_EQ(FormatFixed(static_cast<double>(thousandths) / 1000.0, kGerman), expected);
  }
}

TEST(Numbers, PlainTextReadsBackToTheSameNumber) {
  for (double value : {0.1, 1.0 / 3.0, 1e-7, 123456789.125, 1e22, 1e300, 5e-324,
                       std::numeric_limits<double>::max(), -2.5}) {
    const std::string text = FormatPlain(value, kGerman);
    EXPECT_EQ(ParseNumber(text, kGerman), value) << text;
    EXPECT_EQ(text.find_first_of(".eE"), std::string::npos) << text;
  }
  EXPECT_EQ(FormatPlain(1200.0, kGerman), "1200");
  EXPECT_EQ(FormatPlain(-0.0, kGerman), "0");
  EXPECT_EQ(FormatPlain(0.5, kEnglish), "0.5");
}

TEST(Numbers, WhatIsNotFiniteHasNoText) {
  for (double value :
       {std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity(),
        std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_THROW(FormatFixed(value, kGerman), Error);
    EXPECT_THROW(FormatPlain(value, kGerman), Error);
  }
}

TEST(Numbers, TextsAreReadStrictly) {
  struct {
    std::string_view text;
    double number;
  } const numbers[] = {{"0", 0.0},
                       {"12,5", 12.5},
                       {"-12,5", -12.5},
                       {"+3", 3.0},
                       {",5", 0.5},
                       {"5,", 5.0},
                       {"-,5", -0.5},
                       {"  7 ", 7.0},
                       {"\t7\r\n", 7.0},
                       {"007", 7.0},
                       {"1234567,891", 1234567.891}};
  for (const auto& [text, number] : numbers) EXPECT_EQ(ParseNumber(text, kGerman), number) << text;
  for (const char* text : {"", " ", ",", "-", "+,", "1.5", "1.234,56", "1,2,3", "--1", "1-", "- 1",
                           "1e5", "1 2", "0x10", "inf", "nan", "ä", "１"}) {
    EXPECT_EQ(ParseNumber(text, kGerman), std::nullopt) << text;
  }
  EXPECT_EQ(ParseNumber("1.5", kEnglish), 1.5);
  EXPECT_EQ(ParseNumber("1,5", kEnglish), std::nullopt);
}

}  // namespace
}  // namespace pactora::platform
