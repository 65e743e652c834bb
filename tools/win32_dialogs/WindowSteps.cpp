#include "win32_dialogs/WindowSteps.h"

#include <commctrl.h>

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "win32/text.h"

namespace pactora::win32 {
namespace {

constexpr UINT kInterval = 20;  // milliseconds

WindowSteps* running = nullptr;

struct Search {
  std::function<bool(HWND)> fits;
  HWND found = nullptr;
};

BOOL CALLBACK LookAt(HWND child, LPARAM data) {
  auto& search = *reinterpret_cast<Search*>(data);
  if (search.fits(child)) search.found = child;
  return search.found == nullptr;
}

HWND FindChild(HWND window, std::function<bool(HWND)> fits) {
  Search search{std::move(fits)};
  EnumChildWindows(window, LookAt, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

HWND Found(HWND window, const std::string& what) {
  if (window == nullptr) throw std::invalid_argument("no window " + what);
  return window;
}

}  // namespace

void WindowSteps::Run(const std::function<void()>& body) {
  running = this;
  const UINT_PTR timer = SetTimer(nullptr, 0, kInterval, Tick);
  body();
  KillTimer(nullptr, timer);
  if (std::exchange(running, nullptr) == nullptr) {
    MSG quit;
    PeekMessageW(&quit, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE);
  }
  if (problem_.empty() && next_ < steps_.size()) problem_ = "steps are left";
  steps_.clear();
  next_ = 0;
  if (!problem_.empty()) throw std::runtime_error(std::exchange(problem_, {}));
}

void CALLBACK WindowSteps::Tick(HWND, UINT, UINT_PTR, DWORD) {
  if (running != nullptr) running->TakeStep();
}

void WindowSteps::TakeStep() {
  const HWND window = GetActiveWindow();
  if (window == nullptr || GetInputState() != FALSE) return;
  try {
    if (next_ == steps_.size()) throw std::runtime_error("waits: " + Narrow(TextOf(window)));
    const Step step = steps_[next_++];
    step(window);
  } catch (const std::exception& error) {
    problem_ += error.what();
    running = nullptr;
    PostQuitMessage(1);  // ends every window that waits
  }
}

HWND Find(HWND dialog, const std::string& control) {
  const std::wstring name = Wide(control);
  return Found(
      FindChild(dialog, [&](HWND child) { return GetPropW(child, name.c_str()) != nullptr; }),
      control);
}

HWND FindButton(HWND window, const std::wstring& text) {
  return Found(FindChild(window,
                         [&](HWND child) {
                           std::wstring caption = TextOf(child);
                           std::erase(caption, L'&');
                           return caption == text;
                         }),
               Narrow(text));
}

HWND PartOf(HWND date, const wchar_t* window_class) {
  return Found(FindWindowExW(date, nullptr, window_class, nullptr),
               Narrow(std::wstring_view(window_class)));
}

void Click(HWND button) { SendMessageW(button, BM_CLICK, 0, 0); }

void Type(HWND box, const std::wstring& text) {
  for (const wchar_t character : text) SendMessageW(box, WM_CHAR, character, 1);
}

void PressKey(WPARAM key) { PostMessageW(GetFocus(), WM_KEYDOWN, key, 1); }

void PressAccessKey(HWND dialog, wchar_t character) {
  constexpr LPARAM kAltIsHeld = 1 << 29;
  PostMessageW(dialog, WM_SYSCHAR, static_cast<WPARAM>(character), kAltIsHeld);
}

void ClickRow(HWND list, int row) {
  RECT place{};
  wchar_t name[32] = L"";
  GetClassNameW(list, name, 32);
  if (lstrcmpiW(name, WC_LISTVIEWW) == 0) {
    place.left = LVIR_LABEL;
    SendMessageW(list, LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&place));
  } else {
    SendMessageW(list, LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&place));
  }
  const LPARAM point = MAKELPARAM(place.left + 4, (place.top + place.bottom) / 2);
  PostMessageW(list, WM_LBUTTONUP, 0, point);  // some wait for it within the press
  SendMessageW(list, WM_LBUTTONDOWN, MK_LBUTTON, point);
  SendMessageW(list, WM_LBUTTONUP, 0, point);
}

void ChooseEntry(HWND box, int index) {
  SendMessageW(box, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(4, 4));
  SendMessageW(box, WM_LBUTTONUP, 0, MAKELPARAM(4, 4));
  COMBOBOXINFO parts{};
  parts.cbSize = sizeof parts;
  SendMessageW(box, CB_GETCOMBOBOXINFO, 0, reinterpret_cast<LPARAM>(&parts));
  ClickRow(parts.hwndList, index);
}

}  // namespace pactora::win32
