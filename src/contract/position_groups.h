// The order in which the positions of a contract type or a contract are written.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace pactora::contract {

// One position in its place of the writing order.
struct GroupedPosition {
  std::size_t index = 0;   // place in the list handed in, from 0
  std::int32_t group = 0;  // number of its group, from 1

  friend bool operator==(const GroupedPosition&, const GroupedPosition&) = default;
};

// The positions group by group: groups in the order of their first appearance,
// numbered from 1, the positions of a group in list order. groups holds each
// position's group name; the empty name is a group like any other, and names are
// compared exactly. Takes time proportional to the list.
std::vector<GroupedPosition> WritingOrder(const std::vector<std::string>& groups);

// The field Row of the position with that number in its list (from 1): at least
// three digits.
std::string RowText(std::size_t number);

}  // namespace pactora::contract
