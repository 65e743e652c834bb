#include "ui/Person.h"

#include <utility>

#include "platform/Text.h"
#include "ui/controls.h"
#include "ui/keys.h"

namespace pactora::ui {
namespace {

Outcome Impossible(Obstacle obstacle) { return {Outcome::Kind::Impossible, obstacle}; }

// None when a person can change the text of the control, leaving out whether it
// can be reached.
Obstacle TextObstacle(const Control& control) {
  if (const auto* box = dynamic_cast<const TextBox*>(&control)) {
    return box->ReadOnly() ? Obstacle::ReadOnly : Obstacle::None;
  }
  const auto* combo = dynamic_cast<const ComboBox*>(&control);
  return combo && !combo->ListOnly() ? Obstacle::None : Obstacle::WrongKind;
}

// Requires: the control has a text that a person can change.
const std::string& TextOf(const Control& control) {
  if (const auto* box = dynamic_cast<const TextBox*>(&control)) return box->Text();
  return dynamic_cast<const ComboBox&>(control).Text();
}

// The text after one more key.
std::string Typed(const std::string& text, std::int32_t key, bool multi_line) {
  if (key == kBackspace) {
    if (text.ends_with(kLineBreak)) return text.substr(0, text.size() - kLineBreak.size());
    const std::size_t length = platform::Length(text);
    return std::string(platform::FirstCharacters(text, length == 0 ? 0 : length - 1));
  }
  if (key == kReturn) return multi_line ? text + std::string(kLineBreak) : text;
  return text + CharacterOf(key);
}

}  // namespace

class Person::Acting {
 public:
  explicit Acting(Form& form) : form_(form), before_(std::exchange(form.person_acts_, true)) {}
  ~Acting() { form_.person_acts_ = before_; }
  Acting(const Acting&) = delete;
  Acting& operator=(const Acting&) = delete;

