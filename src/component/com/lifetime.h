// What keeps a component's file loaded: objects that others hold, and locks.
#pragma once

namespace pactora::component {

void CountObject();
void DiscountObject();
void CountLock(bool locked);

bool IsInUse();

}  // namespace pactora::component
