// What a person sees before a database is open: those that were opened last, and ways to another.
#pragma once

#include <QDialog>
#include <QPushButton>
#include <QTreeWidget>
#include <functional>
#include <string>

#include "automation/dataset/dataset_files.h"
#include "desktop/main_window/RecentDatabases.h"

class QBoxLayout;

namespace pactora::desktop {

class StartWindow final : public QDialog {
 public:
  // What was opened last must outlive the window.
  explicit StartWindow(RecentDatabases& recent);

  // A person has chosen this database, or made it.
  std::function<void(const std::string& database)> OpenAsked;

  // Make a database of that name; a failure is told, and nothing is left behind.
  void Make(const QString& database, dataset::Content content);
  void ImportFrom(const QString& file, const QString& database);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  QWidget* MakeRecent();
  void AddWay(QBoxLayout& ways, const char* name, const QString& text, const QString& tip,
              void (StartWindow::*act)());
  void ShowRecent(int chosen);
  void OpenChosen();
  void RemoveChosen();
  void AskOpen();
  void AskNew();
  void AskSample();
  void AskImport();

  QString Chosen() const;
  // Where files are looked for first: beside the database that was opened last.
  QString Folder() const;
  QString InFolder(const char* file) const;
  void MakeBy(const QString& title, const QString& database,
              const std::function<void(const dataset::Progress& progress)>& make);

  RecentDatabases& recent_;
  QTreeWidget list_;
  QPushButton open_;
  QPushButton remove_;
};

}  // namespace pactora::desktop
