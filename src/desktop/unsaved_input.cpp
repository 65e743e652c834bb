#include "desktop/unsaved_input.h"

#include <QMessageBox>
#include <QPushButton>

#include "platform/Date.h"
#include "ui/controls.h"

namespace pactora::desktop {
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

bool MayDiscardInput(QWidget* dialog) {
  QMessageBox box(QMessageBox::Question, dialog->windowTitle(),
                  QStringLiteral("Die Eingaben sind nicht gespeichert."), QMessageBox::NoButton,
                  dialog);
  box.setObjectName(QStringLiteral("message"));
  QPushButton* go_on = box.addButton(QStringLiteral("&Weiter bearbeiten"), QMessageBox::RejectRole);
  QPushButton* discard = box.addButton(QStringLiteral("&Verwerfen"), QMessageBox::DestructiveRole);
  box.setDefaultButton(go_on);
  box.setEscapeButton(go_on);
  box.exec();
  return box.clickedButton() == discard;
}

}  // namespace pactora::desktop
