// Failures that concern the database as a whole: what comes next would fail too.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "store/errors.h"

namespace pactora::workspace {

// The failure of that number, if it is one of these.
std::optional<store::StoreError> OutageOf(std::int32_t number);

// The failure of this kind that a message box tells of.
std::optional<store::StoreError> OutageIn(std::string_view message);

}  // namespace pactora::workspace
