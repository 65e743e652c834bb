#include "pictures/WindowSteps.h"

#include <QApplication>
#include <QDialog>
#include <QTimer>
#include <utility>

namespace pactora::desktop {
namespace {

constexpr int kTickMs = 1;
constexpr int kLongestWaitMs = 5000;

}  // namespace

void WindowSteps::Add(const QString& window, Action action) {
  steps_.push_back({window, std::move(action)});
}

void WindowSteps::Run(const std::function<void()>& call) {
  running_ = true;
  waiting_.start();
  QTimer::singleShot(0, this, [this] { Tick(); });
  call();
  running_ = false;
  for (const Step& step : steps_) problems_ += QStringLiteral("did not come: ") + step.window;
  steps_.clear();
}

void WindowSteps::Tick() {
  if (!running_) return;
  // Asked for before the step: its action may open the next window and return
  // only when that is closed.
  QTimer::singleShot(kTickMs, this, [this] { Tick(); });
  auto* top = qobject_cast<QDialog*>(QApplication::activeModalWidget());
  if (!top || !top->isVisible()) return;
  if (!steps_.empty() && steps_.front().window == top->objectName()) {
    const Step step = std::move(steps_.front());
    steps_.pop_front();
    waiting_.restart();
    step.action(*top);
    waiting_.restart();
    return;
  }
  if (waiting_.elapsed() < kLongestWaitMs) return;
  problems_ += QStringLiteral("unexpected: ") + top->objectName();
  top->reject();
}

}  // namespace pactora::desktop
