#include "win32/Screen.h"

#include <windows.h>

#include <string>

#include "win32/DialogWindow.h"
#include "win32/system.h"
#include "win32/text.h"

namespace pactora::win32 {

ui::Answer Screen::ShowMessage(const ui::Message& message) {
  const CommonControls controls;
  if (!windows_.empty()) windows_.back()->Refresh();
  const HWND owner = windows_.empty() ? GetActiveWindow() : windows_.back()->Handle();
  switch (MessageBoxW(owner, Wide(message.text).c_str(), Wide(message.title).c_str(),
                      static_cast<UINT>(message.style))) {
    case IDYES:
      return ui::Answer::Yes;
    case IDNO:
      return ui::Answer::No;
    case IDOK:
      return ui::Answer::Ok;
    default:  // there is no window to be had
      return ui::DefaultAnswer(message.style);
  }
}

void Screen::ShowModal(ui::Form& form) {
  const CommonControls controls;
  if (!windows_.empty()) windows_.back()->Refresh();
  const HWND owner = windows_.empty() ? GetActiveWindow() : windows_.back()->Handle();
  DialogWindow window(form, owner);
  windows_.push_back(&window);
  try {
    window.Run();
  } catch (...) {
    windows_.pop_back();
    throw;
  }
  windows_.pop_back();
}

void Screen::ProcessPendingMessages() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
    if (message.message == WM_QUIT) {
      PostQuitMessage(static_cast<int>(message.wParam));
      return;
    }
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

}  // namespace pactora::win32
