#include "cli/status.h"

#include <fmt/format.h>

#include <cstdio>

#include "automation/errors.h"

namespace pactora::cli {

void Complain(const std::string& text) {
  std::fflush(stdout);
  fmt::print(stderr, "pactora: {}\n", automation::SingleLine(text));
}

}  // namespace pactora::cli
