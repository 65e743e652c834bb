// A person at the dialogs of Windows, made of window messages.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

namespace pactora::win32 {

// Steps for the windows that come up while something runs. Each is taken when the thread has
// nothing else to do, with the window that is active then: a dialog or a message box.
class WindowSteps {
 public:
  using Step = std::function<void(HWND window)>;

  void Add(Step step) { steps_.push_back(std::move(step)); }
  // Raises what a step raised, and std::runtime_error when steps are left at the end or a
  // window waits with none left; every window is closed then.
  void Run(const std::function<void()>& body);

 private:
  static void CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD);
  void TakeStep();

  std::vector<Step> steps_;
  std::size_t next_ = 0;
  std::string problem_;
};

// The window of a control in the dialog. Raises std::invalid_argument where there is none.
HWND Find(HWND dialog, const std::string& control);
// The window of a message box's or dialog's button with this text, marks left out.
HWND FindButton(HWND window, const std::wstring& text);
// One of the windows that make up a date: its box, or its tick.
HWND PartOf(HWND date, const wchar_t* window_class);

void Click(HWND button);
// Types into the box, key by key, as if it had the focus.
void Type(HWND box, const std::wstring& text);
// A key for whichever window has the focus, taken before the next step.
void PressKey(WPARAM key);
// Alt and the character, likewise.
void PressAccessKey(HWND dialog, wchar_t character);
// A click on a row of a list view or list box, from 0.
void ClickRow(HWND list, int row);
// Chooses an entry of a combo box as its open list does.
void ChooseEntry(HWND box, int index);

}  // namespace pactora::win32
