#include "desktop/layout/Face.h"

namespace pactora::desktop {
namespace {

// The contract types, and what to do with the chosen one.
QLayout* Types(const Face& face) {
  auto* column = Face::Column();
  column->addWidget(&face["lvwBezeichnung"], 1);
  auto* below = face.Row({});
  below->addWidget(&face["lblDirty"]);
  below->addStretch();
  below->addWidget(&face["cmdDetails"]);
  column->addLayout(below);
  face.Name("lvwBezeichnung", "Vertragstyp");
  return column;
}

QLayout* Entries(const Face& face) {
  auto* grid = new QGridLayout;
  grid->setSpacing(Face::kSpacing);
  const char* const rows[][2] = {{"lblVertragnummer", "txtVertragnummer"},
                                 {"lblVertragBeginn", "DTPVertragBeginn"},
                                 {"lblGeschlossenAm", "DTPGeschlossenAm"},
                                 {"lblVerantwortlich", "cboVerantwortlich"}};
  int row = 0;
  for (const auto& [label, box] : rows) {
    grid->addWidget(&face[label], row, 0);
    grid->addWidget(&face[box], row++, 1);
  }
  grid->addWidget(&face["ChkAutoNumber"], 0, 2);
  grid->addWidget(&face["lblRabatt"], row, 0);
  grid->addLayout(face.Row({"txtRabatt", "lblProzent"}), row, 1);
  grid->addWidget(&face["chkRabattNurErsteLaufzeit"], row++, 2);
  grid->addWidget(&face["chkNoBooking"], row++, 1, 1, 2);
  grid->addWidget(&face["lblMemo"], row, 0, Qt::AlignTop);
  grid->addWidget(&face["txtMemo"], row, 1, 1, 2);
  grid->setRowStretch(row, 1);
  grid->setColumnStretch(2, 1);
  face.Wrap("lblMemo");
  face.AlignRight({"txtRabatt"});
  return grid;
}

// Taking over a contract that was invoiced before.
QLayout* Takeover(const Face& face) {
  auto* column = Face::Column();
  for (const char* control : {"chkOldContract", "lblInvoices"}) column->addWidget(&face[control]);
  column->addWidget(&face["lstInvoices"], 1);
  face.KeepPlace({"lblInvoices", "lstInvoices"});
  return column;
}

QLayout* Workflow(const Face& face) {
  face.Column(face["fraWorkflow"])->addWidget(&face["chkWorkflow"]);
  auto* responsible = face.Grid(face["fraResponsible"]);
  responsible->addWidget(&face["optDefinierteBenutzer"], 0, 0, 1, 2);
  responsible->addWidget(&face["optneuerBenutzer"], 1, 0);
  responsible->addWidget(&face["cmbUser"], 1, 1);
  responsible->setColumnStretch(1, 1);
  face.Name("cmbUser", "Benutzer, für den der Workflow angelegt wird");
  face.Column(face["fraWorkflow2"])->addWidget(&face["lblWorkflow2"]);

  auto* column = Face::Column();
  for (const char* frame : {"fraWorkflow", "fraResponsible", "fraWorkflow2"}) {
    column->addWidget(&face[frame]);
  }
  column->addStretch();
  return column;
}

}  // namespace

QWidget* ArrangeNewContract(const Face& face) {
  auto* grid = face.Grid(face.Body());
  grid->setContentsMargins(Face::kMargin, Face::kMargin, Face::kMargin, 0);
  grid->setHorizontalSpacing(2 * Face::kMargin);
  grid->setVerticalSpacing(Face::kMargin);
  grid->addLayout(Types(face), 0, 0);
  grid->addLayout(Entries(face), 0, 1);
  grid->addLayout(Takeover(face), 1, 0);
  grid->addLayout(Workflow(face), 1, 1);
  grid->setColumnStretch(0, 1);
  grid->setColumnStretch(1, 1);
  grid->setRowStretch(0, 3);
  grid->setRowStretch(1, 2);
  return face.Footer({"lblVersion"}, {"cmdOK", "cmdCancel"});
}

}  // namespace pactora::desktop
