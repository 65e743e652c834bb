// The identity of a row within its table.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace pactora::store {

using Oid = std::int64_t;  // from 1; 0 is no row

inline constexpr Oid kLargestOid = 9007199254740991;  // 2^53 - 1, exact as a Double

// A positive whole number in its shortest text, up to kLargestOid; any other text is
// the Oid of no row.
std::optional<Oid> ParseOid(std::string_view text);

}  // namespace pactora::store
