#include "desktop/unsaved_input.h"

#include <QMessageBox>
#include <QPushButton>

namespace pactora::desktop {
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
