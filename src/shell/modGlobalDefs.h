// What the add-on calls itself: its version text and the title of its messages.
#pragma once

#include <string>

namespace pactora::shell {

// "Version <major>.<minor>.0.<revision>" in plain decimal numbers.
std::string GetVersionText();

// The title of the dialogs' messages that name one.
inline constexpr char kAddonTitle[] = "Tessarin Sorvane";

}  // namespace pactora::shell
