// Fills in the new-contract dialog for one line of a takeover list, by control
// name and through the person's door.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "automation/takeover/takeover_list.h"
#include "ui/Screen.h"

namespace pactora::ui {
class Form;
class Person;
struct Outcome;
}  // namespace pactora::ui

namespace pactora::takeover {

class TakeoverClerk final : public ui::Screen {
 public:
  // date_pattern gives the pattern in which the dialog lists its periods.
  explicit TakeoverClerk(std::function<std::string()> date_pattern)
      : date_pattern_(std::move(date_pattern)) {}

  // From now on dialogs are filled in for this line. It must outlive the call.
  void Begin(const TakeoverLine& line);
  // What stood in the way, naming the column; empty if nothing did.
  const std::string& Refusal() const { return refusal_; }
  // The message boxes that came up, each as one line, and all of them joined.
  const std::vector<std::string>& Messages() const { return messages_; }
  std::string JoinedMessages() const;
  // The number that the dialog showed when it was left.
  const std::string& ContractNumber() const { return number_; }

  ui::Answer ShowMessage(const ui::Message& message) override;
  void ShowModal(ui::Form& form) override;
  void ProcessPendingMessages() override {}

 private:
  void FillIn(ui::Form& form, ui::Person& person);
  void ChoosePeriod(ui::Form& form, ui::Person& person);

  std::function<std::string()> date_pattern_;
  const TakeoverLine* line_ = nullptr;
  std::string refusal_;
  std::string number_;
  std::vector<std::string> messages_;
};

}  // namespace pactora::takeover
