#include "desktop/main_window/ask_file.h"

#include <QFileDialog>

namespace pactora::desktop {

QString AskNewFile(QWidget* parent, const FileQuestion& question) {
  QFileDialog dialog(parent, question.title, {}, question.filter);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setDefaultSuffix(question.suffix);
  dialog.setOption(QFileDialog::DontConfirmOverwrite, !question.may_replace);
  dialog.selectFile(question.proposed);
  return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().constFirst() : QString();
}

QString AskDatabase(QWidget* parent, const QString& folder) {
  return QFileDialog::getOpenFileName(
      parent, QStringLiteral("Datenbank öffnen"), folder,
      QStringLiteral("Datenbanken (*.db *.sqlite);;Alle Dateien (*)"));
}

QString AskNewDatabase(QWidget* parent, const QString& title, const QString& proposed) {
  return AskNewFile(
      parent, {title, proposed, QStringLiteral("Datenbanken (*.db)"), QStringLiteral("db"), false});
}

QString AskDataset(QWidget* parent, const QString& folder) {
  return QFileDialog::getOpenFileName(parent, QStringLiteral("Datenbestand importieren"), folder,
                                      QStringLiteral("Datenbestände (*.json);;Alle Dateien (*)"));
}

}  // namespace pactora::desktop
