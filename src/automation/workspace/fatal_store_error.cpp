#include "automation/workspace/fatal_store_error.h"

#include "platform/Text.h"

namespace pactora::workspace {
namespace {

constexpr store::StoreError kOutages[] = {
    store::StoreError::Locked, store::StoreError::NotReachable, store::StoreError::ReadOnly,
    store::StoreError::Full,   store::StoreError::UnitLost,     store::StoreError::NotADatabase};

}  // namespace

std::optional<store::StoreError> OutageOf(std::int32_t number) {
  for (const store::StoreError error : kOutages)
    if (store::Number(error) == number) return error;
  return std::nullopt;
}

std::optional<store::StoreError> OutageIn(std::string_view message) {
  for (const store::StoreError error : kOutages) {
    const std::string number = "&H" + platform::HexNumber(store::Number(error));
    if (message.find(number) != std::string_view::npos) return error;
  }
  return std::nullopt;
}

}  // namespace pactora::workspace
