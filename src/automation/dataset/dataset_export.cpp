#include "automation/dataset/dataset_export.h"

#include <fmt/format.h>

#include "automation/dataset/dataset_profile.h"
#include "automation/dataset/values.h"
#include "automation/formats/errors.h"

namespace pactora::dataset {

namespace {

// A document field that holds no document reads back as one never written.
bool IsWritten(const host::Value& cell) {
  return !cell.IsEmpty() && !(cell.GetKind() == host::Kind::Object && !cell.AsObject());
}

// Writes the parent's rows as a list under the table's name, unless there are none.
void WriteRows(formats::JsonWriter& out, store::RecordStore& store, store::TableId table,
               store::Oid parent, const std::function<void()>& at_row) {
  store::Record record;
  bool any = false;
  for (std::int64_t after = 0; store.NextInParent(table, parent, after, record);
       after = record.order) {
    if (at_row) at_row();
    if (!any) {
      out.Key(store.Catalog().tables[table].name);
      out.BeginArray();
    }
    any = true;
    WriteRow(out, store, table, record, true, at_row);
  }
  if (any) out.EndArray();
}

}  // namespace

void WriteRow(formats::JsonWriter& out, store::RecordStore& store, store::TableId table,
              const store::Record& record, bool with_children,
              const std::function<void()>& at_row) {
  const schema::Table& schema = store.Catalog().tables[table];
  out.BeginObject();
  out.Key(key::kOid);
  out.Text(std::to_string(record.oid));
  for (std::size_t field = 0; field < schema.fields.size(); ++field) {
    const host::Value& cell = record.cells[field];
    if (!IsWritten(cell)) continue;
    out.Key(schema.fields[field].name);
    WriteValue(out, cell, [&] {
      return fmt::format("{}, Oid {}, {}", schema.name, record.oid, schema.fields[field].name);
    });
  }
  if (with_children)
    for (const store::TableId child : schema.children)
      WriteRows(out, store, child, record.oid, at_row);
  out.EndObject();
}

void ExportDataset(store::RecordStore& store, std::ostream& out,
                   const std::function<void()>& at_row) {
  formats::JsonWriter writer(out, formats::JsonWriter::Layout::Indented);
  writer.BeginObject();
  WriteProfile(writer, store.ReadProfile(), store.Catalog().workflow_add_on);
  writer.Key(key::kTables);
  WriteTables(writer, store, {}, at_row);
  writer.EndObject();
  out << '\n';
}

void WriteTables(formats::JsonWriter& out, store::RecordStore& store,
                 const std::vector<store::TableId>& tables, const std::function<void()>& at_row) {
  out.BeginObject();
  if (tables.empty())
    for (store::TableId table = 0; table < store.Catalog().tables.size(); ++table)
      if (!store.Catalog().tables[table].parent) WriteRows(out, store, table, 0, at_row);
  for (const store::TableId table : tables) {
    out.Key(store.Catalog().tables[table].name);
    out.BeginArray();
    for (const store::Record& record : workspace::AllRows(store, table))
      WriteRow(out, store, table, record, true, at_row);
    out.EndArray();
  }
  out.EndObject();
}

}  // namespace pactora::dataset
