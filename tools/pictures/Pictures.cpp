#include "pictures/Pictures.h"

#include <QApplication>
#include <QDir>

namespace pactora::desktop {

Pictures::Pictures(const QString& folder, const QString& ending)
    : folder_(folder), ending_(ending) {
  QDir().mkpath(folder);
}

void Pictures::Take(QWidget& window, const char* name) {
  window.resize(window.sizeHint());
  TakeAsItIs(window, name);
}

void Pictures::TakeAsItIs(QWidget& window, const char* name) {
  QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  const QString path = QDir(folder_).filePath(QString::fromUtf8(name) + ending_);
  if (!window.grab().save(path)) problems_ += QStringLiteral("not written: ") + path;
}

}  // namespace pactora::desktop
