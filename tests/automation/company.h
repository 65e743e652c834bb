// A small company in a store, for tests of scripts, contract files and the check.
#pragma once

#include <memory>
#include <string>

#include "automation/dataset_head.h"
#include "automation/dataset_import.h"
#include "automation/sample/sample.h"
#include "schema/Catalog.h"
#include "store/RecordStore.h"
#include "store/memory/MemoryStore.h"
#include "support/company_text.h"

namespace pactora::automation {

using support::kCompany;
using support::kRecord;

inline std::unique_ptr<store::RecordStore> StoreWith(const std::string& dataset) {
  const TextSource source = MemorySource("firma.json", dataset);
  auto store = store::CreateMemoryStore(schema::ContractCatalog(true), DefaultProfile("FIRMA"));
  ImportDataset(*store, source, SurveyDataset(source), "FIRMA");
  return store;
}

inline std::unique_ptr<store::RecordStore> Company() { return StoreWith(kCompany); }
// The company of the program's sample, with contract types.
inline std::unique_ptr<store::RecordStore> SampleCompany() {
  return StoreWith(std::string(SampleDataset()));
}

}  // namespace pactora::automation
