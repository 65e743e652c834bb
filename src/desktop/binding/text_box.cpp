#include <QTimer>
#include <algorithm>

#include "desktop/binding/binders.h"
#include "desktop/binding/typing.h"
#include "desktop/colors.h"
#include "desktop/text.h"
#include "ui/keys.h"

namespace pactora::desktop {
namespace {

// What assistive technology says of a colour that stands out.
constexpr char kRedInWords[] = "rot hervorgehoben";

// Either of the two kinds of box.
template <typename Edit>
class TextBoxBinder : public Binder {
 public:
  TextBoxBinder(ui::TextBox& box, PersonDoor& door, QWidget& parent)
      : Binder(door, box), box_(box), edit_(*new Edit(&parent, [this](std::int32_t& key) {
          if (GoesBehindNumber(key) && !Commit()) key = 0;
          PressKey(key);
        })) {
    edit_.setReadOnly(box.ReadOnly());
    edit_.setFocusPolicy(Qt::TabFocus);
  }

  QWidget& Widget() const override { return edit_; }

 protected:
  virtual QString Shown() const = 0;
  virtual void ShowText(const QString& text) = 0;

  // Whether the key handler has to know what was typed before this key.
  static bool GoesBehindNumber(std::int32_t key) {
    return key != ui::kBackspace && !(key >= '0' && key <= '9');
  }

  // The person changed the text.
  void Typed() {
    const std::string text = FromQt(Shown());
    Act([&](ui::Person& person) { return person.Paste(box_, text); });
  }

  void ShowOwn(ui::Property property) override {
    if (property == ui::Property::Text) {
      if (const QString text = ToQt(box_.Text()); text != Shown()) ShowText(text);
    } else if (property == ui::Property::ForeColor) {
      ShowForeColor();
    }
  }

  ui::TextBox& box_;
  Edit& edit_;

 private:
  void PressKey(std::int32_t& key) {
    // An action that was not carried out types nothing.
    if (!door_.Act(box_, [&](ui::Person& person) { return person.PressKey(box_, key); })) key = 0;
  }

  void ShowForeColor() {
    QPalette palette;
    const bool usual = box_.ForeColor() == ui::color::kWindowText;
    if (!usual) {
      for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        palette.setColor(group, QPalette::Text, TextColor(box_.ForeColor(), palette));
      }
    }
    edit_.setPalette(usual ? QPalette() : palette);
    edit_.setAccessibleDescription(
        box_.ForeColor() == ui::color::kRed ? QString::fromUtf8(kRedInWords) : QString());
  }
};

// A number is handed over when the person pauses or does something else: its first digit
// alone is mostly not what was meant, and some dialogs object to it at once.
class LineBinder final : public TextBoxBinder<FilteredLineEdit> {
 public:
  LineBinder(ui::TextBox& box, PersonDoor& door, QWidget& parent)
      : TextBoxBinder(box, door, parent) {
    pause_.setObjectName(QStringLiteral("pause"));
    pause_.setSingleShot(true);
    pause_.setInterval(kPause);
    connect(&pause_, &QTimer::timeout, this, [this] { Typed(); });
    connect(&edit_, &QLineEdit::textEdited, this, [this](const QString& text) {
      pause_.stop();
      if (IsNumber(text))
        pause_.start();
      else
        Typed();
    });
  }

  bool HasUncommitted() const override { return pause_.isActive(); }
  bool Commit() override {
    if (!pause_.isActive()) return true;
    pause_.stop();
    const QString typed = Shown();
    Typed();
    // What the dialog made of it is to be seen before anything follows from it.
    return Shown() == typed;
  }

 protected:
  QString Shown() const override { return edit_.text(); }
  // The caret keeps its distance from the end: the program rewrites what a person
  // is just typing.
  void ShowText(const QString& text) override {
    pause_.stop();
    const qsizetype behind_caret = edit_.text().size() - edit_.cursorPosition();
    edit_.setText(text);
    edit_.setCursorPosition(static_cast<int>(qMax<qsizetype>(0, text.size() - behind_caret)));
  }

 private:
  static constexpr int kPause = 700;  // milliseconds

  static bool IsNumber(const QString& text) {
    return !text.isEmpty() && std::ranges::all_of(text, [](QChar c) {
      return (c >= u'0' && c <= u'9') || c == u',' || c == u'.' || c == u'-';
    });
  }

  QTimer& pause_ = *new QTimer(&edit_);
};

class MemoBinder final : public TextBoxBinder<FilteredTextEdit> {
 public:
  MemoBinder(ui::TextBox& box, PersonDoor& door, QWidget& parent)
      : TextBoxBinder(box, door, parent) {
    edit_.setTabChangesFocus(true);
    connect(&edit_, &QPlainTextEdit::textChanged, this, [this] {
      if (!showing_) Typed();
    });
  }

  std::vector<QWidget*> PressTargets() const override { return {edit_.viewport()}; }

 protected:
  QString Shown() const override { return edit_.toPlainText(); }
  void ShowText(const QString& text) override {
    showing_ = true;
    edit_.setPlainText(text);
    showing_ = false;
  }

 private:
  bool showing_ = false;
};

}  // namespace

BinderPtr BindTextBox(ui::TextBox& box, PersonDoor& door, QWidget& parent) {
  return std::make_unique<LineBinder>(box, door, parent);
}

BinderPtr BindMemo(ui::TextBox& box, PersonDoor& door, QWidget& parent) {
  return std::make_unique<MemoBinder>(box, door, parent);
}

}  // namespace pactora::desktop
