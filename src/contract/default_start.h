// The start that a new contract is offered with.
#pragma once

#include "platform/Date.h"

namespace pactora::contract {

// The next 15th or 1st to come: until the 14th the 15th of this month, from the
// 15th on the 1st of the next month, also across the end of the year.
platform::Date DefaultContractStart(platform::Date today);

}  // namespace pactora::contract
