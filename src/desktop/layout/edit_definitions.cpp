#include <QLabel>

#include "desktop/FrameWidget.h"
#include "desktop/layout/DialogLayout.h"

namespace pactora::desktop {
namespace {

void Type(const DialogLayout& dialog) {
  auto* grid = dialog.Grid(dialog["fraTyp"]);
  grid->addWidget(&dialog["lblBezeichnung"], 0, 0);
  grid->addWidget(&dialog["txtBezeichnung"], 0, 1);
  grid->addWidget(&dialog["lblStatus"], 0, 2);
  grid->addWidget(&dialog["cboStatus"], 0, 3);
  grid->addWidget(&dialog["lblArt"], 1, 0);
  grid->addWidget(&dialog["fraArt"], 1, 1);
  grid->addWidget(&dialog["lblDauer"], 1, 2);
  grid->addWidget(&dialog["fraDauer"], 1, 3);
  grid->setColumnStretch(1, 1);
  grid->setColumnStretch(3, 1);
  for (const char* option : {"optDebitor", "optKreditor"}) {
    auto* row = dialog["fraArt"].layout() ? qobject_cast<QHBoxLayout*>(dialog["fraArt"].layout())
                                          : dialog.Row(dialog["fraArt"]);
    row->addWidget(&dialog[option]);
  }
  auto* duration = dialog.Row(dialog["fraDauer"]);
  for (const char* control : {"optBefristet", "chkVerlaengerbar", "optUnbefristet"}) {
    duration->addWidget(&dialog[control]);
  }
}

// The terms of the first or the follow-up contract, in columns: label, box, unit.
QGridLayout* Terms(const DialogLayout& dialog, const char* frame) {
  auto* grid = dialog.Grid(dialog[frame]);
  grid->setColumnStretch(3, 1);
  return grid;
}

void FirstContract(const DialogLayout& dialog) {
  auto* grid = Terms(dialog, "fraErstvertrag");
  grid->addWidget(&dialog["lblDauer1"], 0, 0);
  grid->addWidget(&dialog["txtDauer"], 0, 1);
  grid->addWidget(&dialog["lblDauerEinheit"], 0, 2);
  grid->addWidget(&dialog["lblZahlungsPeriode"], 1, 0);
  grid->addWidget(&dialog["cboZahlungsperiode"], 1, 1);
  grid->addWidget(&dialog["lblRechnungWann"], 2, 0);
  grid->addWidget(&dialog["cboRechnungWann"], 2, 1);
  grid->addWidget(&dialog["chkNoBooking"], 2, 2, 1, 2);
  // Its controls stand in line with those above.
  dialog.Get<FrameWidget>("fraKuendFrist").SetPlain();
  auto* notice = dialog.Row(dialog["fraKuendFrist"]);
  for (const char* control :
       {"lblKuendFrist", "cboKuendFrist", "cboKuendEinh", "cboKuenfristBezug"}) {
    notice->addWidget(&dialog[control]);
  }
  notice->addStretch();
  grid->addWidget(&dialog["fraKuendFrist"], 3, 0, 1, 4);
  dialog.SameWidth({"lblDauer1", "lblZahlungsPeriode", "lblRechnungWann", "lblKuendFrist"});
  dialog.Name("cboKuendEinh", "Einheit der Kündigungsfrist");
  dialog.Name("cboKuenfristBezug", "Bezug der Kündigungsfrist");
}

void FollowUpContract(const DialogLayout& dialog) {
  auto* grid = Terms(dialog, "fraVerlaengerung");
  grid->addWidget(&dialog["lblDauer2"], 0, 0);
  grid->addWidget(&dialog["txtDauer2"], 0, 1);
  grid->addWidget(&dialog["lblDauerEinheit2"], 0, 2);
  grid->addWidget(&dialog["lblZahlungsPeriode2"], 1, 0);
  grid->addWidget(&dialog["cboZahlungsperiode2"], 1, 1);
  grid->addWidget(&dialog["lblKuendFrist2"], 2, 0);
  grid->addLayout(dialog.Row({"cboKuendFrist2", "cboKuendEinh2"}), 2, 1, 1, 2);
  grid->setRowStretch(3, 1);
  dialog.SameWidth({"lblDauer2", "lblZahlungsPeriode2", "lblKuendFrist2"});
  dialog.Name("cboKuendEinh2", "Einheit der Kündigungsfrist im Folgevertrag");
}

// Group, attribute and value; a value that is a date stands where the box is.
void Attribute(const DialogLayout& dialog, const char* frame, const std::string& role) {
  auto* grid = dialog.Grid(dialog[frame]);
  int row = 0;
  for (const char* part : {"Group", "Attribute", "Value"}) {
    grid->addWidget(&dialog["lbl" + role + part], row, 0);
    grid->addWidget(&dialog["cbo" + role + part], row++, 1);
  }
  grid->addWidget(&dialog["DTP" + role + "Value"], row - 1, 1);
  dialog.Name("DTP" + role + "Value", "Wert");
  grid->setColumnStretch(1, 1);
}

void Positions(const DialogLayout& dialog) {
  auto* grid = dialog.Grid(dialog["fraPositionen"]);
  auto* catalogue = dialog.Row({"lblArtikel", "cboArtikelGruppen"});
  catalogue->setStretch(1, 1);
  grid->addLayout(catalogue, 0, 0);
  grid->addWidget(&dialog["lvwArtikel"], 1, 0);
  auto* buttons = DialogLayout::Column();
  buttons->addStretch();
  for (const char* button : {"cmdAddPos", "cmdDeletePos", "cmdEditPos"}) {
    buttons->addWidget(&dialog[button]);
  }
  buttons->addStretch();
  grid->addLayout(buttons, 1, 1);
  grid->addWidget(&dialog["lblPositionen"], 0, 2);
  grid->addWidget(&dialog["lvwPositionen"], 1, 2);
  grid->setColumnStretch(0, 2);
  grid->setColumnStretch(2, 3);
  grid->setRowStretch(1, 1);
  dialog.Name("lvwArtikel", "Artikel der Gruppe");
  dialog.OpenRowsBy("lvwArtikel", "cmdAddPos");
  dialog.OpenRowsBy("lvwPositionen", "cmdEditPos");
  dialog.Name("cmdAddPos", "Artikel als Vertragsposition übernehmen");
  dialog.Name("cmdDeletePos", "Vertragsposition löschen");
  dialog.Name("cmdEditPos", "Vertragsposition bearbeiten");

  auto* note = dialog.Column(dialog["fraPositionenK"]);
  note->addWidget(&dialog["lblPositionenK"], 0, Qt::AlignCenter);
}

}  // namespace

QWidget* ArrangeEditDefinitions(const DialogLayout& dialog) {
  Type(dialog);
  FirstContract(dialog);
  FollowUpContract(dialog);
  Attribute(dialog, "Frame3", "Requi");
  Attribute(dialog, "Frame4", "Put");
  auto* workflow = dialog.Row(dialog["fraWF"]);
  workflow->addWidget(&dialog["lblWorkflow"]);
  workflow->addWidget(&dialog["cboWorkflow"], 1);
  Positions(dialog);

  auto* grid = dialog.Grid(dialog.Body());
  grid->setContentsMargins(DialogLayout::kMargin, DialogLayout::kMargin, DialogLayout::kMargin, 0);
  grid->addWidget(&dialog["fraTyp"], 0, 0, 1, 2);
  grid->addWidget(&dialog["fraErstvertrag"], 1, 0);
  grid->addWidget(&dialog["fraVerlaengerung"], 1, 1);
  grid->addWidget(&dialog["Frame3"], 2, 0);
  grid->addWidget(&dialog["Frame4"], 2, 1);
  grid->addWidget(&dialog["fraWF"], 3, 0, 1, 2);
  grid->addWidget(dialog.Stack({"fraPositionen", "fraPositionenK"}), 4, 0, 1, 2);
  grid->setColumnStretch(0, 1);
  grid->setColumnStretch(1, 1);
  grid->setRowStretch(4, 1);
  return dialog.Footer({}, {"cmdSave", "cmdCancel"});
}

}  // namespace pactora::desktop
