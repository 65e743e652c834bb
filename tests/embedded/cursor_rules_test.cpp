// The rules of host/HostTable.h on the contract tables, over every store.

#include <gtest/gtest.h>

#include <string>

#include "embedded/Host.h"
#include "embedded/LiveTable.h"
#include "schema/names.h"
#include "store/Document.h"
#include "store/errors.h"
#include "support/store_kinds.h"

namespace pactora::embedded {
namespace {

namespace field = schema::field;
namespace table = schema::table;

std::int32_t NumberOf(const std::function<void()>& body) {
  try {
    body();
  } catch (const platform::Error& error) {
    return error.Number();
  }
  return 0;
}

class CursorRules : public testing::TestWithParam<support::StoreKind> {
 protected:
  using Table = std::shared_ptr<host::HostTable>;

  Table Get(std::string_view name) { return host_->Table(name); }

  // A stored row under the parent's current row; returns its Oid.
  std::string Add(std::string_view name,
                  std::initializer_list<std::pair<std::string_view, host::Value>> values) {
    const Table rows = Get(name);
    rows->GotoRec(rows->NewRecordOid(0));
    for (const auto& [key, value] : values) rows->Fields().Item(key).SetValue(value);
    rows->StoreNew(256);
    return rows->Oid();
  }

  std::string Text(const Table& rows, std::string_view name) {
    return host::ToText(rows->Fields().Item(name).Value());
  }

