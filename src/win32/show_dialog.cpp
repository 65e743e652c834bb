#include "win32/show_dialog.h"

#include "platform/Error.h"

namespace pactora::win32 {

void ShowDialog(ui::Form&, HWND) {
  // Dialogs have no windows here yet; who calls them is told so.
  platform::Raise(platform::RuntimeError::MemberNotOffered);
}

}  // namespace pactora::win32
