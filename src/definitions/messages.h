// Message boxes that both dialogs of this folder show.
#pragma once

#include <cstdint>
#include <string>

#include "shell/Module.h"
#include "ui/Screen.h"

namespace pactora::definitions {

inline constexpr char kPleaseChange[] = "Bitte ändern ...";

// A message with an OK button.
void Say(shell::Module& module, std::string text, std::int32_t style,
         std::string title = ui::kDefaultTitle);

// A question with Yes and No, No the default. True for Yes.
bool Ask(shell::Module& module, std::string text, std::string title = ui::kDefaultTitle);

// "Ungültige Eingabe in <name> !", titled kPleaseChange.
void ShowInputError(shell::Module& module, const std::string& name);

}  // namespace pactora::definitions
