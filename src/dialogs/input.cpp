#include "dialogs/input.h"

#include "platform/Date.h"
#include "ui/controls.h"

namespace pactora::dialogs {
namespace {

std::string InputOf(const ui::Control& control) {
  if (const auto* box = dynamic_cast<const ui::TextBox*>(&control)) return box->Text();
  if (const auto* box = dynamic_cast<const ui::ComboBox*>(&control)) return box->Text();
  if (const auto* box = dynamic_cast<const ui::CheckBox*>(&control))
    return std::to_string(box->Value());
  if (const auto* option = dynamic_cast<const ui::OptionButton*>(&control))
    return option->Value() ? "1" : "0";
  if (const auto* picker = dynamic_cast<const ui::DTPicker*>(&control))
    return picker->IsNull() ? std::string() : std::to_string(picker->ShownDate().days);
  std::string rows;
  if (const auto* view = dynamic_cast<const ui::ListView*>(&control))
    for (std::int32_t row = 1; row <= view->RowCount(); ++row) rows += view->Text(row) + '\n';
  return rows;
}

}  // namespace

std::string InputOf(const ui::Form& form) {
  std::string input;
  for (const ui::Control* control : form.Controls()) input += InputOf(*control) + '\0';
  return input;
}

}  // namespace pactora::dialogs
