// How far something long is, with a button to stop it.
#pragma once

#include <QProgressDialog>
#include <QString>

#include "automation/dataset/dataset_files.h"

namespace pactora::desktop {

inline constexpr int kShowProgressEveryMs = 40;  // while something runs

class Progress final {
 public:
  // The window comes up when the work takes longer than a moment.
  Progress(const QString& title, QWidget* parent);

  // To be called by the work; raises DoorError::Interrupted when the user has asked
  // to stop. Must not be called when the progress is gone.
  dataset::Pause Pause();

 private:
  QProgressDialog dialog_;
};

}  // namespace pactora::desktop
