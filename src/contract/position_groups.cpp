#include "contract/position_groups.h"

#include <string_view>
#include <unordered_map>

namespace pactora::contract {

std::vector<GroupedPosition> WritingOrder(const std::vector<std::string>& groups) {
  std::unordered_map<std::string_view, std::size_t> numbers;
  std::vector<std::vector<std::size_t>> members;
  for (std::size_t index = 0; index < groups.size(); ++index) {
    const auto [place, is_new] = numbers.try_emplace(groups[index], members.size());
    if (is_new) members.emplace_back();
    members[place->second].push_back(index);
  }
  std::vector<GroupedPosition> order;
  order.reserve(groups.size());
  for (std::size_t group = 0; group < members.size(); ++group) {
    for (const std::size_t index : members[group]) {
      order.push_back({index, static_cast<std::int32_t>(group) + 1});
    }
  }
  return order;
}

std::string RowText(std::size_t number) {
  const std::string digits = std::to_string(number);
  return digits.size() < 3 ? std::string(3 - digits.size(), '0') + digits : digits;
}

}  // namespace pactora::contract
