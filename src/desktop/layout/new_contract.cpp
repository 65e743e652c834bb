#include "desktop/layout/DialogLayout.h"

namespace pactora::desktop {
namespace {

// The contract types, and what to do with the chosen one.
QLayout* Types(const DialogLayout& dialog) {
  auto* column = DialogLayout::Column();
  column->addWidget(&dialog["lvwBezeichnung"], 1);
  auto* below = dialog.Row({});
  below->addWidget(&dialog["lblDirty"]);
  below->addStretch();
  below->addWidget(&dialog["cmdDetails"]);
  column->addLayout(below);
  dialog.Name("lvwBezeichnung", "Vertragstyp");
  return column;
}

QLayout* Entries(const DialogLayout& dialog) {
  auto* grid = new QGridLayout;
  grid->setSpacing(DialogLayout::kSpacing);
  const char* const rows[][2] = {{"lblVertragnummer", "txtVertragnummer"},
                                 {"lblVertragBeginn", "DTPVertragBeginn"},
                                 {"lblGeschlossenAm", "DTPGeschlossenAm"},
                                 {"lblVerantwortlich", "cboVerantwortlich"}};
  int row = 0;
  for (const auto& [label, box] : rows) {
    grid->addWidget(&dialog[label], row, 0);
    grid->addWidget(&dialog[box], row++, 1);
  }
  grid->addWidget(&dialog["ChkAutoNumber"], 0, 2);
  grid->addWidget(&dialog["lblRabatt"], row, 0);
  grid->addLayout(dialog.Row({"txtRabatt", "lblProzent"}), row, 1);
  grid->addWidget(&dialog["chkRabattNurErsteLaufzeit"], row++, 2);
  grid->addWidget(&dialog["chkNoBooking"], row++, 1, 1, 2);
  grid->addWidget(&dialog["lblMemo"], row, 0, Qt::AlignTop);
  grid->addWidget(&dialog["txtMemo"], row, 1, 1, 2);
  grid->setRowStretch(row, 1);
  grid->setColumnStretch(2, 1);
  dialog.Wrap("lblMemo");
  dialog.AlignRight({"txtRabatt"});
  return grid;
}

// Taking over a contract that was invoiced before.
QLayout* Takeover(const DialogLayout& dialog) {
  auto* column = DialogLayout::Column();
  for (const char* control : {"chkOldContract", "lblInvoices"}) column->addWidget(&dialog[control]);
  column->addWidget(&dialog["lstInvoices"], 1);
  dialog.KeepPlace({"lblInvoices", "lstInvoices"});
  return column;
}

QLayout* Workflow(const DialogLayout& dialog) {
  dialog.Column(dialog["fraWorkflow"])->addWidget(&dialog["chkWorkflow"]);
  auto* responsible = dialog.Grid(dialog["fraResponsible"]);
  responsible->addWidget(&dialog["optDefinierteBenutzer"], 0, 0, 1, 2);
  responsible->addWidget(&dialog["optneuerBenutzer"], 1, 0);
  responsible->addWidget(&dialog["cmbUser"], 1, 1);
  responsible->setColumnStretch(1, 1);
  dialog.Name("cmbUser", "Benutzer, für den der Workflow angelegt wird");
  dialog.Column(dialog["fraWorkflow2"])->addWidget(&dialog["lblWorkflow2"]);

  auto* column = DialogLayout::Column();
  for (const char* frame : {"fraWorkflow", "fraResponsible", "fraWorkflow2"}) {
    column->addWidget(&dialog[frame]);
  }
  column->addStretch();
  return column;
}

}  // namespace

QWidget* ArrangeNewContract(const DialogLayout& dialog) {
  auto* grid = dialog.Grid(dialog.Body());
  grid->setContentsMargins(DialogLayout::kMargin, DialogLayout::kMargin, DialogLayout::kMargin, 0);
  grid->setHorizontalSpacing(2 * DialogLayout::kMargin);
  grid->setVerticalSpacing(DialogLayout::kMargin);
  grid->addLayout(Types(dialog), 0, 0);
  grid->addLayout(Entries(dialog), 0, 1);
  grid->addLayout(Takeover(dialog), 1, 0);
  grid->addLayout(Workflow(dialog), 1, 1);
  grid->setColumnStretch(0, 1);
  grid->setColumnStretch(1, 1);
  grid->setRowStretch(0, 3);
  grid->setRowStretch(1, 2);
  return dialog.Footer({"lblVersion"}, {"cmdOK", "cmdCancel"});
}

}  // namespace pactora::desktop
