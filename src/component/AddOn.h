// The loaded add-on behind all objects of the component.
#pragma once

#include "shell/Module.h"

namespace pactora::component {

// The one set of globals, made at the first use, for the thread that made it.
shell::Module& AddOn();

// Whether nothing keeps it loaded. The globals then go, and with them the objects of the
// last host: from here on the component may be unloaded without a word. No on another
// thread than that of the globals, whose objects belong there.
bool LetGo();

}  // namespace pactora::component
