// A small company in a store, for tests of scripts, contract files and the check.
#pragma once

#include <memory>
#include <string>

#include "automation/dataset/dataset_import.h"
#include "automation/dataset/dataset_profile.h"
#include "automation/dataset/sample/sample.h"
#include "automation/workspace/database.h"
#include "schema/Catalog.h"
#include "store/RecordStore.h"
#include "store/memory/MemoryStore.h"
#include "support/company_text.h"

namespace pactora::support {

inline std::unique_ptr<store::RecordStore> StoreWith(const std::string& dataset) {
  const formats::TextSource source = formats::MemorySource("firma.json", dataset);
  auto store =
      store::CreateMemoryStore(schema::ContractCatalog(true), store::DefaultProfile("FIRMA"));
  dataset::ImportDataset(*store, source, dataset::SurveyDataset(source), "FIRMA");
  return store;
}

inline std::unique_ptr<store::RecordStore> Company() { return StoreWith(kCompany); }
// The company of the program's sample, with contract types.
inline std::unique_ptr<store::RecordStore> SampleCompany() {
  return StoreWith(std::string(dataset::SampleDataset()));
}

// Two addresses with deadlines around 1 May 2024, appointments and a contract type.
inline std::unique_ptr<store::RecordStore> TwoAddresses() {
  return StoreWith(R"({"tables": {
    "Adressen": [
      {"@oid": "1", "Name": "Muster", "vv_Vertraege": [
        {"@oid": "8", "Vertragnummer": "2", "VertragEnde": "2024-05-01", "Typ": "K",
         "vv_VertragsAktivitaeten": [{"@oid": "20", "Betreff": "ohne"},
           {"@oid": "21", "Betreff": "spät", "Datum": "2024-05-01T09:00:00"}]},
        {"@oid": "7", "Vertragnummer": "1", "Art": 1, "KuendfristDatum": "2024-05-01",
         "VertragEnde": "2024-06-30", "Bezeichnung": "Größe, Menge; usw."},
        {"@oid": "9", "Vertragnummer": "3", "VertragEnde": 0},
        {"@oid": "10", "Vertragnummer": "4", "VertragEnde": "2024-04-30"}]},
      {"@oid": "2", "Name": "Probe", "vv_Vertraege": [{"@oid": "11", "Vertragnummer": "5",
         "vv_VertragsAktivitaeten": [
           {"@oid": "22", "Betreff": "früh", "Datum": "2024-05-01T08:00:00", "Erledigt": true}]}]}],
    "vv_Vertragsdefinitionen": [{"ID": "A", "Typ": "D", "Zahlungsperiode": 3}]}})");
}

}  // namespace pactora::support
