// One line on standard error for each failure, and the exit status that goes with it.
#pragma once

#include <string>

#include "automation/workspace/exit_status.h"

namespace pactora::cli {

using workspace::Status;
using workspace::StatusOf;

// "pactora: " and the text, as one line on standard error.
void Complain(const std::string& text);

}  // namespace pactora::cli
