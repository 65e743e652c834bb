// Pictures of windows in files.
#pragma once

#include <QString>
#include <QStringList>
#include <QWidget>

namespace pactora::desktop {

class Pictures {
 public:
  // The files go into the folder, which is made where it is missing, and end with
  // ending.
  Pictures(const QString& folder, const QString& ending);

  // Takes the window at the size that it asks for, or as it is.
  void Take(QWidget& window, const char* name);
  void TakeAsItIs(QWidget& window, const char* name);

  // What went wrong.
  QStringList& Problems() { return problems_; }

 private:
  const QString folder_;
  const QString ending_;
  QStringList problems_;
};

}  // namespace pactora::desktop
