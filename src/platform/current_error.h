// What was thrown, as an Error.
#pragma once

#include "platform/Error.h"

namespace pactora::platform {

// The exception that is being handled; one of another type counts as error 51
// "Interner Fehler". Requires: called in a catch block.
Error CurrentError();

}  // namespace pactora::platform
