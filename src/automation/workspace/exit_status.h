// How a program of this system ends.
#pragma once

#include "platform/Error.h"
#include "store/errors.h"

namespace pactora::workspace {

enum class Status {
  Done = 0,
  Refused = 1,       // the add-on refused or failed
  BadInput = 2,      // wrong usage or unreadable input
  PartlyDone = 3,    // of a bulk run
  NotReachable = 4,  // database not reachable, locked, full or of another version
  Internal = 5,
  Interrupted = 130,
};

// The status of a program that ends with this error.
Status StatusOf(const platform::Error& error);
Status StatusOf(store::StoreError error);

}  // namespace pactora::workspace
