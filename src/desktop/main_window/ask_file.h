// Asking for the name of a file to be written.
#pragma once

#include <QString>

class QWidget;

namespace pactora::desktop {

struct FileQuestion {
  QString title;
  QString proposed;         // name of the file
  QString filter;           // "Kalender (*.ics)"
  QString suffix;           // added to a name without one
  bool may_replace = true;  // asks again before a file is replaced; else the caller refuses
};

// The file that the person named; empty for none.
QString AskNewFile(QWidget* parent, const FileQuestion& question);

}  // namespace pactora::desktop
