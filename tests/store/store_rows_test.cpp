// Rows in every store: what goes in comes out, in both orders.
#include <cmath>
#include <limits>

#include "store/Document.h"
#include "store/StoreSuite.h"

namespace pactora::store {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

namespace field = schema::field;
namespace table = schema::table;

class StoreRows : public StoreSuite {
 protected:
  Record Read(std::string_view name, Oid oid) {
    Record record;
    EXPECT_TRUE(store_->Read(TableOf(*store_, name), oid, record)) << name << ' ' << oid;
    return record;
  }
  // Terms, its children, have fields of all types.
  Oid NewContract() {
    return InsertedOid(*store_, table::vv_Vertraege, InsertedOid(*store_, table::Adressen));
  }
};

struct ValueCase {
  std::string_view field;
  host::Value value;
};

TEST_P(StoreRows, EveryValueComesBackInItsTypeToTheLastBit) {
  constexpr auto kLong = std::numeric_limits<std::int32_t>();
  constexpr auto kDouble = std::numeric_limits<double>();
  const std::vector<ValueCase> cases = {
      {field::LaufzeitStartStr, ""},
      {field::LaufzeitStartStr, "20240315"},
      {field::LaufzeitStartStr, "12"},  // a text that reads as a number
      {field::LaufzeitStartStr, "1e3"},
      {field::ZahlungsperiodeStr, "Änderung für Müller & \"Söhne\"; 'x' € 𝄞"},
      {field::ZahlungsperiodeStr, std::string("a\0b\0", 4)},
      {field::ZahlungsperiodeStr, "\xFF\xC3"},  // not UTF-8
      {field::ZahlungsperiodeStr, std::string(100000, 'x')},
      {field::Zahlungsperiode, std::int32_t{0}},
      {field::Zahlungsperiode, kLong.min()},
      {field::Zahlungsperiode, kLong.max()},
      {field::Value, 0.0},
      {field::Value, -0.0},
      {field::Value, 1200.0},
      {field::Value, 0.1},
      {field::Value, -1e300},
      {field::Value, 9007199254740993.0},
      {field::Value, 9223372036854775807.0},
      {field::Value, kDouble.denorm_min()},
      {field::Value, kDouble.max()},
      {field::Value, -kDouble.infinity()},
      {field::Value, kDouble.quiet_NaN()},
      {field::LaufzeitEnde, platform::kNoDate},  // written, but no date
      {field::LaufzeitEnde, host::Date{45366.0}},
      {field::LaufzeitEnde, host::Date{45366.0 + 32400.0 / 86400.0}},
      {field::LaufzeitEnde, host::Date{-1.25}},
      {field::LaufzeitEnde, host::Date{-0.0}},
      {field::LaufzeitEnde, platform::kNoInvoiceDate},
      {field::AlteFakturierung, true},
      {field::AlteFakturierung, false},
      {field::Dokument, std::make_shared<NamedDocument>("Vertrag.docx")},
      {field::Dokument, std::make_shared<NamedDocument>("")},
      {field::Dokument, host::Value()},
  };
  const Oid contract = NewContract();
  for (const ValueCase& test : cases) {
    const std::string what = std::string(test.field) + " " + Text(test.value).substr(0, 40);
    Record inserted = Row(*store_, table::vv_Vertragsstaende, contract, {{test.field, test.value}});
    store_->Insert(TableOf(*store_, table::vv_Vertragsstaende), inserted);
    EXPECT_EQ(Text(inserted), Text(Read(table::vv_Vertragsstaende, inserted.oid))) << what;

    Record updated = Row(*store_, table::vv_Vertragsstaende, contract);
    store_->Insert(TableOf(*store_, table::vv_Vertragsstaende), updated);
    Cell(*store_, table::vv_Vertragsstaende, updated, test.field) = test.value;
    EXPECT_TRUE(store_->Update(TableOf(*store_, table::vv_Vertragsstaende), updated)) << what;
    EXPECT_EQ(Text(updated), Text(Read(table::vv_Vertragsstaende, updated.oid))) << what;
  }
}

TEST_P(StoreRows, AReadReplacesAllThatTheRecordHeld) {
  const Oid contract = NewContract();
  const Oid empty = InsertedOid(*store_, table::vv_Vertragsstaende, contract);
  Record record = Row(*store_, table::Artikel, 99, {{field::Id, "A1"}}, {"A1"});
  ASSERT_TRUE(store_->Read(TableOf(*store_, table::vv_Vertragsstaende), empty, record));
  EXPECT_EQ(Text(record), Text(Read(table::vv_Vertragsstaende, empty)));
  EXPECT_THAT(record.keys, IsEmpty());
}

TEST_P(StoreRows, AMissingRowIsNotFound) {
  Record record;
  for (TableId id = 0; id < store_->Catalog().tables.size(); ++id) {
    EXPECT_FALSE(store_->Read(id, 1, record));
    EXPECT_FALSE(store_->NextInParent(id, 0, 0, record));
    EXPECT_EQ(store_->Count(id), 0);
    for (IndexId index = 0; index < store_->Catalog().tables[id].indexes.size(); ++index) {
      EXPECT_FALSE(store_->NextByKey(id, index, "", 0, record));
    }
  }
}

TEST_P(StoreRows, OidsAndOrdersAreGivenOutUpwardsAndNeverAgain) {
  const TableId addresses = TableOf(*store_, table::Adressen);
  Record first = Row(*store_, table::Adressen);
  store_->Insert(addresses, first);
  EXPECT_GT(first.oid, 0);
  EXPECT_GT(first.order, 0);
  EXPECT_EQ(first.version, 1);
  Record last = Row(*store_, table::Adressen);
  store_->Insert(addresses, last);
  EXPECT_GT(last.oid, first.oid);
  EXPECT_GT(last.order, first.order);
  ASSERT_TRUE(store_->Erase(addresses, last.oid, last.version));
  store_->Commit();
  EXPECT_GT(InsertedOid(*store_, table::Adressen), last.oid);
}

TEST_P(StoreRows, GivenOidsAndOrdersAreKeptAndPassed) {
  const TableId addresses = TableOf(*store_, table::Adressen);
  Record given = Row(*store_, table::Adressen);
  given.oid = 500;
  store_->Insert(addresses, given);
  EXPECT_EQ(given.oid, 500);
  Record earlier = Row(*store_, table::Adressen);
  earlier.oid = 7;  // a smaller oid, but a later row
  store_->Insert(addresses, earlier);
  EXPECT_EQ(earlier.oid, 7);
  EXPECT_GT(earlier.order, given.order);
  Record placed = Row(*store_, table::Adressen);
  placed.order = 90000;
  store_->Insert(addresses, placed);
  EXPECT_EQ(placed.order, 90000);
  EXPECT_GT(placed.oid, 500);
  store_->Commit();

  Record next = Row(*store_, table::Adressen);
  store_->Insert(addresses, next);
  EXPECT_GT(next.oid, placed.oid);
  EXPECT_GT(next.order, 90000);
  EXPECT_THAT(Children(table::Adressen, 0), ElementsAre(500, 7, placed.oid, next.oid));
}

TEST_P(StoreRows, ATakenOidIsRefusedAndTheRowStays) {
  const Oid oid = InsertedOid(*store_, table::Adressen, 0, {{field::Name, "Erste"}});
  Record second = Row(*store_, table::Adressen, 0, {{field::Name, "Zweite"}});
  second.oid = oid;
  EXPECT_EQ(ErrorOf([&] { store_->Insert(TableOf(*store_, table::Adressen), second); }),
            Number(StoreError::DuplicateOid));
  Record kept = Read(table::Adressen, oid);
  EXPECT_EQ(Cell(*store_, table::Adressen, kept, field::Name).AsText(), "Erste");
  EXPECT_EQ(store_->Count(TableOf(*store_, table::Adressen)), 1);
  // An oid is of its table alone.
  Record article_group = Row(*store_, table::Artikelgruppen);
  article_group.oid = oid;
  store_->Insert(TableOf(*store_, table::Artikelgruppen), article_group);
  EXPECT_EQ(article_group.oid, oid);
}

TEST_P(StoreRows, AChildNeedsItsParent) {
  Record orphan = Row(*store_, table::vv_Vertraege, 12345);
  EXPECT_EQ(ErrorOf([&] { store_->Insert(TableOf(*store_, table::vv_Vertraege), orphan); }),
            Number(StoreError::Failed));
  EXPECT_EQ(store_->Count(TableOf(*store_, table::vv_Vertraege)), 0);
}

TEST_P(StoreRows, AnUpdateCountsTheVersionUpAndRefusesAnotherOne) {
  const TableId addresses = TableOf(*store_, table::Adressen);
  const Oid oid = InsertedOid(*store_, table::Adressen, 0, {{field::Name, "Alt"}});
  Record mine = Read(table::Adressen, oid);
  Record other = mine;
  Cell(*store_, table::Adressen, mine, field::Name) = "Neu";
  EXPECT_TRUE(store_->Update(addresses, mine));
  EXPECT_EQ(mine.version, 2);

  Cell(*store_, table::Adressen, other, field::Name) = "Anders";
  EXPECT_FALSE(store_->Update(addresses, other));
  EXPECT_EQ(other.version, 1);
  EXPECT_FALSE(store_->Erase(addresses, oid, 1));
  EXPECT_EQ(Text(Read(table::Adressen, oid)), Text(mine));

  EXPECT_TRUE(store_->Erase(addresses, oid, 2));
  EXPECT_FALSE(store_->Update(addresses, mine));
  EXPECT_FALSE(store_->Erase(addresses, oid, 2));
}

TEST_P(StoreRows, AnUpdateKeepsParentAndOrder) {
  const TableId contracts = TableOf(*store_, table::vv_Vertraege);
  const Oid address = InsertedOid(*store_, table::Adressen);
  const Oid first = InsertedOid(*store_, table::vv_Vertraege, address);
  const Oid second = InsertedOid(*store_, table::vv_Vertraege, address);
  Record record = Read(table::vv_Vertraege, first);
  const std::int64_t order = record.order;
  ASSERT_TRUE(store_->Update(contracts, record));
  EXPECT_EQ(Read(table::vv_Vertraege, first).order, order);
  EXPECT_EQ(Read(table::vv_Vertraege, first).parent, address);
  EXPECT_THAT(Children(table::vv_Vertraege, address), ElementsAre(first, second));
}

TEST_P(StoreRows, RowsOfAParentComeInRecordOrderAndNoOthers) {
  const TableId contracts = TableOf(*store_, table::vv_Vertraege);
  const Oid anna = InsertedOid(*store_, table::Adressen);
  const Oid bernd = InsertedOid(*store_, table::Adressen);
  const Oid a1 = InsertedOid(*store_, table::vv_Vertraege, anna);
  const Oid b1 = InsertedOid(*store_, table::vv_Vertraege, bernd);
  const Oid a2 = InsertedOid(*store_, table::vv_Vertraege, anna);
  EXPECT_THAT(Children(table::vv_Vertraege, anna), ElementsAre(a1, a2));
  EXPECT_THAT(Children(table::vv_Vertraege, bernd), ElementsAre(b1));
  EXPECT_EQ(store_->CountInParent(contracts, anna), 2);
  EXPECT_EQ(store_->CountInParent(contracts, bernd), 1);
  EXPECT_EQ(store_->CountInParent(contracts, 12345), 0);
  EXPECT_EQ(store_->CountInParent(TableOf(*store_, table::Adressen), 0), 2);
  EXPECT_EQ(store_->Count(contracts), 3);
  ASSERT_TRUE(store_->Erase(contracts, a1, 1));
  EXPECT_THAT(Children(table::vv_Vertraege, anna), ElementsAre(a2));
}

TEST_P(StoreRows, AnIndexRunsAcrossParentsInByteOrderThenRecordOrder) {
  const Oid one = InsertedOid(*store_, table::Artikelgruppen);
  const Oid two = InsertedOid(*store_, table::Artikelgruppen);
  const auto article = [&](Oid group, const std::string& key) {
    return InsertedOid(*store_, table::Artikel, group, {{field::Id, key}}, {key});
  };
  const Oid zebra = article(one, "Z");
  const Oid umlaut = article(one, "Ä");  // two bytes above all ASCII letters
  const Oid b_one = article(two, "B");
  const Oid b_two = article(one, "B");
  const Oid empty = article(two, "");
  const Oid nul = article(two, std::string("B\0", 2));
  const Oid lower = article(one, "b");
  EXPECT_THAT(ByKey(table::Artikel, "Id"),
              ElementsAre(empty, b_one, b_two, nul, zebra, lower, umlaut));
  EXPECT_THAT(ByKey(table::Artikel, "Id", "B"),
              ElementsAre(b_one, b_two, nul, zebra, lower, umlaut));
  EXPECT_THAT(ByKey(table::Artikel, "Id", "C"), ElementsAre(zebra, lower, umlaut));
  EXPECT_THAT(ByKey(table::Artikel, "Id", "Ö"), IsEmpty());
  EXPECT_THAT(ByKey(table::Artikel, "Id", "B", Read(table::Artikel, b_one).order),
              ElementsAre(b_two, nul, zebra, lower, umlaut));
}

TEST_P(StoreRows, KeysFollowUpdatesAndCanChangeAlone) {
  const TableId groups = TableOf(*store_, table::MerkmalgruppeAdressen);
  const TableId attributes = TableOf(*store_, table::MerkmallisteAdressen);
  const Oid group = InsertedOid(*store_, table::MerkmalgruppeAdressen, 0, {}, {"ALT", "G1"});
  Record record = Read(table::MerkmalgruppeAdressen, group);
  record.keys[0] = "NEU";
  ASSERT_TRUE(store_->Update(groups, record));
  EXPECT_EQ(TextWithKeys(Read(table::MerkmalgruppeAdressen, group)), TextWithKeys(record));
  EXPECT_THAT(ByKey(table::MerkmalgruppeAdressen, "Merkmalgruppe", "NEU"), ElementsAre(group));
  EXPECT_THAT(ByKey(table::MerkmalgruppeAdressen, "Merkmalgruppe", "NEUER"), IsEmpty());

  const Oid attribute =
      InsertedOid(*store_, table::MerkmallisteAdressen, group, {}, {"M", "ALTM", "1"});
  store_->UpdateKeys(attributes, attribute, {"M", "NEUM", "1"});
  EXPECT_EQ(Read(table::MerkmallisteAdressen, attribute).version, 1);
  EXPECT_THAT(ByKey(table::MerkmallisteAdressen, "MerkmalgruppeIDMerkmal", "NEUM"),
              ElementsAre(attribute));
  EXPECT_THAT(ByKey(table::MerkmallisteAdressen, "MerkmalgruppeIDMerkmal"), ElementsAre(attribute));
}

TEST_P(StoreRows, ARowWithChildrenCannotBeErased) {
  const Oid address = InsertedOid(*store_, table::Adressen);
  const Oid contract = InsertedOid(*store_, table::vv_Vertraege, address);
  EXPECT_EQ(ErrorOf([&] { store_->Erase(TableOf(*store_, table::Adressen), address, 1); }),
            Number(StoreError::HasChildren));
  EXPECT_FALSE(store_->Erase(TableOf(*store_, table::Adressen), address, 2));
  EXPECT_TRUE(store_->Erase(TableOf(*store_, table::vv_Vertraege), contract, 1));
  EXPECT_TRUE(store_->Erase(TableOf(*store_, table::Adressen), address, 1));
}

TEST_P(StoreRows, UniqueFieldsAreUniqueUnderTheirParent) {
  const TableId counters = TableOf(*store_, table::KELM_Nummern);
  const Oid one = InsertedOid(*store_, table::KELM_Mandanten);
  const Oid two = InsertedOid(*store_, table::KELM_Mandanten);
  const auto counter = [&](Oid client, const host::Value& table_name, const host::Value& name) {
    return Row(*store_, table::KELM_Nummern, client,
               {{field::Tabelle, table_name}, {field::Feld, name}});
  };
  const auto insert = [&](Record record) {
    return ErrorOf([&] { store_->Insert(counters, record); });
  };
  EXPECT_EQ(insert(counter(one, "T", "F")), 0);
  EXPECT_EQ(insert(counter(one, "T", "F")), Number(StoreError::DuplicateKey));
  EXPECT_EQ(insert(counter(two, "T", "F")), 0);
  EXPECT_EQ(insert(counter(one, "T", "G")), 0);
  EXPECT_EQ(insert(counter(one, {}, {})), 0);
  EXPECT_EQ(insert(counter(one, "", {})), 0);
  EXPECT_EQ(insert(counter(one, {}, {})), Number(StoreError::DuplicateKey));
  EXPECT_EQ(store_->Count(counters), 5);

  Record renamed = counter(two, "T", "G");
  store_->Insert(counters, renamed);
  Cell(*store_, table::KELM_Nummern, renamed, field::Feld) = "F";
  EXPECT_EQ(ErrorOf([&] { store_->Update(counters, renamed); }), Number(StoreError::DuplicateKey));
  Cell(*store_, table::KELM_Nummern, renamed, field::Feld) = "H";
  EXPECT_TRUE(store_->Update(counters, renamed));
  EXPECT_EQ(Text(Read(table::KELM_Nummern, renamed.oid)), Text(renamed));
}

INSTANTIATE_TEST_SUITE_P(Stores, StoreRows, testing::ValuesIn(support::StoreKindsWithDisk()),
                         support::StoreName);

}  // namespace
}  // namespace pactora::store
