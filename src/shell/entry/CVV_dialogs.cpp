// The operations that show a dialog.
#include "definitions/frmFEditDefinitions.h"
#include "host/row.h"
#include "newcontract/frmNewContract.h"
#include "schema/names.h"
#include "shell/CConfig.h"
#include "shell/entry/CVV.h"
#include "shell/handlers.h"

namespace pactora::shell {

void CVV::EditContractDefinition(const AppRef& oApp, bool pbNew) {
  SetHost(oApp);
  module_.gAppointment4AllContracts = ReadAppointment4AllContracts(module_);
  SetVersionText();
  WithReporter(module_, module_name::CVV, "EditContractDefinition", [&] {
    const auto form = std::make_shared<definitions::frmFEditDefinitions>(module_);
    const bool ready = pbNew ? form->InitNew() : form->InitEdit();
    if (ready) module_.environment.screen.ShowModal(*form);
  });
}

void CVV::NewContract(const AppRef& oApp, bool& pbOK, std::int32_t& plVsCount, bool& pbShowDef) {
  if (!frm) {
    ShowNewContract(oApp, "NewContract", pbOK, plVsCount, pbShowDef);
    return;
  }
  frm->mbShowDefDetails = false;
  ShowForm(pbOK, plVsCount, pbShowDef);
  if (!pbShowDef) frm.reset();
}

void CVV::NewContract2(const AppRef& oApp, bool& pbOK, std::int32_t& plVsCount, bool& pbShowDef) {
  if (!frm) ShowNewContract(oApp, "NewContract2", pbOK, plVsCount, pbShowDef);
}

void CVV::ShowNewContract(const AppRef& oApp, std::string_view procedure, bool& pbOK,
                          std::int32_t& plVsCount, bool& pbShowDef) {
  SetHost(oApp);
  SetVersionText();
  WithReporter(module_, module_name::CVV, procedure, [&] {
    pbOK = false;
    plVsCount = 0;
    const auto contracts = module_.gDb->Tables().Item(schema::table::vv_Vertraege);
    ShowAllRows(*contracts, host::kFlagsUsual);
    frm = std::make_shared<newcontract::frmNewContract>(module_);
    if (frm->InitNew()) ShowForm(pbOK, plVsCount, pbShowDef);
    if (!pbShowDef) frm.reset();
  });
}

void CVV::ShowForm(bool& pbOK, std::int32_t& plVsCount, bool& pbShowDef) {
  module_.environment.screen.ShowModal(*frm);
  pbOK = frm->mbOK;
  plVsCount = frm->mlVSCount;
  pbShowDef = frm->mbShowDefDetails;
}

}  // namespace pactora::shell
