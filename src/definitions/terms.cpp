// Kind, term, payment period and notice period, and how they act on one another.
#include "definitions/frmFEditDefinitions.h"
#include "definitions/messages.h"
#include "definitions/number_text.h"
#include "definitions/price_rules.h"
#include "schema/names.h"

namespace pactora::definitions {

void frmFEditDefinitions::cboZahlungsperiode_Click() {
  if (mbLoading) return;
  if (!CheckPeriod()) return;
  if (cboZahlungsperiode.Text() != kSinglePayment) {
    cboZahlungsperiode2.SetText(cboZahlungsperiode.Text());
  }
  if (msTyp == schema::kTypDebtor) RemindPriceCheck();
}

bool frmFEditDefinitions::CheckPeriod() {
  const std::int32_t term = Dauer();
  if (term == 0 || PeriodFitsTerm(term, Zahlungsperiode())) return true;
  Say(module_,
      "Die Zahlungsperiode passt nicht zur Vertragsdauer (" + std::to_string(term) + " Monate)",
      ui::style::kInformation);
  cboZahlungsperiode.SetFocus();
  return false;
}

bool frmFEditDefinitions::CheckPeriod2() {
  const std::int32_t term = Dauer2();
  if (term == 0 || PeriodFitsTerm(term, Zahlungsperiode2())) return true;
  Say(module_,
      "Die Zahlungsperiode (Folgevertrag) passt nicht zur Vertragsdauer (" + std::to_string(term) +
          " Monate)",
      ui::style::kInformation);
  cboZahlungsperiode2.SetFocus();
  return false;
}

void frmFEditDefinitions::RemindPriceCheck() {
  if (lvwPositionen.RowCount() == 0) return;
  Say(module_, "Überprüfen Sie bitte, ob die Preise noch stimmen !", ui::style::kOkOnly);
}

void frmFEditDefinitions::txtDauer_Change() {
  if (txtDauer.Text().empty()) {
    ShowInputError(module_, "Vertragsdauer");
    txtDauer.SetFocus();
    return;
  }
  // Without leading zeros; that change comes here first, too.
  txtDauer.SetText(std::to_string(Dauer()));
  if (mbForNewContract) SetSinglePaymentTerm(Dauer());
  if (Dauer() >= 12) txtDauer2.SetText(txtDauer.Text());
  cboZahlungsperiode_Click();
}

void frmFEditDefinitions::SetSinglePaymentTerm(std::int32_t term) {
  cboZahlungsperiode.SetItemData(cboZahlungsperiode.Count() - 1, term);
}

void frmFEditDefinitions::txtDauer2_Validate(bool& cancel) {
  if (txtDauer2.Text().empty()) {
    ShowInputError(module_, "Verlängerungsvertragsdauer");
    cancel = true;
    return;
  }
  txtDauer2.SetText(std::to_string(Dauer2()));
}

void frmFEditDefinitions::cboKuendFrist_Click() {
  if (!mbLoading) cboKuendFrist2.SetText(cboKuendFrist.Text());
}

void frmFEditDefinitions::cboKuendEinh_Click() {
  if (!mbLoading) cboKuendEinh2.SetText(cboKuendEinh.Text());
}

void frmFEditDefinitions::optBefristet_Click() {
  txtDauer.SetEnabled(true);
  txtDauer.SetText("12");
  txtDauer2.SetText("12");
  lblDauerEinheit.SetCaption(kInMonths);
  lblDauerEinheit2.SetCaption(kInMonths);
  chkVerlaengerbar.SetEnabled(true);
  ApplyFollowUpState();
}

void frmFEditDefinitions::chkVerlaengerbar_Click() { ApplyFollowUpState(); }

void frmFEditDefinitions::ApplyFollowUpState() {
  const bool renews = chkVerlaengerbar.Checked();
  cboKuendFrist.SetText(renews ? kUsualNotice : kNoNotice);
  fraKuendFrist.SetEnabled(renews);
  EnableKuendFrist(renews);
  cboKuenfristBezug.SetEnabled(false);
  fraVerlaengerung.SetEnabled(renews);
  EnableVerlaengerung(renews);
  mlArt = renews ? schema::kArtRenewable : schema::kArtOnce;
  EnableWorkflowSelection(IsRenewableClaim());
}

void frmFEditDefinitions::optUnbefristet_Click() {
  mlArt = schema::kArtUnlimited;
  txtDauer.SetEnabled(false);
  txtDauer.SetText("0");
  txtDauer2.SetText("0");
  lblDauerEinheit.SetCaption(std::string(schema::ArtText(schema::kArtUnlimited)));
  lblDauerEinheit2.SetCaption(std::string(schema::ArtText(schema::kArtUnlimited)));
  cboKuendFrist.SetText(kUsualNotice);
  fraKuendFrist.SetEnabled(true);
  EnableKuendFrist(true);
  cboKuenfristBezug.SetEnabled(false);
  chkVerlaengerbar.SetEnabled(false);
  fraVerlaengerung.SetEnabled(false);
  EnableVerlaengerung(false);
  EnableWorkflowSelection(false);
}

void frmFEditDefinitions::optDebitor_Click() {
  msTyp = schema::kTypDebtor;
  fraPositionen.BringToFront();
  chkNoBooking.SetEnabled(true);
  EnableWorkflowSelection(mlArt == schema::kArtRenewable);
}

void frmFEditDefinitions::optKreditor_Click() {
  msTyp = schema::kTypCreditor;
  fraPositionenK.BringToFront();
  chkNoBooking.SetChecked(false);
  chkNoBooking.SetEnabled(false);
  EnableWorkflowSelection(false);
}

void frmFEditDefinitions::EnableKuendFrist(bool enabled) {
  lblKuendFrist.SetEnabled(enabled);
  cboKuendFrist.SetEnabled(enabled);
  cboKuendEinh.SetEnabled(enabled);
}

void frmFEditDefinitions::EnableVerlaengerung(bool enabled) {
  lblDauer2.SetEnabled(enabled);
  lblDauerEinheit2.SetEnabled(enabled);
  lblZahlungsPeriode2.SetEnabled(enabled);
  lblKuendFrist2.SetEnabled(enabled);
  txtDauer2.SetEnabled(enabled);
  cboZahlungsperiode2.SetEnabled(enabled);
  cboKuendFrist2.SetEnabled(enabled);
  cboKuendEinh2.SetEnabled(enabled);
}

bool frmFEditDefinitions::IsRenewableClaim() const {
  return msTyp == schema::kTypDebtor && mlArt == schema::kArtRenewable;
}

std::int32_t frmFEditDefinitions::Dauer() const { return WholeNumberOf(txtDauer.Text()); }

std::int32_t frmFEditDefinitions::Dauer2() const { return WholeNumberOf(txtDauer2.Text()); }

std::int32_t frmFEditDefinitions::Zahlungsperiode() const {
  return cboZahlungsperiode.ItemData(cboZahlungsperiode.ListIndex());
}

std::int32_t frmFEditDefinitions::Zahlungsperiode2() const {
  return cboZahlungsperiode2.ItemData(cboZahlungsperiode2.ListIndex());
}

}  // namespace pactora::definitions
