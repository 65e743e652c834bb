#include "store/sql/waiting.h"

#include <atomic>

namespace pactora::store::sql {
namespace {

std::atomic<bool (*)(std::chrono::milliseconds)> give_up = nullptr;

}  // namespace

void GiveUpWaitingWhen(bool (*asked)(std::chrono::milliseconds waited)) { give_up = asked; }

bool IsWaitGivenUp(std::chrono::milliseconds waited) {
  const auto asked = give_up.load();
  return asked != nullptr && asked(waited);
}

}  // namespace pactora::store::sql
