// A script: refused before anything runs, or carried out with a transcript.
#include "automation/scripts/script.h"

#include <sstream>
#include <string>

#include "automation/formats/json.h"
#include "automation/scripts/script_run.h"
#include "fuzz/fuzz.h"

namespace pactora::fuzz {

void Try(std::string_view input) {
  scripts::Script script;
  const auto read = [&] {
    std::istringstream in{std::string(input)};
    script = scripts::ReadScript(formats::ParseJson(in, "eingabe"), "eingabe");
  };
  if (!Ends(read)) return;
  const auto transcript = [&] {
    std::stringstream out;
    scripts::RunOptions options;
    options.dump_written = true;
    scripts::RunScript(script, Company(), kClock, out, options);
    return out.str();
  };
  const std::string first = transcript();
  Require(transcript() == first, "a script does the same each time");
  std::istringstream lines(first);
  for (std::string line; std::getline(lines, line);)
    Require(formats::Json::accept(line), "each line of a transcript is JSON");
}

}  // namespace pactora::fuzz
