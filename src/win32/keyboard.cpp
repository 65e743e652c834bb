// The keys of a dialog: tab and arrows between controls, return and escape, access keys.
#include <algorithm>

#include "dialogs/order.h"
#include "platform/Text.h"
#include "win32/DialogWindow.h"
#include "win32/text.h"

namespace pactora::win32 {
namespace {

bool IsHeld(int key) { return GetKeyState(key) < 0; }

bool CanClick(const ui::Control* control) {
  return control && control->Reach() == ui::Obstacle::None;
}

dialogs::AccessKey KeyOf(WPARAM character) {
  const auto letter = static_cast<wchar_t>(character);
  const std::string lower = platform::LowerCase(Narrow(std::wstring_view(&letter, 1)));
  return platform::FirstCode(lower).value_or(0);
}

}  // namespace

bool DialogWindow::TakeKey(const MSG& message) {
  const bool here = message.hwnd == Handle() || IsChild(Handle(), message.hwnd) != FALSE;
  if (!here || acting_ || !form_.Visible()) return false;
  if (message.message == WM_SYSKEYDOWN && message.wParam == VK_MENU) {
    SendMessageW(Handle(), WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEACCEL | UISF_HIDEFOCUS),
                 0);
  }
  if (message.message == WM_SYSCHAR) return PressAccessKey(KeyOf(message.wParam));
  if (message.message != WM_KEYDOWN) return false;
  const Binder* binder = BinderOf(form_.Focus());
  if (binder && binder->TakesKey(message.wParam)) return false;
  switch (message.wParam) {
    case VK_TAB:
      if (IsHeld(VK_CONTROL)) return false;
      SendMessageW(Handle(), WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS), 0);
      GoOn(!IsHeld(VK_SHIFT));
      return true;
    case VK_ESCAPE:
      CloseByPerson();
      return true;
    case VK_RETURN:
      return PressReturn();
    case VK_UP:
    case VK_LEFT:
      return GoToOption(false);
    case VK_DOWN:
    case VK_RIGHT:
      return GoToOption(true);
    default:
      return false;
  }
}

void DialogWindow::GoOn(bool forward) {
  const By by = forward ? By::Key : By::KeyBackwards;
  // A control may have several stops.
  if (const Binder* binder = BinderOf(form_.Focus())) {
    const std::vector<HWND> stops = binder->FocusStops();
    const auto here = std::ranges::find(stops, GetFocus());
    if (here != stops.end()) {
      const bool ends = forward ? here + 1 == stops.end() : here == stops.begin();
      if (!ends && IsWindowEnabled(*(forward ? here + 1 : here - 1)) != FALSE) {
        SetFocus(*(forward ? here + 1 : here - 1));
        return;
      }
    }
  }
  if (ui::Control* stop = dialogs::NextStop(form_, forward)) Enter(*stop, by);
}

bool DialogWindow::PressReturn() {
  ui::Control* pressed = form_.Focus();
  if (!pressed || pressed->Kind() != ui::ControlKind::Button) pressed = form_.DefaultButton();
  if (CanClick(pressed)) Click(*pressed);
  return true;
}

// The arrow keys choose among options that exclude each other.
bool DialogWindow::GoToOption(bool forward) {
  const ui::Control* here = form_.Focus();
  if (!here || here->Kind() != ui::ControlKind::OptionButton) return false;
  std::vector<ui::Control*> options;
  for (ui::Control* sibling : here->Parent().Children()) {
    if (sibling->Kind() == ui::ControlKind::OptionButton && CanClick(sibling))
      options.push_back(sibling);
  }
  const auto found = std::ranges::find(options, here);
  if (found == options.end()) return true;
  if (!forward) std::ranges::reverse(options);
  const auto place = static_cast<std::size_t>(std::ranges::find(options, here) - options.begin());
  Click(*options[(place + 1) % options.size()]);
  return true;
}

bool DialogWindow::PressAccessKey(dialogs::AccessKey key) {
  for (const auto& [control, access_key] : access_keys_) {
    if (access_key != key || key == 0) continue;
    if (const auto* label = dynamic_cast<const ui::Label*>(control)) {
      const ui::Control* box = dialogs::LabelledBy(*label);
      if (CanClick(box)) Enter(BinderOf(box)->Control(), By::Key);
    } else if (CanClick(control)) {
      Click(BinderOf(control)->Control());
    }
    return true;
  }
  return false;
}

}  // namespace pactora::win32
