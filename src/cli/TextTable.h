// A table of values as aligned text or as JSON.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "host/Value.h"

namespace pactora::cli {

struct Column {
  std::string title;
  std::string key;  // in JSON
};

class TextTable {
 public:
  explicit TextTable(std::vector<Column> columns) : columns_(std::move(columns)) {}

  // Requires: one value for each column.
  void Add(std::vector<host::Value> row) { rows_.push_back(std::move(row)); }

  // Numbers are right-aligned; dates and amounts have the German form, and no date is
  // an empty cell.
  void PrintText(std::ostream& out) const;
  // A list of objects, values as in a dataset.
  void PrintJson(std::ostream& out) const;

 private:
  std::vector<Column> columns_;
  std::vector<std::vector<host::Value>> rows_;
};

}  // namespace pactora::cli
