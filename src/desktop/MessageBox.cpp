#include "desktop/MessageBox.h"

#include <QMessageBox>
#include <QPushButton>

#include "desktop/text.h"

namespace pactora::desktop {
namespace {

constexpr std::int32_t kIconBits = 0xF0;

QMessageBox::Icon IconOf(std::int32_t style) {
  switch (style & kIconBits) {
    case ui::style::kQuestion:
      return QMessageBox::Question;
    case ui::style::kExclamation:
      return QMessageBox::Warning;
    case ui::style::kInformation:
      return QMessageBox::Information;
    default:
      return QMessageBox::NoIcon;
  }
}

struct ButtonKind {
  ui::Answer answer;
  QMessageBox::StandardButton button;
  const char* text;
};

constexpr ButtonKind kButtons[] = {
    {ui::Answer::Ok, QMessageBox::Ok, "OK"},
    {ui::Answer::Yes, QMessageBox::Yes, "&Ja"},
    {ui::Answer::No, QMessageBox::No, "&Nein"},
};

}  // namespace

ui::Answer ShowMessageBox(const ui::Message& message, QWidget* parent) {
  QMessageBox box(parent);
  box.setObjectName(QStringLiteral("message"));
  box.setWindowTitle(ToQt(message.title));
  box.setTextFormat(Qt::PlainText);
  box.setTextInteractionFlags(Qt::TextSelectableByMouse);
  box.setIcon(IconOf(message.style));
  box.setText(ToQt(message.text));
  for (const ButtonKind& kind : kButtons) {
    if (!ui::Offers(message.style, kind.answer)) continue;
    QPushButton* button = box.addButton(kind.button);
    button->setText(QString::fromUtf8(kind.text));
    if (kind.answer == ui::DefaultAnswer(message.style)) box.setDefaultButton(kind.button);
    if (kind.answer != ui::Answer::Yes) box.setEscapeButton(kind.button);
  }
  const int pressed = box.exec();
  for (const ButtonKind& kind : kButtons) {
    if (kind.button == pressed) return kind.answer;
  }
  return ui::DefaultAnswer(message.style);
}

}  // namespace pactora::desktop
