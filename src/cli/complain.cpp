#include "cli/complain.h"

#include <fmt/format.h>

#include <cstdio>

#include "automation/formats/errors.h"

namespace pactora::cli {

void Complain(const std::string& text) {
  std::fflush(stdout);
  fmt::print(stderr, "pactora: {}\n", formats::SingleLine(text));
}

}  // namespace pactora::cli
