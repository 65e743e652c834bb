// The writing order of positions by their groups.
#include "contract/position_groups.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <random>
#include <string>
#include <tuple>
#include <vector>

namespace pactora::contract {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::tuple<std::size_t, std::int32_t>> Order(const std::vector<std::string>& groups) {
  std::vector<std::tuple<std::size_t, std::int32_t>> order;
  for (const GroupedPosition& place : WritingOrder(groups)) {
    order.emplace_back(place.index + 1, place.group);
  }
  return order;
}

TEST(WritingOrder, GroupsComeInTheOrderOfTheirFirstAppearance) {
  using Place = std::tuple<std::size_t, std::int32_t>;
  EXPECT_THAT(Order({}), IsEmpty());
  EXPECT_THAT(Order({"A", "B", "A"}), ElementsAre(Place{1, 1}, Place{3, 1}, Place{2, 2}));
  EXPECT_THAT(Order({"A", "B", "A", ""}),
              ElementsAre(Place{1, 1}, Place{3, 1}, Place{2, 2}, Place{4, 3}));
  EXPECT_THAT(Order({"", "a", "A", ""}),
              ElementsAre(Place{1, 1}, Place{4, 1}, Place{2, 2}, Place{3, 3}));
}

TEST(WritingOrder, KeepsListOrderWithinGroupsForListsOfAnyLength) {
  std::mt19937 random(7);
  std::vector<std::string> groups(20000);
  for (std::string& group : groups) group = std::to_string(random() % 5000);
  const std::vector<GroupedPosition> order = WritingOrder(groups);
  ASSERT_EQ(order.size(), groups.size());
  std::vector<bool> written(groups.size());
  std::int32_t highest = 0;
  for (std::size_t i = 0; i < order.size(); ++i) {
    written[order[i].index] = true;
    if (order[i].group == highest) {
      EXPECT_EQ(groups[order[i].index], groups[order[i - 1].index]);
      EXPECT_GT(order[i].index, order[i - 1].index);
    } else {
      EXPECT_EQ(order[i].group, ++highest);
      // First appearance: no earlier entry of the list has that group.
      EXPECT_EQ(std::find(groups.begin(), groups.end(), groups[order[i].index]) - groups.begin(),
                static_cast<std::ptrdiff_t>(order[i].index));
    }
  }
  EXPECT_EQ(std::count(written.begin(), written.end(), false), 0);
}

}  // namespace
}  // namespace pactora::contract