  std::unique_ptr<Host> host_ =
      std::make_unique<Host>(GetParam().create(schema::ContractCatalog(true), {}));
};

TEST_P(CursorRules, OneLiveTableForANameWithoutRegardToCase) {
  EXPECT_EQ(Get("vv_DefinitionsPositionen"), Get(table::vv_Definitionspositionen));
  EXPECT_EQ(Get("ADRESSEN"), Get(table::Adressen));
  EXPECT_EQ(NumberOf([&] { Get("Kunden"); }), Number(HostError::UnknownTable));
  Add(table::Adressen, {});
  Add(table::Adressmerkmale, {{"gültigvom", platform::Date{45000}}});
  EXPECT_EQ(Get(table::Adressmerkmale)->Fields().Item("GÜLTIGVOM").Value().AsDate().days, 45000);
}

TEST_P(CursorRules, AtTheStartNoTableHasACurrentRow) {
  const Table addresses = Get(table::Adressen);
  EXPECT_TRUE(addresses->Eof());
  EXPECT_EQ(addresses->Oid(), "");
  EXPECT_EQ(NumberOf([&] { addresses->Fields().Item(field::Name).Value(); }),
            Number(HostError::NoCurrentRow));
  addresses->MoveFirst(256);
  EXPECT_TRUE(addresses->Eof());
}

TEST_P(CursorRules, AChildRowBelongsToTheParentThatIsCurrentWhenItIsMade) {
  Add(table::Adressen, {{field::Name, "A"}});
  const std::string first = Add(table::vv_Vertraege, {{field::Bezeichnung, "1"}});
  Add(table::vv_Vertragsstaende, {{field::LaufTyp, "1"}});
  const std::string second = Add(table::vv_Vertraege, {{field::Bezeichnung, "2"}});
  const Table terms = Get(table::vv_Vertragsstaende);
  EXPECT_EQ(terms->ScopeCount(), 0);
  EXPECT_TRUE(terms->Eof()) << "a term of another contract is not current";
  const Table contracts = Get(table::vv_Vertraege);
  contracts->Fields().Item(field::Memo).SetValue("später");
  contracts->Store(256);
  Add(table::vv_Vertragsstaende, {{field::LaufTyp, "2"}});
  ASSERT_TRUE(contracts->FindOid(first, 0));
  terms->MoveFirst(256);
  EXPECT_EQ(Text(terms, field::LaufTyp), "1");
  ASSERT_TRUE(contracts->FindOid(second, 0));
  EXPECT_TRUE(terms->Eof());
  terms->MoveFirst(256);
  EXPECT_EQ(Text(terms, field::LaufTyp), "2");
}

TEST_P(CursorRules, WithoutAParentRowNoChildRowCanBeMade) {
  const Table contracts = Get(table::vv_Vertraege);
  EXPECT_EQ(NumberOf([&] { contracts->NewRecordOid(0); }), Number(HostError::NoParentRow));
  const Table addresses = Get(table::Adressen);
  addresses->GotoRec(addresses->NewRecordOid(0));
  EXPECT_EQ(NumberOf([&] { contracts->NewRecordOid(0); }), Number(HostError::NoParentRow));
}

TEST_P(CursorRules, SeeksRunAcrossParentsAndTheParentsFollow) {
  Add(table::MerkmalgruppeAdressen, {{field::ID, "G1"}, {field::Gruppe, "Branche"}});
  Add(table::MerkmallisteAdressen, {{field::ID, "M1"}, {field::Merkmal, "Handel"}});
  Add(table::WerteMerkmalAdressen, {{field::Wert, "groß"}});
  Add(table::MerkmalgruppeAdressen, {{field::ID, "G2"}, {field::Gruppe, "Ämter"}});
  Add(table::MerkmallisteAdressen, {{field::ID, "M2"}, {field::Merkmal, "Bauamt"}});
  Add(table::WerteMerkmalAdressen, {{field::Wert, "klein"}});

  const Table values = Get(table::WerteMerkmalAdressen);
  values->Indexes().Select(schema::index::MerkmalIDWert, 256);
  ASSERT_TRUE(values->SeekKey("m1GROß", 256));
  EXPECT_EQ(values->Indexes().Current()->KeyValue().AsText(), "M1GROß");
  EXPECT_EQ(Text(Get(table::MerkmallisteAdressen), field::Merkmal), "Handel");
  EXPECT_EQ(Text(Get(table::MerkmalgruppeAdressen), field::Gruppe), "Branche");
  EXPECT_EQ(Text(values->ParentTable(), field::ID), "M1");

  const Table groups = Get(table::MerkmalgruppeAdressen);
  groups->Indexes().Select(schema::index::Merkmalgruppe, 256);
  ASSERT_TRUE(groups->SeekKey("ämter", 256));
  EXPECT_FALSE(values->Eof()) << "with an index the cursor keeps its row";
  EXPECT_TRUE(Get(table::MerkmallisteAdressen)->Eof());
  EXPECT_FALSE(groups->SeekKey("Zoll", 256));
  EXPECT_TRUE(groups->Eof());
}

TEST_P(CursorRules, SeekNearFindsTheNextKeyOrNone) {
  for (const char* name : {"Berta", "Anna", "ärger"}) {
    Add(table::vv_Vertragsdefinitionen, {{field::Bezeichnung, name}});
  }
  const Table types = Get(table::vv_Vertragsdefinitionen);
  types->Indexes().Select(schema::index::Bezeichnung, 256);
  EXPECT_EQ(NumberOf([&] {
              types->Indexes().SelectNone(0);
              types->SeekKey("x", 256);
            }),
            Number(HostError::NoIndexSelected));
  types->Indexes().Select(schema::index::Bezeichnung, 256);
  ASSERT_TRUE(types->SeekNear("Anton", 256));
  EXPECT_EQ(types->Indexes().Current()->KeyValue().AsText(), "BERTA");
  EXPECT_FALSE(types->SeekNear("Öl", 256));
  EXPECT_TRUE(types->Eof());
  EXPECT_TRUE(types->Indexes().Current()->KeyValue().IsEmpty());
}

TEST_P(CursorRules, ANewRowIsStoredOnceAndAnUnsavedOneIsDropped) {
  const Table addresses = Get(table::Adressen);
  addresses->GotoRec(addresses->NewRecordOid(0));
  addresses->Fields().Item(field::Name).SetValue("Neu");
  EXPECT_EQ(addresses->Oid(), "");
  EXPECT_EQ(NumberOf([&] { addresses->Store(256); }), Number(HostError::RowNotStored));
  addresses->StoreNew(256);
  EXPECT_EQ(NumberOf([&] { addresses->StoreNew(256); }), Number(HostError::RowAlreadyStored));
  addresses->GotoRec(addresses->NewRecordOid(0));
  addresses->MoveFirst(256);
  EXPECT_EQ(Text(addresses, field::Name), "Neu");
  EXPECT_EQ(addresses->ScopeCount(), 1);
  EXPECT_EQ(NumberOf([&] {
              Get(table::Artikel)->GotoRec(host::ValueArray{1, 2.0});
            }),
            Number(HostError::InvalidPosition));
}

TEST_P(CursorRules, FieldsConvertWhatIsWrittenToTheirType) {
  Add(table::Adressen, {});
  const Table contracts = Get(table::vv_Vertraege);
  contracts->GotoRec(contracts->NewRecordOid(0));
  host::HostFields& fields = contracts->Fields();
  fields.Item(field::VertragEnde).SetValue(std::int16_t{0});
  fields.Item(field::AktNaechsteRechnung).SetValue(2958465.0);
  fields.Item(field::Dauer).SetValue("12");
  fields.Item(field::AktValue).SetValue("12,50");
  fields.Item(field::NoBooking).SetValue(std::int32_t{-1});
  contracts->StoreNew(256);
  contracts->MoveFirst(256);
  EXPECT_EQ(fields.Item(field::VertragEnde).Value(), host::Value(platform::kNoDate));
  EXPECT_EQ(fields.Item(field::AktNaechsteRechnung).Value(), host::Value(platform::kNoInvoiceDate));
  EXPECT_EQ(fields.Item(field::Dauer).Value(), host::Value(std::int32_t{12}));
  EXPECT_EQ(fields.Item(field::AktValue).Value(), host::Value(12.5));
  EXPECT_EQ(fields.Item(field::NoBooking).Value(), host::Value(true));
  EXPECT_TRUE(fields.Item(field::Memo).Value().IsEmpty());

  const auto refused = [&](std::string_view name, const host::Value& value) {
    return NumberOf([&] { fields.Item(name).SetValue(value); });
  };
  EXPECT_EQ(refused(field::Dauer, "zwölf"), 13);
  EXPECT_EQ(refused(field::Dauer, 3e9), 6);
  EXPECT_EQ(refused(field::VertragBeginn, "1.1.2024"), 13);
  EXPECT_EQ(refused(field::Vertragnummer, std::string(21, '1')),
            store::Number(store::StoreError::TextTooLong));
  EXPECT_EQ(refused(field::Vertragnummer, "ÄÖÜäöüßÄÖÜäöüßÄÖÜäöü" + std::string(1, 'x')),
            store::Number(store::StoreError::TextTooLong));
  EXPECT_EQ(refused(field::Vertragnummer, "ÄÖÜäöüßÄÖÜäöüßÄÖÜäö"), 0) << "20 characters, 40 bytes";
}

TEST_P(CursorRules, DocumentsAreKeptByName) {
  Add(table::vv_Vertragsdefinitionen,
      {{field::Dokument, std::make_shared<store::NamedDocument>("Vertrag.odt")}});
  const Table types = Get(table::vv_Vertragsdefinitionen);
  host_->EndUnit();
  types->MoveFirst(256);
  const host::ObjectRef document = host::ToObject(types->Fields().Item(field::Dokument).Value());
  const auto* named = dynamic_cast<const store::NamedDocument*>(document.get());
  ASSERT_NE(named, nullptr);
  EXPECT_EQ(named->Name(), "Vertrag.odt");
}

TEST_P(CursorRules, FiltersHideRowsFromMovesSeeksAndCountsUntilSwitchedOff) {
  Add(table::Artikelgruppen, {{field::ID, "G"}});
  for (const char* id : {"A1", "A2", "A3"}) Add(table::Artikel, {{field::Id, id}});
  const Table articles = Get(table::Artikel);
  const std::string hidden = articles->Oid();
  for (const FilterKind kind : {FilterKind::First, FilterKind::Second}) {
    dynamic_cast<LiveTable&>(*articles).SetFilter(
        kind, [](const store::Record& row) { return row.cells[0].AsText() != "A3"; });
    EXPECT_EQ(articles->ScopeCount(), 2);
    articles->Indexes().Select(schema::index::Id, 0);
    EXPECT_FALSE(articles->SeekKey("A3", 256));
    EXPECT_TRUE(articles->FindOid(hidden, 0));
    kind == FilterKind::First ? articles->FilterOff(-1, 256) : articles->FilterOff2(-1, 256);
    EXPECT_TRUE(articles->SeekKey("a3", 256));
  }
}

TEST_P(CursorRules, TheHostGivesOutMissingIds) {
  const std::string oid = Add(table::vv_Vertragsdefinitionen, {});
  const Table types = Get(table::vv_Vertragsdefinitionen);
  const std::string id = Text(types, field::ID);
  EXPECT_FALSE(id.empty());
  Add(table::vv_Vertragsdefinitionen, {});
  EXPECT_NE(Text(types, field::ID), id);
}

TEST_P(CursorRules, ExpressionsReadTheCurrentRow) {
  Add(table::Adressen, {{field::Name, "Muster GmbH"}});
  Add(table::Artikelgruppen, {});
  Add(table::Artikel, {{field::Id, "A"}, {field::Erloeskonto, 8400}, {field::USTSatz, 19}});
  host::HostFormulas& formulas = host_->App()->CurrentDb()->Formulas();
  EXPECT_EQ(formulas.Compile("Name()", 0)->Eval(0), host::Value("Muster GmbH"));
  EXPECT_EQ(formulas.Compile("Erloeskonto()", 0)->Eval(0), host::Value(std::int32_t{8400}));
  const auto rate = formulas.Compile("ustsatzartikel()", 0);
  EXPECT_EQ(rate->Eval(0), host::Value(19.0));
  Add(table::Artikel, {});
  EXPECT_EQ(rate->Eval(0), host::Value(0.0)) << "evaluated on the row current now";
  EXPECT_EQ(NumberOf([&] { formulas.Compile("Datum()", 0); }),
            Number(HostError::UnknownExpression));
}

TEST_P(CursorRules, AfterTheHostIsGoneEveryOperationFails) {
  const Table addresses = Get(table::Adressen);
  const auto app = host_->App();
  host_.reset();
  EXPECT_EQ(NumberOf([&] { addresses->MoveFirst(256); }), Number(HostError::HostClosed));
  EXPECT_EQ(NumberOf([&] { app->CurrentDb(); }), Number(HostError::HostClosed));
}

INSTANTIATE_TEST_SUITE_P(Stores, CursorRules, testing::ValuesIn(support::StoreKinds()),
                         support::StoreName);

}  // namespace
}  // namespace pactora::embedded
