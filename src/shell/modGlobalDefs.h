// The version text of the add-on.
#pragma once

#include <string>

namespace pactora::shell {

// "Version <major>.<minor>.0.<revision>" in plain decimal numbers.
std::string GetVersionText();

}  // namespace pactora::shell
