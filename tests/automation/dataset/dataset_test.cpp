// Datasets: what is read, what is refused and where, and that nothing is lost.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "automation/dataset/ContractMaker.h"
#include "automation/dataset/contract_file.h"
#include "automation/dataset/dataset_export.h"
#include "automation/dataset/dataset_import.h"
#include "automation/dataset/dataset_profile.h"
#include "automation/dataset/values.h"
#include "automation/formats/errors.h"
#include "automation/formats/json.h"
#include "automation/workspace/database.h"
#include "platform/Clock.h"
#include "schema/Catalog.h"
#include "support/company_text.h"
#include "support/error_of.h"
#include "support/store_kinds.h"

namespace pactora::dataset {
namespace {

using support::ErrorOf;
using support::StoreKind;
using testing::HasSubstr;

std::unique_ptr<store::RecordStore> Import(const StoreKind& kind, const std::string& text) {
  const formats::TextSource source = formats::MemorySource("daten.json", text);
  const DatasetSurvey survey = SurveyDataset(source);
  auto store =
      kind.create(schema::ContractCatalog(survey.workflow_add_on), store::DefaultProfile("FIRMA"));
  ImportDataset(*store, source, survey, "FIRMA");
  return store;
}

std::string Export(store::RecordStore& store) {
  std::ostringstream out;
  ExportDataset(store, out);
  return out.str();
}

// Every kind of value and of thing that a dataset has, in the order of an export.
constexpr const char* kEverything = R"({
  "database": {"name": "FIRMA", "displayName": "Firma \"Größe\" GmbH"},
  "users": [{"name": "Anna", "public": {"Farbe": "blau", "Zahl": 3},
             "private": {"Ton": true, "Anteil": 0.5}},
            {"name": "DEVELOPMENT"}],
  "currentUser": "Anna",
  "dbSettings": {"CreateAppointment4AllContracts": "true", "leer": null},
  "tableSettings": {"Adressen": {"Breite": 120}},
  "persistVars": {"z_zuerst": "1", "a_danach": {"value": "fest", "readOnly": true},
                  "lt_Einheit": ["Stück", "Stunde"]},
  "workflowAddOn": true,
  "macros": {"Project/vv_Macros/vv_CreateAttribute": "record", "Project/vv_Macros/kaputt":
    {"fail": {"number": "0x80040005", "description": "geht nicht"}}},
  "tables": {
    "Adressen": [
      {"@oid": "5", "Name": "Muster\tGmbH\\Übersee\u0001", "vv_Vertraege": [
        {"@oid": "7", "Vertragnummer": "00000001", "Art": 1, "VertragBeginn": "2024-01-01",
         "VertragEnde": 0, "AktValue": 1200, "NoBooking": false,
         "vv_Vertragsstaende": [
           {"@oid": "9", "Value": 0.1, "Dokument": {"document": "Vertrag.pdf"},
            "vv_Vertragspositionen": [{"@oid": "3", "Nettopreis": -8.33, "Row": "001"}]}],
         "vv_VertragsAktivitaeten": [
           {"@oid": "2", "Datum": "2025-02-01T09:00:00", "Erledigt": false}]}]},
      {"@oid": "1", "Name": ""}],
    "vv_Vertragsdefinitionen": [{"@oid": "1", "ID": "T1", "NettoSumme": 100000000.25}]}})";

class DatasetOverStores : public support::StoreTest {};

INSTANTIATE_TEST_SUITE_P(Stores, DatasetOverStores, testing::ValuesIn(support::StoreKinds()),
                         support::StoreName);

TEST_P(DatasetOverStores, AnExportHasEverythingWithAnIndentOfTwo) {
  EXPECT_EQ(Export(*Import(GetParam(), kEverything)),
            formats::Json::parse(kEverything).dump(2) + "\n");
}

