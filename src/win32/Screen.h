// Message boxes and dialogs of the add-on as windows of the system.
#pragma once

#include <vector>

#include "ui/Screen.h"

namespace pactora::win32 {

class DialogWindow;

// Everything is shown above the topmost dialog of this screen; without one, above the window
// that is active on the calling thread, the host's.
class Screen final : public ui::Screen {
 public:
  ui::Answer ShowMessage(const ui::Message& message) override;
  // Raises errors of events that the form does not handle.
  void ShowModal(ui::Form& form) override;
  void ProcessPendingMessages() override;

 private:
  std::vector<DialogWindow*> windows_;  // open ones, the topmost last
};

}  // namespace pactora::win32
