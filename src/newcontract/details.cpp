// The details button: the chosen type is changed in memory for this contract.
#include "definitions/frmFEditDefinitions.h"
#include "newcontract/columns.h"
#include "newcontract/frmNewContract.h"
#include "platform/Error.h"
#include "shell/handlers.h"

namespace pactora::newcontract {

void frmNewContract::cmdDetails_Click() {
  shell::WithInlineMessage(module_, shell::module_name::frmNewContract, "cmdDetails_Click", [&] {
    if (lvwBezeichnung.RowCount() == 0) return;
    msOID = lvwBezeichnung.Text(lvwBezeichnung.SelectedRow(), column::kOid);
    if (!moDefinitionen->FindOid(msOID, host::kFlagsNone)) return;
    // A change made for this type earlier is shown again, one for another is not.
    if (module_.gDefinition) module_.gDefinition->Dirty = module_.gDefinition->DefOid == msOID;
    definitions::frmFEditDefinitions editor(module_);
    editor.InitEdit();
    editor.ShowForNewContract();
    editor.Show(module_.environment.screen);
    InitAgain();
  });
}

void frmNewContract::InitAgain() {
  if (!module_.gDefinition || module_.gDefinition->DefOid != moDefinitionen->Oid()) return;
  const definitions::vv_CDefinition& type = *module_.gDefinition;
  mbDefinitionDirty = true;
  lblDirty.SetVisible(true);
  msTyp = type.Typ;
  mlArt = type.Art;
  mlRechnungWann = type.RechnungWann;
  mlDauer = type.Dauer;
  mlVerlDauer = type.Verlaengerungsdauer;
  mlZahlungsperiode = type.Zahlungsperiode;
  mlVerlZahlungsperiode = type.VerlaengerungsZahlungsperiode;
  chkNoBooking.SetChecked(type.NoBooking);
  ApplyTypeToControls();
}

const definitions::vv_CDefinition& frmNewContract::MemoryType() const {
  if (!module_.gDefinition) platform::Raise(platform::RuntimeError::ObjectNotSet);
  return *module_.gDefinition;
}

}  // namespace pactora::newcontract
