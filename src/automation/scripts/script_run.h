// Running a script.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "automation/scripts/script.h"
#include "platform/Clock.h"
#include "platform/Error.h"
#include "store/RecordStore.h"

namespace pactora::scripts {

struct RunOptions {
  std::function<void()> at_step;  // runs between steps and may raise to stop
  bool dump_written = false;      // at the end an event "dump" with the rows written
};

struct RunResult {
  // Errors that calls raised, one of the whole database once, and the reason why the script
  // ended early, each with its place. Empty: all went well.
  std::vector<std::string> problems;
  std::vector<std::string> unused_faults;  // places of faults that did not occur
  // What a person should know of the numbers of contracts that were made, with the places.
  std::vector<std::string> hints;
  // A failure of the whole database, raised or shown in a message box. Failures that
  // the script rehearses don't count.
  std::optional<platform::Error> fatal_error;
};

// Runs the steps on the database and writes the transcript, one event a line.
RunResult RunScript(const Script& script, std::unique_ptr<store::RecordStore> store,
                    const platform::Clock& clock, std::ostream& transcript,
                    const RunOptions& options = {});

}  // namespace pactora::scripts
