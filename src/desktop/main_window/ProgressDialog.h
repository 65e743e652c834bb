// The progress of long work, with a button to stop it.
#pragma once

#include <QProgressDialog>
#include <QString>

#include "automation/dataset/dataset_files.h"

namespace pactora::desktop {

inline constexpr int kShowProgressEveryMs = 40;  // while something runs

class ProgressDialog final {
 public:
  // The window comes up when the work takes longer than a moment.
  ProgressDialog(const QString& title, QWidget* parent);

  // Shows the progress; raises DoorError::Interrupted when the user has asked to
  // stop. Must not be called after this object's end.
  dataset::Progress Reporter();

 private:
  QProgressDialog dialog_;
};

}  // namespace pactora::desktop