 private:
  Form& form_;
  const bool before_;
};

Outcome Person::TakeFocus(Control& control, bool validates) {
  const auto obstacle = [&] {
    if (!form_.Visible()) return Obstacle::DialogClosed;
    if (!control.TakesFocus()) return Obstacle::WrongKind;
    return control.Reach();
  };
  if (const Obstacle now = obstacle(); now != Obstacle::None) return Impossible(now);
  if (control.HasFocus()) return {};
  if (validates && !LeaveFocused()) return {Outcome::Kind::FocusKept};
  // What the validation changed may be in the way now.
  if (const Obstacle now = obstacle(); now != Obstacle::None) return Impossible(now);
  form_.MoveFocus(&control, FocusCause::Person);
  return {};
}

bool Person::LeaveFocused() {
  auto* box = dynamic_cast<TextBox*>(form_.Focus());
  // Nobody leaves a box that went out of reach meanwhile.
  if (!box || box->Reach() != Obstacle::None) return true;
  bool cancel = false;
  const Acting acting(form_);
  const bool ended = box->Raise(box->Validate, "Validate", cancel);
  if (ended && !cancel) return true;
  form_.MoveFocus(form_.Focus(), FocusCause::Kept);
  return false;
}

Outcome Person::Enter(Control& control) { return TakeFocus(control, true); }

Outcome Person::Leave(Control& control) {
  if (const Outcome outcome = TakeFocus(control, true); !outcome.Done()) return outcome;
  if (!LeaveFocused()) return {Outcome::Kind::FocusKept};
  if (control.HasFocus()) form_.MoveFocus(nullptr, FocusCause::Person);
  return {};
}

Outcome Person::Click(Control& control) {
  switch (control.Kind()) {
    case ControlKind::Button: {
      auto& button = dynamic_cast<Button&>(control);
      const bool validates = button.GetRole() != Button::Role::Cancel;
      if (const Outcome outcome = TakeFocus(button, validates); !outcome.Done()) return outcome;
      const Acting acting(form_);
      button.Raise(button.Click, "Click");
      return {};
    }
    case ControlKind::OptionButton: {
      if (const Outcome outcome = TakeFocus(control, true); !outcome.Done()) return outcome;
      const Acting acting(form_);
      dynamic_cast<OptionButton&>(control).SetValue(true);
      return {};
    }
    case ControlKind::CheckBox:
      return SetCheck(control, !dynamic_cast<CheckBox&>(control).Checked());
    default:
      return Impossible(Obstacle::WrongKind);
  }
}

Outcome Person::SetCheck(Control& control, bool checked) {
  auto* box = dynamic_cast<CheckBox*>(&control);
  if (!box) return Impossible(Obstacle::WrongKind);
  if (const Outcome outcome = TakeFocus(control, true); !outcome.Done()) return outcome;
  const Acting acting(form_);
  box->SetChecked(checked);
  return {};
}

Outcome Person::PressKey(Control& control, std::int32_t& key) {
  if (const Obstacle now = TextObstacle(control); now != Obstacle::None) return Impossible(now);
  if (const Outcome outcome = TakeFocus(control, true); !outcome.Done()) return outcome;
  if (auto* box = dynamic_cast<TextBox*>(&control)) {
    const Acting acting(form_);
    if (!box->Raise(box->KeyPress, "KeyPress", key)) key = 0;
  }
  // The handler may have closed the form or gone elsewhere.
  if (!form_.Visible() || !control.HasFocus()) key = 0;
  return {};
}

Outcome Person::TypeKey(Control& control, std::int32_t key) {
  if (const Outcome outcome = PressKey(control, key); !outcome.Done()) return outcome;
  if (key == 0) return {};
  const auto* box = dynamic_cast<const TextBox*>(&control);
  SetTextOf(control, Typed(TextOf(control), key, box && box->MultiLine()));
  return {};
}

Outcome Person::TypeKeys(Control& control, std::span<const std::int32_t> keys) {
  if (const Obstacle now = TextObstacle(control); now != Obstacle::None) return Impossible(now);
  if (const Outcome outcome = TakeFocus(control, true); !outcome.Done()) return outcome;
  for (const std::int32_t key : keys) {
    if (!form_.Visible() || !control.HasFocus() || control.Reach() != Obstacle::None) break;
    TypeKey(control, key);
  }
  return {};
}

Outcome Person::Type(Control& control, std::string_view text) {
  return TypeKeys(control, KeysOf(text));
}

Outcome Person::Paste(Control& control, std::string text) {
  if (const Obstacle now = TextObstacle(control); now != Obstacle::None) return Impossible(now);
  if (const Outcome outcome = TakeFocus(control, true); !outcome.Done()) return outcome;
  SetTextOf(control, std::move(text));
  return {};
}

void Person::SetTextOf(Control& control, std::string text) {
  const Acting acting(form_);
  if (auto* box = dynamic_cast<TextBox*>(&control)) {
    box->SetText(std::move(text));
  } else {
    dynamic_cast<ComboBox&>(control).SetText(std::move(text));
  }
}

Outcome Person::Choose(Control& control, std::int32_t index) {
  auto* list = dynamic_cast<ListControl*>(&control);
  auto* view = dynamic_cast<ListView*>(&control);
  if (!list && !view) return Impossible(Obstacle::WrongKind);
  const auto* combo = dynamic_cast<const ComboBox*>(list);
  if (index == ListControl::kNone && combo && combo->ListOnly()) {
    return Impossible(Obstacle::EntryNeeded);
  }
  const auto exists = [&] {
    return index >= ListControl::kNone && index < (list ? list->Count() : view->RowCount());
  };
  if (control.Reach() == Obstacle::None && !exists()) return Impossible(Obstacle::NotInList);
  if (const Outcome outcome = TakeFocus(control, true); !outcome.Done()) return outcome;
  if (!exists()) return Impossible(Obstacle::NotInList);
  const Acting acting(form_);
  if (list) {
    list->SetListIndex(index);
    return {};
  }
  view->SelectRow(index + 1);
  if (index != ListControl::kNone) view->Raise(view->RowClick, "ItemClick", index + 1);
  return {};
}

Outcome Person::ChooseText(Control& control, std::string_view text) {
  if (const auto* list = dynamic_cast<ListControl*>(&control)) {
    const std::int32_t index = list->FindText(text);
    return index == ListControl::kNone ? Missing(control) : Choose(control, index);
  }
  const auto* view = dynamic_cast<ListView*>(&control);
  if (!view) return Impossible(Obstacle::WrongKind);
  for (std::int32_t row = 1; row <= view->RowCount(); ++row) {
    if (view->Text(row, view->FirstShownColumn()) == text) return Choose(control, row - 1);
  }
  return Missing(control);
}

Outcome Person::Missing(const Control& control) const {
  if (!form_.Visible()) return Impossible(Obstacle::DialogClosed);
  const Obstacle reach = control.Reach();
  return Impossible(reach == Obstacle::None ? Obstacle::NotInList : reach);
}

Outcome Person::PickDate(Control& control, std::optional<platform::Date> date) {
  auto* picker = dynamic_cast<DTPicker*>(&control);
  if (!picker) return Impossible(Obstacle::WrongKind);
  if (!date && !picker->HasCheckBox()) return Impossible(Obstacle::DateNeeded);
  if (const Outcome outcome = TakeFocus(control, true); !outcome.Done()) return outcome;
  const Acting acting(form_);
  if (date) {
    picker->SetValue(*date);
  } else {
    picker->SetNull();
  }
  return {};
}

Outcome Person::Close() {
  if (!form_.Visible()) return Impossible(Obstacle::DialogClosed);
  Button* cancel = form_.CancelButton();
  if (cancel && cancel->Reach() == Obstacle::None) {
    const Acting acting(form_);
    cancel->Raise(cancel->Click, "Click");
  }
  form_.Hide();
  return {};
}

}  // namespace pactora::ui
