#include "desktop/main_window/WaitBox.h"

#include <QApplication>
#include <QPushButton>
#include <QThread>
#include <QWindow>

#include "automation/workspace/database.h"

namespace pactora::desktop {
namespace {

constexpr std::chrono::milliseconds kPatience(1000);

WaitBox* wait_box = nullptr;

bool IsGivenUp(std::chrono::milliseconds waited) {
  QThread* const thread = QThread::currentThread();
  return thread == wait_box->thread() ? wait_box->GiveUp(waited)
                                      : thread->isInterruptionRequested();
}

}  // namespace

WaitBox::WaitBox() {
  // Fires with the first events that are handled after the action.
  action_ended_.setInterval(0);
  action_ended_.setSingleShot(true);
  connect(&action_ended_, &QTimer::timeout, this, [this] { delete box_; });
  wait_box = this;
  workspace::GiveUpWaitingWhen(IsGivenUp);
}

WaitBox::~WaitBox() {
  workspace::GiveUpWaitingWhen(nullptr);
  delete box_;
}

bool WaitBox::GiveUp(std::chrono::milliseconds waited) {
  if (!box_ && waited < kPatience) return false;
  if (!box_) Open();
  if (box_->isVisible()) {
    qApp->installEventFilter(this);
    QApplication::processEvents();
    qApp->removeEventFilter(this);
  }
  return !box_->isVisible();
}

void WaitBox::Open() {
  QWidget* const dialog = QApplication::activeModalWidget();
  box_ = new QMessageBox(dialog ? dialog : QApplication::activeWindow());
  box_->setObjectName(QStringLiteral("waiting"));
  box_->setWindowTitle(QStringLiteral("Pactora"));
  box_->setIcon(QMessageBox::Information);
  box_->setText(QStringLiteral("Die Datenbank wird von jemand anderem benutzt …"));
  box_->addButton(QStringLiteral("&Abbrechen"), QMessageBox::RejectRole);
  box_->setWindowModality(Qt::ApplicationModal);
  box_->show();
  action_ended_.start();
}

bool WaitBox::IsPartOfBox(const QObject* object) const {
  if (object == box_->windowHandle()) return true;
  for (; object; object = object->parent())
    if (object == box_) return true;
  return false;
}

bool WaitBox::eventFilter(QObject* watched, QEvent* event) {
  if (IsPartOfBox(watched)) return false;
  const bool is_timer = event->type() == QEvent::Timer;  // it fires again
  return is_timer || event->type() == QEvent::Close || event->isInputEvent();
}

}  // namespace pactora::desktop
