// Ctrl+C: the program ends at the next place where nothing is half done.
#pragma once

namespace pactora::cli {

// From now on the first Ctrl+C asks to stop, a second one kills.
void CatchInterrupt();
bool InterruptAsked();
// Raises DoorError::Interrupted when the user asked to stop.
void RaiseIfInterrupted();

}  // namespace pactora::cli
