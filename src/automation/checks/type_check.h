// Contract types to be corrected: faults that a new contract would inherit, and hints
// on terms that bind a consumer longer than the law allows.
#pragma once

#include <string>
#include <vector>

#include "store/RecordStore.h"

namespace pactora::checks {

struct TypeFinding {
  store::Oid type = 0;
  std::string name;   // Bezeichnung
  bool hint = false;  // a hint, not a fault
  std::string text;   // German
};

// The types in record order; for each type the faults before the hints.
std::vector<TypeFinding> CheckTypes(store::RecordStore& store);

}  // namespace pactora::checks
