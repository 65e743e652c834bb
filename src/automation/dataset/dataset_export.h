// Writing a database, or some of its rows, as a dataset.
#pragma once

#include <functional>
#include <ostream>
#include <vector>

#include "automation/formats/JsonWriter.h"
#include "automation/workspace/row_walk.h"
#include "store/RecordStore.h"

namespace pactora::dataset {

// Writes the whole database, indented, with a line break at the end. at_row runs at
// each row and may raise to stop.
// Requires: no other user writes while it runs; see store::RecordStore::LockForUpdate.
void ExportDataset(store::RecordStore& store, std::ostream& out,
                   const std::function<void()>& at_row = {});

// A row as an object: "@oid", the fields that were written, in schema order, and
// with children the rows under it.
void WriteRow(formats::JsonWriter& out, store::RecordStore& store, store::TableId table,
              const store::Record& record, bool with_children,
              const std::function<void()>& at_row = {});

// These tables' rows, each with the rows under it, as an object with a key for each
// table; no tables means all root tables that have rows.
void WriteTables(formats::JsonWriter& out, store::RecordStore& store,
                 const std::vector<store::TableId>& tables,
                 const std::function<void()>& at_row = {});

}  // namespace pactora::dataset
