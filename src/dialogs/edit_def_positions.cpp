#include "dialogs/layouts.h"

namespace pactora::dialogs {
namespace {

constexpr const char* kPrices[] = {"PreisM1",  "PreisM3",  "PreisM6",  "PreisM12",
                                   "PreisM24", "PreisM36", "PreisM48", "PreisM60"};
constexpr std::int32_t kPricesInColumn = 4;

}  // namespace

Layout EditDefPositionsLayout() {
  Layout layout{.form = "frmFEditDefPositions",
                .body = Grid({}, {0, 1, 0, 1}, {0, 0, 1}),
                .buttons = {"cmdOk", "cmdCancel"},
                .right_aligned = {"txtNettopreis", "txtAnzahl", "txtGesamt"}};
  std::vector<Item>& cells = layout.body.items;
  cells = {At(0, 0, "lblArtikel"),
           At(0, 1, "txtArtikel", 3),
           At(1, 0, "lblEinheit"),
           At(1, 1, "cboEinheit"),
           At(2, 0, Aligned(Item::Align::Top, "lblBeschreibung")),
           At(2, 1, "txtBeschreibung", 3),
           At(3, 2, Gap(6 * kMargin, kMargin / 2)),  // between the columns of prices, too
           At(4, 0, Row({"lblDuration", Gap(2 * kMargin, 0), "lblPeriod", Stretch()}), 4),
           At(5, 0, "lblNettopreis", 2),
           At(5, 3, "txtNettopreis"),
           At(6, 0, "Label1", 4)};
  std::int32_t row = 7;
  for (std::int32_t i = 0; i < 2 * kPricesInColumn; ++i) {
    const std::string price = kPrices[i];
    const std::int32_t column = i < kPricesInColumn ? 0 : 2;
    cells.push_back(At(row + i % kPricesInColumn, column, ("lbl" + price).c_str()));
    cells.push_back(At(row + i % kPricesInColumn, column + 1, ("txt" + price).c_str()));
    layout.right_aligned.push_back("txt" + price);
  }
  row += kPricesInColumn;
  cells.push_back(At(row++, 0, Gap(0, kMargin / 2)));
  for (const auto& [name, column] :
       {std::pair{"lblAnzahl", 0}, {"txtAnzahl", 1}, {"lvlGesnetto", 2}, {"txtGesamt", 3}}) {
    cells.push_back(At(row, column, name));
  }
  cells.push_back(At(row + 1, 0, "lblInfoRabatt", 4));
  return layout;
}

}  // namespace pactora::dialogs
