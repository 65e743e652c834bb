// The type library that the component carries in itself.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include "component/com/Ref.h"

namespace pactora::component {

// The library, read from the component's own file at the first use. Raises what reading
// raises.
Ref<ITypeLib> OwnTypeLibrary();
// What it says of the interface of that id.
Ref<ITypeInfo> TypeOf(const IID& interface_id);
// Lets go of it until the next use.
void ForgetTypeLibrary();

}  // namespace pactora::component
