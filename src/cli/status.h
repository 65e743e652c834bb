// How the program ends, and what it says then.
#pragma once

#include <string>

#include "automation/exit_status.h"

namespace pactora::cli {

using automation::Status;
using automation::StatusOf;

// "pactora: " and the text, as one line on standard error.
void Complain(const std::string& text);

}  // namespace pactora::cli
