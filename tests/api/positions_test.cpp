// Prices, merging and the value of a contract.

#include <limits>

#include "api/ApiPositionRow.h"
#include "api/modAPI.h"
#include "api_world.h"
#include "contract/money.h"
#include "support/row_text.h"

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
      SCOPED_TRACE(std::to_string(term) + "/" + std::to_string(period));
      ApiWorld world;
      world.contract->Dauer = term;
      world.contract->Zahlungsperiode = period;
      world.contract->dblRabatt = 0.0;
      world.Article("dblAnzahl=3, lPreisDauer=1, bSonderpreisVerwenden=True, dblPreis=7,77");
      world.Call();
      const Row position = world.Rows(table::vv_Vertragspositionen).at(0);
      const double price = period * 7.77;
      EXPECT_NEAR(position[field::Nettopreis].AsDouble(), price, 1e-9);
      // A term without a price field costs what the payment period costs.
      const bool own_price = contract::PriceFieldOf(term).has_value();
      EXPECT_NEAR(position[field::Preis].AsDouble(), own_price ? term * 7.77 : price, 1e-9);
    }
  }
}

using Positions = support::ApiTest;

TEST_F(Positions, FollowTheTableOfCases) {
  const struct {
    const char* name;
    std::vector<std::string_view> articles;
    std::vector<std::string_view> fields;
    std::vector<std::string> rows;
  } cases[] = {
      {"equal articles share the first one's row",
       {"sGruppierung=erste", "sArtikelID=A2, dblAnzahl=1, lPreisDauer=1",
        "sArtikelID=a1, dblAnzahl=3,5, sGruppierung=zweite, sBeschreibung=VOR ORT"},
       {field::Row, field::ArtikelID, field::Artikel, field::Anzahl, field::Erloeskonto,
        field::UStSatz, field::Beschreibung, field::Gruppierung},
       {"001 A1 Wartung Server 5,5 8400 19 Vor Ort erste", "002 A2 Hotline 1 8300 7  "}},
      {"articles that differ in one thing stand alone",
       {"", "sBeschreibung=anders", "sAuftragsnummer=B-1",
        "bUseCustomDiscount=True, dblCustomDiscount=5", "bUseCustomDiscount=True",
        "bSonderpreisVerwenden=True, dblPreis=121"},
       {field::Beschreibung, field::Auftragsnummer, field::Rabattprozent, field::Nettopreis,
        field::PreisM12},
       {"Vor Ort  10 9 120", "anders  10 9 120", "Vor Ort B-1 10 9 120", "Vor Ort  5 9,5 120",
        "Vor Ort  0 10 120", "Vor Ort  10 9,07 121"}},
      {"the same price for another time and the same discount merge",
       {"dblAnzahl=1", "dblAnzahl=1, lPreisDauer=1, bSonderpreisVerwenden=True, dblPreis=10",
        "dblAnzahl=1, bUseCustomDiscount=True, dblCustomDiscount=10"},
       {field::Anzahl},
       {"3"}},
      {"what is switched off has no effect",
       {"dblPreis=999, dblCustomDiscount=50"},
       {field::PreisM12, field::Rabattprozent},
       {"120 10"}},
      {"everything off leaves the price before discount",
       {"bUseCustomDiscount=True, dblCustomDiscount=100"},
       {field::Nettopreis, field::NettoOhneRabatt},
       {"0 10"}},
  };
  for (const auto& row : cases) {
    ApiWorld fresh;
    for (const std::string_view article : row.articles) fresh.Article(article);
    fresh.Call();
    EXPECT_EQ(support::Lines(fresh, table::vv_Vertragspositionen, row.fields), row.rows)
        << row.name;
  }
}

TEST_F(Positions, TheValueIsTheSumOfOneInvoiceNotRounded) {
  world.contract->dblRabatt = 0.0;
  world.Article("dblAnzahl=1,333");
  world.Article("sArtikelID=A2, dblAnzahl=0,5, lPreisDauer=1");
  world.Call();
  const Value expected(10.0 * 1.333 + 10.0 * 0.5);
  EXPECT_EQ(world.Rows(table::vv_Vertraege).at(0)[field::AktValue], expected);
  EXPECT_EQ(world.Rows(table::vv_Vertragsstaende).at(0)[field::Value], expected);
}

TEST_F(Positions, WhatIsBeyondAllBoundsIsRaisedAndTheContractStays) {
  const support::Values most = {{"dblAnzahl", std::numeric_limits<double>::max()}};
  const support::Values price =
      support::Fields("bSonderpreisVerwenden=True, dblPreis=1000000000000000000");
  const std::vector<std::size_t> no_position = {1, 0, 1, 0, 0};
  const struct {
    std::string_view contract;
    std::vector<support::Values> articles;
    std::int32_t number;
    std::string source;
    std::vector<std::size_t> counts;
  } cases[] = {
      {"KuendFristInWochen=-2147483648", {}, 5, "modAPI.CreateVandVS", {0, 0, 0, 0, 0}},
      {"", {price}, 6, "modAPI.GetNewPositions", no_position},
      {"", {most, most}, 6, "modAPI.GetNewPositions", no_position},  // merged
      {"", {most}, 6, "modAPI.WriteNewPositions", {1, 0, 1, 1, 0}},  // their value
  };
  for (const auto& row : cases) {
    ApiWorld fresh;
    ApiWorld::Set(*fresh.contract, support::Fields(row.contract));
    for (const support::Values& article : row.articles) fresh.Article(article);
    const auto error = ErrorOf([&] { fresh.Call(); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), row.number);
    EXPECT_EQ(error->Source(), row.source);
    EXPECT_EQ(fresh.Counts(), row.counts);
  }
}

}  // namespace
}  // namespace pactora::api
