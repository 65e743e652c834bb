#include "shell/CAddonError.h"

#include "shell/Module.h"

namespace pactora::shell {

CAddonError::CAddonError(Module& module)
    : screen_(module.environment.screen), mErrorTexts(module.environment.create_error_texts()) {}

void CAddonError::ShowErrText(const std::string& psProcedure, const platform::Error& objErr) {
  ui::Message message;
  message.title = "Fehler in " + psProcedure;
  message.text = "Fehler &H" + platform::HexNumber(objErr.Number()) + " in " + objErr.Source() +
                 "\r\n" + mErrorTexts->Text(objErr.Number());
  message.style = ui::style::kExclamation;
  screen_.ShowMessage(message);
}

}  // namespace pactora::shell
