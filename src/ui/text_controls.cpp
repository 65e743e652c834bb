#include <utility>

#include "platform/Error.h"
#include "ui/ComboBox.h"
#include "ui/TextBox.h"

namespace pactora::ui {

void TextBox::SetText(std::string text) {
  if (text == text_) return;
  text_ = std::move(text);
  NotifyChanged(Property::Text);
  Raise(Change, "Change");
}

void TextBox::SetForeColor(std::uint32_t fore_color) {
  if (fore_color == fore_color_) return;
  fore_color_ = fore_color;
  NotifyChanged(Property::ForeColor);
}

const std::string& ComboBox::Text() const {
  static const std::string kNoText;
  if (!ListOnly()) return free_text_;
  return ListIndex() == kNone ? kNoText : ItemText(ListIndex());
}

void ComboBox::SetText(std::string text) {
  if (text == Text()) return;
  const std::int32_t index = FindText(text);
  if (ListOnly()) {
    if (index == kNone) platform::Raise(platform::RuntimeError::ValueNotInList);
    SetListIndex(index);
    return;
  }
  free_text_ = std::move(text);
  MoveSelection(index);
  NotifyChanged(Property::Text);
  Raise(Change, "Change");
}

void ComboBox::SelectionMoved() {
  if (!ListOnly()) free_text_ = ListIndex() == kNone ? std::string() : ItemText(ListIndex());
}

}  // namespace pactora::ui
