#include "desktop/layout/Face.h"

namespace pactora::desktop {
namespace {

constexpr const char* kPrices[] = {"PreisM1",  "PreisM3",  "PreisM6",  "PreisM12",
                                   "PreisM24", "PreisM36", "PreisM48", "PreisM60"};
constexpr int kPricesInColumn = 4;

}  // namespace

QWidget* ArrangeEditDefPositions(const Face& face) {
  auto* grid = face.Grid(face.Body());
  grid->setContentsMargins(Face::kMargin, Face::kMargin, Face::kMargin, 0);
  grid->setColumnStretch(1, 1);
  grid->setColumnStretch(3, 1);
  grid->setColumnMinimumWidth(2, 6 * Face::kMargin);
  int row = 0;
  grid->addWidget(&face["lblArtikel"], row, 0);
  grid->addWidget(&face["txtArtikel"], row++, 1, 1, 3);
  grid->addWidget(&face["lblEinheit"], row, 0);
  grid->addWidget(&face["cboEinheit"], row++, 1);
  grid->addWidget(&face["lblBeschreibung"], row, 0, Qt::AlignTop);
  grid->addWidget(&face["txtBeschreibung"], row, 1, 1, 3);
  grid->setRowStretch(row++, 1);

  auto* term = face.Row({"lblDuration", "lblPeriod"});
  term->insertSpacing(1, 2 * Face::kMargin);
  term->addStretch();
  grid->setRowMinimumHeight(row++, Face::kMargin / 2);
  grid->addLayout(term, row++, 0, 1, 4);
  grid->addWidget(&face["lblNettopreis"], row, 0, 1, 2);
  grid->addWidget(&face["txtNettopreis"], row++, 3);
  grid->addWidget(&face["Label1"], row++, 0, 1, 4);
  for (int i = 0; i < 2 * kPricesInColumn; ++i) {
    const std::string price = kPrices[i];
    const int column = i < kPricesInColumn ? 0 : 2;
    grid->addWidget(&face["lbl" + price], row + i % kPricesInColumn, column);
    grid->addWidget(&face["txt" + price], row + i % kPricesInColumn, column + 1);
    face.AlignRight({"txt" + price});
  }
  row += kPricesInColumn;
  grid->setRowMinimumHeight(row++, Face::kMargin / 2);
  grid->addWidget(&face["lblAnzahl"], row, 0);
  grid->addWidget(&face["txtAnzahl"], row, 1);
  grid->addWidget(&face["lvlGesnetto"], row, 2);
  grid->addWidget(&face["txtGesamt"], row++, 3);
  grid->addWidget(&face["lblInfoRabatt"], row++, 0, 1, 4);
  face.AlignRight({"txtNettopreis", "txtAnzahl", "txtGesamt"});
  return face.Footer({}, {"cmdOk", "cmdCancel"});
}

}  // namespace pactora::desktop
