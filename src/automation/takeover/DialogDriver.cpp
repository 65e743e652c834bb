#include "automation/takeover/DialogDriver.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <utility>

#include "automation/formats/errors.h"
#include "automation/workspace/fatal_store_error.h"
#include "contract/modVV.h"
#include "platform/Date.h"
#include "platform/Locale.h"
#include "platform/Text.h"
#include "schema/names.h"
#include "shell/Module.h"
#include "ui/Form.h"
#include "ui/Person.h"
#include "ui/controls.h"

namespace pactora::takeover {
namespace {

// Raised when a line can't be entered. The reason is empty where the dialog's message
// is the reason.
struct Refused {
  std::string_view column;
  std::string reason;
};

// The controls of the dialog by name, each used for a column of the list.
class Entry {
 public:
  Entry(ui::Form& form, std::string_view column) : form_(form), column_(column) {}

  template <typename T = ui::Control>
  T& Get(std::string_view name) {
    T* control = form_.Find<T>(name);
    if (control == nullptr) Refuse(fmt::format("der Dialog hat kein {}", name));
    return *control;
  }

  void Must(const ui::Outcome& outcome) {
    // Only the chosen type disables these controls.
    if (outcome.obstacle == ui::Obstacle::Disabled) Refuse("bei diesem Vertragstyp gesperrt");
    if (outcome.kind == ui::Outcome::Kind::Impossible) Refuse(ui::Describe(outcome.obstacle));
    // A box refused to be left; its message says why.
    if (outcome.kind == ui::Outcome::Kind::FocusKept) throw Refused{column_, {}};
  }

  [[noreturn]] void Refuse(const std::string& why) { throw Refused{column_, why}; }

