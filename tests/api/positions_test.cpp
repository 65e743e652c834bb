// Prices, merging and the value of a contract.

#include <gtest/gtest.h>

#include <functional>
#include <limits>

#include "api/ApiPositionRow.h"
#include "api/modAPI.h"
#include "api_world.h"
#include "contract/money.h"

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
      const bool own_price = contract::PriceFieldOf(term).has_value();
      EXPECT_NEAR(position[field::Preis].AsDouble(), own_price ? term * 7.77 : price, 1e-9) << name;
      EXPECT_NEAR(world.Rows(table::vv_Vertraege).at(0)[field::AktValue].AsDouble(), 3 * price,
                  1e-9)
          << name;
    }
  }
}

void SetPrice(vv_CArticle& article, double price) {
  article.bSonderpreisVerwenden = true;
  article.dblPreis = price;
}
void SetDiscount(vv_CArticle& article, double discount) {
  article.bUseCustomDiscount = true;
  article.dblCustomDiscount = discount;
}

struct PositionCase {
  std::string name;
  std::function<void(ApiWorld&)> add;
  std::vector<std::string_view> fields;
  std::vector<std::string> rows;
};

const std::vector<PositionCase>& PositionCases() {
  static const std::vector<PositionCase> cases = {
      {"equal articles share the first one's row",
       [](ApiWorld& world) {
         world.Article("A1", 2.0).sGruppierung = "erste";
         world.Article("A2", 1.0, 1);
         auto& again = world.Article("a1", 3.5);
         again.sGruppierung = "zweite";
         again.sBeschreibung = "VOR ORT";
       },
       {field::Row, field::ArtikelID, field::Artikel, field::Anzahl, field::Erloeskonto,
        field::UStSatz, field::Beschreibung, field::Gruppierung},
       {"001/A1/Wartung Server/5,5/8400/19/Vor Ort/erste", "002/A2/Hotline/1/8300/7//"}},
      {"articles that differ in one thing stand alone",
       [](ApiWorld& world) {
         world.Article();
         world.Article().sBeschreibung = "anders";
         world.Article().sAuftragsnummer = "B-1";
         SetDiscount(world.Article(), 5.0);
         SetDiscount(world.Article(), 0.0);
         SetPrice(world.Article(), 121.0);
       },
       {field::Beschreibung, field::Auftragsnummer, field::Rabattprozent, field::Nettopreis,
        field::PreisM12},
       {"Vor Ort//10/9/120", "anders//10/9/120", "Vor Ort/B-1/10/9/120", "Vor Ort//5/9,5/120",
        "Vor Ort//0/10/120", "Vor Ort//10/9,07/121"}},
      {"the same price for another time and the same discount merge",
       [](ApiWorld& world) {
         world.Article("A1", 1.0, 12);
         SetPrice(world.Article("A1", 1.0, 1), 10.0);
         SetDiscount(world.Article("A1", 1.0, 12), 10.0);
       },
       {field::Anzahl},
       {"3"}},
      {"what is switched off has no effect",
       [](ApiWorld& world) {
         auto& article = world.Article();
         article.dblPreis = 999.0;
         article.dblCustomDiscount = 50.0;
       },
       {field::PreisM12, field::Rabattprozent},
       {"120/10"}},
      {"everything off leaves the price before discount",
       [](ApiWorld& world) { SetDiscount(world.Article(), 100.0); },
       {field::Nettopreis, field::NettoOhneRabatt},
       {"0/10"}},
  };
  return cases;
}

using Positions = support::ApiTest;

TEST_F(Positions, FollowTheTableOfCases) {
  for (const PositionCase& row : PositionCases()) {
    ApiWorld fresh;
    row.add(fresh);
    fresh.Call();
    std::vector<std::string> lines;
    for (const Row& position : fresh.Rows(table::vv_Vertragspositionen)) {
      std::string& line = lines.emplace_back();
      for (const std::string_view name : row.fields) {
        line += (name == row.fields[0] ? "" : "/") + host::ToText(position[name]);
      }
    }
    EXPECT_EQ(lines, row.rows) << row.name;
  }
}

