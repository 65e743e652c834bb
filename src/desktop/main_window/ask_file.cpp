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

}  // namespace pactora::desktop