 private:
  ui::Form& form_;
  std::string_view column_;
};

void SetCheck(ui::Form& form, ui::Person& person, std::string_view column, std::string_view name,
              bool checked) {
  Entry entry(form, column);
  auto& box = entry.Get<ui::CheckBox>(name);
  if ((box.Value() != 0) != checked) entry.Must(person.SetCheck(box, checked));
}

void Paste(ui::Form& form, ui::Person& person, std::string_view column, std::string_view name,
           const std::string& text) {
  Entry entry(form, column);
  entry.Must(person.Paste(entry.Get(name), text));
}

void PickDate(ui::Form& form, ui::Person& person, std::string_view column, std::string_view name,
              std::optional<platform::Date> date) {
  Entry entry(form, column);
  entry.Must(person.PickDate(entry.Get(name), date));
}

void Choose(ui::Form& form, ui::Person& person, std::string_view column, std::string_view name,
            const std::string& text) {
  Entry entry(form, column);
  const ui::Outcome outcome = person.ChooseText(entry.Get(name), text);
  if (outcome.obstacle == ui::Obstacle::NotInList) {
    entry.Refuse(fmt::format("„{}“ steht nicht zur Wahl", text));
  }
  entry.Must(outcome);
}

std::string German(platform::Date date) {
  return platform::FormatDate(date, platform::kGermanPattern);
}

// Whether every day has its own text: a pattern may leave out the day, or the century.
bool TellsDaysApart(const std::string& pattern) {
  const auto text = [&](std::int32_t year, std::int32_t month, std::int32_t day) {
    return platform::FormatDate(platform::FromCivil(year, month, day), pattern);
  };
  const std::string one = text(2001, 2, 3);
  return one != text(2001, 2, 4) && one != text(2001, 3, 3) && one != text(1901, 2, 3);
}

// The periods that the list has, for the message that it lacks one; empty where its
// dates can't be read.
std::string NearestPeriods(const ui::ListBox& periods, platform::Date wanted) {
  std::optional<platform::Date> before;
  std::optional<platform::Date> after;
  for (std::int32_t index = 0; index < periods.Count(); ++index) {
    const std::string& text = periods.ItemText(index);
    const auto start = platform::ParseDate(text.substr(0, text.find(" - ")));
    if (!start) return {};
    if (*start < wanted) before = start;
    if (*start > wanted && !after) after = start;
  }
  if (before && after)
    return fmt::format(", aber am {} und am {}", German(*before), German(*after));
  if (before) return fmt::format(", der letzte am {}", German(*before));
  if (after) return fmt::format(", der erste am {}", German(*after));
  return ", es gibt keinen";
}

// Two types of one name can't be distinguished in the list.
void ChooseType(ui::Form& form, ui::Person& person, const std::string& type) {
  constexpr std::string_view kColumn = "Vertragstyp";
  constexpr std::string_view kTypes = "lvwBezeichnung";
  Entry entry(form, kColumn);
  const auto& types = entry.Get<ui::ListView>(kTypes);
  std::int32_t count = 0;
  for (std::int32_t row = 1; row <= types.RowCount(); ++row) count += types.Text(row) == type;
  if (count == 0) entry.Refuse(fmt::format("kein freigegebener Vertragstyp „{}“", type));
  if (count > 1) entry.Refuse(fmt::format("„{}“ gibt es mehrmals", type));
  Choose(form, person, kColumn, kTypes, type);
}

}  // namespace

void DialogDriver::Begin(const Line& line, shell::Module& module) {
  line_ = &line;
  module_ = &module;
  module.last_shown_error.reset();
  failed_ = false;
  fatal_error_.reset();
  refusal_.clear();
  number_.clear();
  messages_.clear();
}

std::string DialogDriver::JoinedMessages() const {
  std::vector<std::string> different = messages_;
  different.erase(std::unique(different.begin(), different.end()), different.end());
  return fmt::format("{}", fmt::join(different, " | "));
}

ui::Answer DialogDriver::ShowMessage(const ui::Message& message) {
  messages_.push_back(formats::SingleLine(message.text));
  if (const auto& shown = module_->last_shown_error) {
    failed_ = true;
    if (!fatal_error_ && workspace::FatalStoreErrorOf(shown->Number())) fatal_error_ = shown;
  }
  return ui::DefaultAnswer(message.style);
}

void DialogDriver::ShowModal(ui::Form& form) {
  try {
    form.BeginModal();
    ui::Person person(form);
    try {
      FillIn(form, person);
    } catch (const Refused& refused) {
      refusal_ = fmt::format("Spalte {}: {}", refused.column,
                             refused.reason.empty() ? JoinedMessages() : refused.reason);
    }
    if (const auto* number = form.Find<ui::TextBox>("txtVertragnummer")) number_ = number->Text();
    if (form.Visible()) person.Close();
  } catch (...) {
    form.EndModal();
    throw;
  }
  form.EndModal();
}

// The type first, since choosing one resets what depends on it; the start before
// the day of signature, which follows it.
void DialogDriver::FillIn(ui::Form& form, ui::Person& person) {
  const Line& line = *line_;
  ChooseType(form, person, line.type);
  PickDate(form, person, "Vertragsbeginn", "DTPVertragBeginn", line.begin);
  PickDate(form, person, "GeschlossenAm", "DTPGeschlossenAm", line.closed_on);
  if (!line.responsible.empty()) {
    Choose(form, person, "Verantwortlich", "cboVerantwortlich", line.responsible);
  }
  if (line.discount) {
    Paste(form, person, "Rabatt", "txtRabatt",
          platform::FormatPlain(*line.discount, platform::Locale{}));
    Entry entry(form, "Rabatt");
    entry.Must(person.Leave(entry.Get("txtRabatt")));
  }
  if (line.discount_first_term_only) {
    SetCheck(form, person, "RabattNurErsteLaufzeit", "chkRabattNurErsteLaufzeit",
             *line.discount_first_term_only);
  }
  if (line.no_booking) {
    SetCheck(form, person, "Fremdfakturierung", "chkNoBooking", *line.no_booking);
  }
  if (!line.memo.empty()) Paste(form, person, "Bearbeitungshinweis", "txtMemo", line.memo);
  if (!line.number.empty()) {
    SetCheck(form, person, "Vertragsnummer", "ChkAutoNumber", false);
    Paste(form, person, "Vertragsnummer", "txtVertragnummer", line.number);
  }
  if (line.last_invoiced) ChoosePeriod(form, person);
  Entry entry(form, "Vertragstyp");
  entry.Must(person.Click(entry.Get("cmdOK")));
}

void DialogDriver::ChoosePeriod(ui::Form& form, ui::Person& person) {
  constexpr std::string_view kColumn = "ZuletztFakturiert";
  SetCheck(form, person, kColumn, "chkOldContract", true);
  Entry entry(form, kColumn);
  auto& periods = entry.Get<ui::ListBox>("lstInvoices");
  const std::string pattern = contract::ReadPersistVarSetting(
      *module_, schema::setting::g_DateFormat, platform::kGermanPattern);
  if (!TellsDaysApart(pattern))
    entry.Refuse(fmt::format("{} „{}“ zeigt Daten nicht ganz, der Zeitraum ist nicht zu erkennen",
                             schema::setting::g_DateFormat, pattern));
  const std::string start = platform::FormatDate(*line_->last_invoiced, pattern) + " - ";
  for (std::int32_t index = 0; index < periods.Count(); ++index) {
    if (!periods.ItemText(index).starts_with(start)) continue;
    entry.Must(person.Choose(periods, index));
    return;
  }
  entry.Refuse(fmt::format("kein Zeitraum beginnt am {}{}", German(*line_->last_invoiced),
                           NearestPeriods(periods, *line_->last_invoiced)));
}

}  // namespace pactora::takeover
