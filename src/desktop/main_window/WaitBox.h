// What a person sees while another user keeps the database.
#pragma once

#include <QEvent>
#include <QMessageBox>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <chrono>

namespace pactora::desktop {

// An action runs on the windows' thread, and waits there too. After a second of it a
// box says so and offers to give up. While it waits the windows are repainted, but nothing
// else happens on this thread that could use the connection: timers fire when the action
// has ended, and what a person does elsewhere is refused. A worker's wait ends when its
// thread is asked to interrupt.
class WaitBox final : public QObject {
 public:
  // Is asked by the waits of all databases as long as it lives; there is one at most,
  // on the windows' thread.
  WaitBox();
  ~WaitBox() override;

  // To be called again and again during a wait, on the windows' thread, with how long it
  // has lasted: handles the box's events. Returns whether the person has given up, which
  // holds for all further waits of the running action.
  bool GiveUp(std::chrono::milliseconds waited);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Open();
  bool IsPartOfBox(const QObject* object) const;

  QPointer<QMessageBox> box_;  // null until it comes up; goes with the dialog that waits
  QTimer action_ended_;
};

}  // namespace pactora::desktop
