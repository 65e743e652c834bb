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
  std::shared_ptr<api::ArticleList> articles = std::make_shared<api::ArticleList>();

  static std::shared_ptr<api::vv_CContractD> ExampleContract() {
    auto record = std::make_shared<api::vv_CContractD>();
    Set(*record, Fields("lVertragArt=1, Bezeichnung=Wartungsvertrag, Dauer=12, Zahlungsperiode=1, "
                        "Verlaengerungsdauer=12, VerlaengerungsZahlungsperiode=12, dblRabatt=10, "
                        "KuendFristInWochen=6, Memo=Notiz, SetztMerkmalGruppe=Kunden, "
                        "SetztMerkmal=Status, SetztWert=A, Auftragsnummer=B-17"));
    record->VertragBeginn = record->VertragGeschlossenAm = Day(1, 3, 2024);
    return record;
  }

  // Properties by their names.
  template <typename Record>
  static void Set(Record& record, const Values& values) {
    for (const auto& [name, value] : values) record.Set(name, value);
  }

  // Adds an article: two pieces of A1 at its price for a year, but for these.
  void Article(const Values& changes) {
    auto article = std::make_shared<api::vv_CArticle>();
    Set(*article, Fields("sArtikelID=A1, dblAnzahl=2, lPreisDauer=12"));
    Set(*article, changes);
    articles->Add(article);
  }
  void Article(std::string_view changes = {}) { Article(Fields(changes)); }

  void Call() { CallWith(contract); }
  void CallWith(const std::shared_ptr<api::PropertyBag>& record) {
    entry.NewContractDebitor(App(), record, articles);
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

  ApiWorld world;
};

}  // namespace pactora::support
