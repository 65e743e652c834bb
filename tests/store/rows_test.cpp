#include "store/rows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "schema/names.h"
#include "store/errors.h"
#include "store/memory/MemoryStore.h"

namespace pactora::store {
namespace {

using host::Value;
using schema::FieldType;
using ::testing::ElementsAre;

std::int32_t ErrorOf(const std::function<void()>& operation) {
  try {
    operation();
  } catch (const platform::Error& error) {
    return error.Number();
  }
  return 0;
}

class Rows : public ::testing::Test {
 protected:
  TableId TableOf(std::string_view name) const { return catalog_.FindTable(name).value(); }

  // A row of the table with these cells, the others empty.
  Record Make(std::string_view name, const std::vector<std::pair<std::string_view, Value>>& cells,
              Oid parent = 0) const {
    const schema::Table& table = catalog_.tables[TableOf(name)];
    Record record;
    record.parent = parent;
    record.cells.resize(table.fields.size());
    for (const auto& [field, value] : cells) {
      record.cells[table.FindField(field).value()] = value;
    }
    return record;
  }

  std::string IdOf(std::string_view name, Oid oid) {
    Record record;
    EXPECT_TRUE(store_->Read(TableOf(name), oid, record));
    return record.cells[*catalog_.tables[TableOf(name)].id_field].AsText();
  }

  // Inserts a row without an ID and gives the one that it got.
  std::string IdOfNewGroup() {
    Record group = Make("Artikelgruppen", {});
    InsertRow(*store_, TableOf("Artikelgruppen"), group, nullptr);
    return IdOf("Artikelgruppen", group.oid);
  }

  Oid InsertGroupWithId(std::string_view id) {
    Record group = Make("Artikelgruppen", {{schema::field::ID, id}});
    InsertRow(*store_, TableOf("Artikelgruppen"), group, nullptr);
    return group.oid;
  }

  bool Finds(std::string_view table, std::string_view index, std::string_view key) {
    const schema::Table& described = catalog_.tables[TableOf(table)];
    const IndexId position = described.FindIndex(index).value();
    Record found;
    return store_->NextByKey(TableOf(table), position, key, 0, found) &&
           found.keys[position] == key;
  }

