// Windows with messages that arrive at an object: windows of our own, and controls of the
// system whose messages pass by us first.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "ui/XPFrame.h"

namespace pactora::win32 {

struct WindowMessage {
  HWND window;
  UINT id;
  WPARAM w;
  LPARAM l;
};

// What a message is answered with; none leaves it to the system.
using Answered = std::optional<LRESULT>;
using Receiver = std::function<Answered(const WindowMessage&)>;

// The name of the class of our own windows.
inline constexpr wchar_t kWindowClass[] = L"PactoraWindow";

// A window whose messages come to the receiver, those during its making included; an
// exception there counts as no answer. It is destroyed with this object.
class OwnWindow {
 public:
  OwnWindow(Receiver receiver, DWORD style, DWORD extended_style, HWND parent);
  ~OwnWindow();
  OwnWindow(const OwnWindow&) = delete;
  OwnWindow& operator=(const OwnWindow&) = delete;

  HWND Handle() const { return window_; }

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT id, WPARAM w, LPARAM l);
  Receiver receiver_;
  HWND window_ = nullptr;
};

// While it lives, messages to a control of the system come to the receiver first.
// Requires: nothing else uses the control's user data.
class Hook {
 public:
  Hook(HWND control, Receiver receiver);
  ~Hook();
  Hook(const Hook&) = delete;
  Hook& operator=(const Hook&) = delete;

  // What the control itself does with the message.
  LRESULT Pass(const WindowMessage& message) const;

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT id, WPARAM w, LPARAM l);
  HWND control_;
  Receiver receiver_;
  WNDPROC before_;
};

// A control of the system as a child of parent.
HWND MakeControl(const wchar_t* window_class, DWORD style, DWORD extended_style, HWND parent,
                 int id = 0);

// Whether a message tells a parent what a child asks or reports.
bool ComesFromChild(UINT message);

void Move(HWND window, const ui::Rectangle& place);
void ShowOrHide(HWND window, bool visible);

}  // namespace pactora::win32
