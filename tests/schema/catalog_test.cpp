#include "schema/Catalog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "platform/Text.h"
#include "schema/names.h"

namespace pactora::schema {
namespace {

const Table& TableOf(const Catalog& catalog, std::string_view name) {
  return catalog.tables.at(catalog.FindTable(name).value());
}

std::string PartText(const Catalog& catalog, const Table& table, const KeyPart& part) {
  if (!part.of_parent) return table.fields.at(part.field).name;
  return "parent." + catalog.tables.at(table.parent.value()).fields.at(part.field).name;
}

class ContractTables : public ::testing::TestWithParam<bool> {
 protected:
  const Catalog catalog_ = ContractCatalog(GetParam());
};

INSTANTIATE_TEST_SUITE_P(Workflow, ContractTables, ::testing::Bool(),
                         [](const auto& kind) { return kind.param ? "With" : "Without"; });

TEST_P(ContractTables, AParentStandsBeforeItsChildrenAndKnowsThem) {
  for (std::size_t i = 0; i < catalog_.tables.size(); ++i) {
    const Table& table = catalog_.tables[i];
    if (table.parent) {
      ASSERT_LT(*table.parent, i) << table.name;
      EXPECT_THAT(catalog_.tables[*table.parent].children, ::testing::Contains(i)) << table.name;
    }
    EXPECT_TRUE(std::is_sorted(table.children.begin(), table.children.end())) << table.name;
    for (const std::size_t child : table.children) {
      EXPECT_EQ(catalog_.tables.at(child).parent, i) << table.name;
    }
  }
}

TEST_P(ContractTables, NamesAreFoundInAnySpellingAndAreSingle) {
  for (std::size_t i = 0; i < catalog_.tables.size(); ++i) {
    const Table& table = catalog_.tables[i];
    EXPECT_EQ(catalog_.FindTable(table.name), i);
    EXPECT_EQ(catalog_.FindTable(platform::UpperCase(table.name)), i);
    EXPECT_EQ(catalog_.FindTable(platform::LowerCase(table.name)), i);
    for (std::size_t f = 0; f < table.fields.size(); ++f) {
      const std::string& name = table.fields[f].name;
      EXPECT_EQ(table.FindField(name), f) << table.name << "." << name;
      EXPECT_EQ(table.FindField(platform::UpperCase(name)), f) << table.name << "." << name;
      EXPECT_EQ(table.FindField(platform::LowerCase(name)), f) << table.name << "." << name;
    }
    for (std::size_t x = 0; x < table.indexes.size(); ++x) {
      const std::string& name = table.indexes[x].name;
      EXPECT_EQ(table.FindIndex(name), x) << table.name << "." << name;
      EXPECT_EQ(table.FindIndex(platform::UpperCase(name)), x) << table.name << "." << name;
    }
    EXPECT_EQ(table.FindField("Unbekannt"), std::nullopt);
    EXPECT_EQ(table.FindField(""), std::nullopt);
    EXPECT_EQ(table.FindIndex("Unbekannt"), std::nullopt);
  }
  EXPECT_EQ(catalog_.FindTable("vv_Vertrag"), std::nullopt);
}

TEST_P(ContractTables, IndexesAreMadeOfFieldsThatExist) {
  for (const Table& table : catalog_.tables) {
    for (const Index& index : table.indexes) {
      EXPECT_FALSE(index.parts.empty()) << table.name << "." << index.name;
      for (const KeyPart& part : index.parts) {
        ASSERT_TRUE(!part.of_parent || table.parent) << table.name << "." << index.name;
        EXPECT_NE(PartText(catalog_, table, part), "");
      }
    }
  }
}

TEST_P(ContractTables, OnlyTextsHaveASize) {
  for (const Table& table : catalog_.tables) {
    for (const Field& field : table.fields) {
      EXPECT_EQ(field.size > 0, field.type == FieldType::Text) << table.name << "." << field.name;
    }
  }
}

TEST_P(ContractTables, EveryIdFieldIsATextWithAnIndexOfItsOwn) {
  std::vector<std::string_view> with_id;
  for (const Table& table : catalog_.tables) {
    const auto id = table.FindField(field::ID);
    EXPECT_EQ(table.id_field, id) << table.name;
    if (!id) continue;
    with_id.push_back(table.name);
    EXPECT_EQ(table.fields[*id].type, FieldType::Text);
    const Index& index = table.indexes.at(table.FindIndex(index::ID).value());
    ASSERT_EQ(index.parts.size(), 1U) << table.name;
    EXPECT_EQ(index.parts[0].field, *id);
    EXPECT_FALSE(index.parts[0].of_parent);
  }
  EXPECT_EQ(with_id.size(), GetParam() ? 6U : 5U);
}

TEST_P(ContractTables, TheWorkflowAddOnBringsItsTableAndItsFields) {
  EXPECT_EQ(catalog_.workflow_add_on, GetParam());
  EXPECT_EQ(catalog_.FindTable(table::KELDO_Vorgaenge).has_value(), GetParam());
  for (const std::string_view name :
       {table::MerkmalgruppeAdressen, table::MerkmallisteAdressen, table::WerteMerkmalAdressen}) {
    const Table& table = TableOf(catalog_, name);
    EXPECT_EQ(table.FindField(field::KELDO_WorkflowID).has_value(), GetParam()) << name;
    EXPECT_EQ(table.FindField(field::KELDO_WorkflowName).has_value(), GetParam()) << name;
  }
}

TEST(ContractCatalog, TablesFormTheTreeOfAContract) {
  const Catalog catalog = ContractCatalog(true);
  std::vector<std::string> tree;
  for (const Table& table : catalog.tables) {
    std::string path = table.name;
    for (auto parent = table.parent; parent; parent = catalog.tables[*parent].parent) {
      path = catalog.tables[*parent].name + "/" + path;
    }
    tree.push_back(path);
  }
  EXPECT_THAT(tree, ::testing::ElementsAre(
                        "Adressen", "Adressen/Adressmerkmale", "Adressen/vv_Vertraege",
                        "Adressen/vv_Vertraege/vv_Vertragsstaende",
                        "Adressen/vv_Vertraege/vv_Vertragsstaende/vv_Vertragspositionen",
                        "Adressen/vv_Vertraege/vv_VertragsAktivitaeten", "vv_Vertragsdefinitionen",
                        "vv_Vertragsdefinitionen/vv_Definitionspositionen", "Artikelgruppen",
                        "Artikelgruppen/Artikel", "MerkmalgruppeAdressen",
                        "MerkmalgruppeAdressen/MerkmallisteAdressen",
                        "MerkmalgruppeAdressen/MerkmallisteAdressen/WerteMerkmalAdressen",
                        "KELDO_Vorgaenge", "KELM_Mandanten", "KELM_Mandanten/KELM_Nummern"));
}

TEST(ContractCatalog, SearchKeysAreMadeAsTheSearchesExpect) {
  const Catalog catalog = ContractCatalog(true);
  struct {
    std::string_view table;
    std::string_view index;
    std::string parts;
  } const rows[] = {
      {"vv_Vertragsdefinitionen", "Bezeichnung", "Bezeichnung"},
      {"Artikel", "Id", "Id"},
      {"Artikelgruppen", "ID", "ID"},
      {"MerkmalgruppeAdressen", "Merkmalgruppe", "Gruppe"},
      {"MerkmallisteAdressen", "Merkmal", "Merkmal"},
      {"MerkmallisteAdressen", "MerkmalgruppeIDMerkmal", "parent.ID+Merkmal"},
      {"WerteMerkmalAdressen", "MerkmalIDWert", "parent.ID+Wert"},
      {"KELDO_Vorgaenge", "ID", "ID"},
      {"KELM_Mandanten", "tessarinName", "TessarinName"},
      {"KELM_Nummern", "Tabelle_Feld", "Tabelle+Feld"},
  };
  for (const auto& [table_name, index_name, parts] : rows) {
    const Table& table = TableOf(catalog, table_name);
    std::string found;
    for (const KeyPart& part : table.indexes.at(table.FindIndex(index_name).value()).parts) {
      found += (found.empty() ? "" : "+") + PartText(catalog, table, part);
    }
    EXPECT_EQ(found, parts) << table_name << "." << index_name;
  }
}

TEST(ContractCatalog, SpellingsThatDifferInCaseMeanOneThing) {
  const Catalog catalog = ContractCatalog(true);
  EXPECT_EQ(catalog.FindTable("vv_DefinitionsPositionen"),
            catalog.FindTable("vv_Definitionspositionen"));
  const Table& attributes = TableOf(catalog, table::Adressmerkmale);
  EXPECT_EQ(attributes.FindField("GÜLTIGVOM"), attributes.FindField(field::GültigVom));
  EXPECT_NE(attributes.FindField("gültigbis"), std::nullopt);
  const Table& articles = TableOf(catalog, table::Artikel);
  EXPECT_EQ(articles.FindField("ID"), articles.FindField("Id"));
}

TEST(ContractCatalog, APositionOfAContractHasAllThatAPositionOfAContractTypeHas) {
  const Catalog catalog = ContractCatalog(true);
  const Table& of_type = TableOf(catalog, table::vv_Definitionspositionen);
  const Table& of_contract = TableOf(catalog, table::vv_Vertragspositionen);
  for (const Field& field : of_type.fields) {
    const auto position = of_contract.FindField(field.name);
    ASSERT_TRUE(position) << field.name;
    EXPECT_EQ(of_contract.fields[*position].type, field.type) << field.name;
    EXPECT_EQ(of_contract.fields[*position].size, field.size) << field.name;
  }
  for (const std::string_view name : kPriceFields) EXPECT_TRUE(of_type.FindField(name)) << name;
}

// What a contract copies from its contract type or a term writes must have room.
TEST(ContractCatalog, ACopyHasRoomForItsOriginal) {
  const Catalog catalog = ContractCatalog(true);
  const Table& type = TableOf(catalog, table::vv_Vertragsdefinitionen);
  const Table& contract = TableOf(catalog, table::vv_Vertraege);
  for (const Field& field : type.fields) {
    const auto copy = contract.FindField(field.name);
    if (!copy) continue;
    EXPECT_EQ(contract.fields[*copy].type, field.type) << field.name;
    EXPECT_GE(contract.fields[*copy].size, field.size) << field.name;
  }
  const Table& article = TableOf(catalog, table::Artikel);
  const Table& position = TableOf(catalog, table::vv_Definitionspositionen);
  const std::pair<std::string_view, std::string_view> copies[] = {
      {field::Id, field::ArtikelID},           {field::Bezeichnung, field::Artikel},
      {field::Nummer, field::Artikelnummer},   {field::Art, field::Artikelart},
      {field::Einheit, field::Einheit},        {field::Beschreibung, field::Beschreibung},
      {field::Gruppierung, field::Gruppierung}};
  for (const auto& [from, to] : copies) {
    EXPECT_GE(position.fields.at(position.FindField(to).value()).size,
              article.fields.at(article.FindField(from).value()).size)
        << from;
  }
  EXPECT_EQ(contract.fields.at(contract.FindField(field::Vertragnummer).value()).size, 20);
}

TEST(ContractCatalog, OnlyTheCountersAreLockedAndSingle) {
  const Catalog catalog = ContractCatalog(true);
  for (const Table& table : catalog.tables) {
    const bool counters = table.name == table::KELM_Nummern;
    EXPECT_EQ(table.counter, counters) << table.name;
    EXPECT_EQ(table.unique_fields.size(), counters ? 2U : 0U) << table.name;
  }
}

TEST(NameLookups, AnEntryOutOfDateIsNeverAWrongAnswer) {
  Catalog catalog;
  for (int i = 0; i < 100; ++i) {
    Table table;
    table.name = "T" + std::to_string(i);
    table.fields = {{"A", FieldType::Long, 0}, {"B", FieldType::Long, 0}};
    catalog.Add(std::move(table), std::nullopt);
  }
  for (std::size_t i = 0; i < 100; ++i) EXPECT_EQ(catalog.FindTable("T" + std::to_string(i)), i);
  Table& table = catalog.tables[0];
  std::swap(table.fields[0], table.fields[1]);
  table.fields.push_back({"C", FieldType::Long, 0});
  EXPECT_EQ(table.FindField("A"), 1U);
  EXPECT_EQ(table.FindField("B"), 0U);
  EXPECT_EQ(table.FindField("C"), 2U);
  table.fields.clear();
  EXPECT_EQ(table.FindField("A"), std::nullopt);
}

}  // namespace
}  // namespace pactora::schema
