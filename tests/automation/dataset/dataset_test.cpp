// Datasets: what is read, what is refused and where, and that nothing is lost.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

#include "automation/dataset/dataset_export.h"
#include "automation/dataset/dataset_import.h"
#include "automation/dataset/dataset_profile.h"
#include "automation/dataset/sample/sample.h"
#include "automation/dataset/values.h"
#include "automation/formats/errors.h"
#include "automation/workspace/database.h"
#include "platform/Error.h"
#include "schema/Catalog.h"
#include "support/store_kinds.h"

namespace pactora::dataset {
namespace {

using support::StoreKind;
using testing::HasSubstr;

std::unique_ptr<store::RecordStore> Import(const StoreKind& kind, const std::string& text) {
  const formats::TextSource source = formats::MemorySource("daten.json", text);
  const DatasetSurvey survey = SurveyDataset(source);
  auto store = kind.create(schema::ContractCatalog(survey.workflow_add_on),
                           workspace::DefaultProfile("FIRMA"));
  ImportDataset(*store, source, survey, "FIRMA");
  return store;
}

std::string Export(store::RecordStore& store) {
  std::ostringstream out;
  ExportDataset(store, out);
  return out.str();
}

// Every kind of value and of thing that a dataset has, as an export writes it.
constexpr const char* kEverything = R"({
  "database": {
    "name": "FIRMA",
    "displayName": "Firma \"Größe\" GmbH"
  },
  "users": [
    {
      "name": "Anna",
      "public": {
        "Farbe": "blau",
        "Zahl": 3
      },
      "private": {
        "Ton": true,
        "Anteil": 0.5
      }
    },
    {
      "name": "DEVELOPMENT"
    }
  ],
  "currentUser": "Anna",
  "dbSettings": {
    "CreateAppointment4AllContracts": "true",
    "leer": null
  },
  "tableSettings": {
    "Adressen": {
      "Breite": 120
    }
  },
  "persistVars": {
    "z_zuerst": "1",
    "a_danach": {
      "value": "fest",
      "readOnly": true
    },
    "lt_Einheit": [
      "Stück",
      "Stunde"
    ]
  },
  "workflowAddOn": true,
  "macros": {
    "Project/vv_Macros/vv_CreateAttribute": "record",
    "Project/vv_Macros/kaputt": {
      "fail": {
        "number": "0x80040005",
        "description": "geht nicht"
      }
    }
  },
  "tables": {
    "Adressen": [
      {
        "@oid": "5",
        "Name": "Muster\tGmbH\\Übersee\u0001",
        "vv_Vertraege": [
          {
            "@oid": "7",
            "Vertragnummer": "00000001",
            "Art": 1,
            "VertragBeginn": "2024-01-01",
            "VertragEnde": 0,
            "AktValue": 1200,
            "NoBooking": false,
            "vv_Vertragsstaende": [
              {
                "@oid": "9",
                "Value": 0.1,
                "Dokument": {
                  "document": "Vertrag.pdf"
                },
                "vv_Vertragspositionen": [
                  {
                    "@oid": "3",
                    "Nettopreis": -8.33,
                    "Row": "001"
                  }
                ]
              }
            ],
            "vv_VertragsAktivitaeten": [
              {
                "@oid": "2",
                "Datum": "2025-02-01T09:00:00",
                "Erledigt": false
              }
            ]
          }
        ]
      },
      {
        "@oid": "1",
        "Name": ""
      }
    ],
    "vv_Vertragsdefinitionen": [
      {
        "@oid": "1",
        "ID": "T1",
        "NettoSumme": 100000000.25
      }
    ]
  }
}
)";

class DatasetOverStores : public testing::TestWithParam<StoreKind> {};

INSTANTIATE_TEST_SUITE_P(Stores, DatasetOverStores, testing::ValuesIn(support::StoreKinds()),
                         support::StoreName);

TEST_P(DatasetOverStores, AnExportReadsBackToTheSameBytes) {
  EXPECT_EQ(Export(*Import(GetParam(), kEverything)), kEverything);
}

