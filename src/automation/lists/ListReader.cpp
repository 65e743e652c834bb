#include "automation/lists/ListReader.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "store/errors.h"

namespace pactora::lists {

ListReader::ListReader(const List& list, store::RecordStore& store, platform::Date today,
                       Codes codes, store::Oid address)
    : list_(&list),
      store_(&store),
      today_(today),
      codes_(codes),
      walk_(store, store.Catalog().FindTable(list.table).value(), address) {}

Row ListReader::At(const Place& place) const {
  Row row;
  row.key = row.oid = walk_.Row().oid;
  for (const Column& column : list_->columns) {
    host::Value cell = column.cell(place);
    if (cell.GetKind() == host::Kind::Double && !std::isfinite(cell.AsDouble()))
      store::Raise(store::StoreError::NotADatabase,
                   std::string(list_->table) + ", Oid " + std::to_string(row.oid) + ", " +
                       std::string(column.key) + ": der Betrag ist nicht endlich");
    const bool in_words = column.words != nullptr && codes_ == Codes::InWords;
    row.cells.push_back(in_words ? column.words(cell) : std::move(cell));
  }
  if (list_->mark) list_->mark(place, row);
  return row;
}

bool ListReader::Next(std::vector<Row>& rows) {
  if (!walk_.Next()) return false;
  Place place{*store_, walk_, today_, {}};
  if (!list_->of_deadlines) {
    rows.push_back(At(place));
    return true;
  }
  for (deadlines::Deadline& deadline : deadlines::DeadlinesOf(walk_, today_)) {
    place.deadline = std::move(deadline);
    rows.push_back(At(place));
  }
  return true;
}

std::vector<Row> ListReader::Rest() {
  std::vector<Row> rows;
  while (Next(rows)) {
  }
  if (list_->sorted_by.empty()) return rows;
  const auto column = static_cast<std::size_t>(
      std::ranges::find(list_->columns, list_->sorted_by, &Column::key) - list_->columns.begin());
  std::ranges::stable_sort(rows, {}, [&](const Row& row) {
    const platform::Date date = host::ToDate(row.cells[column]);
    const bool missed = list_->of_deadlines && row.strong;
    return std::pair(
        !missed, date == platform::kNoDate ? std::numeric_limits<double>::infinity() : date.days);
  });
  return rows;
}

}  // namespace pactora::lists
