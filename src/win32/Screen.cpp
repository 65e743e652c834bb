#include "win32/Screen.h"

#include <windows.h>

#include "component/com/text.h"
#include "win32/show_dialog.h"

namespace pactora::win32 {

ui::Answer Screen::ShowMessage(const ui::Message& message) {
  const std::wstring text = component::Wide(message.text);
  const std::wstring title = component::Wide(message.title);
  switch (MessageBoxW(GetActiveWindow(), text.c_str(), title.c_str(),
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

void Screen::ShowModal(ui::Form& form) { ShowDialog(form, GetActiveWindow()); }

void Screen::ProcessPendingMessages() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (message.message == WM_QUIT) {
      PostQuitMessage(static_cast<int>(message.wParam));
      return;
    }
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

}  // namespace pactora::win32
