// Takes over a list of running contracts: chooses the files, shows how far it is and
// what became of each line, and can be stopped and resumed.
#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QThread>
#include <memory>
#include <string>

#include "automation/takeover/job.h"
#include "desktop/main_window/ListModel.h"
#include "desktop/main_window/ListTable.h"
#include "platform/Clock.h"

namespace pactora::desktop {

class TakeoverWindow final : public QDialog {
 public:
  // The clock must outlive the
  // window.
  TakeoverWindow(std::string database, const platform::Clock& clock, QWidget* parent);

  // The list's file; the report's is named after it until somebody names another.
  void SetList(const QString& file);
  // Carries out the list in a thread with a connection of its own; returns when it is
  // done or stopped. The window answers meanwhile.
  void Start();
  // Asks the list that runs to stop behind the line that it is at.
  void Stop();
  // Whether any contract was made since the window was opened.
  bool Changed() const { return changed_; }

 protected:
  void reject() override;  // the escape key, and the window's frame

 private:
  QWidget* MakeFiles();
  void ChooseList();
  void ChooseReport();
  void Run(takeover::Job& job);
  void ShowRows(std::vector<ListRow> rows);
  void SetRunning(bool running);

  std::string database_;
  const platform::Clock& clock_;
  QLineEdit list_;
  QLineEdit report_;
  QCheckBox rehearsal_;
  QProgressBar progress_;
  QLabel outcome_;
  ListModel lines_;
  ListTable table_;
  QPushButton* start_ = nullptr;
  QPushButton* stop_ = nullptr;
  QPushButton* close_ = nullptr;
  QWidget* files_ = nullptr;
  QThread* worker_ = nullptr;  // null while no list runs
  bool running_ = false;
  bool changed_ = false;
};

}  // namespace pactora::desktop
