// Sizes, columns and look of the windows as a user left them, kept for each user of
// the database.
#pragma once

#include <QMainWindow>
#include <QSettings>
#include <QString>

#include "desktop/appearance.h"

namespace pactora::desktop {

class WindowMemory {
 public:
  // The settings must outlive the memory.
  WindowMemory(QSettings& settings, const QString& user)
      : settings_(settings), group_(QStringLiteral("windows/") + user) {}

  // Puts the window, its splitters and the columns of its lists where they were; what
  // is not remembered stays. All of them are known by their object names.
  void Restore(QMainWindow& window) const;
  void Keep(const QMainWindow& window);

  Theme Look() const;
  void KeepLook(Theme theme);

 private:
  QSettings& settings_;
  QString group_;
};

}  // namespace pactora::desktop
