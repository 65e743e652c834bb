#include "dialogs/layouts.h"

namespace pactora::dialogs {
namespace {

// The contract types, and what to do with the chosen one.
Item Types() {
  return Column({Stretched("lvwBezeichnung"), Row({"lblDirty", Stretch(), "cmdDetails"})});
}

Item Entries() {
  return Grid(
      {At(0, 0, "lblVertragnummer"), At(0, 1, "txtVertragnummer"), At(0, 2, "ChkAutoNumber"),
       At(1, 0, "lblVertragBeginn"), At(1, 1, "DTPVertragBeginn"), At(2, 0, "lblGeschlossenAm"),
       At(2, 1, "DTPGeschlossenAm"), At(3, 0, "lblVerantwortlich"), At(3, 1, "cboVerantwortlich"),
       At(4, 0, "lblRabatt"), At(4, 1, Row({"txtRabatt", "lblProzent"})),
       At(4, 2, "chkRabattNurErsteLaufzeit"), At(5, 1, "chkNoBooking", 2),
       At(6, 0, Aligned(Item::Align::Top, "lblMemo")), At(6, 1, "txtMemo", 2)},
      {0, 0, 1}, {0, 0, 0, 0, 0, 0, 1});
}

// Taking over a contract that was invoiced before.
Item Takeover() { return Column({"chkOldContract", "lblInvoices", Stretched("lstInvoices")}); }

Item Workflow() {
  return Column({Frame("fraWorkflow", Column({"chkWorkflow"})),
                 Frame("fraResponsible", Grid({At(0, 0, "optDefinierteBenutzer", 2),
                                               At(1, 0, "optneuerBenutzer"), At(1, 1, "cmbUser")},
                                              {0, 1})),
                 Frame("fraWorkflow2", Column({"lblWorkflow2"})), Stretch()});
}

}  // namespace

Layout NewContractLayout() {
  Item body =
      Grid({At(0, 0, Types()), At(0, 1, Entries()), At(1, 0, Takeover()), At(1, 1, Workflow())},
           {1, 1}, {3, 2});
  body.column_spacing = 2 * kMargin;
  body.row_spacing = kMargin;
  return {.form = "frmNewContract",
          .body = std::move(body),
          .notes = {"lblVersion"},
          .buttons = {"cmdOK", "cmdCancel"},
          .wrapped = {"lblMemo"},
          .right_aligned = {"txtRabatt"},
          .keep_place = {"lblInvoices", "lstInvoices"},
          .names = {{"lvwBezeichnung", "Vertragstyp"},
                    {"cmbUser", "Benutzer, für den der Workflow angelegt wird"}}};
}

}  // namespace pactora::dialogs
