#include "company.h"

#include <cstdlib>
#include <iostream>

#include "api/vv_CArticle.h"
#include "schema/Catalog.h"
#include "schema/names.h"
#include "store/rows.h"

namespace pactora::bench {
namespace {

namespace field = schema::field;
namespace table = schema::table;

class Rows {
 public:
  Rows(store::RecordStore& store, std::string_view name)
      : store_(store), table_(store.Catalog().Table(name)) {}

  store::Oid Add(store::Oid parent,
                 std::initializer_list<std::pair<std::string_view, host::Value>> values) {
    store::Record record;
    record.parent = parent;
    record.cells.resize(Schema().fields.size());
    for (const auto& [name, value] : values) {
      const std::size_t at = Schema().FindField(name).value();
      record.cells[at] = store::ConvertToField(Schema().fields[at], value);
    }
    store::InsertRow(store_, table_, record, nullptr);
    return record.oid;
  }

  store::Oid First() {
    store::Record record;
    return store_.NextInParent(table_, 0, 0, record) ? record.oid : 0;
  }

 private:
  const schema::Table& Schema() const { return store_.Catalog().tables[table_]; }

  store::RecordStore& store_;
  store::TableId table_;
};

}  // namespace

std::string ArticleId(int number) { return "A" + std::to_string(1000 + number); }

store::Profile CompanyProfile() {
  store::Profile profile;
  profile.name = "FIRMA";
  profile.display_name = "Firma GmbH";
  profile.users = {"Anna", "Bernd"};
  profile.current_user = "Anna";
  return profile;
}

void FillCompany(store::RecordStore& store) {
  Rows addresses(store, table::Adressen);
  for (int i = 1; i <= kAddresses; ++i) {
    addresses.Add(0, {{field::Name, "Kunde " + std::to_string(i)}});
  }
  const store::Oid group = Rows(store, table::Artikelgruppen).Add(0, {{field::ID, "G1"}});
  Rows articles(store, table::Artikel);
  for (int i = 1; i <= kArticles; ++i) {
    articles.Add(group, {{field::Id, ArticleId(i)},
                         {field::Bezeichnung, "Wartung Gerät " + std::to_string(i)},
                         {field::Nummer, std::to_string(5000 + i)},
                         {field::Art, "Dienstleistung"},
                         {field::Einheit, "Stück"},
                         {field::Beschreibung, "Jährliche Wartung vor Ort"},
                         {field::Nettopreis, 120.0 + i},
                         {field::Erloeskonto, 8400},
                         {field::USTSatz, 19.0}});
  }
  const store::Oid client =
      Rows(store, table::KELM_Mandanten).Add(0, {{field::TessarinName, "FIRMA"}});
  Rows(store, table::KELM_Nummern)
      .Add(client, {{field::Tabelle, "VV_VERTRAEGE"},
                    {field::Feld, "VERTRAGNUMMER"},
                    {field::Nummer, "00000000"}});
  store.Commit();
}

void AddContracts(store::RecordStore& store, std::int64_t count) {
  const store::Oid first_address = Rows(store, table::Adressen).First();
  Rows contracts(store, table::vv_Vertraege);
  Rows terms(store, table::vv_Vertragsstaende);
  Rows positions(store, table::vv_Vertragspositionen);
  for (std::int64_t i = 0; i < count; ++i) {
    const store::Oid contract = contracts.Add(first_address + i % kAddresses,
                                              {{field::Typ, "D"},
                                               {field::Vertragnummer, std::to_string(10000000 + i)},
                                               {field::Dauer, 12}});
    const store::Oid term = terms.Add(contract, {{field::LaufzeitStartStr, "20240301"}});
    for (int p = 1; p <= kPositions; ++p) {
      positions.Add(term, {{field::Artikel, "Wartung"}, {field::ArtikelID, ArticleId(p)}});
    }
    if (i % 10000 == 9999) store.Commit();
  }
  store.Commit();
}

ui::Answer NobodysScreen::ShowMessage(const ui::Message& message) {
  std::cerr << message.text << '\n';
  std::exit(1);
}

void NobodysScreen::ShowModal(ui::Form&) { std::exit(1); }

Office::Office(std::unique_ptr<store::RecordStore> store)
    : clock_(platform::FromCivil(2024, 3, 1)),
      host_(std::move(store)),
      module_({screen_, clock_, {}, embedded::CreateErrorTexts, [this] { return host_.App(); }}),
      cvv_(module_),
      app_(host_.App()),
      addresses_(host_.Table(table::Adressen)),
      contract_(std::make_shared<api::vv_CContractD>()),
      articles_(std::make_shared<api::ArticleList>()) {
  contract_->lVertragArt = 1;
  contract_->VertragBeginn = contract_->VertragGeschlossenAm = platform::FromCivil(2024, 3, 1);
  contract_->Bezeichnung = "Wartungsvertrag";
  contract_->Dauer = contract_->Verlaengerungsdauer = 12;
  contract_->Zahlungsperiode = 1;
  contract_->VerlaengerungsZahlungsperiode = 12;
  contract_->dblRabatt = 10;
  contract_->KuendFristInWochen = 6;
  contract_->SetztMerkmalGruppe = "Verträge";
  contract_->SetztMerkmal = "Wartung";
  contract_->SetztWert = "ja";
  for (int i = 1; i <= kPositions; ++i) {
    const auto article = std::make_shared<api::vv_CArticle>();
    article->sArtikelID = ArticleId(i);
    article->dblAnzahl = i;
    article->lPreisDauer = 12;
    articles_->Add(article);
  }
}

void Office::ConcludeContract() {
  addresses_->MoveNext(1, 256);
  if (addresses_->Eof()) addresses_->MoveFirst(256);
  cvv_.NewContractDebitor(app_, contract_, articles_);
  host_.EndUnit();
}

}  // namespace pactora::bench
