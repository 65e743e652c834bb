#include "ui/RecordingScreen.h"

#include <utility>

namespace pactora::ui {
namespace {

std::string Quoted(const Message& message) {
  return "message \"" + message.text + "\" (" + std::to_string(message.style) + ", \"" +
         message.title + "\")";
}

bool Same(const Message& a, const Message& b) {
  return a.text == b.text && a.style == b.style && a.title == b.title;
}

}  // namespace

RecordingScreen::RecordingScreen() : levels_(1) {}

void RecordingScreen::ExpectMessage(Message message, Answer answer) {
  levels_.back().push_back({std::move(message), answer, {}, {}});
}

void RecordingScreen::ExpectDialog(std::string class_name, Acts acts) {
  levels_.back().push_back({std::nullopt, Answer::Ok, std::move(class_name), std::move(acts)});
}

std::string RecordingScreen::Text(const Expectation& expectation) {
  return expectation.message ? Quoted(*expectation.message) : "dialog " + expectation.dialog;
}

std::vector<std::string> RecordingScreen::Problems() const {
  std::vector<std::string> problems = problems_;
  for (const auto& level : levels_) {
    for (const Expectation& expectation : level) {
      problems.push_back("did not come: " + Text(expectation));
    }
  }
  return problems;
}

Answer RecordingScreen::ShowMessage(const Message& message) {
  messages_.push_back(message);
  auto& expected = levels_.back();
  if (expected.empty() || !expected.front().message || !Same(*expected.front().message, message)) {
    problems_.push_back("unexpected " + Quoted(message) +
                        (expected.empty() ? "" : ", instead of " + Text(expected.front())));
    return DefaultAnswer(message.style);
  }
  const Answer answer = expected.front().answer;
  expected.pop_front();
  if (!Offers(message.style, answer)) {
    problems_.push_back("no such button: " + Quoted(message));
    return DefaultAnswer(message.style);
  }
  return answer;
}

void RecordingScreen::ShowModal(Form& form) {
  auto& expected = levels_.back();
  if (expected.empty() || expected.front().message || expected.front().dialog != form.ClassName()) {
    problems_.push_back("unexpected dialog " + form.ClassName() +
                        (expected.empty() ? "" : ", instead of " + Text(expected.front())));
    return;
  }
  const Acts acts = std::move(expected.front().acts);
  expected.pop_front();
  levels_.emplace_back();
  Person person(form);
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

void RecordingScreen::EndLevel() {
  for (const Expectation& expectation : levels_.back()) {
    problems_.push_back("did not come: " + Text(expectation));
  }
  levels_.pop_back();
}

}  // namespace pactora::ui
