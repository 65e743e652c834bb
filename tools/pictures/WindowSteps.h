// Things to do in windows as they come up: how pictures of the dialogs are made and
// how tests stand for a person. Works from inside the windows' own event loops.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QWidget>
#include <deque>
#include <functional>

namespace pactora::desktop {

class WindowSteps final : public QObject {
 public:
  using Action = std::function<void(QWidget& window)>;

  // The next step: once the window of that object name is the topmost one, the
  // action is carried out on it. "message" is a message box.
  void Add(const QString& window, Action action);

  // Carries out the steps while the call runs. A window that is open when no step
  // is left, and one that no step waits for, is closed after a while: a problem.
  void Run(const std::function<void()>& call);

  // What came differently, and what did not come.
  const QStringList& Problems() const { return problems_; }

 private:
  struct Step {
    QString window;
    Action action;
  };
  void Tick();

  std::deque<Step> steps_;
  QStringList problems_;
  QElapsedTimer waiting_;
  bool running_ = false;
};

}  // namespace pactora::desktop