TEST_F(Positions, TheValueIsTheSumOfOneInvoiceNotRounded) {
  world.contract->dblRabatt = 0.0;
  world.Article("A1", 1.333);
  world.Article("A2", 0.5, 1);
  world.Call();
  const Value expected(10.0 * 1.333 + 10.0 * 0.5);
  EXPECT_EQ(world.Rows(table::vv_Vertraege).at(0)[field::AktValue], expected);
  EXPECT_EQ(world.Rows(table::vv_Vertragsstaende).at(0)[field::Value], expected);
}

TEST_F(Positions, RowsCountBeyondThreeDigits) {
  world.contract->dblRabatt = 0.0;
  for (int i = 1; i <= 1001; ++i) world.Article("A1", 1.0).sBeschreibung = std::to_string(i);
  world.Article("A1", 4.0).sBeschreibung = "1";
  world.Call();
  const auto rows = world.Rows(table::vv_Vertragspositionen);
  ASSERT_EQ(rows.size(), 1001u);
  EXPECT_EQ(rows[0][field::Anzahl], Value(5.0));
  EXPECT_EQ(rows[98][field::Row], Value("099"));
  EXPECT_EQ(rows[1000][field::Row], Value("1001"));
  EXPECT_EQ(rows[1000][field::Beschreibung], Value("1001"));
  EXPECT_EQ(world.module.gApiPositionRows->size(), 1002u) << "the element 0 stays empty";
  EXPECT_EQ(world.module.gApiPositionRows->front().ArtikelID, "");
}

struct BeyondCase {
  std::string name;
  std::function<void(ApiWorld&)> spoil;
  std::int32_t number;
  std::string source;
  std::vector<std::size_t> counts;
};

TEST_F(Positions, WhatIsBeyondAllBoundsIsRaisedAndTheContractStays) {
  constexpr double kMost = std::numeric_limits<double>::max();
  constexpr double kEndless = std::numeric_limits<double>::infinity();
  constexpr std::int32_t kLongest = std::numeric_limits<std::int32_t>::min();
  const std::string contract = "modAPI.CreateVandVS";
  const std::string positions = "modAPI.GetNewPositions";
  const std::vector<std::size_t> nothing(5, 0);
  const std::vector<std::size_t> no_position = {1, 0, 1, 0, 0};
  const std::vector<BeyondCase> cases = {
      {"a notice date", [](ApiWorld& w) { w.contract->KuendFristInWochen = kLongest; }, 5, contract,
       nothing},
      {"the end of a contract that is not renewed",
       [](ApiWorld& w) {
         w.contract->lVertragArt = 2;
         w.contract->VertragBeginn = support::Day(1, 2, 9999);
       },
       5, contract, nothing},
      {"a price", [](ApiWorld& w) { SetPrice(w.Article(), 1e18); }, 6, positions, no_position},
      {"a discount", [](ApiWorld& w) { SetDiscount(w.Article(), kMost); }, 6, positions,
       no_position},
      {"a merged quantity", [](ApiWorld& w) { w.Article("A1", kMost), w.Article("A1", kMost); }, 6,
       positions, no_position},
      {"an endless quantity", [](ApiWorld& w) { w.Article("A1", kEndless); }, 6, positions,
       no_position},
      {"the value",
       [](ApiWorld& w) { w.Article("A1", kMost); },
       6,
       "modAPI.WriteNewPositions",
       {1, 0, 1, 1, 0}},
  };
  for (const BeyondCase& row : cases) {
    ApiWorld fresh;
    row.spoil(fresh);
    const auto error = ErrorOf([&] { fresh.Call(); });
    ASSERT_TRUE(error) << row.name;
    EXPECT_EQ(error->Number(), row.number) << row.name;
    EXPECT_EQ(error->Source(), row.source) << row.name;
    EXPECT_EQ(fresh.Counts(), row.counts) << row.name;
  }
}

}  // namespace
}  // namespace pactora::api
