#include "shell/CAddonError.h"

#include "platform/current_error.h"
#include "shell/Module.h"

namespace pactora::shell {

CAddonError::CAddonError(Module& module)
    : screen_(module.environment.screen), mErrorTexts(module.environment.create_error_texts()) {}

void CAddonError::ShowErrText(const std::string& psProcedure,
                              const std::optional<platform::Error>& objErr) {
  const platform::Error error = objErr ? *objErr : platform::CurrentError();
  ui::Message message;
  message.title = "Fehler in " + psProcedure;
  message.text = "Fehler &H" + platform::HexNumber(error.Number()) + " in " + error.Source() +
                 "\r\n" + mErrorTexts->Text(error.Number());
  message.style = ui::style::kExclamation;
  screen_.ShowMessage(message);
}

}  // namespace pactora::shell
