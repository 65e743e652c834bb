// The dialog for one position of a contract type: its text, quantity, unit and
// prices.
//
// It holds a net price over the whole term and a unit price for each payment
// period. The price of the type's own payment period is the active one: its label
// is bold and the total follows it.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "schema/names.h"
#include "shell/Module.h"
#include "ui/controls.h"

namespace pactora::definitions {

class frmFEditDefPositions final : public ui::Form {
 public:
  // Requires: gDb and gAddonError are set. The module must outlive the dialog.
  explicit frmFEditDefPositions(shell::Module& module);

  // Chooses the active price by the payment period and works out all unit prices
  // from the net price and the term, both in months; sPeriod is the period's
  // name. False for a period that the dialog does not know: it must not be shown
  // then. Raises error 11 for a term of 0.
  // Requires: the caller has filled txtArtikel, txtAnzahl, txtNettopreis,
  // cboEinheit and txtBeschreibung.
  bool InitNew(std::int32_t lngDuration, std::int32_t lPeriod, const std::string& sPeriod);
  // Likewise, but the unit prices stay as the caller has filled them too.
  bool InitEdit(std::int32_t lngDuration, std::int32_t lPeriod, const std::string& sPeriod);

  // The box of the unit price for schema::kPeriods[place].
  ui::TextBox& PriceBox(std::size_t place) { return prices_[place].box; }

  bool mbOK = false;          // the user took the position over
  std::string msActPrice;     // then: the active price with two decimals
  double mdblActPrice = 0.0;  // then: the same as a number

 private:
  // A unit price and its label.
  struct Price {
    Price(ui::Container& parent, std::string_view field, std::string caption);
    ui::Label label;
    ui::TextBox box;
  };

  void Wire();
  void Form_Load();
  void Form_Activate();
  bool ChooseActivePrice(std::int32_t lngDuration, std::int32_t lPeriod,
                         const std::string& sPeriod);
  void CalcPeriodPrices();
  void CalcGesamt();
  // txtAnzahl_Validate, and that of each unit price.
  void NumberBox_Validate(ui::TextBox& box, bool& cancel);
  void txtNettopreis_Validate(bool& cancel);
  void cmdOk_Click();
  void cmdCancel_Click();
  void ShowInputError(const std::string& control);
  double NumberIn(const ui::TextBox& box) const;
  double ActivePrice() const;
  std::string Fixed(double number) const;

  shell::Module& module_;
  std::string msActPriceControl;
  std::int32_t mlDuration = 0;  // months

 public:
  // Controls in tab order.
  ui::Label lblArtikel{*this, "lblArtikel", "Artikel"};
  ui::TextBox txtArtikel{*this, "txtArtikel"};
  ui::Label lblEinheit{*this, "lblEinheit", "Einheit"};
  ui::ComboBox cboEinheit{*this, "cboEinheit", ui::ComboBox::Style::FreeText};
  ui::Label lblBeschreibung{*this, "lblBeschreibung", "Beschreibung"};
  ui::TextBox txtBeschreibung{*this, "txtBeschreibung", ui::TextBox::Lines::Multiple};
  ui::Label lblDuration{*this, "lblDuration"};
  ui::Label lblPeriod{*this, "lblPeriod"};
  ui::Label lblNettopreis{*this, "lblNettopreis", "Nettopreis über die Gesamtlaufzeit"};
  ui::TextBox txtNettopreis{*this, "txtNettopreis"};
  ui::Label Label1{*this, "Label1",
                   "Die Preise für die  Zahlungsperioden gegebenenfalls bitte anpassen !"};

 private:
  std::array<Price, schema::kPeriods.size()> prices_;

 public:
  ui::Label lblAnzahl{*this, "lblAnzahl", "Anzahl Artikel"};
  ui::TextBox txtAnzahl{*this, "txtAnzahl"};
  ui::Label lvlGesnetto{*this, "lvlGesnetto", "Ges.netto:"};
  ui::TextBox txtGesamt{*this, "txtGesamt"};
  ui::Label lblInfoRabatt{*this, "lblInfoRabatt", "( Alle Preisangaben ohne Rabatt )"};
  ui::Button cmdOk{*this, "cmdOk", "Übernehmen", ui::Button::Role::Default};
  ui::Button cmdCancel{*this, "cmdCancel", "Abbrechen", ui::Button::Role::Cancel};
};

}  // namespace pactora::definitions