TEST_P(DatasetOverStores, TheSampleSurvivesExportAndImport) {
  const std::string once = Export(*Import(GetParam(), std::string(SampleDataset())));
  EXPECT_EQ(Export(*Import(GetParam(), once)), once);
  EXPECT_THAT(once, HasSubstr("Bäckerei Quendelbach"));
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

TEST_P(DatasetOverStores, AnIdThatIsGivenOutNeverMeetsOneOfTheFile) {
  const auto store = Import(GetParam(), R"({ "tables": { "Artikelgruppen": [
    { "@oid": "1", "Artikelgruppe": "ohne" }, { "@oid": "2", "ID": "00000001" },
    { "@oid": "3", "ID": "" } ] } })");
  const auto groups = workspace::AllRows(*store, store->Catalog().Table("Artikelgruppen"));
  ASSERT_EQ(groups.size(), 3u);
  EXPECT_NE(host::ToText(groups[0].cells[0]), "");
  EXPECT_NE(host::ToText(groups[0].cells[0]), "00000001");
  EXPECT_EQ(groups[1].cells[0], host::Value("00000001"));
  EXPECT_NE(groups[2].cells[0], groups[0].cells[0]);
}

TEST_P(DatasetOverStores, AFaultFoundWhileWritingLeavesNothing) {
  for (const char* text : {R"({ "tables": { "Adressen": [ { "@oid": "1" }, { "@oid": "1" } ] } })",
                           R"({ "tables": { "KELM_Mandanten": [ { "KELM_Nummern": [
             { "Tabelle": "A", "Feld": "B" }, { "Tabelle": "A", "Feld": "B" } ] } ] } })"}) {
    const formats::TextSource source = formats::MemorySource("daten.json", text);
    const DatasetSurvey survey = SurveyDataset(source);
    const auto store =
        GetParam().create(schema::ContractCatalog(true), workspace::DefaultProfile("FIRMA"));
    try {
      ImportDataset(*store, source, survey, "NEU");
      FAIL() << text;
    } catch (const platform::Error& error) {
      EXPECT_EQ(error.Number(), Number(formats::DoorError::BadInput)) << error.Description();
      EXPECT_THAT(error.Description(), HasSubstr("[1]: "));
    }
    EXPECT_EQ(store->ReadProfile().name, "FIRMA");
    for (store::TableId table = 0; table < store->Catalog().tables.size(); ++table)
      EXPECT_EQ(store->Count(table), 0);
  }
}

TEST_P(DatasetOverStores, AnInterruptedImportLeavesNothing) {
  const formats::TextSource source = formats::MemorySource("daten.json", kEverything);
  const DatasetSurvey survey = SurveyDataset(source);
  const auto store =
      GetParam().create(schema::ContractCatalog(true), workspace::DefaultProfile("FIRMA"));
  int rows = 0;
  const auto pause = [&rows] {
    if (++rows == 4) formats::Raise(formats::DoorError::Interrupted, "abgebrochen");
  };
  EXPECT_THROW(ImportDataset(*store, source, survey, "NEU", pause), platform::Error);
  EXPECT_EQ(store->Count(0), 0);
}

struct BadFile {
  const char* name;
  const char* text;
  const char* message;  // behind "daten.json: "

  friend void PrintTo(const BadFile& file, std::ostream* out) { *out << file.name; }
};

class BadDataset : public testing::TestWithParam<BadFile> {};

TEST_P(BadDataset, IsRefusedNamingThePlace) {
  try {
    SurveyDataset(formats::MemorySource("daten.json", GetParam().text));
    FAIL() << "taken";
  } catch (const platform::Error& error) {
    EXPECT_EQ(error.Description(), std::string("daten.json: ") + GetParam().message);
    EXPECT_EQ(error.Number(), Number(formats::DoorError::BadInput));
  }
}

#define ROWS(rows) "{\"tables\": {\"Adressen\": [" rows "]}}"
#define CONTRACT(cells) ROWS("{}, {\"vv_Vertraege\": [{}, {" cells "}]}")
#define IN_CONTRACT "tables.Adressen[1].vv_Vertraege[1]"

