// What the fuzz targets have in common. A target tries an input and requires laws of what
// becomes of it; a law that does not hold ends it, and the input is kept.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "automation/formats/errors.h"
#include "platform/Clock.h"
#include "store/RecordStore.h"
#include "store/errors.h"

namespace pactora::fuzz {

// Each target has its own.
void Try(std::string_view input);

void Require(bool holds, std::string_view law);

// Whether run comes to its end. It may refuse its input with an error of the doors or of the
// store.
template <typename Run>
bool Ends(const Run& run) {
  try {
    run();
    return true;
  } catch (const platform::Error& error) {
    const bool is_own =
        error.Source() == formats::kErrorSource || error.Source() == store::kErrorSource;
    Require(is_own, "a refusal is the program's own: " + formats::Describe(error));
    return false;
  }
}

// A small company with a contract type as a dataset, and in a store.
std::string CompanyText();
std::unique_ptr<store::RecordStore> Company();
inline const platform::FixedClock kClock{platform::FromCivil(2024, 3, 15)};

// What an export says of a database made from the dataset; empty where it is refused.
std::string Reexported(const std::string& dataset);

std::int64_t CountContracts(store::RecordStore& store);
// Requires that a check of the database finds no fault.
void RequireSound(store::RecordStore& store);
// Requires that there are no control characters in the text but these.
void RequireVisible(std::string_view text, std::string_view allowed);
// Requires a report of so many lines that no spreadsheet takes for anything but text.
void RequireReport(const std::string& text, std::size_t lines);

}  // namespace pactora::fuzz
