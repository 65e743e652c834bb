// The window of one dialog. It makes a window for each control, has them placed, and is the
// door through which what a person does gets to the dialog.
//
// The dialog knows where the focus is and the windows follow: a key or a press that would move
// the focus asks the dialog first, so that a box that refuses to be left is never left, not
// even for a moment.
#pragma once

#include <windows.h>

#include <exception>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "ui/Form.h"
#include "ui/Person.h"
#include "win32/Metrics.h"
#include "win32/Placing.h"
#include "win32/binding/binders.h"
#include "win32/window.h"

namespace pactora::win32 {

class DialogWindow final : private PersonDoor, private ui::FormObserver {
 public:
  // The form must outlive the window. The owner, which may be null, can't be used while the
  // dialog is shown.
  DialogWindow(ui::Form& form, HWND owner);
  ~DialogWindow() override;
  DialogWindow(const DialogWindow&) = delete;
  DialogWindow& operator=(const DialogWindow&) = delete;

  HWND Handle() const { return window_.Handle(); }

  // Shows the form and returns when it was hidden, or when the thread is to end. Raises errors
  // of events that the form does not handle.
  void Run();
  // Shows what changed in lists by now.
  void Refresh();

 private:
  enum class By { Mouse, Key, KeyBackwards, Program };

  bool Act(const ui::Control& control, const Action& action) override;
  void RefreshLater() override;
  void ChosenLater(const Binder& binder) override;
  void Complain(const std::string& text) override;
  Answered Before(Binder& binder, const WindowMessage& message) override;
  const Metrics& Sizes() const override { return metrics_; }

  void ControlChanged(const ui::Control& control, ui::Property property) override;
  void FocusChanged(const ui::Control* control, ui::FocusCause cause) override;
  void CaptionChanged() override;
  void Hidden() override;

  void MakeWindows();
  void MakeToolTips();
  void ShowToolTip(const Binder& binder);
  // As large as the dialog, or as the screen allows, in the middle of the owner.
  void FitToScreen(HWND owner);
  void LoadFonts();
  void PlaceAll();
  void Loop();

  Answered Receive(const WindowMessage& message);
  Answered ReceiveInView(const WindowMessage& message);
  Answered ReceiveFromChild(const WindowMessage& message);

  // Keys that move in the dialog or end it; false for others. (keyboard.cpp)
  bool TakeKey(const MSG& message);
  bool PressReturn();
  bool PressAccessKey(dialogs::AccessKey key);
  bool GoToOption(bool forward);
  void GoOn(bool forward);

  // By Esc or by the window's frame: asks first where something was entered.
  void CloseByPerson();
  // Runs what a person did; afterwards the windows show the outcome. A failure ends the
  // dialog.
  ui::Outcome Carry(const Action& action);
  bool Enter(ui::Control& control, By by);
  void Click(ui::Control& control);
  // Takes over what was typed into the box that has the focus.
  bool CommitFocused();
  void ShowFocus(By by);
  Binder* BinderOf(const ui::Control* control) const;
  Binder* BinderOf(HWND part) const;

  ui::Form& form_;
  ui::Person person_{form_};
  Metrics metrics_;
  Placing placing_;
  OwnWindow window_;
  OwnWindow view_;
  HWND tool_tips_ = nullptr;
  std::map<const ui::Control*, Binder*> binder_of_;
  std::map<HWND, Binder*> parts_;
  std::map<const ui::Control*, dialogs::AccessKey> access_keys_;
  std::vector<std::wstring> tool_texts_;
  By by_ = By::Program;
  std::exception_ptr failure_;
  std::string input_at_start_;
  bool acting_ = false;
  bool refresh_asked_ = false;
  bool place_asked_ = false;
  std::vector<BinderPtr> binders_;  // in tab order; they go before the windows
};

}  // namespace pactora::win32
