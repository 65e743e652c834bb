#include "shell/Module.h"

#include <utility>

namespace pactora::shell {

Module::Module(Environment module_environment) : environment(std::move(module_environment)) {}

Module::~Module() = default;

}  // namespace pactora::shell
