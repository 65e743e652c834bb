// Message boxes and dialogs as windows of the system.
#pragma once

#include "ui/Screen.h"

namespace pactora::win32 {

// Everything is shown above the window that is active on the calling thread, the host's.
class Screen final : public ui::Screen {
 public:
  ui::Answer ShowMessage(const ui::Message& message) override;
  void ShowModal(ui::Form& form) override;
  void ProcessPendingMessages() override;
};

}  // namespace pactora::win32
