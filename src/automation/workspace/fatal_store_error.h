// Failures that concern the database as a whole: what comes next would fail too.
#pragma once

#include <cstdint>
#include <optional>

#include "store/errors.h"

namespace pactora::workspace {

// The failure of that number, if it is one of these.
std::optional<store::StoreError> FatalStoreErrorOf(std::int32_t number);

}  // namespace pactora::workspace
