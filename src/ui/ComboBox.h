// A box with a list to choose from: either an entry of the list and nothing
// else, or any text with the list as proposals.
#pragma once

#include "ui/ListControl.h"

namespace pactora::ui {

class ComboBox final : public ListControl {
 public:
  enum class Style { ListOnly, FreeText };

  ComboBox(Container& parent, std::string name, Style style = Style::ListOnly)
      : ListControl(parent, ControlKind::ComboBox, std::move(name)), style_(style) {}

  // The text of a free-text box was typed, pasted or set. Choosing an entry runs
  // Click instead.
  std::function<void()> Change;

  bool ListOnly() const { return style_ == Style::ListOnly; }

  // The text of the chosen entry; in a free-text box whatever stands in it.
  const std::string& Text() const;
  // List only: chooses the first entry with exactly this text and runs Click,
  // unless the box shows that text already; raises error 380 for a text that is
  // not in the list. Free text: takes the text, chooses the entry that equals it
  // or none, and runs Change.
  void SetText(std::string text);

 private:
  void SelectionMoved() override;

  const Style style_;
  std::string free_text_;
};

}  // namespace pactora::ui
