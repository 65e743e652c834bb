// Asking for the names of files.
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
// Likewise for a database that is there, one that is not, and a dataset. They begin in the folder,
// or for an empty one where the program was started.
QString AskDatabase(QWidget* parent, const QString& folder = {});
QString AskNewDatabase(QWidget* parent, const QString& title, const QString& proposed = {});
QString AskDataset(QWidget* parent, const QString& folder = {});

}  // namespace pactora::desktop
