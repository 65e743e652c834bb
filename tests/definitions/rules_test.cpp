// The pure rules: periods and terms, unit prices, numbers in boxes.

#include "definitions/number_text.h"
#include "definitions/price_rules.h"
#include "support/contract_world.h"

namespace pactora::definitions {
namespace {

using support::ErrorNumberOf;
using testing::ElementsAre;

TEST(PeriodFitsTerm, WholeMultiplesFit) {
  const std::vector<std::pair<std::int32_t, std::vector<std::int32_t>>> rows = {
      {12, {1, 3, 6, 12}},
      {24, {1, 3, 6, 12, 24}},
      {36, {1, 3, 6, 12, 36}},
      {18, {1, 3, 6}},
      {7, {1}},
      {0, {1, 3, 6, 12, 24, 36, 48, 60}}};
  for (const auto& [term, fitting] : rows) {
    std::vector<std::int32_t> fits;
    for (const std::int32_t period : schema::kPeriods) {
      if (PeriodFitsTerm(term, period)) fits.push_back(period);
    }
    EXPECT_EQ(fits, fitting) << term;
  }
  EXPECT_TRUE(PeriodFitsTerm(0, 0));
  EXPECT_EQ(ErrorNumberOf([] { PeriodFitsTerm(12, 0); }), 11);
}

TEST(UnitPrices, FollowFromTheNetPriceOverTheTerm) {
  EXPECT_THAT(UnitPrices(1200, 12), ElementsAre(100, 300, 600, 1200, 2400, 3600, 4800, 6000));
  EXPECT_THAT(UnitPrices(1200, 24), ElementsAre(50, 150, 300, 600, 1200, 1800, 2400, 3000));
  // Each from the net price, not from another price: 100 / 12 is 8.33 a month.
  EXPECT_THAT(UnitPrices(100, 12), ElementsAre(8.33, 25, 50, 100, 200, 300, 400, 500));
  EXPECT_THAT(UnitPrices(-1, 8), ElementsAre(-0.12, -0.38, -0.75, -1.5, -3, -4.5, -6, -7.5));
  EXPECT_EQ(ErrorNumberOf([] { UnitPrices(1200, 0); }), 11);
  EXPECT_EQ(ErrorNumberOf([] { UnitPrices(1e300, 12); }), 6);
}

TEST(NumberText, ProductsOfNumbers) {
  const platform::Locale german;
  const std::vector<std::pair<std::string, std::optional<double>>> rows = {
      {"12*30", 360},         {"7", 7},
      {"1,5*2*3", 9},         {"2*", std::nullopt},
      {"*2", std::nullopt},   {"", std::nullopt},
      {"2**3", std::nullopt}, {"2*x", std::nullopt},
      {" 2 * 3 ", 6},         {"1.5", std::nullopt}};
  for (const auto& [text, product] : rows) EXPECT_EQ(ProductOf(text, german), product) << text;
}

TEST(NumberText, WholeNumbersAreDigits) {
  EXPECT_EQ(WholeNumberOf(" 012 "), 12);
  EXPECT_EQ(WholeNumberOf("2147483647"), 2147483647);
  for (const char* text : {"", " ", "-1", "+1", "1,0", "1e3", "zwölf"}) {
    EXPECT_EQ(ErrorNumberOf([&] { WholeNumberOf(text); }), 13);
  }
  EXPECT_EQ(ErrorNumberOf([] { WholeNumberOf("2147483648"); }), 6);
}

TEST(NumberText, StoredNumbersReadBackTheSame) {
  for (const platform::Locale locale : {platform::Locale{','}, platform::Locale{'.'}}) {
    for (const double number : {0.0, 1.0 / 3.0, -1234567.891, 1e-7, 1e15}) {
      EXPECT_EQ(NumberOf(PlainText(number, locale), locale), number);
    }
  }
  EXPECT_EQ(PlainText(1.5, platform::Locale{'.'}), "1.5");
  EXPECT_EQ(PlainText(host::Value(), platform::Locale{}), "");
  EXPECT_EQ(NumberOrZero("", platform::Locale{}), 0.0);
}

}  // namespace
}  // namespace pactora::definitions