TEST_P(DatasetOverStores, AFileMayHaveItsKeysInAnyOrder) {
  const auto store = Import(GetParam(), R"({
    "tables": { "adressen": [
      { "vv_Vertraege": [ { "Bezeichnung": "eins" },
                          { "vv_Vertragsstaende": [ {} ], "@oid": "40", "Bezeichnung": "zwei" },
                          { "Bezeichnung": "drei", "@oid": "41" } ],
        "Name": "Muster", "@oid": "9" } ],
      "MerkmalgruppeAdressen": [
        { "MerkmallisteAdressen": [ { "Merkmal": "Kundenart" } ], "ID": "G1" } ] },
    "database": { "name": "X" }, "workflowAddOn": false })");
  EXPECT_FALSE(store->Catalog().workflow_add_on);
  const auto id = [&](const char* name) { return store->Catalog().Table(name); };

  const auto contracts = workspace::AllRows(*store, id("vv_Vertraege"));
  ASSERT_EQ(contracts.size(), 3u);
  EXPECT_EQ(contracts[0].oid, 42) << "behind the Oids that the file gives";
  EXPECT_EQ(contracts[1].oid, 40);
  EXPECT_EQ(contracts[1].cells[2], host::Value("zwei"));
  EXPECT_EQ(contracts[2].oid, 41);
  for (const auto& contract : contracts) EXPECT_EQ(contract.parent, 9);
  EXPECT_EQ(workspace::AllRows(*store, id("vv_Vertragsstaende")).at(0).parent, 40);

  // A key that holds a part of the parent knows what came behind the children.
  store::Record found;
  const auto attributes = id("MerkmallisteAdressen");
  const auto index =
      store->Catalog().tables[attributes].FindIndex("MerkmalgruppeIDMerkmal").value();
  EXPECT_TRUE(store->NextByKey(attributes, index, "G1KUNDENART", 0, found));
  EXPECT_EQ(found.keys[index], "G1KUNDENART");
}

TEST_P(DatasetOverStores, TheSameContractsLeaveTheSameRowsOidsIncluded) {
  const auto dump = [](const StoreKind& kind) {
    const platform::FixedClock clock(platform::FromCivil(2024, 3, 15));
    ContractMaker maker(Import(kind, support::kCompany), clock);
    const std::string text = std::string(R"({"address": "1", )") + support::kRecord + "}";
    ForEachContract(formats::MemorySource("v.json", text), [&](const ContractOrder& order) {
      maker.Make(order);
      maker.Host().SetSavepoint();
      maker.Make(order);
      maker.Host().DropToSavepoint();
      EXPECT_EQ(maker.Make(order).number, "00000002");
    });
    maker.Host().EndUnit();
    return Export(maker.Store());
  };
  EXPECT_EQ(dump(GetParam()), dump(support::StoreKinds().front()));
}

TEST_P(DatasetOverStores, AnIdThatIsGivenOutNeverMeetsOneOfTheFile) {
  const auto store = Import(GetParam(), R"({ "tables": { "Artikelgruppen": [
    { "@oid": "1", "Artikelgruppe": "ohne" }, { "@oid": "2", "ID": "00000001" } ] } })");
  const auto groups = workspace::AllRows(*store, store->Catalog().Table("Artikelgruppen"));
  EXPECT_NE(host::ToText(groups.at(0).cells[0]), "");
  EXPECT_NE(host::ToText(groups.at(0).cells[0]), "00000001");
  EXPECT_EQ(groups.at(1).cells[0], host::Value("00000001"));
}

TEST_P(DatasetOverStores, AnImportThatFailsLeavesNothing) {
  const std::pair<const char*, const char*> cases[] = {
      {R"({"tables": {"Adressen": [{"@oid": "1"}, {"@oid": "1"}]}})", "[1]: "},
      {R"({"tables": {"KELM_Mandanten": [{"KELM_Nummern": [
           {"Tabelle": "A", "Feld": "B"}, {"Tabelle": "A", "Feld": "B"}]}]}})",
       "[1]: "},
      {kEverything, "abgebrochen"}};
  for (const auto& [text, fault] : cases) {
    const formats::TextSource source = formats::MemorySource("daten.json", text);
    const DatasetSurvey survey = SurveyDataset(source);
    const auto store =
        GetParam().create(schema::ContractCatalog(true), store::DefaultProfile("FIRMA"));
    const auto at_row = [rows = 0]() mutable {
      if (++rows == 4) formats::Raise(formats::DoorError::BadInput, "abgebrochen");
    };
    const auto error = ErrorOf([&] { ImportDataset(*store, source, survey, "NEU", at_row); });
    ASSERT_TRUE(error) << text;
    EXPECT_EQ(error->Number(), Number(formats::DoorError::BadInput)) << error->Description();
    EXPECT_THAT(error->Description(), HasSubstr(fault));
    EXPECT_EQ(store->ReadProfile().name, "FIRMA");
    for (store::TableId table = 0; table < store->Catalog().tables.size(); ++table)
      EXPECT_EQ(store->Count(table), 0);
  }
}

