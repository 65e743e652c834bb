// A screen without a screen: the messages and dialogs that must come are written
// down beforehand, in order, and everything else is a problem.
//
//   RecordingScreen screen;
//   screen.ExpectMessage({"Sind Sie sicher?", 292}, ui::Answer::Yes);
//   screen.ExpectDialog("frmExample", [](ui::Form& form, ui::Person& person) {
//     person.Click(*form.Find("cmdOK"));
//   });
//   ... run ...
//   EXPECT_THAT(screen.Problems(), IsEmpty());
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "ui/Person.h"
#include "ui/Screen.h"

namespace pactora::support {

class RecordingScreen final : public ui::Screen {
 public:
  using Acts = std::function<void(ui::Form& form, ui::Person& person)>;

  // The next message must be this one. Within the acts of a dialog the
  // expectations are that dialog's: they must be used up when the acts end.
  void ExpectMessage(ui::Message message, ui::Answer answer = ui::Answer::Ok) {
    levels_.back().push_back({std::move(message), answer, {}, {}});
  }
  // The next dialog must be of this class. The acts stand for the person; a dialog
  // that is still open after them is closed by its window frame.
  void ExpectDialog(std::string class_name, Acts acts) {
    levels_.back().push_back(
        {std::nullopt, ui::Answer::Ok, std::move(class_name), std::move(acts)});
  }

  // Every message shown so far, in order.
  const std::vector<ui::Message>& Messages() const { return messages_; }
  int PendingMessagePasses() const { return pending_message_passes_; }
  // What came differently so far, and what is still expected and has not come;
  // readable texts. Empty means that all went as expected.
  std::vector<std::string> Problems() const {
    std::vector<std::string> problems = problems_;
    for (const Level& level : levels_) AppendMissing(problems, level);
    return problems;
  }

  // An unexpected message gets the answer of its default button, an unexpected
  // dialog is hidden at once.
  ui::Answer ShowMessage(const ui::Message& message) override {
    messages_.push_back(message);
    Level& expected = levels_.back();
    if (expected.empty() || Text(expected.front()) != Text(message)) {
      AddUnexpected(Text(message));
      return ui::DefaultAnswer(message.style);
    }
    const ui::Answer answer = expected.front().answer;
    expected.pop_front();
    if (ui::Offers(message.style, answer)) return answer;
    problems_.push_back("no such button: " + Text(message));
    return ui::DefaultAnswer(message.style);
  }

  void ShowModal(ui::Form& form) override {
    Level& expected = levels_.back();
    const std::string text = "dialog " + form.ClassName();
    if (expected.empty() || Text(expected.front()) != text) return AddUnexpected(text);
    const Acts acts = std::move(expected.front().acts);
    expected.pop_front();
    levels_.emplace_back();
    ui::Person person(form);
    try {
      form.BeginModal();
      if (acts) acts(form, person);
      if (form.Visible()) person.Close();
    } catch (...) {
      EndLevel();
      form.EndModal();
      throw;
    }
    EndLevel();
  }

  void ProcessPendingMessages() override { ++pending_message_passes_; }

 private:
  struct Expectation {
    std::optional<ui::Message> message;
    ui::Answer answer = ui::Answer::Ok;
    std::string dialog;
    Acts acts;
  };
  using Level = std::deque<Expectation>;

  static std::string Text(const ui::Message& message) {
    return "message \"" + message.text + "\" (" + std::to_string(message.style) + ", \"" +
           message.title + "\")";
  }
  static std::string Text(const Expectation& expectation) {
    return expectation.message ? Text(*expectation.message) : "dialog " + expectation.dialog;
  }
  void AddUnexpected(const std::string& text) {
    const Level& expected = levels_.back();
    problems_.push_back("unexpected " + text +
                        (expected.empty() ? "" : ", instead of " + Text(expected.front())));
  }
  static void AppendMissing(std::vector<std::string>& problems, const Level& level) {
    for (const Expectation& expectation : level) {
      problems.push_back("did not come: " + Text(expectation));
    }
  }
  void EndLevel() {
    AppendMissing(problems_, levels_.back());
    levels_.pop_back();
  }

  std::vector<Level> levels_ = std::vector<Level>(1);  // of nested dialogs, innermost last
  std::vector<ui::Message> messages_;
  std::vector<std::string> problems_;
  int pending_message_passes_ = 0;
};

}  // namespace pactora::support
