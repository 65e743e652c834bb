#include "component/com/lifetime.h"

#include <windows.h>

namespace pactora::component {
namespace {

LONG objects = 0;
LONG locks = 0;

}  // namespace

void CountObject() { InterlockedIncrement(&objects); }

void DiscountObject() { InterlockedDecrement(&objects); }

void CountLock(bool locked) {
  if (locked) {
    InterlockedIncrement(&locks);
  } else {
    InterlockedDecrement(&locks);
  }
}

bool IsInUse() { return objects != 0 || locks != 0; }

}  // namespace pactora::component
