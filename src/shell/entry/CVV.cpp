#include "shell/entry/CVV.h"

#include "api/modAPI.h"
#include "api/vv_CContractD.h"
#include "host/row.h"
#include "newcontract/frmNewContract.h"
#include "schema/names.h"
#include "shell/CAddonError.h"
#include "shell/handlers.h"
#include "shell/modGlobalDefs.h"

namespace pactora::shell {

CVV::CVV(Module& module) : module_(module) {
  module_.gAddonError = std::make_shared<CAddonError>(module_);
  ++module_.live_entry_objects;
}

CVV::~CVV() {
  if (--module_.live_entry_objects == 0) module_.gAddonError.reset();
}

std::string CVV::DLLVersion() { return GetVersionText(); }

void CVV::NewContractDebitor(const AppRef& oApp, const std::shared_ptr<api::PropertyBag>& oContract,
                             const std::shared_ptr<api::ArticleCollection>& colArt) {
  SetHost(oApp);
  SetVersionText();
  bool taken_over = false;
  WithReporter(module_, module_name::CVV, "NewContractDebitor", [&] {
    const auto contracts = module_.gDb->Tables().Item(schema::table::vv_Vertraege);
    ShowAllRows(*contracts, host::kFlagsUsual);
    module_.gApiContract = std::make_shared<api::vv_CContractD>();
    if (!oContract) platform::Raise(platform::RuntimeError::ObjectNotSet);
    module_.gApiContract->CopyFrom(*oContract);
    module_.gApiArticles = colArt;
    taken_over = true;
  });
  if (taken_over) api::CreateContractFromRecords(module_);
}

void CVV::SetHost(const AppRef& oApp) {
  module_.gHostApp = oApp;
  if (!oApp) platform::Raise(platform::RuntimeError::ObjectNotSet);
  module_.gDb = oApp->CurrentDb();
}

void CVV::SetVersionText() { module_.gVersionText = GetVersionText(); }

}  // namespace pactora::shell
