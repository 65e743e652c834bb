// Prices, merging and the value of a contract.

#include <gtest/gtest.h>

#include <functional>
#include <limits>

#include "api/ApiPositionRow.h"
#include "api/modAPI.h"
#include "api_world.h"

namespace pactora::api {
namespace {

namespace field = schema::field;
namespace table = schema::table;
using host::Value;
using support::ApiWorld;
using support::ErrorOf;
using support::Row;

TEST(Prices, EachPeriodIsRoundedFromTheMonthNotFromItsPrice) {
  struct Case {
    std::string name;
    std::int32_t months;
    double price;
    PeriodPrices expected;
  };
  const std::vector<Case> cases = {
      {"a year", 12, 120.0, {10, 30, 60, 120, 240, 360, 480, 600}},
      {"a month", 1, 10.0, {10, 30, 60, 120, 240, 360, 480, 600}},
      {"a third of a cent", 12, 100.0, {8.33, 25, 50, 100, 200, 300, 400, 500}},
      {"half a cent to the even one", 1, 0.125, {0.12, 0.38, 0.75, 1.5, 3, 4.5, 6, 7.5}},
      {"negative", 12, -100.0, {-8.33, -25, -50, -100, -200, -300, -400, -500}},
      {"nothing", 7, 0.0, {}},
  };
  for (const Case& row : cases) {
    const PeriodPrices prices = CalculatePrices(row.months, row.price);
    for (std::size_t i = 0; i < prices.size(); ++i) {
      EXPECT_DOUBLE_EQ(prices[i], row.expected[i]) << row.name << ' ' << schema::kPriceFields[i];
    }
  }
  EXPECT_EQ(ErrorOf([] { CalculatePrices(0, 1.0); })->Number(), 11);
}

// For a price of 7.77 a month.
double MonthsAt(std::int32_t months) {
  const auto found = std::find(schema::kPeriods.begin(), schema::kPeriods.end(), months);
  const PeriodPrices prices = CalculatePrices(1, 7.77);
  return found != schema::kPeriods.end()
             ? prices[static_cast<std::size_t>(found - schema::kPeriods.begin())]
             : months * prices[0];
}

TEST(Prices, EveryTermAndPeriodHasItsPrice) {
  for (const std::int32_t term : {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 24, 36, 48, 60}) {
    for (std::int32_t period = 1; period <= term; ++period) {
      if (term % period != 0) continue;
      ApiWorld world;
      world.contract->Dauer = term;
      world.contract->Zahlungsperiode = period;
      world.contract->dblRabatt = 0.0;
      auto& article = world.Article("A1", 3.0, 1);
      article.bSonderpreisVerwenden = true;
      article.dblPreis = 7.77;
      world.Call();
      const Row position = world.Rows(table::vv_Vertragspositionen).at(0);
      const std::string name = std::to_string(term) + "/" + std::to_string(period);
      const double price = period * 7.77;
      EXPECT_NEAR(position[field::NettoOhneRabatt].AsDouble(), price, 1e-9) << name;
      EXPECT_NEAR(position[field::Nettopreis].AsDouble(), price, 1e-9) << name;
      // A term without a price field costs what the payment period costs.
      const bool own_price =
          MonthsAt(term) > 0 && std::find(schema::kPeriods.begin(), schema::kPeriods.end(), term) !=
                                    schema::kPeriods.end();
      EXPECT_NEAR(position[field::Preis].AsDouble(), own_price ? term * 7.77 : price, 1e-9) << name;
      EXPECT_NEAR(world.Rows(table::vv_Vertraege).at(0)[field::AktValue].AsDouble(), 3 * price,
                  1e-9)
          << name;
    }
  }
}

class Positions : public support::ApiTest {
 protected:
  std::vector<Row> Call() {
    world.Call();
    return world.Rows(table::vv_Vertragspositionen);
  }
};

TEST_F(Positions, EqualArticlesShareARow) {
  world.Article("A1", 2.0).sGruppierung = "erste";
  world.Article("A2", 1.0, 1);
  auto& again = world.Article("a1", 3.5);
  again.sGruppierung = "zweite";
  again.sBeschreibung = "VOR ORT";
  const auto rows = Call();
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows[0][field::ArtikelID], Value("A1"));
  EXPECT_EQ(rows[0][field::Anzahl], Value(5.5));
  EXPECT_EQ(rows[0][field::Gruppierung], Value("erste"));
  EXPECT_EQ(rows[0][field::Beschreibung], Value("Vor Ort"));
  EXPECT_EQ(rows[0][field::Row], Value("001"));
  EXPECT_EQ(rows[1][field::Row], Value("002"));
  EXPECT_EQ(rows[1][field::Artikel], Value("Hotline"));
  EXPECT_EQ(rows[1][field::Erloeskonto], Value(8300));
  EXPECT_EQ(rows[1][field::UStSatz], Value(7.0));
}

TEST_F(Positions, ArticlesThatDifferInOneThingStandAlone) {
  world.Article();
  world.Article().sBeschreibung = "anders";
  world.Article().sAuftragsnummer = "B-1";
  auto& discounted = world.Article();
  discounted.bUseCustomDiscount = true;
  discounted.dblCustomDiscount = 5.0;
  auto& priced = world.Article();
  priced.bSonderpreisVerwenden = true;
  priced.dblPreis = 121.0;
  const auto rows = Call();
  ASSERT_EQ(rows.size(), 5u);
  EXPECT_EQ(rows[1][field::Beschreibung], Value("anders"));
  EXPECT_EQ(rows[2][field::Auftragsnummer], Value("B-1"));
  EXPECT_EQ(rows[3][field::Rabattprozent], Value(5.0));
  EXPECT_EQ(rows[3][field::Nettopreis], Value(9.5));
  EXPECT_EQ(rows[4][field::PreisM12], Value(121.0));
}

TEST_F(Positions, TheSamePriceForAnotherTimeMerges) {
  world.Article("A1", 1.0, 12);
  auto& monthly = world.Article("A1", 1.0, 1);
  monthly.bSonderpreisVerwenden = true;
  monthly.dblPreis = 10.0;
  auto& same_discount = world.Article("A1", 1.0, 12);
  same_discount.bUseCustomDiscount = true;
  same_discount.dblCustomDiscount = 10.0;
  const auto rows = Call();
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(rows[0][field::Anzahl], Value(3.0));
}

TEST_F(Positions, WhatIsSwitchedOffHasNoEffect) {
  auto& article = world.Article();
  article.dblPreis = 999.0;
  article.dblCustomDiscount = 50.0;
  const auto rows = Call();
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(rows[0][field::PreisM12], Value(120.0));
  EXPECT_EQ(rows[0][field::Rabattprozent], Value(10.0));
}

TEST_F(Positions, EverythingOffLeavesThePriceBeforeDiscount) {
  auto& article = world.Article();
  article.bUseCustomDiscount = true;
  article.dblCustomDiscount = 100.0;
  const auto rows = Call();
  EXPECT_EQ(rows.at(0)[field::Nettopreis], Value(0.0));
  EXPECT_EQ(rows.at(0)[field::NettoOhneRabatt], Value(10.0));
}

TEST_F(Positions, TheValueIsTheSumOfOneInvoiceNotRounded) {
  world.contract->dblRabatt = 0.0;
  world.Article("A1", 1.333);
  world.Article("A2", 0.5, 1);
  Call();
  const Value expected(10.0 * 1.333 + 10.0 * 0.5);
  EXPECT_EQ(world.Rows(table::vv_Vertraege).at(0)[field::AktValue], expected);
  EXPECT_EQ(world.Rows(table::vv_Vertragsstaende).at(0)[field::Value], expected);
}

TEST_F(Positions, RowsCountBeyondThreeDigits) {
  world.contract->dblRabatt = 0.0;
  for (int i = 1; i <= 1001; ++i) world.Article("A1", 1.0).sBeschreibung = std::to_string(i);
  world.Article("A1", 4.0).sBeschreibung = "1";
  const auto rows = Call();
  ASSERT_EQ(rows.size(), 1001u);
  EXPECT_EQ(rows[0][field::Anzahl], Value(5.0));
  EXPECT_EQ(rows[98][field::Row], Value("099"));
  EXPECT_EQ(rows[1000][field::Row], Value("1001"));
  EXPECT_EQ(rows[1000][field::Beschreibung], Value("1001"));
  EXPECT_EQ(world.module.gApiPositionRows->size(), 1002u) << "the element 0 stays empty";
  EXPECT_EQ(world.module.gApiPositionRows->front().ArtikelID, "");
}

TEST_F(Positions, TheUsersCursorOnTheArticlesIsPutBack) {
  world.Goto(table::Artikel, world.hotline);
  world.Article("A1");
  Call();
  EXPECT_EQ(world.host.Table(table::Artikel)->Oid(), std::to_string(world.hotline));
}

TEST_F(Positions, AmountsBeyondAllBoundsAreRaisedAndTheContractStays) {
  struct Case {
    std::string name;
    std::function<void(ApiWorld&)> spoil;
    std::string source;
    std::size_t positions;
  };
  constexpr double kMost = std::numeric_limits<double>::max();
  const std::vector<Case> cases = {
      {"a price",
       [](ApiWorld& w) {
         auto& article = w.Article();
         article.bSonderpreisVerwenden = true;
         article.dblPreis = 1e18;
       },
       "modAPI.GetNewPositions", 0},
      {"a discount",
       [](ApiWorld& w) {
         auto& article = w.Article();
         article.bUseCustomDiscount = true;
         article.dblCustomDiscount = kMost;
       },
       "modAPI.GetNewPositions", 0},
      {"a merged quantity", [](ApiWorld& w) { w.Article("A1", kMost), w.Article("A1", kMost); },
       "modAPI.GetNewPositions", 0},
      {"an endless quantity",
       [](ApiWorld& w) { w.Article("A1", std::numeric_limits<double>::infinity()); },
       "modAPI.GetNewPositions", 0},
      {"the value", [](ApiWorld& w) { w.Article("A1", kMost); }, "modAPI.WriteNewPositions", 1},
  };
  for (const Case& row : cases) {
    ApiWorld fresh;
    row.spoil(fresh);
    const auto error = ErrorOf([&] { fresh.Call(); });
    ASSERT_TRUE(error) << row.name;
    EXPECT_EQ(error->Number(), 6) << row.name;
    EXPECT_EQ(error->Source(), row.source) << row.name;
    EXPECT_EQ(fresh.Counts(), (std::vector<std::size_t>{1, 0, 1, row.positions, 0})) << row.name;
  }
}

}  // namespace
}  // namespace pactora::api
