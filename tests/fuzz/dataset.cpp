// A dataset: taken whole and given back the same, or refused with nothing left of it.
#include "fuzz/fuzz.h"

namespace pactora::fuzz {

void Try(std::string_view input) {
  const std::string exported = Reexported(std::string(input));
  if (!exported.empty())
    Require(Reexported(exported) == exported, "an export is imported and exported the same");
}

}  // namespace pactora::fuzz
