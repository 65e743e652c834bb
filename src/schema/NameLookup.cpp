#include "schema/NameLookup.h"

#include <functional>

namespace pactora::schema {

std::size_t NameLookup::Hash(std::string_view name) { return std::hash<std::string_view>{}(name); }

void NameLookup::Add(std::string_view name, std::size_t position) {
  hashes_.push_back(Hash(name));
  positions_.push_back(static_cast<std::uint32_t>(position));
  std::size_t size = 8;
  while (size < hashes_.size() * 2) size *= 2;
  const std::size_t mask = size - 1;
  const auto enter = [&](std::size_t entry) {
    std::size_t i = hashes_[entry] & mask;
    while (slots_[i] != kFree) i = (i + 1) & mask;
    slots_[i] = positions_[entry] + kShift;
  };
  if (size == slots_.size()) {
    enter(hashes_.size() - 1);
    return;
  }
  slots_.assign(size, kFree);
  for (std::size_t entry = 0; entry < hashes_.size(); ++entry) enter(entry);
}

}  // namespace pactora::schema
