// A person at a dialog, by control name. What a person could not do, or what a
// box refused to give up the focus for, fails the test.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "ui/Person.h"
#include "ui/controls.h"

namespace pactora::support {

class DialogUser {
 public:
  // The form must outlive its user.
  explicit DialogUser(ui::Form& form) : form_(form), person_(form) {}

  template <typename T>
  T& Get(std::string_view name) const {
    T* control = form_.Find<T>(name);
    if (control == nullptr) throw std::invalid_argument("no control " + std::string(name));
    return *control;
  }
  ui::Control& operator[](std::string_view name) const { return Get<ui::Control>(name); }

  void Click(std::string_view name) { Must(person_.Click((*this)[name]), name); }
  void Choose(std::string_view name, std::string_view text) {
    Must(person_.ChooseText((*this)[name], text), name);
  }
  // Of a list box, from 0; -1 for none.
  void Choose(std::string_view name, std::int32_t index) {
    Must(person_.Choose((*this)[name], index), name);
  }
  void ChooseRow(std::string_view name, std::int32_t row) {
    Must(person_.Choose((*this)[name], row - 1), name);
  }
  void Type(std::string_view name, std::string_view keys) {
    Must(person_.Type((*this)[name], keys), name);
  }
  // Empties the box first, past its key handler.
  void Retype(std::string_view name, std::string_view keys) {
    Paste(name, "");
    Type(name, keys);
  }
  void Paste(std::string_view name, std::string text) {
    Must(person_.Paste((*this)[name], std::move(text)), name);
  }
  void Check(std::string_view name, bool checked) {
    Must(person_.SetCheck((*this)[name], checked), name);
  }
  // No date unticks the picker.
  void Pick(std::string_view name, std::optional<platform::Date> date) {
    Must(person_.PickDate((*this)[name], date), name);
  }
  void Leave(std::string_view name) { Must(person_.Leave((*this)[name]), name); }
  // Texts by control name.
  using Texts = std::vector<std::pair<std::string_view, std::string_view>>;
  // Pastes into text boxes, chooses in lists and clicks what is left.
  void Enter(const Texts& entries) {
    for (const auto& [name, text] : entries) {
      if (form_.Find<ui::TextBox>(name) != nullptr) {
        Paste(name, std::string(text));
      } else if (form_.Find<ui::ComboBox>(name) != nullptr) {
        Choose(name, text);
      } else {
        Click(name);
      }
    }
  }
  void Shows(const Texts& texts) const {
    for (const auto& [name, text] : texts) EXPECT_EQ(Text(name), text) << name;
  }
  // The box keeps the focus instead of giving it to another control.
  void CannotLeave(std::string_view name) {
    EXPECT_EQ(person_.Leave((*this)[name]).kind, ui::Outcome::Kind::FocusKept) << name;
  }

  bool Reaches(std::string_view name) const { return (*this)[name].Reach() == ui::Obstacle::None; }
  bool HasFocus(std::string_view name) const { return (*this)[name].HasFocus(); }
  bool IsOpen() const { return form_.Visible(); }
  const std::string& Caption() const { return form_.Caption(); }

  // What a text box, combo box or label shows.
  std::string Text(std::string_view name) const {
    const ui::Control& control = (*this)[name];
    if (const auto* box = dynamic_cast<const ui::TextBox*>(&control)) return box->Text();
    if (const auto* box = dynamic_cast<const ui::ComboBox*>(&control)) return box->Text();
    return Get<ui::Label>(name).Caption();
  }
  std::vector<std::string> Items(std::string_view name) const {
    std::vector<std::string> texts;
    for (const ui::ListItem& item : Get<ui::ListControl>(name).Items()) texts.push_back(item.text);
    return texts;
  }
  bool Checked(std::string_view name) const { return Get<ui::CheckBox>(name).Checked(); }
  std::string Cell(std::string_view name, std::int32_t row, std::int32_t column) const {
    return Get<ui::ListView>(name).Text(row, column);
  }
  // Some cells of a row, each followed by a bar.
  std::string Cells(std::string_view name, std::int32_t row, std::int32_t first,
                    std::int32_t last) const {
    std::string text;
    for (std::int32_t column = first; column <= last; ++column) {
      text += Cell(name, row, column) + "|";
    }
    return text;
  }
  std::int32_t RowCount(std::string_view name) const { return Get<ui::ListView>(name).RowCount(); }

 private:
  static void Must(const ui::Outcome& outcome, std::string_view name) {
    EXPECT_TRUE(outcome.Done()) << name << " " << ui::Describe(outcome.obstacle);
  }

  ui::Form& form_;
  ui::Person person_;
};

// What a screen that expects a dialog is to do there.
inline std::function<void(ui::Form&, ui::Person&)> AsUser(
    std::function<void(DialogUser& user)> acts) {
  return [acts = std::move(acts)](ui::Form& form, ui::Person&) {
    DialogUser user(form);
    acts(user);
  };
}

}  // namespace pactora::support
