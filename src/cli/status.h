// The exit status, and the messages that go with it.
#pragma once

#include <string>

#include "automation/workspace/exit_status.h"

namespace pactora::cli {

using workspace::Status;
using workspace::StatusOf;

// "pactora: " and the text, as one line on standard error.
void Complain(const std::string& text);

}  // namespace pactora::cli
