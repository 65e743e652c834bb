// A screen without a screen: the messages and dialogs that must come are written
// down beforehand, in order, and everything else is a problem. For tests of
// dialogs and for rehearsing a call.
//
//   RecordingScreen screen;
//   screen.ExpectMessage({"Sind Sie sicher?", 292}, Answer::Yes);
//   screen.ExpectDialog("frmExample", [](Form& form, Person& person) {
//     person.Click(*form.Find("cmdOK"));
//   });
//   ... run ...
//   EXPECT_THAT(screen.Problems(), IsEmpty());
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "ui/Person.h"
#include "ui/Screen.h"

namespace pactora::ui {

class RecordingScreen final : public Screen {
 public:
  using Acts = std::function<void(Form& form, Person& person)>;

  RecordingScreen();

  // The next message must be this one. Within the acts of a dialog the
  // expectations are that dialog's: they must be used up when the acts end.
  void ExpectMessage(Message message, Answer answer = Answer::Ok);
  // The next dialog must be of this class. The acts stand for the person; a dialog
  // that is still open after them is closed by its window frame.
  void ExpectDialog(std::string class_name, Acts acts);

  // Every message shown so far, in order.
  const std::vector<Message>& Messages() const { return messages_; }
  int PendingMessagePasses() const { return pending_message_passes_; }
  // What came differently so far, and what is still expected and has not come;
  // readable texts. Empty means that all went as expected.
  std::vector<std::string> Problems() const;

  // An unexpected message gets the answer of its default button, an unexpected
  // dialog is hidden at once.
  Answer ShowMessage(const Message& message) override;
  void ShowModal(Form& form) override;
  void ProcessPendingMessages() override { ++pending_message_passes_; }

 private:
  struct Expectation {
    std::optional<Message> message;
    Answer answer = Answer::Ok;
    std::string dialog;
    Acts acts;
  };
  static std::string Text(const Expectation& expectation);
  void EndLevel();

  std::vector<std::deque<Expectation>> levels_;  // of nested dialogs, innermost last
  std::vector<Message> messages_;
  std::vector<std::string> problems_;
  int pending_message_passes_ = 0;
};

}  // namespace pactora::ui
