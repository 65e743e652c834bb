// Failures that concern the database as a whole: further work would fail as well.
#pragma once

#include <cstdint>
#include <optional>

#include "store/errors.h"

namespace pactora::workspace {

// The failure of that number, if it is one of these.
std::optional<store::StoreError> FatalStoreErrorOf(std::int32_t number);

}  // namespace pactora::workspace
