// The other door to a form: what a person does to its controls. Used by hosts of
// the dialog only (script driver, windows, tests), never by the dialog.
//
// Every action first gives the control the focus. A box that had it is left, and
// its validation runs: if it refuses, the focus stays and the action is not
// carried out. What a person could not do is refused with the reason before
// anything is touched; only what the validation itself puts out of reach is
// refused after it ran.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/Date.h"
#include "ui/Form.h"

namespace pactora::ui {

class ComboBox;
class ListControl;
class TextBox;

struct Outcome {
  enum class Kind { Done, FocusKept, Impossible };

  Kind kind = Kind::Done;
  Obstacle obstacle = Obstacle::None;  // why it was impossible

  bool Done() const { return kind == Kind::Done; }
};

class Person {
 public:
  // The form must outlive the person.
  explicit Person(Form& form) : form_(form) {}

  // Moves the focus to a control.
  Outcome Enter(Control& control);
  // Goes out of the control, into none: its validation runs.
  Outcome Leave(Control& control);

  // A button, an option button; a check box changes its state.
  Outcome Click(Control& control);
  Outcome SetCheck(Control& control, bool checked);

  // One key at the end of a text box or free-text combo box, through the key
  // handler. The code is that of the character; 8 is backspace, 13 the return key.
  Outcome TypeKey(Control& control, std::int32_t key);
  // The key handler alone, for hosts whose boxes have a caret of their own: key
  // becomes what is typed at the caret, 0 for nothing. What the box then holds
  // comes in by Paste.
  Outcome PressKey(Control& control, std::int32_t& key);
  // The characters of a text one by one. Ends early, and is done, when a key moves
  // the focus elsewhere. A line break is the return key.
  Outcome Type(Control& control, std::string_view text);
  Outcome TypeKeys(Control& control, std::span<const std::int32_t> keys);
  // Replaces the text of such a box at once, past the key handler.
  Outcome Paste(Control& control, std::string text);

  // An entry of a combo box or list box (from 0) or a row of a list view (as its
  // number from 0 here, too), -1 for none, which a list-only combo box does not
  // offer. A click on a row of a list view always counts; choosing the chosen entry
  // of a box changes nothing.
  Outcome Choose(Control& control, std::int32_t index);
  // The first entry with that text; in a list view by its first shown column.
  Outcome ChooseText(Control& control, std::string_view text);

  // No date unticks the picker.
  Outcome PickDate(Control& control, std::optional<platform::Date> date);

  // Closes the form by its window frame: the cancel button's click, then hiding
  // if the form is still there. Validates nothing.
  Outcome Close();

 private:
  class Acting;  // while it lives, events of the form are a person's

  Outcome TakeFocus(Control& control, bool validates);
  // False when the box with the focus refused to be left.
  bool LeaveFocused();
  // Requires: the control has a text that a person can change.
  void SetTextOf(Control& control, std::string text);
  // Why an entry that was not found cannot be chosen.
  Outcome Missing(const Control& control) const;

  Form& form_;
};

}  // namespace pactora::ui
