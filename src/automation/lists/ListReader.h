// Reads a list, row by row or as a whole.
#pragma once

#include <vector>

#include "automation/lists/lists.h"

namespace pactora::lists {

// What a cell of a column with codes holds.
enum class Codes { AsStored, InWords };

class ListReader {
 public:
  // List and store must outlive the reader. With an address, the list has the rows that
  // belong to it; 0 stands for all.
  ListReader(const List& list, store::RecordStore& store, platform::Date today, Codes codes,
             store::Oid address = 0);

  // Adds the lines of the table's next row, if it has any; returns false at the end.
  bool Next(std::vector<Row>& rows);
  // All remaining rows in the list's order; rows without a date come last.
  std::vector<Row> Rest();

 private:
  Row At(const Place& place) const;

  const List* list_;
  store::RecordStore* store_;
  platform::Date today_;
  Codes codes_;
  workspace::RowWalk walk_;
};

}  // namespace pactora::lists
