// The contract start, the invoice periods that depend on it, and the discount.
#include "contract/invoice_periods.h"
#include "contract/modVV.h"
#include "contract/money.h"
#include "newcontract/frmNewContract.h"
#include "platform/Error.h"
#include "platform/Locale.h"
#include "schema/names.h"
#include "shell/handlers.h"

namespace pactora::newcontract {

namespace {

constexpr char kInvalidDiscount[] =
    "Ungültiger Rabatt!\r\nGeben Sie einen Rabatt zwischen 0 und 99 ein!";
constexpr char kDiscountTooLarge[] = "Rabatt darf nicht größer 99% sein!";
// The message says 99; 100 is let through all the same and gives amounts of 0.
constexpr double kLargestDiscount = 100.0;

constexpr std::int32_t kBackspace = 8;
constexpr std::int32_t kComma = 44;
constexpr std::int32_t kPoint = 46;

// A number typed with a decimal comma, or written by the locale's own rule as
// the box itself shows it.
std::optional<double> ReadDiscount(const std::string& text, const platform::Locale& locale) {
  const auto typed = platform::ParseNumber(text, platform::Locale{','});
  return typed ? typed : platform::ParseNumber(text, locale);
}

}  // namespace

void frmNewContract::DTPVertragBeginn_Change() {
  const Date begin = DTPVertragBeginn.Value();
  const bool unsigned_yet = DTPGeschlossenAm.IsNull();
  DTPGeschlossenAm.SetValue(begin);
  if (unsigned_yet) DTPGeschlossenAm.SetNull();
  if (msTyp == schema::kTypCreditor || !mbInitDone) return;
  FillInvoiceList();
  chkOldContract.SetChecked(false);
}

// The list is emptied first: a start whose periods cannot be listed leaves none
// of another start.
void frmNewContract::FillInvoiceList() {
  const std::string pattern = contract::ReadPersistVarSetting(
      module_, schema::setting::g_DateFormat, platform::kGermanPattern);
  lstInvoices.Clear();
  const contract::InvoicePeriodList list = contract::ListInvoicePeriods(InvoiceTerms());
  for (const contract::InvoicePeriod& row : list.rows) {
    mdtLetzteListe = row.start;
    lstInvoices.AddItem(platform::FormatDate(row.start, pattern) + " - " +
                        platform::FormatDate(row.last_day, pattern));
  }
}

contract::InvoicePeriodTerms frmNewContract::InvoiceTerms() const {
  return {mlArt,
          DTPVertragBeginn.Value(),
          mlDauer,
          mlZahlungsperiode,
          mlVerlZahlungsperiode,
          module_.environment.clock.Today()};
}

void frmNewContract::chkOldContract_Click() {
  const bool taken_over = chkOldContract.Checked();
  lstInvoices.SetEnabled(taken_over);
  lstInvoices.SetVisible(taken_over);
  lblInvoices.SetVisible(taken_over);
  lstInvoices.SetBackColor(taken_over ? ui::color::kWindowBackground : ui::color::kButtonFace);
  lstInvoices.SetListIndex(taken_over && lstInvoices.Count() > 0 ? 0 : ui::ListBox::kNone);
}

void frmNewContract::txtRabatt_KeyPress(std::int32_t& key) {
  if (key == kPoint) key = kComma;
  const bool digit = key >= '0' && key <= '9';
  if (key != kBackspace && key != kComma && !digit) key = 0;
}

void frmNewContract::txtRabatt_Validate(bool& cancel) {
  shell::WithReporter(module_, shell::module_name::frmNewContract, "txtRabatt_Validate", [&] {
    if (txtRabatt.Text().empty()) {
      Warn(kInvalidDiscount);
      txtRabatt.SetForeColor(ui::color::kWindowText);
      cancel = true;
      return;
    }
    const platform::Locale& locale = module_.environment.locale;
    const std::optional<double> entered = ReadDiscount(txtRabatt.Text(), locale);
    if (!entered) {
      Warn(kInvalidDiscount);
      cancel = true;
      return;
    }
    if (*entered > kLargestDiscount) {
      Warn(kDiscountTooLarge);
      txtRabatt.SetForeColor(ui::color::kWindowText);
      cancel = true;
      return;
    }
    const std::string text = platform::FormatFixed(*entered, locale);
    cancel = true;  // for amounts too large to be rounded
    mdblRabatt = contract::RoundCents(platform::ParseNumber(text, locale).value());
    cancel = false;
    txtRabatt.SetText(text);
    txtRabatt.SetForeColor(mdblRabatt != 0.0 ? ui::color::kRed : ui::color::kWindowText);
  });
}

}  // namespace pactora::newcontract
