// Running a script.
#pragma once

#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "automation/script.h"
#include "platform/Clock.h"
#include "store/RecordStore.h"

namespace pactora::automation {

struct RunResult {
  bool errors = false;                     // an error reached the caller of a call
  bool failed = false;                     // the script could not be carried out to its end
  std::vector<std::string> unused_faults;  // places of faults that never came
};

// Runs the steps on the database and writes the transcript, one event a line.
// pause runs between steps and may raise to stop.
RunResult RunScript(const Script& script, std::unique_ptr<store::RecordStore> store,
                    const platform::Clock& clock, std::ostream& transcript,
                    const std::function<void()>& pause = {});

}  // namespace pactora::automation
