// The pure rules: periods and terms, unit prices.

#include "definitions/price_rules.h"
#include "support/contract_world.h"

namespace pactora::definitions {
namespace {

using support::ErrorNumberOf;
using testing::ElementsAre;

TEST(PeriodFitsTerm, WholeMultiplesFit) {
  EXPECT_TRUE(PeriodFitsTerm(24, 12) && PeriodFitsTerm(0, 60) && PeriodFitsTerm(0, 0));
  EXPECT_FALSE(PeriodFitsTerm(18, 12) || PeriodFitsTerm(7, 3) || PeriodFitsTerm(12, 24));
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

}  // namespace
}  // namespace pactora::definitions
