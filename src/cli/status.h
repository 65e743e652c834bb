// How the program ends, and what it says then.
#pragma once

#include <exception>
#include <string>

#include "platform/Error.h"

namespace pactora::cli {

enum class Status {
  Done = 0,
  Refused = 1,       // the add-on refused or failed
  BadInput = 2,      // wrong usage or unreadable input
  PartlyDone = 3,    // of a bulk run
  NotReachable = 4,  // database not reachable, locked or of another version
  Internal = 5,
  Interrupted = 130,
};

Status StatusOf(const platform::Error& error);

// "pactora: " and the text, as one line on standard error.
void Complain(const std::string& text);

}  // namespace pactora::cli
