#include "definitions/frmFEditDefPositions.h"

#include <cstddef>
#include <optional>
#include <utility>

#include "contract/modVV.h"
#include "contract/money.h"
#include "definitions/messages.h"
#include "definitions/number_text.h"
#include "definitions/price_rules.h"
#include "definitions/tables.h"
#include "platform/Error.h"
#include "platform/Locale.h"
#include "shell/CAddonError.h"
#include "shell/handlers.h"
#include "ui/keys.h"

namespace pactora::definitions {
namespace {

constexpr std::string_view kModule = shell::module_name::frmFEditDefPositions;

// A point is typed as the decimal comma; a key that the box does not take is
// swallowed.
void FilterKey(std::int32_t& key, std::string_view taken) {
  if (key == '.') key = ',';
  const bool is_digit = key >= '0' && key <= '9';
  if (is_digit || key == ',' || key == ui::kBackspace) return;
  if (key > 0 && key < 128 && taken.find(static_cast<char>(key)) != std::string_view::npos) return;
  key = 0;
}

}  // namespace

frmFEditDefPositions::Price::Price(ui::Container& parent, std::string_view field,
                                   std::string caption)
    : label(parent, "lbl" + std::string(field), std::move(caption)),
      box(parent, "txt" + std::string(field)) {}

frmFEditDefPositions::frmFEditDefPositions(shell::Module& module)
    : Form("frmFEditDefPositions"),
      module_(module),
      prices_{Price(*this, schema::kPriceFields[0], "monatlich"),
              Price(*this, schema::kPriceFields[1], "viertelj."),
              Price(*this, schema::kPriceFields[2], "halbj."),
              Price(*this, schema::kPriceFields[3], "jährlich"),
              Price(*this, schema::kPriceFields[4], "zweijährlich"),
              Price(*this, schema::kPriceFields[5], "dreijährlich"),
              Price(*this, schema::kPriceFields[6], "vierjährlich"),
              Price(*this, schema::kPriceFields[7], "fünfjährlich")} {
  SetCaption("Vertragsposition");
  txtNettopreis.SetToolTip("*  ist für Multiplikation erlaubt");
  txtGesamt.SetReadOnly(true);
  Wire();
  Form_Load();
}

void frmFEditDefPositions::Wire() {
  OnError = [this](const std::string& procedure, const platform::Error& error) {
    shell::ReportError(module_, shell::DisplayName(kModule, procedure), error);
  };
  Activate = [this] { Form_Activate(); };
  for (Price& price : prices_) {
    price.box.KeyPress = [](std::int32_t& key) { FilterKey(key, ""); };
    price.box.Validate = [this, &price](bool& cancel) { NumberBox_Validate(price.box, cancel); };
  }
  txtAnzahl.KeyPress = [](std::int32_t& key) { FilterKey(key, "-"); };
  txtAnzahl.Validate = [this](bool& cancel) { NumberBox_Validate(txtAnzahl, cancel); };
  txtNettopreis.KeyPress = [](std::int32_t& key) { FilterKey(key, "*"); };
  txtNettopreis.Validate = [this](bool& cancel) { txtNettopreis_Validate(cancel); };
  cmdOk.Click = [this] { cmdOk_Click(); };
  cmdCancel.Click = [this] { cmdCancel_Click(); };
}

void frmFEditDefPositions::Form_Load() {
  shell::WithReporter(module_, kModule, "Form_Load", [this] {
    for (std::string& unit : LookupList(module_, schema::setting::lt_Einheit)) {
      cboEinheit.AddItem(std::move(unit));
    }
    if (cboEinheit.Count() > 0) cboEinheit.SetListIndex(0);
    mbOK = false;
  });
}

void frmFEditDefPositions::Form_Activate() {
  shell::WithReporter(module_, kModule, "UserForm_Activate", [this] {
    lblDuration.SetCaption("Gesamtlaufzeit: " + std::to_string(mlDuration) + " Monate");
  });
}

bool frmFEditDefPositions::InitNew(std::int32_t lngDuration, std::int32_t lPeriod,
                                   const std::string& sPeriod) {
  if (!ChooseActivePrice(lngDuration, lPeriod, sPeriod)) return false;
  CalcPeriodPrices();
  return true;
}

bool frmFEditDefPositions::InitEdit(std::int32_t lngDuration, std::int32_t lPeriod,
                                    const std::string& sPeriod) {
  if (!ChooseActivePrice(lngDuration, lPeriod, sPeriod)) return false;
  CalcGesamt();
  return true;
}

bool frmFEditDefPositions::ChooseActivePrice(std::int32_t lngDuration, std::int32_t lPeriod,
                                             const std::string& sPeriod) {
  mlDuration = lngDuration;
  // A named period without a price field is a single payment of the whole term.
  if (const std::optional<std::size_t> place = contract::PriceFieldOf(lPeriod)) {
    prices_[*place].label.SetBold(true);
    msActPriceControl = prices_[*place].box.Name();
  } else if (!contract::GetPeriodName(lPeriod).empty()) {
    lblNettopreis.SetBold(true);
    msActPriceControl = txtNettopreis.Name();
  } else {
    return false;
  }
  lblPeriod.SetCaption(sPeriod);
  return true;
}

void frmFEditDefPositions::CalcPeriodPrices() {
  const auto unit_prices = UnitPrices(NumberIn(txtNettopreis), mlDuration);
  for (std::size_t i = 0; i < prices_.size(); ++i) prices_[i].box.SetText(Fixed(unit_prices[i]));
  CalcGesamt();
}

void frmFEditDefPositions::CalcGesamt() {
  txtGesamt.SetText(Fixed(contract::RoundCents(ActivePrice() * NumberIn(txtAnzahl))));
}

void frmFEditDefPositions::NumberBox_Validate(ui::TextBox& box, bool& cancel) {
  const std::optional<double> number =
      platform::ParseNumber(box.Text(), module_.environment.locale);
  if (!number) {
    ShowInputError(box.Name());
    cancel = true;
    return;
  }
  box.SetText(Fixed(*number));
  CalcGesamt();
}

void frmFEditDefPositions::txtNettopreis_Validate(bool& cancel) {
  shell::WithReporter(module_, kModule, "txtNettopreis_Validate", [&] {
    const std::optional<double> product =
        ProductOf(txtNettopreis.Text(), module_.environment.locale);
    if (!product) {
      ShowInputError(txtNettopreis.Name());
      cancel = true;
      return;
    }
    // A price out of range is reported and not taken. But with a term of 0 there
    // never is a unit price, and nobody gets trapped in the box.
    cancel = true;
    txtNettopreis.SetText(Fixed(*product));
    cancel = mlDuration != 0;
    CalcPeriodPrices();
    cancel = false;
  });
}

void frmFEditDefPositions::cmdOk_Click() {
  if (txtArtikel.Text().empty()) {
    Say(module_, "Eingabe für Artikel/Position fehlt", ui::style::kInformation,
        "Bitte eingeben ...");
    txtArtikel.SetFocus();
    return;
  }
  if (NumberIn(txtAnzahl) == 0.0) {
    Say(module_, "Anzahl darf nicht 0 sein", ui::style::kInformation, kPleaseChange);
    return;
  }
  mdblActPrice = ActivePrice();
  msActPrice = Fixed(mdblActPrice);
  mbOK = true;
  Hide();
}

void frmFEditDefPositions::cmdCancel_Click() { Hide(); }

void frmFEditDefPositions::ShowInputError(const std::string& control) {
  // Without the three letters of the kind of control.
  definitions::ShowInputError(module_, control.substr(3));
}

double frmFEditDefPositions::NumberIn(const ui::TextBox& box) const {
  return NumberOf(box.Text(), module_.environment.locale);
}

double frmFEditDefPositions::ActivePrice() const {
  const auto* box = Find<ui::TextBox>(msActPriceControl);
  if (box == nullptr) platform::Raise(platform::RuntimeError::ObjectNotSet);
  return NumberIn(*box);
}

std::string frmFEditDefPositions::Fixed(double number) const {
  return platform::FormatFixed(number, module_.environment.locale);
}

}  // namespace pactora::definitions
