// A box for text.
#pragma once

#include "ui/Control.h"

namespace pactora::ui {

class TextBox final : public Control {
 public:
  enum class Lines { Single, Multiple };

  TextBox(Container& parent, std::string name, Lines lines = Lines::Single)
      : Control(parent, ControlKind::TextBox, std::move(name)), lines_(lines) {}

  // The text changed: typed, pasted or set.
  std::function<void()> Change;
  // A key is about to be typed. The handler may change the character code; 0
  // swallows the key. Backspace is 8, the return key 13.
  std::function<void(std::int32_t& key)> KeyPress;
  // The focus is about to leave the box; setting cancel keeps it.
  std::function<void(bool& cancel)> Validate;

  const std::string& Text() const { return text_; }
  void SetText(std::string text);

  bool MultiLine() const { return lines_ == Lines::Multiple; }
  // A person can go into a read-only box and change nothing; code can set it.
  bool ReadOnly() const { return read_only_; }
  void SetReadOnly(bool read_only) { read_only_ = read_only; }

  std::uint32_t ForeColor() const { return fore_color_; }
  void SetForeColor(std::uint32_t fore_color);

 private:
  friend class Person;
  std::string text_;
  const Lines lines_;
  bool read_only_ = false;
  std::uint32_t fore_color_ = color::kWindowText;
};

}  // namespace pactora::ui
