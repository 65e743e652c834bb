// What NewContractDebitor refuses, in which order, and what it leaves untouched.

#include <cmath>

#include "api/modAPI.h"
#include "api_world.h"

namespace pactora::api {
namespace {

namespace table = schema::table;
using support::ApiWorld;
using support::ErrorNumberOf;
using support::ErrorOf;

TEST(Refusals, OfTwoFaultsTheFirstWins) {
  // In the order of the checks: a fault further up is reported before all below.
  const struct Case {
    std::string name;
    std::string_view article, contract;
    std::uint32_t number;
    std::string description;
    bool no_address = false;
  } cases[] = {
      {"an unknown article", "sArtikelID=A9", "", 0x80045001,
       "Es wurden nicht alle Artikel gefunden.\r\nÜberprüfen Sie die ArtikelIDs!"},
      {"a quantity of nothing", "dblAnzahl=0", "", 0x80045002,
       "Die Anzahl für Artikel muss > 0 sein.\r\nÜberprüfen Sie die Artikelanzahl!"},
      {"a price for no month", "lPreisDauer=0", "", 0x80045003,
       "Die 'Preisdauer' für Artikel muss > 0 sein.\r\nÜberprüfen Sie die 'Preisdauer'!"},
      {"an unknown kind", "", "lVertragArt=3", 0x80045004,
       "Ungültige Vertragsart.\r\nVertragsart muss 1 oder 2 sein!"},
      {"a term of 13 months", "", "Dauer=13", 0x80045005, "Ungültige Dauer."},
      {"no payment period", "", "Zahlungsperiode=0", 0x80045006, "Zahlungsperiode muss >0 sein!"},
      {"a period longer than the term", "", "Zahlungsperiode=24", 0x80045007,
       "Zahlungsperiode passt nicht zur Dauer!"},
      {"a period that does not divide the term", "", "Zahlungsperiode=5", 0x80045008,
       "Zahlungsperiode passt nicht zur Laufzeit!"},
      {"a renewal below a year", "", "Verlaengerungsdauer=6", 0x80045005,
       "Ungültige Verlängerungsdauer."},
      {"no payment period of the renewal", "", "VerlaengerungsZahlungsperiode=-1", 0x80045006,
       "Verlängerungszahlungsperiode muss >0 sein!"},
      {"a renewal period longer than the renewal", "", "VerlaengerungsZahlungsperiode=24",
       0x80045007, "Verlängerungszahlungsperiode passt nicht zur Dauer!"},
      {"a renewal period without a price", "", "VerlaengerungsZahlungsperiode=5", 0x80045008,
       "Verlängerungszahlungsperiode passt nicht zur Laufzeit!"},
      {"too much discount", "", "dblRabatt=100,01", 0x80045009, "Ungültiger Wert für Rabatt!"},
      {"no address", "", "", 0x8004500A, "Keine Adresse ausgewählt!", true},
  };
  const auto spoil = [](ApiWorld& world, const Case& fault) {
    if (!fault.article.empty()) world.Article(fault.article);
    ApiWorld::Set(*world.contract, support::Fields(fault.contract));
    const auto addresses = world.host.Table(table::Adressen);
    while (fault.no_address && !addresses->Eof()) addresses->MoveNext(1, 256);
  };
  for (std::size_t first = 0; first < std::size(cases); ++first) {
    for (std::size_t second = first; second < std::size(cases); ++second) {
      const Case& wins = cases[first];
      SCOPED_TRACE(wins.name + " before " + cases[second].name);
      ApiWorld world;
      world.Article();
      // Where both spoil the same property the first fault is the one that stays.
      spoil(world, cases[second]);
      spoil(world, wins);
      const auto error = ErrorOf([&] { world.Call(); });
      ASSERT_TRUE(error);
      EXPECT_EQ(error->Number(), platform::ErrorNumber(wins.number));
      EXPECT_EQ(error->Description(), wins.description);
      EXPECT_EQ(error->Source(), "modAPI");
      EXPECT_EQ(world.Counts(), std::vector<std::size_t>(5, 0));
      EXPECT_EQ(world.Count(table::KELM_Nummern), 0u) << "no number is spent";
      EXPECT_THAT(world.screen.Messages(), testing::IsEmpty());
    }
  }
}

TEST(Refusals, HaveTheseBounds) {
  // What is set, and 0 when it passes.
  std::vector<std::pair<std::string, std::uint32_t>> cases = {
      {"dblRabatt=100", 0},
      {"dblRabatt=-0,01", 0x80045009},
      {"Verlaengerungsdauer=60, VerlaengerungsZahlungsperiode=48", 0},  // does not divide
      {"Verlaengerungsdauer=18", 0x80045005},
      // Of a contract that ends no renewal is looked at.
      {"lVertragArt=2, Verlaengerungsdauer=6, VerlaengerungsZahlungsperiode=-5, "
       "KuendFristInWochen=2147483647",
       0},
      {"Dauer=-12, Zahlungsperiode=-12", 0x80045005},
      {"KuendFristInWochen=-3", 0},
  };
  for (std::int32_t term = -1; term <= 61; ++term) {
    const bool allowed =
        (term >= 1 && term <= 12) || term == 24 || term == 36 || term == 48 || term == 60;
    cases.emplace_back("Dauer=" + std::to_string(term) + ", Zahlungsperiode=1",
                       allowed ? 0 : 0x80045005u);
  }
  for (const auto& [set, number] : cases) {
    ApiWorld world;
    world.Article();
    ApiWorld::Set(*world.contract, support::Fields(set));
    EXPECT_EQ(ErrorNumberOf([&] { world.Call(); }), platform::ErrorNumber(number)) << set;
  }
  ApiWorld world;
  world.Article();
  world.contract->dblRabatt = std::nan("");
  EXPECT_EQ(ErrorNumberOf([&] { world.Call(); }), platform::ErrorNumber(0x80045009));
}

// A caller's own class that lacks a property.
class OwnContract final : public PropertyBag {
 public:
  host::Value Get(std::string_view name) const override {
    if (name == "Auftragsnummer") platform::Raise(platform::RuntimeError::MemberNotOffered);
    return ApiWorld::ExampleContract()->Get(name);
  }
};

// What cannot be read is shown by a reporter; an article that is not looked at
// counts as unknown.
TEST(Refusals, WhatCannotBeReadIsReportedAndStoresNothing) {
  using platform::RuntimeError;
  const std::string articles = "modAPI.ArticlesExist";
  const std::string records = "CVV.NewContractDebitor";
  const auto own = std::make_shared<OwnContract>();
  const struct {
    std::string procedure;
    RuntimeError error;
    std::function<void(ApiWorld&)> call;
  } cases[] = {
      {articles, RuntimeError::TypeMismatch,
       [](ApiWorld& w) { w.articles->Add(ApiWorld::ExampleContract()), w.Call(); }},
      {articles, RuntimeError::ObjectNotSet, [](ApiWorld& w) { w.articles = nullptr, w.Call(); }},
      {records, RuntimeError::MemberNotOffered, [&](ApiWorld& w) { w.CallWith(own); }},
      {records, RuntimeError::ObjectNotSet, [](ApiWorld& w) { w.CallWith(nullptr); }},
  };
  for (const auto& row : cases) {
    ApiWorld world;
    world.Article();
    world.screen.ExpectMessage(support::ReporterMessage(row.procedure, row.error));
    EXPECT_EQ(ErrorNumberOf([&] { row.call(world); }),
              row.procedure == articles ? Number(Refusal::UnknownArticle) : 0);
    EXPECT_EQ(world.Counts(), std::vector<std::size_t>(5, 0));
    EXPECT_THAT(world.screen.Problems(), testing::IsEmpty());
  }
}

}  // namespace
}  // namespace pactora::api
