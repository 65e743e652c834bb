#include "win32/window.h"

#include <utility>

namespace pactora::win32 {
namespace {

HINSTANCE ThisModule() {
  HMODULE module = nullptr;
  GetModuleHandleExW(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      reinterpret_cast<const wchar_t*>(&ThisModule), &module);
  return module;
}

// No exception gets into the system's code.
Answered Ask(const Receiver& receiver, const WindowMessage& message) {
  try {
    return receiver(message);
  } catch (...) {
    return std::nullopt;
  }
}

// Registered until this file is unloaded.
class WindowClass {
 public:
  explicit WindowClass(WNDPROC procedure) {
    WNDCLASSEXW own_class{};
    own_class.cbSize = sizeof own_class;
    own_class.lpfnWndProc = procedure;
    own_class.hInstance = ThisModule();
    own_class.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));  // the arrow
    own_class.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    own_class.lpszClassName = kWindowClass;
    RegisterClassExW(&own_class);
  }
  ~WindowClass() { UnregisterClassW(kWindowClass, ThisModule()); }
  WindowClass(const WindowClass&) = delete;
  WindowClass& operator=(const WindowClass&) = delete;
};

}  // namespace

LRESULT CALLBACK OwnWindow::Procedure(HWND window, UINT id, WPARAM w, LPARAM l) {
  if (id == WM_NCCREATE) {
    auto* own = static_cast<OwnWindow*>(reinterpret_cast<CREATESTRUCTW*>(l)->lpCreateParams);
    own->window_ = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(own));
  }
  auto* own = reinterpret_cast<OwnWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (own && id == WM_NCDESTROY) own->window_ = nullptr;
  const Answered answer = own ? Ask(own->receiver_, {window, id, w, l}) : std::nullopt;
  return answer ? *answer : DefWindowProcW(window, id, w, l);
}

OwnWindow::OwnWindow(Receiver receiver, DWORD style, DWORD extended_style, HWND parent)
    : receiver_(std::move(receiver)) {
  static const WindowClass own_class(Procedure);
  window_ = CreateWindowExW(extended_style, kWindowClass, L"", style, 0, 0, 0, 0, parent, nullptr,
                            ThisModule(), this);
}

OwnWindow::~OwnWindow() {
  if (window_ == nullptr) return;  // gone with its parent
  SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
  DestroyWindow(window_);
}

LRESULT CALLBACK Hook::Procedure(HWND window, UINT id, WPARAM w, LPARAM l) {
  const auto* hook = reinterpret_cast<Hook*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (hook == nullptr) return DefWindowProcW(window, id, w, l);
  const WindowMessage message{window, id, w, l};
  const Answered answer = Ask(hook->receiver_, message);
  return answer ? *answer : hook->Pass(message);
}

Hook::Hook(HWND control, Receiver receiver)
    : control_(control),
      receiver_(std::move(receiver)),
      before_(reinterpret_cast<WNDPROC>(GetWindowLongPtrW(control, GWLP_WNDPROC))) {
  SetWindowLongPtrW(control, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  SetWindowLongPtrW(control, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(Procedure));
}

Hook::~Hook() {
  if (!IsWindow(control_)) return;
  SetWindowLongPtrW(control_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(before_));
  SetWindowLongPtrW(control_, GWLP_USERDATA, 0);
}

LRESULT Hook::Pass(const WindowMessage& message) const {
  return CallWindowProcW(before_, message.window, message.id, message.w, message.l);
}

HWND MakeControl(const wchar_t* window_class, DWORD style, DWORD extended_style, HWND parent,
                 int id) {
  return CreateWindowExW(extended_style, window_class, L"", style | WS_CHILD, 0, 0, 0, 0, parent,
                         reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), ThisModule(), nullptr);
}

bool ComesFromChild(UINT message) {
  return message == WM_COMMAND || message == WM_NOTIFY ||
         (message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC);
}

void Move(HWND window, const ui::Rectangle& place) {
  SetWindowPos(window, nullptr, place.left, place.top, place.right - place.left,
               place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

void ShowOrHide(HWND window, bool visible) {
  ShowWindow(window, visible ? SW_SHOWNOACTIVATE : SW_HIDE);
}

}  // namespace pactora::win32
