#include "cli/complain.h"

#include <cstdio>
#include <iostream>

#include "automation/formats/errors.h"
#include "automation/formats/files.h"
#include "automation/formats/visible.h"

namespace pactora::cli {

void Tell(const std::string& text) { std::fputs((formats::Visible(text) + "\n").c_str(), stderr); }

void Complain(const std::string& text) {
  std::fflush(stdout);
  Tell("pactora: " + formats::Shortened(formats::SingleLine(text)));
}

bool IsOutputWritten() {
  std::cout.flush();
  return static_cast<bool>(std::cout);
}

void RequireOutput() {
  if (IsOutputWritten() && formats::IsForWriting(stdout)) return;
  std::cout.clear();
  formats::Raise(formats::DoorError::NotCarriedOut, kNoOutput);
}

}  // namespace pactora::cli
