// The add-on's door: what a caller in the host creates and calls.
//
// Each operation is handed the host's application object. Everything runs on the
// host's user-interface thread; while a dialog is open no other operation is
// called.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "api/ArticleCollection.h"
#include "api/PropertyBag.h"
#include "host/HostApp.h"
#include "shell/Module.h"

namespace pactora::newcontract {
class frmNewContract;
}

namespace pactora::shell {

// The error reporter lives as long as any CVV of the module does; the newest CVV
// made it. The module must outlive the object.
class CVV {
 public:
  using AppRef = std::shared_ptr<host::HostApp>;

  explicit CVV(Module& module);
  virtual ~CVV();
  CVV(const CVV&) = delete;
  CVV& operator=(const CVV&) = delete;

  // The dialog for contract types: for a new type or for the current row. An
  // error is shown; one of the host or of the setting before the dialog is made
  // is raised.
  virtual void EditContractDefinition(const AppRef& oApp, bool pbNew);

  // The dialog for a new contract of the current address. pbOK: a contract was
  // saved; plVsCount: how many status rows it has. A dialog left behind by an
  // earlier call that failed, or that was called with pbShowDef True and showed
  // nothing, is shown again as it is; errors are then raised instead of shown.
  virtual void NewContract(const AppRef& oApp, bool& pbOK, std::int32_t& plVsCount,
                           bool& pbShowDef);
  // Likewise, but touches nothing while a dialog is left behind.
  virtual void NewContract2(const AppRef& oApp, bool& pbOK, std::int32_t& plVsCount,
                            bool& pbShowDef);

  // The version text. Needs no host.
  virtual std::string DLLVersion();

  // Creates a contract for the current address without a dialog. oContract is
  // read by the property names of api::vv_CContractD; the elements of colArt are
  // api::vv_CArticle. A refusal and a failure while writing are raised. An error
  // in taking over the records is shown and the call then returns normally.
  virtual void NewContractDebitor(const AppRef& oApp,
                                  const std::shared_ptr<api::PropertyBag>& oContract,
                                  const std::shared_ptr<api::ArticleCollection>& colArt);

 private:
  void SetHost(const AppRef& oApp);
  void SetVersionText();
  void ShowNewContract(const AppRef& oApp, std::string_view procedure, bool& pbOK,
                       std::int32_t& plVsCount, bool& pbShowDef);
  void ShowForm(bool& pbOK, std::int32_t& plVsCount, bool& pbShowDef);

  Module& module_;
  std::shared_ptr<newcontract::frmNewContract> frm;  // null while no dialog is held
};

}  // namespace pactora::shell
