#include "shell/handlers.h"

#include "platform/current_error.h"
#include "shell/CAddonError.h"

namespace pactora::shell {

std::string DisplayName(std::string_view module_name, std::string_view procedure) {
  std::string name(module_name);
  name += '.';
  name += procedure;
  return name;
}

platform::Error CurrentError() { return platform::CurrentError(); }

void ShowInlineError(Module& module, const std::string& display_name,
                     const platform::Error& error) {
  module.last_shown_error = error;
  ui::Message message;
  message.text = "Fehler &H" + platform::HexNumber(error.Number()) + "\r\n(" + error.Description() +
                 ")\r\nin " + display_name;
  module.environment.screen.ShowMessage(message);
}

void ReportError(Module& module, const std::string& display_name, const platform::Error& error) {
  if (!module.gAddonError) platform::Raise(platform::RuntimeError::ObjectNotSet);
  // The box may stay open while the module's last entry object goes.
  const std::shared_ptr<CAddonError> reporter = module.gAddonError;
  module.last_shown_error = error;
  reporter->ShowErrText(display_name, error);
}

}  // namespace pactora::shell
