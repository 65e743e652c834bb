#include "desktop/main_window/ProgressDialog.h"

#include <QElapsedTimer>
#include <memory>

#include "automation/formats/errors.h"

namespace pactora::desktop {
namespace {

constexpr int kParts = 1000;

}  // namespace

ProgressDialog::ProgressDialog(const QString& title, QWidget* parent) : dialog_(parent) {
  dialog_.setObjectName(QStringLiteral("progress"));
  dialog_.setWindowTitle(QStringLiteral("Pactora"));
  dialog_.setLabelText(title);
  dialog_.setCancelButtonText(QStringLiteral("&Anhalten"));
  dialog_.setWindowModality(Qt::ApplicationModal);
  dialog_.setRange(0, kParts);
  dialog_.setMinimumDuration(500);
}

dataset::Progress ProgressDialog::Reporter() {
  const auto since = std::make_shared<QElapsedTimer>();
  return [this, since](std::size_t done, std::size_t all) {
    if (since->isValid() && since->elapsed() < kShowProgressEveryMs) return;
    since->start();
    const double part = all == 0 ? 0 : static_cast<double>(done) / static_cast<double>(all);
    // Never full here: writing to the disk follows.
    dialog_.setValue(static_cast<int>(part * (kParts - 1)));
    if (dialog_.wasCanceled()) formats::RaiseInterrupted();
  };
}

}  // namespace pactora::desktop
