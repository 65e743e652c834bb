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
      store::CreateMemoryStore(schema::ContractCatalog(true), workspace::DefaultProfile("FIRMA"));
  dataset::ImportDataset(*store, source, dataset::SurveyDataset(source), "FIRMA");
  return store;
}

inline std::unique_ptr<store::RecordStore> Company() { return StoreWith(kCompany); }
// The company of the program's sample, with contract types.
inline std::unique_ptr<store::RecordStore> SampleCompany() {
  return StoreWith(std::string(dataset::SampleDataset()));
}

}  // namespace pactora::support
