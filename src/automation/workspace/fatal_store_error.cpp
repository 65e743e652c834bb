#include "automation/workspace/fatal_store_error.h"

namespace pactora::workspace {
namespace {

constexpr store::StoreError kFatalErrors[] = {
    store::StoreError::Locked,   store::StoreError::NotReachable, store::StoreError::ReadOnly,
    store::StoreError::Full,     store::StoreError::UnitLost,     store::StoreError::NotADatabase,
    store::StoreError::Uncertain};

}  // namespace

std::optional<store::StoreError> FatalStoreErrorOf(std::int32_t number) {
  for (const store::StoreError error : kFatalErrors)
    if (store::Number(error) == number) return error;
  return std::nullopt;
}

}  // namespace pactora::workspace
