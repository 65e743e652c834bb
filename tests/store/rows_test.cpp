#include "store/rows.h"

#include <set>

#include "store/StoreSuite.h"
#include "store/memory/MemoryStore.h"

namespace pactora::store {
namespace {

using host::Value;
using schema::FieldType;
using testing::ElementsAre;

namespace field = schema::field;
namespace table = schema::table;

class Rows : public testing::Test {
 protected:
  // Inserts a group with that ID and gives the one that is stored.
  std::string IdOfNewGroup(std::string_view id, Oid oid = 0) {
    Record group = Row(*store_, table::Artikelgruppen, 0, {{field::ID, id}});
    group.oid = oid;
    InsertRow(*store_, TableOf(*store_, table::Artikelgruppen), group, nullptr);
    Record stored;
    EXPECT_TRUE(store_->Read(TableOf(*store_, table::Artikelgruppen), group.oid, stored));
    EXPECT_EQ(TextWithKeys(stored), TextWithKeys(group));
    return Cell(*store_, table::Artikelgruppen, stored, field::ID).AsText();
  }

  bool Finds(std::string_view name, std::string_view index, const std::string& key) {
    const IndexId position = IndexOf(*store_, name, index);
    Record found;
    return store_->NextByKey(TableOf(*store_, name), position, key, 0, found) &&
           found.keys[position] == key;
  }

  std::vector<std::string> Keys(std::string_view name, const Cells& cells,
                                const Record* parent = nullptr) {
    return MakeKeys(store_->Catalog(), TableOf(*store_, name), Row(*store_, name, 0, cells).cells,
                    parent == nullptr ? nullptr : &parent->cells);
  }

