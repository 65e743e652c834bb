#include "automation/scripts/ScriptScreen.h"

#include <fmt/format.h>

#include <utility>

#include "automation/scripts/dialog_state.h"
#include "platform/Date.h"
#include "ui/Person.h"
#include "ui/controls.h"

namespace pactora::scripts {
namespace {

std::string AnswerText(ui::Answer answer) {
  switch (answer) {
    case ui::Answer::Yes:
      return "yes";
    case ui::Answer::No:
      return "no";
    case ui::Answer::Ok:
      break;
  }
  return "ok";
}

formats::Json FormEvent(std::string_view event, const ui::Form& form) {
  return {{"event", event}, {"dialog", form.ClassName()}, {"caption", form.Caption()}};
}

template <typename... Cases>
struct Overloaded : Cases... {
  using Cases::operator()...;
};
template <typename... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

ui::Outcome Type(ui::Person& person, ui::Form& form, ui::Control& control,
                 const TypeAction& action) {
  if (action.clear) {
    const ui::Outcome outcome = person.Paste(control, {});
    // The emptied box may have sent the focus elsewhere; typing ends there.
    if (!outcome.Done() || !form.Visible() || !control.HasFocus()) return outcome;
  }
  return person.TypeKeys(control, action.keys);
}

ui::Outcome Set(ui::Person& person, ui::Control& control, const SetAction& action) {
  const ui::Outcome wrong_value{ui::Outcome::Kind::Impossible, ui::Obstacle::WrongValue};
  const auto* text = std::get_if<std::string>(&action.value);
  const auto* flag = std::get_if<bool>(&action.value);
  switch (control.Kind()) {
    case ui::ControlKind::CheckBox:
      return flag != nullptr ? person.SetCheck(control, *flag) : wrong_value;
    case ui::ControlKind::DTPicker: {
      if (flag != nullptr) return wrong_value;
      if (!text) return person.PickDate(control, std::nullopt);
      const auto date = platform::ParseIso(*text);
      return date ? person.PickDate(control, date)
                  : ui::Outcome{ui::Outcome::Kind::Impossible, ui::Obstacle::DateNeeded};
    }
    default:
      return text ? person.Paste(control, *text) : wrong_value;
  }
}

ui::Outcome Select(ui::Person& person, ui::Control& control, const SelectAction& action) {
  if (const auto* text = std::get_if<std::string>(&action.entry)) {
    return person.ChooseText(control, *text);
  }
  return person.Choose(control, std::get<std::int32_t>(action.entry));
}

}  // namespace

class ScriptScreen::Watch final : public ui::FormObserver {
 public:
  Watch(ScriptScreen& screen, ui::Form& form) : screen_(screen), form_(form) {
    form_.AddObserver(*this);
  }
  ~Watch() override { form_.RemoveObserver(*this); }
  Watch(const Watch&) = delete;
  Watch& operator=(const Watch&) = delete;

  void ControlChanged(const ui::Control&, ui::Property) override {}
  void FocusChanged(const ui::Control* control, ui::FocusCause cause) override {
    if (!control || cause == ui::FocusCause::Person) return;
    screen_.Write({{"event", "focus"}, {"dialog", form_.ClassName()}, {"name", control->Name()}});
  }
  void CaptionChanged() override {}
  void Hidden() override { screen_.Write(FormEvent("hide", form_)); }

 private:
  ScriptScreen& screen_;
  ui::Form& form_;
};

// An activity that runs as long as this object lives.
class ScriptScreen::Step {
 public:
  Step(ScriptScreen& screen, Running running) : screen_(screen) {
    screen_.running_.push_back(running);
  }
  ~Step() { screen_.running_.pop_back(); }
  Step(const Step&) = delete;
  Step& operator=(const Step&) = delete;

