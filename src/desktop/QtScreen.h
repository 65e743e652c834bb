// The screen of the desktop: dialogs and message boxes as windows.
//
// A unit of work of the host ends wherever the program waits for a person: before a
// message box or a dialog is shown, and after each action of a person in a dialog.
// Errors at its end are raised from ShowMessage and ShowModal; an open dialog is
// hidden before.
#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <vector>

#include "ui/Screen.h"

namespace pactora::desktop {

class DialogWindow;

class QtScreen final : public ui::Screen {
 public:
  explicit QtScreen(std::function<void()> end_unit) : end_unit_(std::move(end_unit)) {}

  // The window that dialogs and messages belong to when no dialog is open; null
  // for none.
  void SetMainWindow(QWidget* window) { main_window_ = window; }

  ui::Answer ShowMessage(const ui::Message& message) override;
  void ShowModal(ui::Form& form) override;
  // What a person does meanwhile waits until the running action has ended.
  void ProcessPendingMessages() override;

 private:
  QWidget* TopWindow() const;

  std::function<void()> end_unit_;
  QPointer<QWidget> main_window_;
  std::vector<DialogWindow*> windows_;  // open ones, the topmost last
};

}  // namespace pactora::desktop
