#include "cli/interrupt.h"

#include <csignal>

#include "automation/formats/errors.h"

namespace pactora::cli {

namespace {

volatile std::sig_atomic_t asked = 0;

void OnInterrupt(int signal) {
  asked = 1;
  std::signal(signal, SIG_DFL);
}

}  // namespace

void CatchInterrupt() { std::signal(SIGINT, OnInterrupt); }

bool InterruptAsked() { return asked != 0; }

void RaiseIfInterrupted() {
  if (InterruptAsked()) formats::RaiseInterrupted();
}

}  // namespace pactora::cli
