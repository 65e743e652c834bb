// Numbers, dates and keys as people type them.
#include <cmath>
#include <string>

#include "definitions/number_text.h"
#include "fuzz/fuzz.h"
#include "platform/Date.h"
#include "platform/Locale.h"
#include "ui/keys.h"

namespace pactora::fuzz {

void Try(std::string_view input) {
  const std::string text(input);
  for (const char separator : {',', '.'}) {
    const platform::Locale locale{separator};
    const auto number = platform::ParseNumber(text, locale);
    if (!number) continue;
    Require(std::isfinite(*number), "a number is finite");
    Require(platform::ParseNumber(platform::FormatPlain(*number, locale), locale) == number,
            "a number that is shown reads as itself");
    const std::string fixed = platform::FormatFixed(*number, locale);
    const auto amount = platform::ParseNumber(fixed, locale);
    Require(amount && platform::FormatFixed(*amount, locale) == fixed,
            "an amount that is shown reads as itself");
    Require(std::fabs(*amount - *number) <= 0.005 + std::fabs(*number) * 1e-15,
            "an amount is the nearest");
  }
  try {
    Require(definitions::WholeNumberOf(text) >= 0, "a whole number has no sign");
  } catch (const platform::Error&) {
    // No whole number.
  }
  if (const auto date = platform::ParseDate(text)) {
    Require(text == platform::FormatDate(*date, platform::kGermanPattern) ||
                text == platform::FormatDate(*date, platform::kIsoPattern),
            "a date is shown as it was typed");
  }
  if (const auto date = platform::ParseIso(text)) {
    Require(text == platform::FormatIso(*date) || text.ends_with("T00:00:00"),
            "a date is written as it was read");
    Require(platform::ParseIso(platform::FormatIso(*date)) == date, "a date reads as itself");
  }
  std::string typed;
  for (const auto key : ui::KeysOf(text)) typed += ui::CharacterOf(key);
  Require(typed.size() <= text.size() && ui::KeysOf(typed).size() <= ui::KeysOf(text).size(),
          "keys type no more than the text");
}

}  // namespace pactora::fuzz
