// Lines on standard error, and the exit status that goes with a failure.
#pragma once

#include <string>

#include "automation/workspace/exit_status.h"

namespace pactora::cli {

using workspace::Status;
using workspace::StatusOf;

// The text as one line on standard error.
void Tell(const std::string& text);
// Likewise for a failure, with "pactora: " before it.
void Complain(const std::string& text);

}  // namespace pactora::cli
