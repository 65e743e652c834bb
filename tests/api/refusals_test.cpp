// What NewContractDebitor refuses, in which order, and what it leaves untouched.

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>

#include "api/modAPI.h"
#include "api_world.h"

namespace pactora::api {
namespace {

namespace table = schema::table;
using support::ApiWorld;
using support::ErrorNumberOf;
using support::ErrorOf;

struct RefusalCase {
  std::string name;
  std::function<void(ApiWorld&)> spoil;
  std::uint32_t number;
  std::string description;
};

// In the order of the checks: a fault further up is reported before all below.
const std::vector<RefusalCase>& Refusals() {
  static const std::vector<RefusalCase> cases = {
      {"an unknown article", [](ApiWorld& world) { world.Article("A9"); }, 0x80045001,
       "Es wurden nicht alle Artikel gefunden.\r\nÜberprüfen Sie die ArtikelIDs!"},
      {"a quantity of nothing", [](ApiWorld& world) { world.Article("A2", 0.0); }, 0x80045002,
       "Die Anzahl für Artikel muss > 0 sein.\r\nÜberprüfen Sie die Artikelanzahl!"},
      {"a price for no month", [](ApiWorld& world) { world.Article("A2", 1.0, 0); }, 0x80045003,
       "Die 'Preisdauer' für Artikel muss > 0 sein.\r\nÜberprüfen Sie die 'Preisdauer'!"},
      {"an unknown kind", [](ApiWorld& world) { world.contract->lVertragArt = 3; }, 0x80045004,
       "Ungültige Vertragsart.\r\nVertragsart muss 1 oder 2 sein!"},
      {"a term of 13 months", [](ApiWorld& world) { world.contract->Dauer = 13; }, 0x80045005,
       "Ungültige Dauer."},
      {"no payment period", [](ApiWorld& world) { world.contract->Zahlungsperiode = 0; },
       0x80045006, "Zahlungsperiode muss >0 sein!"},
      {"a period longer than the term",
       [](ApiWorld& world) { world.contract->Zahlungsperiode = 24; }, 0x80045007,
       "Zahlungsperiode passt nicht zur Dauer!"},
      {"a period that does not divide the term",
       [](ApiWorld& world) { world.contract->Zahlungsperiode = 5; }, 0x80045008,
       "Zahlungsperiode passt nicht zur Laufzeit!"},
      {"a renewal below a year", [](ApiWorld& world) { world.contract->Verlaengerungsdauer = 6; },
       0x80045005, "Ungültige Verlängerungsdauer."},
      {"no payment period of the renewal",
       [](ApiWorld& world) { world.contract->VerlaengerungsZahlungsperiode = -1; }, 0x80045006,
       "Verlängerungszahlungsperiode muss >0 sein!"},
      {"a renewal period longer than the renewal",
       [](ApiWorld& world) { world.contract->VerlaengerungsZahlungsperiode = 24; }, 0x80045007,
       "Verlängerungszahlungsperiode passt nicht zur Dauer!"},
      {"a renewal period without a price",
       [](ApiWorld& world) { world.contract->VerlaengerungsZahlungsperiode = 5; }, 0x80045008,
       "Verlängerungszahlungsperiode passt nicht zur Laufzeit!"},
      {"too much discount", [](ApiWorld& world) { world.contract->dblRabatt = 100.01; }, 0x80045009,
       "Ungültiger Wert für Rabatt!"},
      {"no address",
       [](ApiWorld& world) {
         const auto addresses = world.host.Table(table::Adressen);
         addresses->MoveFirst(256);
         while (!addresses->Eof()) addresses->MoveNext(1, 256);
       },
       0x8004500A, "Keine Adresse ausgewählt!"},
  };
  return cases;
}

void ExpectRefusal(ApiWorld& world, const RefusalCase& row, const std::string& name) {
  const auto error = ErrorOf([&] { world.Call(); });
  ASSERT_TRUE(error) << name << " is not refused";
  EXPECT_EQ(error->Number(), platform::ErrorNumber(row.number)) << name;
  EXPECT_EQ(error->Description(), row.description) << name;
  EXPECT_EQ(error->Source(), "modAPI") << name;
  EXPECT_EQ(world.Counts(), std::vector<std::size_t>(5, 0)) << name;
  EXPECT_EQ(world.Count(table::KELM_Nummern), 0u) << name << ": no number is spent";
  EXPECT_THAT(world.screen.Messages(), testing::IsEmpty()) << name;
}

TEST(Refusals, OfTwoFaultsTheFirstWins) {
  const auto& cases = Refusals();
  for (std::size_t first = 0; first < cases.size(); ++first) {
    for (std::size_t second = first; second < cases.size(); ++second) {
      ApiWorld world;
      world.Article();
      // Where both spoil the same property the first fault is the one that stays.
      cases[second].spoil(world);
      cases[first].spoil(world);
      ExpectRefusal(world, cases[first], cases[first].name + " before " + cases[second].name);
    }
  }
}

struct BoundCase {
  std::string name;
  std::function<void(vv_CContractD&)> set;
  std::uint32_t number;  // 0: it passes
};

TEST(Refusals, HaveTheseBounds) {
  std::vector<BoundCase> cases = {
      {"no discount", [](auto& c) { c.dblRabatt = 0.0; }, 0},
      {"all discount", [](auto& c) { c.dblRabatt = 100.0; }, 0},
      {"negative discount", [](auto& c) { c.dblRabatt = -0.01; }, 0x80045009},
      {"a discount that is no number", [](auto& c) { c.dblRabatt = std::nan(""); }, 0x80045009},
      {"a renewal period that does not divide",
       [](auto& c) { c.Verlaengerungsdauer = 60, c.VerlaengerungsZahlungsperiode = 48; }, 0},
      {"a renewal of 18 months", [](auto& c) { c.Verlaengerungsdauer = 18; }, 0x80045005},
      {"once: a renewal is not looked at",
       [](auto& c) {
         c.lVertragArt = 2, c.Verlaengerungsdauer = 6, c.VerlaengerungsZahlungsperiode = -5,
         c.KuendFristInWochen = std::numeric_limits<std::int32_t>::max();
       },
       0},
      {"kind 0", [](auto& c) { c.lVertragArt = 0; }, 0x80045004},
      {"a negative term", [](auto& c) { c.Dauer = -12, c.Zahlungsperiode = -12; }, 0x80045005},
      {"a negative period", [](auto& c) { c.Zahlungsperiode = -1; }, 0x80045006},
      {"negative notice is not checked", [](auto& c) { c.KuendFristInWochen = -3; }, 0},
      {"a period of 30 months", [](auto& c) { c.Dauer = 60, c.Zahlungsperiode = 30; }, 0},
  };
  for (std::int32_t term = -1; term <= 61; ++term) {
    const bool allowed =
        (term >= 1 && term <= 12) || term == 24 || term == 36 || term == 48 || term == 60;
    cases.push_back({"a term of " + std::to_string(term),
                     [term](auto& c) { c.Dauer = term, c.Zahlungsperiode = 1; },
                     allowed ? 0 : 0x80045005u});
  }
  for (const BoundCase& row : cases) {
    ApiWorld world;
    world.Article();
    row.set(*world.contract);
    EXPECT_EQ(ErrorNumberOf([&] { world.Call(); }), platform::ErrorNumber(row.number)) << row.name;
  }
}

// A caller's own class: any object that offers the properties.
class OwnContract final : public PropertyBag {
 public:
  explicit OwnContract(std::string missing = {}) : missing_(std::move(missing)) {}
  std::map<std::string, host::Value, std::less<>> values;

