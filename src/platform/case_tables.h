// Simple case mapping beyond ASCII as ranges; only Text.cpp reads it.
#pragma once

#include <cstdint>
#include <span>

namespace pactora::platform {

// Every step-th character from first to last, both included, maps to itself
// plus delta.
struct CaseRange {
  std::uint32_t first;
  std::uint32_t last;
  std::uint32_t step;
  std::int32_t delta;
};

// In ascending order, without overlap; a character in none of them maps to itself.
extern const std::span<const CaseRange> kUpperRanges;
extern const std::span<const CaseRange> kLowerRanges;

}  // namespace pactora::platform