INSTANTIATE_TEST_SUITE_P(
    Files, BadDataset,
    testing::ValuesIn(std::vector<BadFile>{
        {"Empty", "", "Zeile 1, Spalte 1: kein gültiges JSON (der Text endet zu früh)"},
        {"Broken", "{\n  \"tables\": x }",
         "Zeile 2, Spalte 13: kein gültiges JSON (bei „\"tables\": x“)"},
        {"NumberTooLarge",
         R"({"tables": {"Artikelgruppen": [{"Artikel": [{"Nettopreis": 1e400}]}]}})",
         "Stelle 64: die Zahl 1e400 ist zu groß"},
        {"TwoValues", "{} {}", "Zeile 1, Spalte 4: kein gültiges JSON (bei „{} {“)"},
        {"NotAnObject", "[]", "ein Objekt wird erwartet"},
        {"AText", "\"x\"", "ein Objekt wird erwartet"},
        {"UnknownKey", R"({"tabels": {}})", "unbekannter Schlüssel „tabels“"},
        {"KeyTwice", R"({"macros": {}, "macros": {}})", "macros: steht doppelt da"},
        {"UnknownTable", R"({"tables": {"Kunden": []}})",
         "tables.Kunden: diese Tabelle gibt es nicht"},
        {"ChildAsRoot", R"({"tables": {"vv_Vertraege": []}})",
         "tables.vv_Vertraege: diese Tabelle steht in den Zeilen von Adressen"},
        {"TableTwice", R"({"tables": {"Adressen": [], "ADRESSEN": []}})",
         "tables.ADRESSEN: steht doppelt da"},
        {"TableIsObject", R"({"tables": {"Adressen": {}}})",
         "tables.Adressen: eine Liste von Zeilen wird erwartet"},
        {"TablesIsList", R"({"tables": []})", "tables: ein Objekt wird erwartet"},
        {"RowIsText", ROWS("{}, \"x\""), "tables.Adressen[1]: ein Objekt wird erwartet"},
        {"WrongChild", ROWS("{\"Artikel\": []}"),
         "tables.Adressen[0].Artikel: weder ein Feld noch eine Untertabelle von Adressen"},
        {"UnknownField", CONTRACT("\"Titel\": 1"),
         IN_CONTRACT ".Titel: weder ein Feld noch eine Untertabelle von vv_Vertraege"},
        {"FieldTwice", CONTRACT("\"Art\": 1, \"art\": 2"), IN_CONTRACT ".art: steht doppelt da"},
        {"NumberForText", CONTRACT("\"Bezeichnung\": 12"),
         IN_CONTRACT ".Bezeichnung: ein Text wird erwartet"},
        {"TextForNumber", CONTRACT("\"Dauer\": \"12\""),
         IN_CONTRACT ".Dauer: eine ganze Zahl wird erwartet"},
        {"FractionForLong", CONTRACT("\"Dauer\": 12.5"),
         IN_CONTRACT ".Dauer: eine ganze Zahl wird erwartet"},
        {"LongTooLarge", CONTRACT("\"Dauer\": 2147483648"),
         IN_CONTRACT ".Dauer: die Zahl ist zu groß"},
        {"LongTooSmall", CONTRACT("\"Dauer\": -2147483649"),
         IN_CONTRACT ".Dauer: die Zahl ist zu groß"},
        {"TextForDouble", CONTRACT("\"AktValue\": \"1,5\""),
         IN_CONTRACT ".AktValue: eine Zahl wird erwartet"},
        {"NumberForBoolean", CONTRACT("\"NoBooking\": 1"),
         IN_CONTRACT ".NoBooking: true oder false wird erwartet"},
        {"BadDate", CONTRACT("\"VertragBeginn\": \"2023-02-29\""),
         IN_CONTRACT ".VertragBeginn: ein Datum wird erwartet, zum Beispiel \"2024-03-15\""},
        {"NumberForDate", CONTRACT("\"VertragBeginn\": 1"),
         IN_CONTRACT ".VertragBeginn: ein Datum wird erwartet, zum Beispiel \"2024-03-15\""},
        {"ListForText", CONTRACT("\"Memo\": [\"x\"]"), IN_CONTRACT ".Memo: ein Text wird erwartet"},
        {"TextTooLong", CONTRACT("\"Vertragnummer\": \"äöüäöüäöüäöüäöüäöüäöü\""),
         IN_CONTRACT ".Vertragnummer: der Text ist länger als 20 Zeichen"},
        {"OidIsNumber", CONTRACT("\"@oid\": 7"),
         IN_CONTRACT ".@oid: eine Oid wird erwartet, eine positive ganze Zahl als Text wie \"7\""},
        {"OidNotCanonical", CONTRACT("\"@oid\": \"007\""),
         IN_CONTRACT ".@oid: eine Oid wird erwartet, eine positive ganze Zahl als Text wie \"7\""},
        {"DocumentIsText", CONTRACT("\"vv_Vertragsstaende\": [{\"Dokument\": \"x.pdf\"}]"),
         IN_CONTRACT ".vv_Vertragsstaende[0].Dokument: ein Objekt wird erwartet"},
        {"WorkflowInDatabaseWithout",
         R"({"tables": {"KELDO_Vorgaenge": []}, "workflowAddOn": false})",
         "tables.KELDO_Vorgaenge: diese Tabelle gibt es nicht"},
        {"WorkflowAddOnIsText", R"({"workflowAddOn": "nein"})",
         "workflowAddOn: true oder false wird erwartet"},
        {"UserWithoutName", R"({"users": [{"name": "Anna"}, {}]})", "users[1]: „name“ fehlt"},
        {"UserTwice", R"({"users": [{"name": "Anna"}, {"name": "ANNA"}]})",
         "users[1].name: der Benutzer steht doppelt da"},
        {"UnknownCurrentUser", R"({"users": [{"name": "Anna"}], "currentUser": "Bert"})",
         "currentUser: „Bert“ steht nicht unter „users“"},
        {"SettingIsObject", R"({"dbSettings": {"x": {}}})",
         "dbSettings.x: ein Text, eine Zahl, true, false oder eine Liste von Texten wird erwartet"},
        {"VariableListOfNumbers", R"({"persistVars": {"lt_Einheit": ["Stück", 2]}})",
         "persistVars.lt_Einheit[1]: ein Text wird erwartet"},
        {"VariableUnknownKey", R"({"persistVars": {"x": {"value": 1, "readonly": true}}})",
         "persistVars.x: unbekannter Schlüssel „readonly“"},
        {"VariableTwice", R"({"persistVars": {"x": 1, "X": 1}})",
         "persistVars.X: der Name steht doppelt da"},
        {"MacroPath", R"({"macros": {"vv_CreateAttribute": "record"}})",
         "macros.vv_CreateAttribute: ein Name wie \"Projekt/Modul/Prozedur\" wird erwartet"},
        {"MacroNumber", R"({"macros": {"a/b/c": {"fail": {"number": "5"}}}})",
         "macros.a/b/c.fail.number: eine Fehlernummer wird erwartet, zum Beispiel \"0x80041096\""},
        {"TableSettingsOfUnknownTable", R"({"tableSettings": {"Kunden": {}}})",
         "tableSettings.Kunden: diese Tabelle gibt es nicht"},
    }),
    [](const auto& tested) { return tested.param.name; });

TEST(Dataset, TooDeepANestingIsRefused) {
  const std::string deep(100000, '[');
  EXPECT_THROW(SurveyDataset(formats::MemorySource("x", "{\"macros\": " + deep)), platform::Error);
}

TEST(Dataset, WhatIsLeftOutHasADefault) {
  const StoreKind memory = support::StoreKinds().front();
  const auto profile = Import(memory, "{}")->ReadProfile();
  EXPECT_EQ(profile.name, "FIRMA");
  EXPECT_EQ(profile.users, std::vector<std::string>{workspace::kDefaultUser});
  EXPECT_EQ(profile.current_user, workspace::kDefaultUser);
}

}  // namespace
}  // namespace pactora::dataset
