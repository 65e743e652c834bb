// What a contract, a term or a position says, in words and each thing once.
#pragma once

#include <string_view>
#include <vector>

#include "automation/lists/lists.h"
#include "host/Value.h"
#include "store/RowView.h"

namespace pactora::lists {

struct Detail {
  std::string_view title;
  CellKind kind = CellKind::Text;
  host::Value value;
};

// What a position adds to its term: the price of one times how many.
double Amount(const store::RowView& position);

// What there is to say of the row, in the order of its dialog. Requires: the table is one of
// contracts, terms or positions.
std::vector<Detail> Details(std::string_view table, const store::RowView& row);

}  // namespace pactora::lists
