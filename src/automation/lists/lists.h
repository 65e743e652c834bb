// The lists of what a database holds: the columns of each, their names and the fields
// that they show. The command line prints them, the windows show them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

#include "automation/deadlines/deadlines.h"
#include "automation/workspace/row_walk.h"
#include "host/Value.h"
#include "platform/Date.h"
#include "store/RecordStore.h"

namespace pactora::lists {

enum class CellKind { Text, Number, Money, Percent, Date, Mark };

struct Row {
  std::int64_t key = 0;            // distinguishes the rows of a list
  store::Oid oid = 0;              // of the row of the database that it stands for
  std::vector<host::Value> cells;  // one for each column
  bool strong = false;             // needs attention: due and not done, or missed
  bool done = false;
  platform::Date act_by = platform::kNoDate;  // the last day on which to act
};

// The position of a reader in a list.
struct Place {
  store::RecordStore& store;
  const workspace::RowWalk& walk;
  platform::Date today;
  deadlines::Deadline deadline;  // in the list of deadlines
};

struct Column {
  std::string_view title;
  std::string_view key;  // its name in JSON and for ListOf
  CellKind kind;
  std::function<host::Value(const Place&)> cell;
  // Turns a code into its text; null where the cell is shown as it is.
  host::Value (*words)(const host::Value& code) = nullptr;
};

struct List {
  std::string_view title;  // what its rows are called
  std::string_view table;  // whose rows it shows
  std::vector<Column> columns;
  std::string_view sorted_by{};  // the key of a column of dates; empty for record order
  // Sets strong, done and act_by of a row; may be null.
  void (*mark)(const Place& place, Row& row) = nullptr;
  bool of_deadlines = false;  // shows the deadlines of each row of the table instead
};

const List& Addresses();
const List& Types();
const List& Contracts();
const List& Appointments();
// Last days for notice and ends of contracts; what was missed comes first. A row stands for
// the contract.
const List& Deadlines();
// Of addresses.
const List& Attributes();

// The list with these columns alone, in this order. Requires: it has them.
List ListOf(const List& list, const std::vector<std::string_view>& keys);

}  // namespace pactora::lists
