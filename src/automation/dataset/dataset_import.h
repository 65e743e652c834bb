// Reading a dataset into an empty database.
#pragma once

#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

#include "automation/formats/TextSource.h"
#include "automation/formats/json.h"
#include "store/RecordStore.h"

namespace pactora::dataset {

// The result of a first reading: the file is sound, and what must be known before
// the first row is written.
struct DatasetSurvey {
  formats::Json profile = formats::Json::object();  // as the file has it
  bool workflow_add_on = true;
  std::vector<store::Oid> largest_oids;  // of each table's rows in the file; 0 for none
  // Oids that the file gives after the row's children, by the row's number in the
  // file.
  std::unordered_map<std::size_t, store::Oid> late_oids;
  std::size_t rows = 0;
};

// Checks the whole file. Raises DoorError::BadInput at the first fault.
DatasetSurvey SurveyDataset(const formats::TextSource& source);

// Writes profile and rows in one unit of work and commits it; after an error nothing
// is written. at_row runs at each row and may raise to stop. default_name is the
// database's name where the file has none.
// Requires: the store is empty and of the catalogue that the survey asks for.
void ImportDataset(store::RecordStore& store, const formats::TextSource& source,
                   const DatasetSurvey& survey, const std::string& default_name,
                   const std::function<void()>& at_row = {});

}  // namespace pactora::dataset
