// The world with a caller of NewContractDebitor in it.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "api/ArticleCollection.h"
#include "api/vv_CArticle.h"
#include "api/vv_CContractD.h"
#include "shell/entry/CVV.h"
#include "support/contract_world.h"

namespace pactora::support {

class ApiWorld : public ContractWorld {
 public:
  ApiWorld() { Goto(schema::table::Adressen, address); }

  // The caller's records: the worked example of a one-year renewable contract,
  // paid monthly, with one article.
  std::shared_ptr<api::vv_CContractD> contract = ExampleContract();
  std::shared_ptr<api::ArticleCollection> articles = std::make_shared<api::ArticleCollection>();

  static std::shared_ptr<api::vv_CContractD> ExampleContract() {
    auto record = std::make_shared<api::vv_CContractD>();
    record->lVertragArt = 1;
    record->VertragBeginn = Day(1, 3, 2024);
    record->VertragGeschlossenAm = Day(1, 3, 2024);
    record->Bezeichnung = "Wartungsvertrag";
    record->Dauer = 12;
    record->Zahlungsperiode = 1;
    record->Verlaengerungsdauer = 12;
    record->VerlaengerungsZahlungsperiode = 12;
    record->dblRabatt = 10.0;
    record->KuendFristInWochen = 6;
    record->Memo = "Notiz";
    record->SetztMerkmalGruppe = "Kunden";
    record->SetztMerkmal = "Status";
    record->SetztWert = "A";
    record->Auftragsnummer = "B-17";
    return record;
  }

  // Adds an article that the caller may go on changing.
  api::vv_CArticle& Article(const std::string& id = "A1", double quantity = 2.0,
                            std::int32_t months = 12) {
    auto article = std::make_shared<api::vv_CArticle>();
    article->sArtikelID = id;
    article->dblAnzahl = quantity;
    article->lPreisDauer = months;
    articles->Add(article);
    return *article;
  }

  void Call() { CallWith(contract); }
  void CallWith(const std::shared_ptr<api::PropertyBag>& record) {
    entry.NewContractDebitor(host.App(), record, articles);
  }

  // How many rows there are of what a contract is made of, in this order:
  // contracts, appointments, status rows, positions, attributes.
  std::vector<std::size_t> Counts() {
    namespace table = schema::table;
    return {Count(table::vv_Vertraege), Count(table::vv_VertragsAktivitaeten),
            Count(table::vv_Vertragsstaende), Count(table::vv_Vertragspositionen),
            Count(table::Adressmerkmale)};
  }

  shell::CVV entry{module};
};

class ApiTest : public testing::Test {
 protected:
  void TearDown() override { EXPECT_THAT(world.screen.Problems(), testing::IsEmpty()); }

  // Every field of the row is one of these and holds that value; the fields not
  // named were never written.
  static void ExpectRow(const Row& row, const Values& expected) {
    std::map<std::string, host::Value, std::less<>> wanted;
    for (const auto& [name, value] : expected) wanted[std::string(name)] = value;
    for (const auto& [name, value] : row.cells) {
      const host::Value& want = wanted[name];
      EXPECT_EQ(value, want) << name;
    }
    for (const auto& [name, value] : wanted) EXPECT_TRUE(row.cells.contains(name)) << name;
  }

  ApiWorld world;
};

}  // namespace pactora::support
