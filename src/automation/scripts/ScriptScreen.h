// The screen of an automation script: carries out the script's actions in the
// dialogs that come up, answers message boxes, and writes down what happens.
//
// An action that a person could not do makes the script fail: from then on nothing is
// written, open dialogs are hidden without running a handler, further ones are not
// shown, and message boxes get their default button. So the running call can end.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "automation/scripts/dialog_actions.h"
#include "ui/Person.h"
#include "ui/Screen.h"

namespace pactora::scripts {

class ScriptScreen final : public ui::Screen {
 public:
  struct Failure {
    std::string place;   // of the action in the script
    std::string reason;  // German
  };

  // write_event gets show, hide, message, control and focus events. end_unit ends
  // the host's unit of work; it is called wherever the program waits for a person:
  // before a message box and a dialog come up, and after each action. What it
  // raises is raised from ShowMessage and ShowModal.
  ScriptScreen(std::function<void(const formats::Json&)> write_event,
               std::function<void()> end_unit)
      : write_event_(std::move(write_event)), end_unit_(std::move(end_unit)) {}

  // Runs a call whose first dialog these actions are for; that dialog is closed
  // when they run out. Errors of the call pass through.
  void Run(const Actions& actions, const std::function<void()>& call);

  // Set once the script has failed, for good.
  const std::optional<Failure>& Failed() const { return failure_; }

  ui::Answer ShowMessage(const ui::Message& message) override;
  void ShowModal(ui::Form& form) override;
  void ProcessPendingMessages() override {}

 private:
  class Step;   // keeps the current activity on top of running_
  class Watch;  // writes down what happens to a form while it is shown

  // What is running: a call, or an action in a dialog.
  struct Running {
    const Actions* dialog_actions = nullptr;  // for the next dialog
    const Action* action = nullptr;           // null for a call
    std::size_t answers_used = 0;
  };

  void Write(const formats::Json& event);
  void Fail(const Action& action, std::string reason);
  void CarryOut(ui::Form& form, const Actions& actions);
  // The script fails if the dialog of these actions was not shown.
  void RequireDialog(const Actions& actions);
  ui::Outcome::Kind CarryOut(ui::Form& form, ui::Person& person, const Action& action);

  std::function<void(const formats::Json&)> write_event_;
  std::function<void()> end_unit_;
  std::vector<Running> running_;
  std::optional<Failure> failure_;
};

}  // namespace pactora::scripts
