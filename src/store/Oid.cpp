#include "store/Oid.h"

#include <charconv>
#include <system_error>

namespace pactora::store {

std::optional<Oid> ParseOid(std::string_view text) {
  if (text.empty() || text.front() < '1' || text.front() > '9') return std::nullopt;
  Oid oid = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), oid);
  if (result.ec != std::errc() || result.ptr != text.data() + text.size() || oid > kLargestOid)
    return std::nullopt;
  return oid;
}

}  // namespace pactora::store
