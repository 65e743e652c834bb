#include "desktop/binding/typing.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <optional>

#include "ui/keys.h"

namespace pactora::desktop {
namespace {

constexpr int kMemoLines = 3;

// What a key types, or none for a key that does something else: moving, deleting
// ahead, copying, a shortcut.
std::optional<QString> TypedBy(const QKeyEvent& event) {
  const Qt::KeyboardModifiers held = event.modifiers();
  const bool shortcut = held.testFlag(Qt::ControlModifier) != held.testFlag(Qt::AltModifier) ||
                        held.testFlag(Qt::MetaModifier);
  const QString text = event.text();
  if (shortcut || text.isEmpty() || !text[0].isPrint()) return std::nullopt;
  return text;
}

QString Filtered(const QString& text, const KeyFilter& filter) {
  QString result;
  for (const std::int32_t code : ui::KeysOf(text.toStdString())) {
    std::int32_t key = code;
    filter(key);
    result += QString::fromStdString(ui::CharacterOf(key));
  }
  return result;
}

// Whether the filter lets a key through that types no character.
bool Passes(std::int32_t key, const KeyFilter& filter) {
  filter(key);
  return key != 0;
}

// What was composed of several keys.
void FilterComposed(QInputMethodEvent& event, const KeyFilter& filter) {
  event.setCommitString(Filtered(event.commitString(), filter), event.replacementStart(),
                        event.replacementLength());
}

}  // namespace

void FilteredLineEdit::keyPressEvent(QKeyEvent* event) {
  if (isReadOnly()) return QLineEdit::keyPressEvent(event);
  if (event->key() == Qt::Key_Backspace) {
    if (Passes(ui::kBackspace, filter_)) QLineEdit::keyPressEvent(event);
  } else if (const auto text = TypedBy(*event)) {
    if (const QString typed = Filtered(*text, filter_); !typed.isEmpty()) insert(typed);
  } else {
    QLineEdit::keyPressEvent(event);
  }
}

void FilteredLineEdit::inputMethodEvent(QInputMethodEvent* event) {
  if (isReadOnly()) return;
  FilterComposed(*event, filter_);
  QLineEdit::inputMethodEvent(event);
}

void FilteredTextEdit::keyPressEvent(QKeyEvent* event) {
  if (isReadOnly()) return QPlainTextEdit::keyPressEvent(event);
  const bool is_return = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (is_return || event->key() == Qt::Key_Backspace) {
    const std::int32_t key = is_return ? ui::kReturn : ui::kBackspace;
    if (Passes(key, filter_)) QPlainTextEdit::keyPressEvent(event);
  } else if (const auto text = TypedBy(*event)) {
    if (const QString typed = Filtered(*text, filter_); !typed.isEmpty()) insertPlainText(typed);
  } else {
    QPlainTextEdit::keyPressEvent(event);
  }
}

void FilteredTextEdit::inputMethodEvent(QInputMethodEvent* event) {
  if (isReadOnly()) return;
  FilterComposed(*event, filter_);
  QPlainTextEdit::inputMethodEvent(event);
}

QSize FilteredTextEdit::sizeHint() const {
  const QMargins margins = contentsMargins();
  const int frame = 2 * (static_cast<int>(document()->documentMargin()) + frameWidth());
  return {fontMetrics().averageCharWidth() * 24,
          fontMetrics().lineSpacing() * kMemoLines + frame + margins.top() + margins.bottom()};
}

}  // namespace pactora::desktop
