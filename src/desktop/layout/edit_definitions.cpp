#include <QLabel>

#include "desktop/FrameWidget.h"
#include "desktop/layout/Face.h"

namespace pactora::desktop {
namespace {

void Type(const Face& face) {
  auto* grid = face.Grid(face["fraTyp"]);
  grid->addWidget(&face["lblBezeichnung"], 0, 0);
  grid->addWidget(&face["txtBezeichnung"], 0, 1);
  grid->addWidget(&face["lblStatus"], 0, 2);
  grid->addWidget(&face["cboStatus"], 0, 3);
  grid->addWidget(&face["lblArt"], 1, 0);
  grid->addWidget(&face["fraArt"], 1, 1);
  grid->addWidget(&face["lblDauer"], 1, 2);
  grid->addWidget(&face["fraDauer"], 1, 3);
  grid->setColumnStretch(1, 1);
  grid->setColumnStretch(3, 1);
  for (const char* option : {"optDebitor", "optKreditor"}) {
    auto* row = face["fraArt"].layout() ? qobject_cast<QHBoxLayout*>(face["fraArt"].layout())
                                        : face.Row(face["fraArt"]);
    row->addWidget(&face[option]);
  }
  auto* duration = face.Row(face["fraDauer"]);
  for (const char* control : {"optBefristet", "chkVerlaengerbar", "optUnbefristet"}) {
    duration->addWidget(&face[control]);
  }
}

// The terms of the first or the follow-up contract, in columns: label, box, unit.
QGridLayout* Terms(const Face& face, const char* frame) {
  auto* grid = face.Grid(face[frame]);
  grid->setColumnStretch(3, 1);
  return grid;
}

void FirstContract(const Face& face) {
  auto* grid = Terms(face, "fraErstvertrag");
  grid->addWidget(&face["lblDauer1"], 0, 0);
  grid->addWidget(&face["txtDauer"], 0, 1);
  grid->addWidget(&face["lblDauerEinheit"], 0, 2);
  grid->addWidget(&face["lblZahlungsPeriode"], 1, 0);
  grid->addWidget(&face["cboZahlungsperiode"], 1, 1);
  grid->addWidget(&face["lblRechnungWann"], 2, 0);
  grid->addWidget(&face["cboRechnungWann"], 2, 1);
  grid->addWidget(&face["chkNoBooking"], 2, 2, 1, 2);
  // Its controls stand in line with those above.
  face.Get<FrameWidget>("fraKuendFrist").SetPlain();
  auto* notice = face.Row(face["fraKuendFrist"]);
  for (const char* control :
       {"lblKuendFrist", "cboKuendFrist", "cboKuendEinh", "cboKuenfristBezug"}) {
    notice->addWidget(&face[control]);
  }
  notice->addStretch();
  grid->addWidget(&face["fraKuendFrist"], 3, 0, 1, 4);
  face.SameWidth({"lblDauer1", "lblZahlungsPeriode", "lblRechnungWann", "lblKuendFrist"});
  face.Name("cboKuendEinh", "Einheit der Kündigungsfrist");
  face.Name("cboKuenfristBezug", "Bezug der Kündigungsfrist");
}

void FollowUpContract(const Face& face) {
  auto* grid = Terms(face, "fraVerlaengerung");
  grid->addWidget(&face["lblDauer2"], 0, 0);
  grid->addWidget(&face["txtDauer2"], 0, 1);
  grid->addWidget(&face["lblDauerEinheit2"], 0, 2);
  grid->addWidget(&face["lblZahlungsPeriode2"], 1, 0);
  grid->addWidget(&face["cboZahlungsperiode2"], 1, 1);
  grid->addWidget(&face["lblKuendFrist2"], 2, 0);
  grid->addLayout(face.Row({"cboKuendFrist2", "cboKuendEinh2"}), 2, 1, 1, 2);
  grid->setRowStretch(3, 1);
  face.SameWidth({"lblDauer2", "lblZahlungsPeriode2", "lblKuendFrist2"});
  face.Name("cboKuendEinh2", "Einheit der Kündigungsfrist im Folgevertrag");
}

// Group, attribute and value; a value that is a date stands where the box is.
void Attribute(const Face& face, const char* frame, const std::string& role) {
  auto* grid = face.Grid(face[frame]);
  int row = 0;
  for (const char* part : {"Group", "Attribute", "Value"}) {
    grid->addWidget(&face["lbl" + role + part], row, 0);
    grid->addWidget(&face["cbo" + role + part], row++, 1);
  }
  grid->addWidget(&face["DTP" + role + "Value"], row - 1, 1);
  face.Name("DTP" + role + "Value", "Wert");
  grid->setColumnStretch(1, 1);
}

void Positions(const Face& face) {
  auto* grid = face.Grid(face["fraPositionen"]);
  auto* catalogue = face.Row({"lblArtikel", "cboArtikelGruppen"});
  catalogue->setStretch(1, 1);
  grid->addLayout(catalogue, 0, 0);
  grid->addWidget(&face["lvwArtikel"], 1, 0);
  auto* buttons = Face::Column();
  buttons->addStretch();
  for (const char* button : {"cmdAddPos", "cmdDeletePos", "cmdEditPos"}) {
    buttons->addWidget(&face[button]);
  }
  buttons->addStretch();
  grid->addLayout(buttons, 1, 1);
  grid->addWidget(&face["lblPositionen"], 0, 2);
  grid->addWidget(&face["lvwPositionen"], 1, 2);
  grid->setColumnStretch(0, 2);
  grid->setColumnStretch(2, 3);
  grid->setRowStretch(1, 1);
  face.Name("lvwArtikel", "Artikel der Gruppe");
  face.Name("cmdAddPos", "Artikel als Vertragsposition übernehmen");
  face.Name("cmdDeletePos", "Vertragsposition löschen");
  face.Name("cmdEditPos", "Vertragsposition bearbeiten");

  auto* note = face.Column(face["fraPositionenK"]);
  note->addWidget(&face["lblPositionenK"], 0, Qt::AlignCenter);
}

}  // namespace

QWidget* ArrangeEditDefinitions(const Face& face) {
  Type(face);
  FirstContract(face);
  FollowUpContract(face);
  Attribute(face, "Frame3", "Requi");
  Attribute(face, "Frame4", "Put");
  auto* workflow = face.Row(face["fraWF"]);
  workflow->addWidget(&face["lblWorkflow"]);
  workflow->addWidget(&face["cboWorkflow"], 1);
  Positions(face);

  auto* grid = face.Grid(face.Body());
  grid->setContentsMargins(Face::kMargin, Face::kMargin, Face::kMargin, 0);
  grid->addWidget(&face["fraTyp"], 0, 0, 1, 2);
  grid->addWidget(&face["fraErstvertrag"], 1, 0);
  grid->addWidget(&face["fraVerlaengerung"], 1, 1);
  grid->addWidget(&face["Frame3"], 2, 0);
  grid->addWidget(&face["Frame4"], 2, 1);
  grid->addWidget(&face["fraWF"], 3, 0, 1, 2);
  grid->addWidget(face.Stack({"fraPositionen", "fraPositionenK"}), 4, 0, 1, 2);
  grid->setColumnStretch(0, 1);
  grid->setColumnStretch(1, 1);
  grid->setRowStretch(4, 1);
  return face.Footer({}, {"cmdSave", "cmdCancel"});
}

}  // namespace pactora::desktop