  const schema::Catalog catalog_ = schema::ContractCatalog(true);
  std::unique_ptr<RecordStore> store_ = CreateMemoryStore(catalog_, {});
};

TEST_F(Rows, ValuesTakeTheTypeOfTheirField) {
  const auto document = std::make_shared<host::Document>();
  struct {
    const char* name;
    schema::Field field;
    Value value;
    Value expected;
  } const rows[] = {
      {"empty stays empty", {"F", FieldType::Long, 0}, Value(), Value()},
      {"a fraction in a whole number", {"F", FieldType::Long, 0}, 2.5, 2},
      {"a text in a whole number", {"F", FieldType::Long, 0}, "12", 12},
      {"a whole number in a double", {"F", FieldType::Double, 0}, 3, 3.0},
      {"a number in a text", {"F", FieldType::Text, 5}, 1, "1"},
      {"a text that just fits", {"F", FieldType::Text, 5}, "Größe", "Größe"},
      {"zero in a date", {"F", FieldType::Date, 0}, std::int16_t{0}, platform::Date{0.0}},
      {"the last day in a date", {"F", FieldType::Date, 0}, 2958465.0, platform::Date{2958465.0}},
      {"a number in a Boolean", {"F", FieldType::Boolean, 0}, -1, true},
      {"a document", {"F", FieldType::Document, 0}, document, document},
      {"no document", {"F", FieldType::Document, 0}, nullptr, nullptr},
  };
  for (const auto& [name, field, value, expected] : rows) {
    EXPECT_EQ(ConvertToField(field, value), expected) << name;
  }
}

TEST_F(Rows, WhatAFieldCannotTakeIsAnError) {
  class Other : public host::Object {};
  const std::int32_t too_long = Number(StoreError::TextTooLong);
  struct {
    const char* name;
    schema::Field field;
    Value value;
    std::int32_t error;
  } const rows[] = {
      {"a word in a number", {"F", FieldType::Double, 0}, "viel", 13},
      {"a text in a date", {"F", FieldType::Date, 0}, "15.03.2024", 13},
      {"an object in a text", {"F", FieldType::Text, 5}, nullptr, 13},
      {"a number in a document", {"F", FieldType::Document, 0}, 1, 13},
      {"another object in a document",
       {"F", FieldType::Document, 0},
       std::make_shared<Other>(),
       13},
      {"a day after the last", {"F", FieldType::Date, 0}, 2958466.0, 6},
      {"a text too long", {"F", FieldType::Text, 5}, "Größen", too_long},
      {"a number too long", {"F", FieldType::Text, 5}, 123456, too_long},
  };
  for (const auto& [name, field, value, error] : rows) {
    EXPECT_EQ(ErrorOf([&] { ConvertToField(field, value); }), error) << name;
  }
}

TEST_F(Rows, KeysAreTheUpperCasePartsInARow) {
  const Record counter =
      Make("KELM_Nummern", {{"Tabelle", "vv_Verträge"}, {"Feld", "Nummer"}, {"Nummer", "1"}});
  EXPECT_THAT(MakeKeys(catalog_, TableOf("KELM_Nummern"), counter.cells, nullptr),
              ElementsAre("VV_VERTRÄGENUMMER"));
  const Record group = Make("MerkmalgruppeAdressen", {{"ID", "g1"}, {"Gruppe", "Größe"}});
  const Record attribute = Make("MerkmallisteAdressen", {{"ID", "m1"}, {"Merkmal", "Straße"}});
  EXPECT_THAT(MakeKeys(catalog_, TableOf("MerkmallisteAdressen"), attribute.cells, &group.cells),
              ElementsAre("STRAßE", "G1STRAßE", "M1"));
  EXPECT_THAT(MakeKeys(catalog_, TableOf("Artikel"), Make("Artikel", {}).cells, nullptr),
              ElementsAre(""));
  EXPECT_EQ(FoldKey("gültig"), "GÜLTIG");
}

TEST_F(Rows, NumbersInAKeyAreTheirPlainDecimalText) {
  schema::Catalog catalog;
  schema::Table table;
  table.name = "T";
  table.fields = {
      {"L", FieldType::Long, 0}, {"D", FieldType::Double, 0}, {"T", FieldType::Text, 9}};
  table.indexes = {{"X", {{0, false}, {2, false}, {1, false}}}};
  catalog.Add(std::move(table), std::nullopt);
  EXPECT_THAT(MakeKeys(catalog, 0, {12, 0.5, "a"}, nullptr), ElementsAre("12A0,5"));
  EXPECT_THAT(MakeKeys(catalog, 0, {-12, Value(), "a"}, nullptr), ElementsAre("-12A"));
}

TEST_F(Rows, ARowWithoutAnIdGetsOneAfterItsOid) {
  const TableId groups = TableOf("Artikelgruppen");
  for (const Oid given : {0, 123, 123456789, 0}) {
    Record group = Make("Artikelgruppen", {{"ID", ""}});
    group.oid = given;
    InsertRow(*store_, groups, group, nullptr);
    std::string digits = std::to_string(group.oid);
    if (digits.size() < 8) digits.insert(0, 8 - digits.size(), '0');
    EXPECT_EQ(IdOf("Artikelgruppen", group.oid), digits);
    EXPECT_TRUE(Finds("Artikelgruppen", "ID", digits));
  }
  EXPECT_EQ(store_->Count(groups), 4);
}

TEST_F(Rows, AnIdThatTheRowBringsStays) {
  EXPECT_EQ(IdOf("Artikelgruppen", InsertGroupWithId("G1")), "G1");
  EXPECT_TRUE(Finds("Artikelgruppen", "ID", "G1"));
}

TEST_F(Rows, AnIdIsNeverGivenTwice) {
  for (const char* id : {"00000008", "00000009", "00000010", "00000012", "00000013", "00000014"}) {
    InsertGroupWithId(id);
  }
  std::set<std::string> ids;
  for (int i = 0; i < 30; ++i) ids.insert(IdOfNewGroup());
  EXPECT_EQ(ids.size(), 30U);
  EXPECT_EQ(ids.count("00000008"), 0U);
  EXPECT_EQ(ids.count("00000012"), 0U);
}

TEST_F(Rows, TheFirstStateOfARowHasItsKeysAndItsIdTogether) {
  Record type = Make("vv_Vertragsdefinitionen", {{"Bezeichnung", "Wartung"}});
  InsertRow(*store_, TableOf("vv_Vertragsdefinitionen"), type, nullptr);
  EXPECT_TRUE(Finds("vv_Vertragsdefinitionen", "Bezeichnung", "WARTUNG"));
  EXPECT_TRUE(Finds("vv_Vertragsdefinitionen", "ID", IdOf("vv_Vertragsdefinitionen", type.oid)));
  type.cells[0] = "T1";
  EXPECT_TRUE(UpdateRow(*store_, TableOf("vv_Vertragsdefinitionen"), type, nullptr))
      << "the record must carry the version that is stored";
}

TEST_F(Rows, AChangedIdMovesTheKeysOfTheRowsBelow) {
  Record group = Make("MerkmalgruppeAdressen", {{"ID", "G1"}, {"Gruppe", "Kunde"}});
  InsertRow(*store_, TableOf("MerkmalgruppeAdressen"), group, nullptr);
  std::vector<Record> attributes;
  for (const char* name : {"Branche", "Größe", "Land"}) {
    attributes.push_back(Make("MerkmallisteAdressen", {{"Merkmal", name}}, group.oid));
    InsertRow(*store_, TableOf("MerkmallisteAdressen"), attributes.back(), &group.cells);
  }
  ASSERT_TRUE(Finds("MerkmallisteAdressen", "MerkmalgruppeIDMerkmal", "G1GRÖßE"));

  group.cells[0] = "G2";
  ASSERT_TRUE(UpdateRow(*store_, TableOf("MerkmalgruppeAdressen"), group, nullptr));

  for (const char* name : {"BRANCHE", "GRÖßE", "LAND"}) {
    EXPECT_TRUE(Finds("MerkmallisteAdressen", "MerkmalgruppeIDMerkmal", "G2" + std::string(name)));
    EXPECT_FALSE(Finds("MerkmallisteAdressen", "MerkmalgruppeIDMerkmal", "G1" + std::string(name)));
  }
  for (Record& attribute : attributes) {
    EXPECT_TRUE(UpdateRow(*store_, TableOf("MerkmallisteAdressen"), attribute, &group.cells))
        << "keys alone must not make a new version";
  }
}

TEST_F(Rows, ARowThatAnotherUserChangedIsLeftAsItIs) {
  const Oid oid = InsertGroupWithId("G1");
  const TableId groups = TableOf("Artikelgruppen");
  Record mine;
  Record theirs;
  ASSERT_TRUE(store_->Read(groups, oid, mine));
  ASSERT_TRUE(store_->Read(groups, oid, theirs));
  theirs.cells[1] = "Wartung";
  ASSERT_TRUE(UpdateRow(*store_, groups, theirs, nullptr));
  mine.cells[0] = "G2";
  EXPECT_FALSE(UpdateRow(*store_, groups, mine, nullptr));
  EXPECT_EQ(IdOf("Artikelgruppen", oid), "G1");
  EXPECT_FALSE(Finds("Artikelgruppen", "ID", "G2"));
}

TEST(StoreErrors, EachHasItsTextAndItsNumber) {
  std::set<std::string> texts;
  for (std::uint32_t number = 0x80041020; number <= 0x8004102A; ++number) {
    texts.insert(Text(static_cast<StoreError>(number)));
  }
  EXPECT_EQ(texts.size(), 11U);
  try {
    Raise(StoreError::Failed, "disk I/O error");
    FAIL();
  } catch (const platform::Error& error) {
    EXPECT_EQ(platform::HexNumber(error.Number()), "80041028");
    EXPECT_EQ(error.Source(), "Pactora.Store");
    EXPECT_EQ(error.Description(), Text(StoreError::Failed) + " (disk I/O error)");
  }
}

}  // namespace
}  // namespace pactora::store
