#include "cli/status.h"

#include <fmt/format.h>

#include <cstdio>

#include "automation/errors.h"
#include "automation/values.h"
#include "store/errors.h"

namespace pactora::cli {

using automation::DoorError;
using store::StoreError;

Status StatusOf(const platform::Error& error) {
  switch (static_cast<DoorError>(error.Number())) {
    case DoorError::BadInput:
      return Status::BadInput;
    case DoorError::NotCarriedOut:
      return Status::Refused;
    case DoorError::NotAvailable:
      return Status::NotReachable;
    case DoorError::Interrupted:
      return Status::Interrupted;
  }
  switch (static_cast<StoreError>(error.Number())) {
    case StoreError::NotADatabase:
      return Status::BadInput;
    case StoreError::Locked:
    case StoreError::NotReachable:
    case StoreError::OtherVersion:
      return Status::NotReachable;
    default:
      return Status::Refused;
  }
}

std::string OneLine(std::string_view text) {
  std::string line;
  for (const char c : text) {
    const bool control = static_cast<unsigned char>(c) < 0x20;
    if (!control)
      line += c;
    else if (!line.empty() && line.back() != ' ')
      line += ' ';
  }
  return line;
}

std::string Describe(const platform::Error& error) {
  const bool ours = error.Source() == "Pactora" || error.Source() == "Pactora.Store";
  if (ours) return OneLine(error.Description());
  return OneLine(fmt::format("Fehler {}: {}", automation::ErrorNumberText(error.Number()),
                             error.Description()));
}

void Complain(const std::string& text) {
  std::fflush(stdout);
  fmt::print(stderr, "pactora: {}\n", OneLine(text));
}

}  // namespace pactora::cli
