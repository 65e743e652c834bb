#include "shell/modGlobalDefs.h"

namespace pactora::shell {

std::string GetVersionText() {
  return "Version " + std::to_string(PACTORA_VERSION_MAJOR) + "." +
         std::to_string(PACTORA_VERSION_MINOR) + ".0." + std::to_string(PACTORA_VERSION_PATCH);
}

}  // namespace pactora::shell
