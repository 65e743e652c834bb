// Fills in the new-contract dialog for one line of a takeover list, by control
// name and through the person's door.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "automation/takeover/list.h"
#include "platform/Error.h"
#include "ui/Screen.h"

namespace pactora::shell {
class Module;
}  // namespace pactora::shell
namespace pactora::ui {
class Form;
class Person;
struct Outcome;
}  // namespace pactora::ui

namespace pactora::takeover {

class DialogDriver final : public ui::Screen {
 public:
  // From now on the module's dialogs are filled in for this line. Both must outlive
  // the call.
  void Begin(const Line& line, shell::Module& module);
  // What stood in the way, naming the column; empty if nothing did.
  const std::string& Refusal() const { return refusal_; }
  // The message boxes that came up, each as one line, and all of them joined.
  const std::vector<std::string>& Messages() const { return messages_; }
  std::string JoinedMessages() const;
  // Whether one of them showed an error, and the error if it concerns the database as
  // a whole.
  bool Failed() const { return failed_; }
  const std::optional<platform::Error>& FatalError() const { return fatal_error_; }
  // The number that the dialog showed when it was left.
  const std::string& ContractNumber() const { return number_; }

  ui::Answer ShowMessage(const ui::Message& message) override;
  void ShowModal(ui::Form& form) override;
  void ProcessPendingMessages() override {}

 private:
  void FillIn(ui::Form& form, ui::Person& person);
  void ChoosePeriod(ui::Form& form, ui::Person& person);

  const Line* line_ = nullptr;
  shell::Module* module_ = nullptr;
  std::string refusal_;
  std::string number_;
  std::vector<std::string> messages_;
  bool failed_ = false;
  std::optional<platform::Error> fatal_error_;
};

}  // namespace pactora::takeover
