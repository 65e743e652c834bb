#include "desktop/binding/binders.h"
#include "desktop/binding/typing.h"
#include "desktop/colors.h"
#include "desktop/text.h"

namespace pactora::desktop {
namespace {

// What assistive technology says of a colour that stands out.
constexpr char kRedInWords[] = "rot hervorgehoben";

// Either of the two kinds of box.
template <typename Edit>
class TextBoxBinder : public Binder {
 public:
  TextBoxBinder(ui::TextBox& box, PersonDoor& door, QWidget& parent)
      : Binder(door, box),
        box_(box),
        edit_(*new Edit(&parent, [this](std::int32_t& key) { PressKey(key); })) {
    edit_.setReadOnly(box.ReadOnly());
    edit_.setFocusPolicy(Qt::TabFocus);
  }

  QWidget& Widget() const override { return edit_; }

 protected:
  virtual QString Shown() const = 0;
  virtual void ShowText(const QString& text) = 0;

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

class LineBinder final : public TextBoxBinder<FilteredLineEdit> {
 public:
  LineBinder(ui::TextBox& box, PersonDoor& door, QWidget& parent)
      : TextBoxBinder(box, door, parent) {
    connect(&edit_, &QLineEdit::textEdited, this, [this] { Typed(); });
  }

 protected:
  QString Shown() const override { return edit_.text(); }
  // The caret keeps its distance from the end: the program rewrites what a person
  // is just typing.
  void ShowText(const QString& text) override {
    const qsizetype behind_caret = edit_.text().size() - edit_.cursorPosition();
    edit_.setText(text);
    edit_.setCursorPosition(static_cast<int>(qMax<qsizetype>(0, text.size() - behind_caret)));
  }
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
