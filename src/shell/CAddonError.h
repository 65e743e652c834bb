// The error reporter: shows a failure to the user.
#pragma once

#include <memory>
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

  // Shows "Fehler &H<number> in <source>", a line break and the host's text for
  // the number, titled "Fehler in <procedure>"; returns when the box is closed.
  void ShowErrText(const std::string& psProcedure, const platform::Error& objErr);

 private:
  ui::Screen& screen_;
  std::shared_ptr<host::HostErrorTexts> mErrorTexts;
};

}  // namespace pactora::shell
