// Lines on standard error, and the exit status that goes with a failure.
#pragma once

#include <string>

#include "automation/workspace/exit_status.h"

namespace pactora::cli {

using workspace::Status;
using workspace::StatusOf;

// The text as one line on standard error; nothing where that can't be written.
void Tell(const std::string& text);
// Likewise with "pactora: " before the text, which becomes one line of a reasonable length.
void Complain(const std::string& text);

inline constexpr const char* kNoOutput = "die Ausgabe kann nicht geschrieben werden";
// Whether what was printed so far is written.
bool IsOutputWritten();
// Raises DoorError::NotCarriedOut where what was printed so far can't be written, or nothing can:
// what is done further would go untold.
void RequireOutput();

}  // namespace pactora::cli