 private:
  ScriptScreen& screen_;
};

void ScriptScreen::Run(const Actions& actions, const std::function<void()>& call) {
  const Step step(*this, {&actions, nullptr, 0});
  call();
  RequireDialog(actions);
}

// Requires: the current activity is the one of these actions, and it is done.
void ScriptScreen::RequireDialog(const Actions& actions) {
  if (actions.empty() || !running_.back().dialog_actions) return;
  Fail(actions.front(), "der Dialog wurde nicht geöffnet");
}

void ScriptScreen::Write(const formats::Json& event) {
  if (!failure_) write_event_(event);
}

void ScriptScreen::Fail(const Action& action, std::string reason) {
  if (!failure_) failure_ = Failure{action.place, std::move(reason)};
}

ui::Answer ScriptScreen::ShowMessage(const ui::Message& message) {
  end_unit_();
  ui::Answer answer = ui::DefaultAnswer(message.style);
  if (failure_) return answer;
  Running* running = running_.empty() ? nullptr : &running_.back();
  const Action* action = running ? running->action : nullptr;
  if (action && running->answers_used < action->answers.size()) {
    const ui::Answer wanted = action->answers[running->answers_used++];
    if (!ui::Offers(message.style, wanted)) {
      Fail(*action, fmt::format("die Antwort „{}“ gibt es in der Meldung nicht: {}",
                                AnswerText(wanted), message.text));
      return answer;
    }
    answer = wanted;
  }
  Write({{"event", "message"},
         {"text", message.text},
         {"style", message.style},
         {"title", message.title},
         {"answer", AnswerText(answer)}});
  return answer;
}

void ScriptScreen::ShowModal(ui::Form& form) {
  end_unit_();
  if (failure_) return;
  static const Actions kNoActions;
  const Actions* actions = &kNoActions;
  if (!running_.empty() && running_.back().dialog_actions) {
    actions = std::exchange(running_.back().dialog_actions, nullptr);
  }
  const Watch watch(*this, form);
  Write(FormEvent("show", form));
  try {
    form.BeginModal();
    end_unit_();
    CarryOut(form, *actions);
  } catch (...) {
    form.EndModal();
    throw;
  }
  form.EndModal();
}

void ScriptScreen::CarryOut(ui::Form& form, const Actions& actions) {
  ui::Person person(form);
  for (const Action& action : actions) {
    if (failure_) return;
    const Step step(*this, {&action.inner, &action, 0});
    const bool refused = CarryOut(form, person, action) == ui::Outcome::Kind::FocusKept;
    end_unit_();
    if (!refused) RequireDialog(action.inner);
  }
  if (failure_ || !form.Visible()) return;
  const Step step(*this, {});
  person.Close();
  end_unit_();
}

ui::Outcome::Kind ScriptScreen::CarryOut(ui::Form& form, ui::Person& person, const Action& action) {
  ui::Outcome::Kind result = ui::Outcome::Kind::Done;
  if (!form.Visible()) {
    Fail(action, ui::Describe(ui::Obstacle::DialogClosed));
    return result;
  }
  // Null where the dialog lacks the control; the script has failed then.
  const auto find = [&](const std::string& name) {
    ui::Control* control = form.Find(name);
    if (!control) {
      Fail(action,
           fmt::format("der Dialog {} hat kein Steuerelement „{}“", form.ClassName(), name));
    }
    return control;
  };
  const auto act = [&](const std::string& name, const auto& done) {
    ui::Control* control = find(name);
    if (!control) return;
    const ui::Outcome outcome = done(*control);
    result = outcome.kind;
    if (outcome.kind != ui::Outcome::Kind::Impossible) return;
    const std::string reason = ui::Describe(outcome.obstacle);
    const bool closed = outcome.obstacle == ui::Obstacle::DialogClosed;
    Fail(action, closed ? reason : fmt::format("„{}“ {}", name, reason));
  };
  std::visit(Overloaded{
                 [&](const ClickAction& a) {
                   act(a.control, [&](ui::Control& control) { return person.Click(control); });
                 },
                 [&](const TypeAction& a) {
                   act(a.control,
                       [&](ui::Control& control) { return Type(person, form, control, a); });
                 },
                 [&](const SetAction& a) {
                   act(a.control, [&](ui::Control& control) { return Set(person, control, a); });
                 },
                 [&](const LeaveAction& a) {
                   act(a.control, [&](ui::Control& control) { return person.Leave(control); });
                 },
                 [&](const SelectAction& a) {
                   act(a.control, [&](ui::Control& control) { return Select(person, control, a); });
                 },
                 [&](const ReadAction& a) {
                   for (const std::string& name : a.controls) {
                     if (const ui::Control* control = find(name)) Write(ControlEvent(*control));
                   }
                 },
                 [&](const CloseAction&) { person.Close(); },
             },
             action.what);
  return result;
}

}  // namespace pactora::scripts
