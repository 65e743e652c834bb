// The databases that were opened last, kept in the settings of the person at the machine.
#pragma once

#include <QSettings>
#include <QString>
#include <QStringList>

namespace pactora::desktop {

class RecentDatabases {
 public:
  static constexpr int kMost = 10;

  // The settings must outlive this object.
  explicit RecentDatabases(QSettings& settings) : settings_(settings) {}

  // Their names from the root of the file system, the last one first.
  QStringList All() const;
  // It is the first from now on; the oldest ones go.
  void Add(const QString& database);
  void Remove(const QString& database);

 private:
  void Keep(const QStringList& databases);

  QSettings& settings_;
};

}  // namespace pactora::desktop
