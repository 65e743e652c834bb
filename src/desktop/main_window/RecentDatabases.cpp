#include "desktop/main_window/RecentDatabases.h"

#include <QDir>
#include <QFileInfo>

namespace pactora::desktop {
namespace {

const QString kRecent = QStringLiteral("recent_databases");

}  // namespace

QStringList RecentDatabases::All() const { return settings_.value(kRecent).toStringList(); }

void RecentDatabases::Add(const QString& database) {
  const QString name = QDir::cleanPath(QFileInfo(database).absoluteFilePath());
  QStringList databases = All();
  databases.removeAll(name);
  databases.prepend(name);
  Keep(databases.mid(0, kMost));
}

void RecentDatabases::Remove(const QString& database) {
  QStringList databases = All();
  databases.removeAll(database);
  Keep(databases);
}

void RecentDatabases::Keep(const QStringList& databases) {
  settings_.setValue(kRecent, databases);
  settings_.sync();
}

}  // namespace pactora::desktop
