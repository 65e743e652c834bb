// The list of positions between catalogue, tables and memory.
#include <cstddef>
#include <utility>

#include "definitions/frmFEditDefPositions.h"
#include "definitions/frmFEditDefinitions.h"
#include "definitions/messages.h"
#include "definitions/number_text.h"
#include "definitions/position_columns.h"
#include "definitions/tables.h"
#include "definitions/vv_CPosition.h"
#include "host/row.h"
#include "schema/names.h"

namespace pactora::definitions {
namespace {

namespace field = schema::field;

// Columns of the list of articles.
constexpr std::int32_t kArticleOid = 2;
constexpr std::int32_t kArticleId = 3;

// Prices of an unlimited type are prices of a year.
constexpr std::int32_t kUnlimitedPriceTerm = 12;

std::int32_t PriceColumn(std::size_t place) {
  return column::PreisM1 + static_cast<std::int32_t>(place);
}

// The columns that the position dialog holds, from the dialog as it was closed.
void TakeEntered(PositionTexts& texts, frmFEditDefPositions& dialog) {
  const auto set = [&](std::int32_t column, const std::string& text) {
    texts[static_cast<std::size_t>(column)] = text;
  };
  set(column::Artikel, dialog.txtArtikel.Text());
  set(column::Anzahl, dialog.txtAnzahl.Text());
  set(column::Nettopreis, dialog.msActPrice);
  set(column::GPreis, dialog.txtGesamt.Text());
  set(column::Einheit, dialog.cboEinheit.Text());
  set(column::Beschreibung, dialog.txtBeschreibung.Text());
  for (std::size_t i = 0; i < schema::kPeriods.size(); ++i) {
    set(PriceColumn(i), dialog.PriceBox(i).Text());
  }
  set(column::Preis, dialog.txtNettopreis.Text());
  set(column::PreisOhne, dialog.msActPrice);
}

}  // namespace

void frmFEditDefinitions::cboArtikelGruppen_Click() {
  Report("cboArtikelGruppen_Click", [this] {
    lvwArtikel.ClearRows();
    if (cboArtikelGruppen.ListIndex() == ui::ListControl::kNone) return;
    const auto place = static_cast<std::size_t>(cboArtikelGruppen.ListIndex()) + 1;
    if (!Held(moArtikelgruppen).SeekKey(msArtikelgruppeIDs.at(place), host::kFlagsUsual)) return;
    host::HostTable& articles = Held(moArtikel);
    articles.Indexes().SelectNone(host::kFlagsUsual);
    for (articles.MoveFirst(host::kFlagsUsual); !articles.Eof();
         articles.MoveNext(1, host::kFlagsUsual)) {
      lvwArtikel.AddRow(GetText(articles, field::Bezeichnung),
                        {Fixed(GetDouble(articles, field::Nettopreis)), articles.Oid(),
                         GetText(articles, field::ID)});
    }
    articles.MoveFirst(host::kFlagsUsual);
    if (lvwArtikel.RowCount() > 0) lvwArtikel.SelectRow(1);
  });
}

void frmFEditDefinitions::cmdAddPos_Click() {
  Report("cmdAddPos_Click", [this] { AddPosition(); });
}

void frmFEditDefinitions::AddPosition() {
  const std::int32_t row = lvwArtikel.SelectedRow();
  if (HasPositionOf(lvwArtikel.Text(row, kArticleId))) {
    Say(module_, "Der ausgewählte Artikel ist bereits eine Vertragsposition",
        ui::style::kInformation);
    return;
  }
  host::HostTable& article = Held(moArtikel);
  if (!article.FindOid(lvwArtikel.Text(row, kArticleOid), host::kFlagsUsual)) return;

  frmFEditDefPositions dialog(module_);
  dialog.txtArtikel.SetText(GetText(article, field::Bezeichnung));
  dialog.txtAnzahl.SetText(Fixed(1.0));
  dialog.txtNettopreis.SetText(Fixed(GetDouble(article, field::Nettopreis)));
  dialog.cboEinheit.SetText(GetText(article, field::Einheit));
  dialog.txtBeschreibung.SetText(GetText(article, field::Beschreibung));
  if (!dialog.InitNew(PriceTerm(), Zahlungsperiode(), cboZahlungsperiode.Text())) return;
  dialog.Show(module_.environment.screen);
  if (!dialog.mbOK) return;

  PositionTexts texts(column::kCount);
  TakeEntered(texts, dialog);
  const auto set = [&](std::int32_t column, std::string text) {
    texts[static_cast<std::size_t>(column)] = std::move(text);
  };
  set(column::Artikelnummer, GetText(article, field::Nummer));
  set(column::Artikelart, GetText(article, field::Art));
  set(column::USTSatz, Evaluate(schema::expression::USTSatzArtikel));
  set(column::Erloeskonto, Evaluate(schema::expression::Erloeskonto));
  set(column::ArtikelID, GetText(article, field::Id));
  set(column::Gruppierung, GetText(article, field::Gruppierung));
  AppendRow(lvwPositionen, std::move(texts));
}

void frmFEditDefinitions::cmdEditPos_Click() {
  Report("cmdEditPos_Click", [this] { EditPosition(); });
}

void frmFEditDefinitions::EditPosition() {
  if (lvwPositionen.RowCount() == 0) return;
  const std::int32_t row = lvwPositionen.SelectedRow();
  const auto text = [&](std::int32_t column) { return lvwPositionen.Text(row, column); };
  const auto fixed = [&](std::int32_t column) {
    return Fixed(NumberOrZero(text(column), module_.environment.locale));
  };
  frmFEditDefPositions dialog(module_);
  dialog.txtArtikel.SetText(text(column::Artikel));
  dialog.txtAnzahl.SetText(fixed(column::Anzahl));
  dialog.txtNettopreis.SetText(fixed(column::Preis));
  dialog.cboEinheit.SetText(text(column::Einheit));
  dialog.txtBeschreibung.SetText(text(column::Beschreibung));
  for (std::size_t i = 0; i < schema::kPeriods.size(); ++i) {
    dialog.PriceBox(i).SetText(fixed(PriceColumn(i)));
  }
  if (!dialog.InitEdit(PriceTerm(), Zahlungsperiode(), cboZahlungsperiode.Text())) return;
  dialog.Show(module_.environment.screen);
  if (!dialog.mbOK) return;

  PositionTexts texts;
  for (std::size_t i = 0; i < column::kCount; ++i) {
    texts.push_back(text(static_cast<std::int32_t>(i)));
  }
  TakeEntered(texts, dialog);
  for (std::size_t i = 0; i < column::kCount; ++i) {
    lvwPositionen.SetText(row, static_cast<std::int32_t>(i), std::move(texts[i]));
  }
}

void frmFEditDefinitions::cmdDeletePos_Click() {
  Report("cmdDeletePos_Click", [this] {
    if (lvwPositionen.RowCount() == 0) return;
    if (!Ask(module_, "Wollen Sie die markierte Position wirklich löschen?")) return;
    const std::int32_t row = lvwPositionen.SelectedRow();
    const std::string oid = lvwPositionen.Text(row, column::RecordOID);
    lvwPositionen.RemoveRow(row);
    if (!oid.empty()) mcolDeletedOids.push_back(oid);
    if (lvwPositionen.RowCount() > 0) lvwPositionen.SelectRow(row > 1 ? row - 1 : 1);
  });
}

void frmFEditDefinitions::ReadStoredPositions() {
  host::HostTable& positions = Held(moPositionen);
  for (positions.MoveFirst(host::kFlagsUsual); !positions.Eof();
       positions.MoveNext(1, host::kFlagsUsual)) {
    AppendRow(lvwPositionen, TextsOfStored(positions, module_.environment.locale));
  }
  positions.MoveFirst(host::kFlagsUsual);
}

void frmFEditDefinitions::ShowPositionsFromMemory(const shell::PositionCollection& positions) {
  lvwPositionen.ClearRows();
  for (const auto& position : positions) {
    AppendRow(lvwPositionen, TextsOfRecord(*position, module_.environment.locale));
  }
}

bool frmFEditDefinitions::HasPositionOf(const std::string& article_id) const {
  for (std::int32_t row = 1; row <= lvwPositionen.RowCount(); ++row) {
    if (lvwPositionen.Text(row, column::ArtikelID) == article_id) return true;
  }
  return false;
}

std::int32_t frmFEditDefinitions::PriceTerm() const {
  return mlArt == schema::kArtUnlimited ? kUnlimitedPriceTerm : Dauer();
}

std::string frmFEditDefinitions::Evaluate(std::string_view expression) {
  return PlainText(
      module_.gDb->Formulas().Compile(expression, host::kFlagsNone)->Eval(host::kFlagsNone),
      module_.environment.locale);
}

std::string frmFEditDefinitions::Fixed(double number) const {
  return platform::FormatFixed(number, module_.environment.locale);
}

}  // namespace pactora::definitions
