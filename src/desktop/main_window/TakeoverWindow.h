// Takes over a list of running contracts: asks for the files, shows the progress and
// the outcome of each line, and can be stopped and resumed.
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
  // The clock must outlive the window.
  TakeoverWindow(std::string database, const platform::Clock& clock, QWidget* parent);

  // Sets the list's file; as when it is typed, the report is named after it unless the
  // user names another.
  void SetList(const QString& file);
  // Carries out the list in a thread with a connection of its own; returns when it is
  // done or stopped. The window answers meanwhile.
  void Start();
  // Stops the running list after its current line.
  void Stop();
  // Whether any contract was made since the window was opened.
  bool Changed() const { return changed_; }

 protected:
  void reject() override;  // the escape key, and the window's frame

 private:
  QWidget* MakeFiles();
  void ChooseList();
  void ChooseReport();
  void SaveTemplate();
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
  QPushButton* template_ = nullptr;
  QPushButton* stop_ = nullptr;
  QPushButton* close_ = nullptr;
  QWidget* files_ = nullptr;
  QThread* worker_ = nullptr;  // null while no list runs
  bool running_ = false;
  bool changed_ = false;
};

}  // namespace pactora::desktop
