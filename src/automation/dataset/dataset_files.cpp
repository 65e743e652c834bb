#include "automation/dataset/dataset_files.h"

#include <fmt/format.h>

#include <sstream>

#include "automation/dataset/dataset_export.h"
#include "automation/dataset/dataset_import.h"
#include "automation/dataset/dataset_profile.h"
#include "automation/dataset/sample/sample.h"
#include "automation/formats/JsonWriter.h"
#include "automation/formats/errors.h"
#include "automation/formats/files.h"

namespace pactora::dataset {
namespace {

// Requires: the catalogue of the store is that of the dataset.
void Fill(store::RecordStore& store, const formats::TextSource& source, const DatasetSurvey& survey,
          const std::string& name, const Progress& progress) {
  std::size_t done = 0;
  ImportDataset(store, source, survey, name, [&] { progress(done++, survey.rows); });
}

std::size_t CountRows(store::RecordStore& store) {
  std::size_t rows = 0;
  for (store::TableId table = 0; table < store.Catalog().tables.size(); ++table) {
    rows += static_cast<std::size_t>(store.Count(table));
  }
  return rows;
}

// A copy of one moment. An export of a damaged database would silently omit values of a
// foreign type and rows without a parent.
std::unique_ptr<store::RecordStore> SoundCopy(const std::string& database) {
  workspace::StorageCheck check = workspace::CheckStorage(database);
  if (check.faults.empty()) return std::move(check.store);
  formats::Raise(check.store ? formats::DoorError::NotCarriedOut : formats::DoorError::BadInput,
                 fmt::format("{}: {}{}", database, check.faults.front(),
                             check.faults.size() > 1 ? "; pactora check nennt alle Mängel" : ""));
}

}  // namespace

void InitDatabase(const std::string& database, Content content, workspace::Access access,
                  const Progress& progress) {
  if (content == Content::None) {
    workspace::MakeDatabase(database, true,
                            store::DefaultProfile(workspace::DefaultDatabaseName(database)), access,
                            [](store::RecordStore&) {});
    return;
  }
  if (workspace::DatabaseExists(database)) workspace::RaiseTaken(database);
  ImportDatabase(database, formats::MemorySource("Beispieldaten", std::string(SampleDataset())),
                 access, progress);
}

void ImportDatabase(const std::string& database, const formats::TextSource& source,
                    workspace::Access access, const Progress& progress) {
  const DatasetSurvey survey = SurveyDataset(source);
  const std::string name = workspace::DefaultDatabaseName(database);
  if (!workspace::DatabaseExists(database)) {
    workspace::MakeDatabase(
        database, survey.workflow_add_on, store::DefaultProfile(name), access,
        [&](store::RecordStore& store) { Fill(store, source, survey, name, progress); });
    return;
  }
  const auto store = workspace::OpenDatabase(database, access);
  if (!workspace::IsEmpty(*store))
    formats::Raise(formats::DoorError::BadInput, database + ": die Datenbank ist nicht leer");
  if (store->Catalog().workflow_add_on != survey.workflow_add_on) {
    formats::Raise(
        formats::DoorError::BadInput,
        fmt::format("{}: die Datenbank wurde {} Workflow-Tabellen angelegt, {} ist {} sie",
                    database, survey.workflow_add_on ? "ohne" : "mit", source.name,
                    survey.workflow_add_on ? "mit" : "ohne"));
  }
  workspace::Naming(database, [&] { Fill(*store, source, survey, name, progress); });
}

void ExportDatabase(const std::string& database, const std::string& file,
                    const Progress& progress) {
  workspace::RequireOutside(database, file);
  const auto store = SoundCopy(database);
  const std::size_t all = CountRows(*store);
  std::size_t done = 0;
  formats::WriteOutput(
      file, [&](std::ostream& out) { ExportDataset(*store, out, [&] { progress(done++, all); }); });
}

void CheckProfile(store::RecordStore& store,
                  const std::function<void(const std::string& fault)>& found) {
  std::ostringstream text;
  formats::JsonWriter writer(text, formats::JsonWriter::Layout::Indented);
  try {
    writer.BeginObject();
    WriteProfile(writer, store.ReadProfile(), store.Catalog().workflow_add_on);
    writer.EndObject();
    SurveyDataset(formats::MemorySource("Benutzer und Einstellungen", text.str()));
  } catch (const platform::Error& error) {
    found(error.Description());
  }
}

}  // namespace pactora::dataset