void ExpectRefused(const std::string& text, const std::string& message) {
  const auto error = ErrorOf([&] { SurveyDataset(formats::MemorySource("daten.json", text)); });
  ASSERT_TRUE(error) << text;
  EXPECT_EQ(error->Number(), Number(formats::DoorError::BadInput)) << text;
  EXPECT_EQ(error->Description(), "daten.json: " + message) << text;
}

TEST(BadDataset, IsRefusedNamingThePlace) {
  const std::pair<const char*, const char*> cases[] = {
      {"", "Zeile 1, Spalte 1: kein gültiges JSON (der Text endet zu früh)"},
      {"[]", "ein Objekt wird erwartet"},
      {R"({"tabels": {}})", "unbekannter Schlüssel „tabels“"},
      {R"({"tables": {"Kunden": []}})", "tables.Kunden: diese Tabelle gibt es nicht"},
      {R"({"tables": {"vv_Vertraege": []}})",
       "tables.vv_Vertraege: diese Tabelle steht in den Zeilen von Adressen"},
      {R"({"tables": {"Adressen": [], "ADRESSEN": []}})", "tables.ADRESSEN: steht doppelt da"},
      {R"({"tables": {"Adressen": [{}, "x"]}})", "tables.Adressen[1]: ein Objekt wird erwartet"},
      {R"({"tables": {"Adressen": [{"Artikel": []}]}})",
       "tables.Adressen[0].Artikel: weder ein Feld noch eine Untertabelle von Adressen"},
      {R"({"tables": {"Adressen": [{"vv_Vertraege": [{}, {"vv_Vertragsstaende": [
           {"Dokument": "x.pdf"}]}]}]}})",
       "tables.Adressen[0].vv_Vertraege[1].vv_Vertragsstaende[0].Dokument: "
       "ein Objekt wird erwartet"},
      {R"({"users": [{"name": "Anna"}, {}]})", "users[1]: „name“ fehlt"},
      {R"({"users": [{"name": "Anna"}, {"name": "ANNA"}]})",
       "users[1].name: der Benutzer steht doppelt da"},
      {R"({"dbSettings": {"x": {}}})",
       "dbSettings.x: ein Text, eine Zahl, true, false oder eine Liste von Texten wird erwartet"},
      {R"({"macros": {"vv_CreateAttribute": "record"}})",
       "macros.vv_CreateAttribute: ein Name wie „Projekt/Modul/Prozedur“ wird erwartet"},
      {R"({"macros": {"a/b/c": {"fail": {"number": "5"}}}})",
       "macros.a/b/c.fail.number: eine Fehlernummer wird erwartet, zum Beispiel „0x80041096“"},
  };
  for (const auto& [text, message] : cases) ExpectRefused(text, message);
}

TEST(BadDataset, ACellIsNamedByItsTablesAndRows) {
  constexpr const char* kOid = "eine Oid wird erwartet, eine positive ganze Zahl als Text wie „7“";
  constexpr const char* kDate = "ein Datum wird erwartet, zum Beispiel „2024-03-15“";
  struct Case {
    const char* cell;
    const char* value;
    const char* message;
  };
  const Case cases[] = {
      {"Titel", "1", "weder ein Feld noch eine Untertabelle von vv_Vertraege"},
      {"art", "2", "steht doppelt da"},
      {"Bezeichnung", "12", "ein Text wird erwartet"},
      {"Vertragnummer", R"("äöüäöüäöüäöüäöüäöüäöü")", "der Text ist länger als 20 Zeichen"},
      {"Dauer", R"("12")", "eine ganze Zahl wird erwartet"},
      {"Dauer", "12.5", "eine ganze Zahl wird erwartet"},
      {"Dauer", "2147483648", "die Zahl ist zu groß"},
      {"AktValue", R"("1,5")", "eine Zahl wird erwartet"},
      {"NoBooking", "1", "true oder false wird erwartet"},
      {"VertragBeginn", R"("2023-02-29")", kDate},
      {"@oid", "7", kOid},
      {"@oid", R"("007")", kOid},
  };
  for (const auto& [cell, value, message] : cases) {
    const std::string row = std::string(R"({"Art": 1, ")") + cell + "\": " + value + "}";
    ExpectRefused(R"({"tables": {"Adressen": [{}, {"vv_Vertraege": [{}, )" + row + "]}]}}",
                  std::string("tables.Adressen[1].vv_Vertraege[1].") + cell + ": " + message);
  }
}

}  // namespace
}  // namespace pactora::dataset
