// Choosing a contract type, and what the choice does to the controls.
#include "newcontract/columns.h"
#include "newcontract/frmNewContract.h"
#include "schema/names.h"
#include "shell/modGlobalDefs.h"

namespace pactora::newcontract {

namespace {

constexpr char kChangesGetLost[] =
    "Die Änderungen, die Sie an der Vertragsdefinition gemacht haben,"
    " gehen verloren, wenn Sie eine andere Vertragsdefinition auswählen!\r\n"
    "Wollen Sie das wirklich?";

}  // namespace

void frmNewContract::lvwBezeichnung_ItemClick(std::int32_t row) {
  if (mbDefinitionDirty) {
    if (row == mlAktuelleZeile) return;
    const ui::Answer answer = module_.environment.screen.ShowMessage(
        {kChangesGetLost, ui::style::kYesNo + ui::style::kExclamation + ui::style::kDefaultButton2,
         shell::kAddonTitle});
    if (answer == ui::Answer::No) {
      lvwBezeichnung.SelectRow(mlAktuelleZeile);
      return;
    }
  }
  mlAktuelleZeile = row;
  mbDefinitionDirty = false;
  lblDirty.SetVisible(false);

  const auto number = [&](std::int32_t column) {
    return host::ToLong(lvwBezeichnung.Text(row, column));
  };
  msTyp = lvwBezeichnung.Text(row, column::kTyp);
  mlArt = number(column::kArt);
  mlRechnungWann = number(column::kRechnungWann);
  mlDauer = number(column::kDauer);
  mlVerlDauer = number(column::kVerlDauer);
  mlZahlungsperiode = number(column::kZahlungsperiode);
  mlVerlZahlungsperiode = number(column::kVerlZahlungsperiode);
  chkNoBooking.SetChecked(host::ToBoolean(lvwBezeichnung.Text(row, column::kNoBooking)));
  if (lvwBezeichnung.RowCount() > 0) {
    moDefinitionen->FindOid(lvwBezeichnung.Text(lvwBezeichnung.SelectedRow(), column::kOid),
                            host::kFlagsNone);
  }
  ApplyTypeToControls();
}

void frmNewContract::ApplyTypeToControls() {
  if (msTyp == schema::kTypDebtor) {
    ChkAutoNumber.SetChecked(true);
    ChkAutoNumber.SetEnabled(true);
    chkOldContract.SetChecked(false);
    chkOldContract.SetEnabled(true);
    chkNoBooking.SetEnabled(true);
    chkRabattNurErsteLaufzeit.SetEnabled(mlArt == schema::kArtRenewable);
    if (mbInitDone) DTPVertragBeginn_Change();
  } else if (msTyp == schema::kTypCreditor) {
    ApplyCreditorState();
  }
  SetWorkflowFrameVisibility();
  ShowRenewalWorkflow();
}

// A liability is numbered by hand, never taken over, and not invoiced here.
void frmNewContract::ApplyCreditorState() {
  ChkAutoNumber.SetChecked(false);
  ChkAutoNumber.SetEnabled(false);
  chkOldContract.SetChecked(false);
  chkOldContract.SetEnabled(false);
  chkNoBooking.SetEnabled(false);
  lstInvoices.Clear();
  chkRabattNurErsteLaufzeit.SetEnabled(false);
}

void frmNewContract::ChkAutoNumber_Click() {
  txtVertragnummer.SetText("");
  txtVertragnummer.SetEnabled(!ChkAutoNumber.Checked());
}

}  // namespace pactora::newcontract
