#include "definitions/messages.h"

#include <utility>

namespace pactora::definitions {

void Say(shell::Module& module, std::string text, std::int32_t style, std::string title) {
  module.environment.screen.ShowMessage({std::move(text), style, std::move(title)});
}

bool Ask(shell::Module& module, std::string text, std::string title) {
  constexpr std::int32_t kStyle =
      ui::style::kYesNo + ui::style::kQuestion + ui::style::kDefaultButton2;
  return module.environment.screen.ShowMessage({std::move(text), kStyle, std::move(title)}) ==
         ui::Answer::Yes;
}

void ShowInputError(shell::Module& module, const std::string& name) {
  Say(module, "Ungültige Eingabe in " + name + " !", ui::style::kInformation, kPleaseChange);
}

}  // namespace pactora::definitions
