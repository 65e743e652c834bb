#include "cli/complain.h"

#include <cstdio>

#include "automation/formats/visible.h"

namespace pactora::cli {

void Tell(const std::string& text) { std::fputs((formats::Visible(text) + "\n").c_str(), stderr); }

void Complain(const std::string& text) {
  std::fflush(stdout);
  Tell("pactora: " + text);
}

}  // namespace pactora::cli
