#include "desktop/layout/DialogLayout.h"

namespace pactora::desktop {
namespace {

constexpr const char* kPrices[] = {"PreisM1",  "PreisM3",  "PreisM6",  "PreisM12",
                                   "PreisM24", "PreisM36", "PreisM48", "PreisM60"};
constexpr int kPricesInColumn = 4;

}  // namespace

QWidget* ArrangeEditDefPositions(const DialogLayout& dialog) {
  auto* grid = dialog.Grid(dialog.Body());
  grid->setContentsMargins(DialogLayout::kMargin, DialogLayout::kMargin, DialogLayout::kMargin, 0);
  grid->setColumnStretch(1, 1);
  grid->setColumnStretch(3, 1);
  grid->setColumnMinimumWidth(2, 6 * DialogLayout::kMargin);
  int row = 0;
  grid->addWidget(&dialog["lblArtikel"], row, 0);
  grid->addWidget(&dialog["txtArtikel"], row++, 1, 1, 3);
  grid->addWidget(&dialog["lblEinheit"], row, 0);
  grid->addWidget(&dialog["cboEinheit"], row++, 1);
  grid->addWidget(&dialog["lblBeschreibung"], row, 0, Qt::AlignTop);
  grid->addWidget(&dialog["txtBeschreibung"], row, 1, 1, 3);
  grid->setRowStretch(row++, 1);

  auto* term = dialog.Row({"lblDuration", "lblPeriod"});
  term->insertSpacing(1, 2 * DialogLayout::kMargin);
  term->addStretch();
  grid->setRowMinimumHeight(row++, DialogLayout::kMargin / 2);
  grid->addLayout(term, row++, 0, 1, 4);
  grid->addWidget(&dialog["lblNettopreis"], row, 0, 1, 2);
  grid->addWidget(&dialog["txtNettopreis"], row++, 3);
  grid->addWidget(&dialog["Label1"], row++, 0, 1, 4);
  for (int i = 0; i < 2 * kPricesInColumn; ++i) {
    const std::string price = kPrices[i];
    const int column = i < kPricesInColumn ? 0 : 2;
    grid->addWidget(&dialog["lbl" + price], row + i % kPricesInColumn, column);
    grid->addWidget(&dialog["txt" + price], row + i % kPricesInColumn, column + 1);
    dialog.AlignRight({"txt" + price});
  }
  row += kPricesInColumn;
  grid->setRowMinimumHeight(row++, DialogLayout::kMargin / 2);
  grid->addWidget(&dialog["lblAnzahl"], row, 0);
  grid->addWidget(&dialog["txtAnzahl"], row, 1);
  grid->addWidget(&dialog["lvlGesnetto"], row, 2);
  grid->addWidget(&dialog["txtGesamt"], row++, 3);
  grid->addWidget(&dialog["lblInfoRabatt"], row++, 0, 1, 4);
  dialog.AlignRight({"txtNettopreis", "txtAnzahl", "txtGesamt"});
  return dialog.Footer({}, {"cmdOk", "cmdCancel"});
}

}  // namespace pactora::desktop
