// Labels, frames and what is clicked.
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>

#include "desktop/FrameWidget.h"
#include "desktop/binding/binders.h"
#include "desktop/text.h"

namespace pactora::desktop {
namespace {

class LabelBinder final : public Binder {
 public:
  LabelBinder(ui::Label& label, PersonDoor& door, QWidget& parent)
      : Binder(door, label), label_(label), widget_(*new QLabel(&parent)) {
    widget_.setTextFormat(Qt::PlainText);
  }

  QWidget& Widget() const override { return widget_; }
  std::vector<QWidget*> FocusStops() const override { return {}; }
  std::vector<QWidget*> PressTargets() const override { return {}; }
  // Access keys are for labels of boxes.
  QString MarkableText() const override {
    return widget_.buddy() ? ToQt(label_.Caption()) : QString();
  }

 protected:
  void ShowMarked(const QString& text) override { widget_.setText(text); }
  void ShowOwn(ui::Property property) override {
    if (property == ui::Property::Caption) {
      // Without a buddy a label shows its text as it is.
      widget_.setText(widget_.buddy() ? Marked(ToQt(label_.Caption())) : ToQt(label_.Caption()));
    } else if (property == ui::Property::Bold) {
      QFont font = widget_.font();
      font.setBold(label_.Bold());
      widget_.setFont(font);
    }
  }

 private:
  ui::Label& label_;
  QLabel& widget_;
};

class FrameBinder final : public Binder {
 public:
  FrameBinder(ui::Frame& frame, PersonDoor& door, QWidget& parent)
      : Binder(door, frame),
        frame_(frame),
        widget_(*new FrameWidget(&parent, QString::fromStdString(frame.Name()))) {}

  QWidget& Widget() const override { return widget_; }
  std::vector<QWidget*> FocusStops() const override { return {}; }
  std::vector<QWidget*> PressTargets() const override { return {}; }

 protected:
  void ShowEnabled(bool enabled) override { widget_.SetFrameEnabled(enabled); }
  // Of frames that overlap the stack shows the one in front.
  void ShowVisible(bool visible) override {
    if (frame_.Overlapping().empty()) widget_.setVisible(visible);
  }
  void ShowOwn(ui::Property property) override {
    if (property == ui::Property::Caption) {
      widget_.SetCaption(ToQt(frame_.Caption()));
    } else if (property == ui::Property::Order && !frame_.Behind()) {
      auto* stack = qobject_cast<QStackedWidget*>(widget_.parentWidget());
      if (stack) stack->setCurrentWidget(&widget_);
    }
  }

 private:
  ui::Frame& frame_;
  FrameWidget& widget_;
};

// Button, option button and check box: a caption that is clicked.
template <typename Model, typename Button>
class ClickedBinder : public Binder {
 public:
  ClickedBinder(Model& model, PersonDoor& door, QWidget& parent)
      : Binder(door, model), model_(model), button_(*new Button(&parent)) {
    button_.setFocusPolicy(Qt::TabFocus);
    connect(&button_, &Button::clicked, this, [this] {
      // The widget has changed its state already; the control decides.
      this->Act([this](ui::Person& person) { return person.Click(model_); });
    });
  }

  QWidget& Widget() const override { return button_; }
  QString MarkableText() const override { return ToQt(model_.Caption()); }

 protected:
  void ShowMarked(const QString& text) override { button_.setText(text); }
  void ShowOwn(ui::Property property) override {
    if (property == ui::Property::Caption) button_.setText(Marked(ToQt(model_.Caption())));
  }

  Model& model_;
  Button& button_;
};

class CheckBoxBinder final : public ClickedBinder<ui::CheckBox, QCheckBox> {
 public:
  using ClickedBinder::ClickedBinder;

 protected:
  void ShowOwn(ui::Property property) override {
    ClickedBinder::ShowOwn(property);
    if (property == ui::Property::Value) button_.setChecked(model_.Checked());
  }
};

class OptionBinder final : public ClickedBinder<ui::OptionButton, QRadioButton> {
 public:
  using ClickedBinder::ClickedBinder;

 protected:
  void ShowOwn(ui::Property property) override {
    ClickedBinder::ShowOwn(property);
    if (property != ui::Property::Value) return;
    // Of options that exclude each other Qt leaves the last one on.
    button_.setAutoExclusive(false);
    button_.setChecked(model_.Value());
    button_.setAutoExclusive(true);
  }
};

class ButtonBinder final : public ClickedBinder<ui::Button, QPushButton> {
 public:
  ButtonBinder(ui::Button& button, PersonDoor& door, QWidget& parent)
      : ClickedBinder(button, door, parent) {
    button_.setAutoDefault(true);
    button_.setDefault(button.GetRole() == ui::Button::Role::Default);
  }
  // A press on this one leaves no box, so that no box can keep a person from it.
  std::vector<QWidget*> PressTargets() const override {
    if (model_.GetRole() == ui::Button::Role::Cancel) return {};
    return ClickedBinder::PressTargets();
  }
};

}  // namespace

BinderPtr BindLabel(ui::Label& label, PersonDoor& door, QWidget& parent) {
  return std::make_unique<LabelBinder>(label, door, parent);
}

BinderPtr BindFrame(ui::Frame& frame, PersonDoor& door, QWidget& parent) {
  return std::make_unique<FrameBinder>(frame, door, parent);
}

BinderPtr BindCheckBox(ui::CheckBox& box, PersonDoor& door, QWidget& parent) {
  return std::make_unique<CheckBoxBinder>(box, door, parent);
}

BinderPtr BindOptionButton(ui::OptionButton& option, PersonDoor& door, QWidget& parent) {
  return std::make_unique<OptionBinder>(option, door, parent);
}

BinderPtr BindButton(ui::Button& button, PersonDoor& door, QWidget& parent) {
  return std::make_unique<ButtonBinder>(button, door, parent);
}

}  // namespace pactora::desktop
