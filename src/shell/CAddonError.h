// The error reporter: shows a failure to the user.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "host/HostApp.h"
#include "platform/Error.h"
#include "ui/Screen.h"

namespace pactora::shell {

class Module;

class CAddonError {
 public:
  // Creates the host's error text object. The module must outlive the reporter.
  explicit CAddonError(Module& module);
  virtual ~CAddonError() = default;

  // Shows "Fehler &H<number> in <source>", a line break and the host's text for
  // the number, titled "Fehler in <procedure>"; returns when the box is closed.
  // Without objErr the error is the one that is being handled.
  // Requires: objErr, or called in a catch block.
  virtual void ShowErrText(const std::string& psProcedure,
                           const std::optional<platform::Error>& objErr = std::nullopt);

 private:
  ui::Screen& screen_;
  std::shared_ptr<host::HostErrorTexts> mErrorTexts;
};

}  // namespace pactora::shell
