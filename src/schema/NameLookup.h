// Finds a name in a list quickly by its exact spelling.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace pactora::schema {

// A hash of names to places in a list. It only says where to look: the caller
// compares the name there, and looks through the list when the hash leads
// nowhere. So an entry that is missing or out of date costs time, never a wrong
// answer.
class NameLookup {
 public:
  // Enters a name at its position in the list.
  void Add(std::string_view name, std::size_t position);

  // The position for which is_match(position) holds among those that the name
  // may stand at, or kNone.
  template <typename IsMatch>
  std::size_t Find(std::string_view name, const IsMatch& is_match) const {
    if (slots_.empty()) return kNone;
    const std::size_t mask = slots_.size() - 1;
    for (std::size_t i = Hash(name) & mask; slots_[i] != kFree; i = (i + 1) & mask) {
      if (is_match(slots_[i] - kShift)) return slots_[i] - kShift;
    }
    return kNone;
  }

  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

 private:
  static constexpr std::uint32_t kFree = 0;
  static constexpr std::uint32_t kShift = 1;  // a slot holds the position plus this

  static std::size_t Hash(std::string_view name);

  // At most half of the slots are taken; their number is a power of two.
  std::vector<std::uint32_t> slots_;
  std::vector<std::size_t> hashes_;  // of the entries in the order of their addition
  std::vector<std::uint32_t> positions_;
};

}  // namespace pactora::schema
