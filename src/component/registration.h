// What the system's registry says of the component.
#pragma once

#include <windows.h>

namespace pactora::component {

// Writes the classes and the type library for the machine, or for the user where the
// machine is denied. A second time it writes the same.
HRESULT Register();

// Removes them for the machine and for the user. Succeeds when there is nothing.
HRESULT Unregister();

}  // namespace pactora::component
