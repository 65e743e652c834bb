#include "automation/formats/errors.h"

#include <fmt/format.h>

#include "platform/Text.h"
#include "store/errors.h"

namespace pactora::formats {

void Raise(DoorError error, const std::string& text) {
  throw platform::Error(Number(error), text, kErrorSource);
}

void RaiseInterrupted() { Raise(DoorError::Interrupted, kInterrupted); }

std::string SingleLine(std::string_view text) {
  std::string line;
  for (const char c : text) {
    const bool breaks = c == '\n' || c == '\r' || c == '\t';
    if (!breaks)
      line += c;
    else if (!line.empty() && line.back() != ' ')
      line += ' ';
  }
  return line;
}

std::string Shortened(const std::string& text) {
  constexpr std::size_t kBeginning = 1000;  // characters
  constexpr std::size_t kEnd = 200;
  if (platform::Length(text) <= kBeginning + kEnd) return text;
  return std::string(platform::FirstCharacters(text, kBeginning)) + "…" +
         std::string(platform::LastCharacters(text, kEnd));
}

std::string ErrorNumberText(std::int32_t number) { return "0x" + platform::HexNumber(number); }

std::string Describe(const platform::Error& error) {
  const bool ours = error.Source() == kErrorSource || error.Source() == store::kErrorSource;
  const std::string description = Shortened(SingleLine(error.Description()));
  return ours ? description
              : fmt::format("Fehler {}: {}", ErrorNumberText(error.Number()), description);
}

}  // namespace pactora::formats