  std::unique_ptr<RecordStore> store_ = CreateMemoryStore(schema::ContractCatalog(true), {});
};

TEST_F(Rows, ValuesTakeTheTypeOfTheirFieldOrAreRefused) {
  class Other : public host::Object {};
  constexpr std::int32_t kTooLong = Number(StoreError::TextTooLong);
  const schema::Field number = {"F", FieldType::Long, 0};
  const schema::Field fraction = {"F", FieldType::Double, 0};
  const schema::Field text = {"F", FieldType::Text, 5};
  const schema::Field date = {"F", FieldType::Date, 0};
  const schema::Field flag = {"F", FieldType::Boolean, 0};
  const schema::Field file = {"F", FieldType::Document, 0};
  const auto document = std::make_shared<host::Document>();
  const struct {
    const char* name;
    schema::Field field;
    Value value;
    Value expected;
    std::int32_t error = 0;
  } cases[] = {
      {"empty stays empty", number, {}, {}},
      {"a fraction in a whole number", number, 2.5, 2},
      {"a whole number in a double", fraction, 3, 3.0},
      {"a number in a text", text, 1, "1"},
      {"a text that just fits, longer in bytes", text, "Größe", "Größe"},
      {"zero in a date", date, std::int16_t{0}, platform::Date{0.0}},
      {"the last day in a date", date, 2958465.0, platform::Date{2958465.0}},
      {"a number in a Boolean", flag, -1, true},
      {"a document", file, document, document},
      {"no document", file, nullptr, nullptr},
      {"a day after the last", date, 2958466.0, {}, 6},
      {"an object in a text", text, nullptr, {}, 13},
      {"a text too long", text, "Größen", {}, kTooLong},
      {"a number too long", text, 123456, {}, kTooLong},
      {"a number in a document", file, 1, {}, 13},
      {"another object in a document", file, std::make_shared<Other>(), {}, 13},
  };
  for (const auto& row : cases) {
    Value converted;
    const auto convert = [&] { converted = ConvertToField(row.field, row.value); };
    EXPECT_EQ(ErrorNumberOf(convert), row.error) << row.name;
    EXPECT_EQ(converted, row.expected) << row.name;
  }
}

TEST_F(Rows, KeysAreTheUpperCasePartsInARow) {
  const Record group = Row(*store_, table::MerkmalgruppeAdressen, 0, {{field::ID, "g1"}});
  EXPECT_THAT(Keys(table::KELM_Nummern, {{field::Tabelle, "vv_Verträge"}, {field::Feld, "Nummer"}}),
              ElementsAre("VV_VERTRÄGENUMMER"));
  EXPECT_THAT(
      Keys(table::MerkmallisteAdressen, {{field::ID, "m1"}, {field::Merkmal, "Straße"}}, &group),
      ElementsAre("STRAßE", "G1STRAßE", "M1"));
  EXPECT_THAT(Keys(table::Artikel, {}), ElementsAre(""));

  schema::Catalog catalog;
  schema::Table numbers;
  numbers.fields = {
      {"L", FieldType::Long, 0}, {"D", FieldType::Double, 0}, {"T", FieldType::Text, 9}};
  numbers.indexes = {{"X", {{0, false}, {2, false}, {1, false}}}};
  catalog.Add(numbers, std::nullopt);
  EXPECT_THAT(MakeKeys(catalog, 0, {12, 0.5, "a"}, nullptr), ElementsAre("12A0,5"));
  EXPECT_THAT(MakeKeys(catalog, 0, {-12, Value(), "a"}, nullptr), ElementsAre("-12A"));
}

TEST_F(Rows, ARowWithoutAnIdGetsOneAfterItsOidThatNoOtherRowHas) {
  EXPECT_EQ(IdOfNewGroup("G1"), "G1");
  EXPECT_EQ(IdOfNewGroup("", 3), "00000003");
  EXPECT_EQ(IdOfNewGroup("", 123456789), "123456789");
  std::set<std::string> ids;
  for (const char* taken : {"123456793", "123456794", "123456796"}) {
    ids.insert(IdOfNewGroup(taken));
  }
  for (int row = 0; row < 30; ++row) ids.insert(IdOfNewGroup(""));
  EXPECT_EQ(ids.size(), 33U);
  EXPECT_TRUE(Finds(table::Artikelgruppen, schema::index::ID, "00000003"));
}

TEST_F(Rows, AChangedIdMovesTheKeysOfTheRowsBelowButNotTheirVersion) {
  const TableId groups = TableOf(*store_, table::MerkmalgruppeAdressen);
  const TableId attributes = TableOf(*store_, table::MerkmallisteAdressen);
  const auto finds = [&](const std::string& key) {
    return Finds(table::MerkmallisteAdressen, schema::index::MerkmalgruppeIDMerkmal, key);
  };
  Record group = Row(*store_, table::MerkmalgruppeAdressen, 0, {{field::ID, "G1"}});
  InsertRow(*store_, groups, group, nullptr);
  std::vector<Record> rows;
  for (const char* name : {"Branche", "Größe", "Land"}) {
    rows.push_back(Row(*store_, table::MerkmallisteAdressen, group.oid, {{field::Merkmal, name}}));
    InsertRow(*store_, attributes, rows.back(), &group.cells);
  }
  ASSERT_TRUE(finds("G1GRÖßE"));

  Cell(*store_, table::MerkmalgruppeAdressen, group, field::ID) = "G2";
  ASSERT_TRUE(UpdateRow(*store_, groups, group, nullptr));
  for (const std::string name : {"BRANCHE", "GRÖßE", "LAND"}) {
    EXPECT_TRUE(finds("G2" + name));
    EXPECT_FALSE(finds("G1" + name));
  }
  for (Record& row : rows) EXPECT_TRUE(UpdateRow(*store_, attributes, row, &group.cells));
}

TEST(StoreErrors, TellWhatHappenedAndWhere) {
  const auto error = support::ErrorOf([] { Raise(StoreError::Failed, "disk I/O error"); }).value();
  EXPECT_EQ(platform::HexNumber(error.Number()), "80041028");
  EXPECT_EQ(error.Source(), "Pactora.Store");
  EXPECT_EQ(error.Description(), Text(StoreError::Failed) + " (disk I/O error)");
}

}  // namespace
}  // namespace pactora::store
