#include "schema/Catalog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "platform/Text.h"
#include "schema/names.h"

namespace pactora::schema {
namespace {

const Table& TableOf(const Catalog& catalog, std::string_view name) {
  return catalog.tables.at(catalog.Table(name));
}

class ContractTables : public testing::TestWithParam<bool> {};

INSTANTIATE_TEST_SUITE_P(Workflow, ContractTables, testing::Bool(),
                         [](const auto& kind) { return kind.param ? "With" : "Without"; });

TEST_P(ContractTables, KeepTheLawsOfEveryCatalogue) {
  const Catalog catalog = ContractCatalog(GetParam());
  std::size_t ids = 0;
  for (std::size_t i = 0; i < catalog.tables.size(); ++i) {
    const Table& table = catalog.tables[i];
    SCOPED_TRACE(table.name);
    for (const std::string& name : {table.name, platform::UpperCase(table.name)}) {
      EXPECT_EQ(catalog.FindTable(name), i);
    }
    EXPECT_TRUE(std::is_sorted(table.children.begin(), table.children.end()));
    for (const std::size_t child : table.children) {
      ASSERT_GT(child, i);
      EXPECT_EQ(catalog.tables.at(child).parent, i);
    }
    if (table.parent) {
      EXPECT_THAT(catalog.tables.at(*table.parent).children, testing::Contains(i));
    }
    for (std::size_t f = 0; f < table.fields.size(); ++f) {
      const Field& field = table.fields[f];
      for (const std::string& name : {field.name, platform::LowerCase(field.name)}) {
        EXPECT_EQ(table.FindField(name), f) << name;
      }
      EXPECT_EQ(field.size > 0, field.type == FieldType::Text) << field.name;
    }
    for (std::size_t x = 0; x < table.indexes.size(); ++x) {
      EXPECT_EQ(table.FindIndex(platform::UpperCase(table.indexes[x].name)), x);
      EXPECT_FALSE(table.indexes[x].parts.empty());
      for (const KeyPart& part : table.indexes[x].parts) {
        const Table& owner = part.of_parent ? catalog.tables.at(table.parent.value()) : table;
        EXPECT_LT(part.field, owner.fields.size());
      }
    }
    EXPECT_EQ(table.id_field, table.FindField(field::ID));
    ids += table.id_field ? 1 : 0;
    EXPECT_EQ(table.counter, table.name == table::KELM_Nummern);
    EXPECT_EQ(table.FindField(""), std::nullopt);
    EXPECT_EQ(table.FindIndex("Unbekannt"), std::nullopt);
  }
  EXPECT_EQ(ids, GetParam() ? 6U : 5U);
}

// What is copied from one row into another must have room there.
TEST(ContractCatalog, ACopyHasRoomForItsOriginal) {
  const Catalog catalog = ContractCatalog(true);
  const auto expect_room = [](const Table& from, std::string_view name, const Table& to,
                              std::string_view copy) {
    const Field& original = from.fields.at(from.FindField(name).value());
    const auto place = to.FindField(copy);
    ASSERT_TRUE(place) << copy;
    EXPECT_EQ(to.fields[*place].type, original.type) << name;
    EXPECT_GE(to.fields[*place].size, original.size) << name;
  };
  const Table& type = TableOf(catalog, table::vv_Vertragsdefinitionen);
  const Table& contract = TableOf(catalog, table::vv_Vertraege);
  for (const Field& field : type.fields) {
    if (contract.FindField(field.name)) expect_room(type, field.name, contract, field.name);
  }
  const Table& position = TableOf(catalog, table::vv_Definitionspositionen);
  for (const Field& field : position.fields) {
    expect_room(position, field.name, TableOf(catalog, table::vv_Vertragspositionen), field.name);
  }
  const std::pair<std::string_view, std::string_view> copies[] = {
      {field::Id, field::ArtikelID},           {field::Bezeichnung, field::Artikel},
      {field::Nummer, field::Artikelnummer},   {field::Art, field::Artikelart},
      {field::Einheit, field::Einheit},        {field::Beschreibung, field::Beschreibung},
      {field::Gruppierung, field::Gruppierung}};
  for (const auto& [from, to] : copies) {
    expect_room(TableOf(catalog, table::Artikel), from, position, to);
  }
}

TEST(NameLookups, AnEntryOutOfDateIsNeverAWrongAnswer) {
  Table table;
  table.name = "T";
  table.fields = {{"A", FieldType::Long, 0}, {"B", FieldType::Long, 0}};
  Catalog catalog;
  catalog.Add(table, std::nullopt);
  std::vector<Field>& fields = catalog.tables[0].fields;
  std::swap(fields[0], fields[1]);
  fields.push_back({"C", FieldType::Long, 0});
  EXPECT_EQ(catalog.tables[0].FindField("A"), 1U);
  EXPECT_EQ(catalog.tables[0].FindField("B"), 0U);
  EXPECT_EQ(catalog.tables[0].FindField("C"), 2U);
  fields.clear();
  EXPECT_EQ(catalog.tables[0].FindField("A"), std::nullopt);
}

}  // namespace
}  // namespace pactora::schema