  host::Value Get(std::string_view name) const override {
    if (name == missing_) platform::Raise(platform::RuntimeError::MemberNotOffered);
    const auto value = values.find(name);
    return value != values.end() ? value->second : ApiWorld::ExampleContract()->Get(name);
  }

 private:
  const std::string missing_;
};

// What is shown by a reporter; an article that is not looked at counts as unknown.
struct ReportCase {
  std::string name;
  std::string procedure;
  platform::RuntimeError error;
  std::function<void(ApiWorld&)> call;
};

TEST(Refusals, WhatCannotBeReadIsReportedAndStoresNothing) {
  using platform::RuntimeError;
  const std::string articles = "modAPI.ArticlesExist";
  const std::string records = "CVV.NewContractDebitor";
  const std::vector<ReportCase> cases = {
      {"an element of another kind", articles, RuntimeError::TypeMismatch,
       [](ApiWorld& world) {
         world.articles->Add(std::make_shared<vv_CContractD>());
         world.Call();
       }},
      {"no collection", articles, RuntimeError::ObjectNotSet,
       [](ApiWorld& world) {
         world.articles = nullptr;
         world.Call();
       }},
      {"more articles than 16 bits count", articles, RuntimeError::Overflow,
       [](ApiWorld& world) {
         for (int i = 1; i < 32768; ++i) world.Article();
         world.Call();
       }},
      {"a missing property", records, RuntimeError::MemberNotOffered,
       [](ApiWorld& world) { world.CallWith(std::make_shared<OwnContract>("Auftragsnummer")); }},
      {"a value that cannot be converted", records, RuntimeError::TypeMismatch,
       [](ApiWorld& world) {
         const auto own = std::make_shared<OwnContract>();
         own->values["Dauer"] = "ein Jahr";
         world.CallWith(own);
       }},
      {"no record", records, RuntimeError::ObjectNotSet,
       [](ApiWorld& world) { world.CallWith(nullptr); }},
  };
  for (const ReportCase& row : cases) {
    SCOPED_TRACE(row.name);
    ApiWorld world;
    world.Article();
    world.screen.ExpectMessage(support::ReporterMessage(row.procedure, row.error));
    EXPECT_EQ(ErrorNumberOf([&] { row.call(world); }),
              row.procedure == articles ? Number(Refusal::UnknownArticle) : 0);
    EXPECT_EQ(world.Counts(), std::vector<std::size_t>(5, 0));
    EXPECT_THAT(world.screen.Problems(), testing::IsEmpty());
  }
}

TEST(Refusals, WithoutAHostAreRaised) {
  ApiWorld world;
  EXPECT_EQ(ErrorNumberOf(
                [&] { world.entry.NewContractDebitor(nullptr, world.contract, world.articles); }),
            91);
}

using Articles = support::ApiTest;

TEST_F(Articles, TheUsersCursorOnTheArticlesIsPutBack) {
  const auto articles = world.host.Table(table::Artikel);
  world.Goto(table::Artikelgruppen, world.article_group);
  world.Goto(table::Artikel, world.hotline);
  articles->SetCursorFlagB(true);
  world.Article("A1");
  world.Article("A9");
  EXPECT_TRUE(ErrorOf([&] { world.Call(); }));
  EXPECT_EQ(articles->Oid(), std::to_string(world.hotline));
  EXPECT_TRUE(articles->CursorFlagB());
}

TEST_F(Articles, AreFoundBehindAFilter) {
  world.HideRows(table::Artikel, embedded::FilterKind::First);
  world.HideRows(table::Artikel, embedded::FilterKind::Second);
  world.Article();
  world.Call();
  EXPECT_EQ(world.Count(table::vv_Vertragspositionen), 1u);
}

using TakingOver = support::ApiTest;

TEST_F(TakingOver, AnObjectOfTheCallersOwnServesAsWell) {
  const auto own = std::make_shared<OwnContract>();
  own->values["Dauer"] = "24";
  own->values["dblRabatt"] = "7,5";
  world.Article();
  world.CallWith(own);
  EXPECT_EQ(world.Rows(table::vv_Vertraege).at(0)[schema::field::Dauer], host::Value(24));
  EXPECT_EQ(world.Rows(table::vv_Vertragsstaende).at(0)[schema::field::Rabattprozent],
            host::Value(7.5));
}

TEST_F(TakingOver, TheRecordIsCopiedAndTheCollectionIsNot) {
  world.Article();
  world.Call();
  world.contract->Dauer = 99;
  EXPECT_EQ(world.module.gApiContract->Dauer, 12);
  EXPECT_NE(world.module.gApiContract, world.contract);
  EXPECT_EQ(world.module.gApiArticles, world.articles);
  EXPECT_EQ(world.module.gVersionText, world.entry.DLLVersion());
}

}  // namespace
}  // namespace pactora::api
