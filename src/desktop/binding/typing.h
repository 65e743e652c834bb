// Boxes with a caret whose keys pass a filter before they are typed.
#pragma once

#include <QLineEdit>
#include <QPlainTextEdit>
#include <cstdint>
#include <functional>

namespace pactora::desktop {

// May change the code of a key; 0 swallows it. The code is that of the character,
// 8 for backspace, 13 for the return key.
using KeyFilter = std::function<void(std::int32_t& key)>;

class FilteredLineEdit final : public QLineEdit {
 public:
  FilteredLineEdit(QWidget* parent, KeyFilter filter)
      : QLineEdit(parent), filter_(std::move(filter)) {}

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  // Characters that are composed of several keys.
  void inputMethodEvent(QInputMethodEvent* event) override;

 private:
  const KeyFilter filter_;
};

class FilteredTextEdit final : public QPlainTextEdit {
 public:
  FilteredTextEdit(QWidget* parent, KeyFilter filter)
      : QPlainTextEdit(parent), filter_(std::move(filter)) {}

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;

 private:
  const KeyFilter filter_;
};

}  // namespace pactora::desktop
