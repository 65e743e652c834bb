#include "automation/dataset/dataset_import.h"

#include <fmt/format.h>

#include <utility>

#include "automation/dataset/DatasetReader.h"
#include "automation/dataset/dataset_profile.h"
#include "automation/formats/errors.h"
#include "platform/Error.h"
#include "store/errors.h"
#include "store/rows.h"

namespace pactora::dataset {
namespace {

// The first reading.
class Survey final : public DatasetReader {
 public:
  Survey(const schema::Catalog& catalog, const std::string& source)
      : DatasetReader(catalog, source) {
    result_.workflow_add_on = catalog.workflow_add_on;
    result_.largest_oids.resize(catalog.tables.size());
  }
  DatasetSurvey Take() { return std::move(result_); }

 private:
  struct OpenRow {
    store::TableId table;
    std::size_t number;
    bool has_children = false;
  };

  void ProfileMember(const std::string& name, formats::Json value) override {
    if (name == key::kWorkflowAddOn)
      result_.workflow_add_on = formats::RequireBoolean(value, formats::Place(Source()).Key(name));
    result_.profile[name] = std::move(value);
  }
  void RowBegins(store::TableId table) override { open_.push_back({table, result_.rows++}); }
  void RowOid(store::Oid oid) override {
    const OpenRow& row = open_.back();
    if (row.has_children) result_.late_oids[row.number] = oid;
    store::Oid& largest = result_.largest_oids[row.table];
    largest = std::max(largest, oid);
  }
  void RowCell(std::size_t, host::Value) override {}
  void ChildrenBegin() override { open_.back().has_children = true; }
  void RowEnds() override { open_.pop_back(); }

  DatasetSurvey result_;
  std::vector<OpenRow> open_;
};

// The second reading: each row is inserted as soon as its first child row comes
// or it ends, and written again when cells follow its children.
class Insertion final : public DatasetReader {
 public:
  Insertion(store::RecordStore& store, const std::string& source, const DatasetSurvey& survey,
            const std::function<void()>& at_row)
      : DatasetReader(store.Catalog(), source),
        store_(store),
        survey_(survey),
        last_oids_(survey.largest_oids),
        at_row_(at_row) {}

  // Gives IDs to the rows without one. Requires: Read is done, so that no ID of a later
  // row of the file is given out.
  void GiveIds() {
    store::Record row;
    store::Record parent;
    for (const auto& [table, oid] : without_id_) {
      store_.Read(table, oid, row);
      row.cells[*Catalog().tables[table].id_field] = store::FreeId(store_, table, oid);
      const auto parent_table = Catalog().tables[table].parent;
      if (parent_table) store_.Read(*parent_table, row.parent, parent);
      store::UpdateRow(store_, table, row, parent_table ? &parent.cells : nullptr);
    }
  }

 private:
  struct OpenRow {
    store::TableId table;
    store::Record record;
    bool inserted = false;
    bool changed = false;
  };

  void ProfileMember(const std::string&, formats::Json) override {}

  void RowBegins(store::TableId table) override {
    if (at_row_) at_row_();
    OpenRow row{table, {}};
    row.record.cells.resize(Catalog().tables[table].fields.size());
    if (!open_.empty()) row.record.parent = open_.back().record.oid;
    const auto late = survey_.late_oids.find(rows_++);
    if (late != survey_.late_oids.end()) row.record.oid = late->second;
    open_.push_back(std::move(row));
  }
  void RowOid(store::Oid oid) override { open_.back().record.oid = oid; }
  void RowCell(std::size_t field, host::Value value) override {
    OpenRow& row = open_.back();
    row.record.cells[field] = std::move(value);
    row.changed = true;
  }
  void ChildrenBegin() override { Write(); }
  void RowEnds() override {
    Write();
    if (LacksId(open_.back())) without_id_.push_back({open_.back().table, open_.back().record.oid});
    open_.pop_back();
  }

  bool LacksId(const OpenRow& row) const {
    const auto field = Catalog().tables[row.table].id_field;
    return field && host::ToText(row.record.cells[*field]).empty();
  }

  // Brings the open row's cells into the store.
  void Write() {
    OpenRow& row = open_.back();
    if (row.inserted && !row.changed) return;
    // A row without Oid must not take one that a later row of the file has.
    if (row.record.oid == 0 && survey_.largest_oids[row.table] != 0)
      row.record.oid = ++last_oids_[row.table];
    const std::vector<host::Value>* parent_cells =
        open_.size() > 1 ? &open_[open_.size() - 2].record.cells : nullptr;
    try {
      if (row.inserted) {
        store::UpdateRow(store_, row.table, row.record, parent_cells);
      } else if (LacksId(row)) {
        row.record.keys = store::MakeKeys(Catalog(), row.table, row.record.cells, parent_cells);
        store_.Insert(row.table, row.record);
      } else {
        store::InsertRow(store_, row.table, row.record, parent_cells);
      }
    } catch (const platform::Error& error) {
      const std::int32_t number = error.Number();
      if (number != store::Number(store::StoreError::DuplicateOid) &&
          number != store::Number(store::StoreError::DuplicateKey))
        throw;
      RowPlace().Fail(error.Description());
    }
    row.inserted = true;
    row.changed = false;
  }

  store::RecordStore& store_;
  const DatasetSurvey& survey_;
  std::vector<store::Oid> last_oids_;
  const std::function<void()>& at_row_;
  std::vector<OpenRow> open_;
  std::vector<std::pair<store::TableId, store::Oid>> without_id_;
  std::size_t rows_ = 0;
};

}  // namespace

DatasetSurvey SurveyDataset(const formats::TextSource& source) {
  // A database without the workflow add-on has fewer tables and fields. The file may
  // state that as late as at its end; it is then read again.
  for (const bool workflow_add_on : {true, false}) {
    const schema::Catalog catalog = schema::ContractCatalog(workflow_add_on);
    Survey survey(catalog, source.name);
    survey.Read(*source.open());
    DatasetSurvey result = survey.Take();
    if (result.workflow_add_on != workflow_add_on) continue;
    ReadProfile(result.profile, source.name, {});
    return result;
  }
  formats::Place(source.name).Fail("die Datei hat sich beim Lesen geändert");
}

void ImportDataset(store::RecordStore& store, const formats::TextSource& source,
                   const DatasetSurvey& survey, const std::string& default_name,
                   const std::function<void()>& at_row) {
  try {
    store.WriteProfile(ReadProfile(survey.profile, source.name, default_name));
    Insertion insertion(store, source.name, survey, at_row);
    insertion.Read(*source.open());
    insertion.GiveIds();
    store.Commit();
  } catch (...) {
    store.Rollback();
    throw;
  }
}

}  // namespace pactora::dataset
