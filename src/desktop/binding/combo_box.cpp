#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QWheelEvent>
#include <utility>

#include "desktop/binding/binders.h"
#include "desktop/binding/list_models.h"
#include "desktop/text.h"

namespace pactora::desktop {
namespace {

// Longer lists are not measured: their box has a usual width and its open list is
// as wide as what it shows.
constexpr int kMeasuredEntries = 100;
constexpr int kUsualCharacters = 18;
constexpr int kFewestCharacters = 3;
constexpr int kOpenEntries = 20;

// The wheel scrolls the dialog and changes nothing in a box that it passes over.
class Box final : public QComboBox {
 public:
  using QComboBox::QComboBox;

 protected:
  void wheelEvent(QWheelEvent* event) override {
    if (hasFocus()) {
      QComboBox::wheelEvent(event);
    } else {
      event->ignore();
    }
  }
};

class ComboBoxBinder final : public Binder {
 public:
  ComboBoxBinder(ui::ComboBox& model, PersonDoor& door, QWidget& parent)
      : Binder(door, model), model_(model), box_(*new Box(&parent)) {
    entries_ = new EntryModel(model, &box_);
    box_.setModel(entries_);
    box_.setMaxVisibleItems(kOpenEntries);
    if (!model.ListOnly()) {
      box_.setEditable(true);
      box_.setInsertPolicy(QComboBox::NoInsert);
      box_.setCompleter(nullptr);
      connect(box_.lineEdit(), &QLineEdit::textEdited, this, [this](const QString& text) {
        Act([&](ui::Person& person) { return person.Paste(model_, FromQt(text)); });
      });
    }
    box_.setFocusPolicy(Qt::TabFocus);
    connect(&box_, &QComboBox::activated, this, [this](int index) {
      Act([&](ui::Person& person) { return person.Choose(model_, index); });
    });
  }

  QWidget& Widget() const override { return box_; }
  std::vector<QWidget*> PressTargets() const override {
    if (box_.lineEdit()) return {&box_, box_.lineEdit()};
    return {&box_};
  }

  void Refresh() override {
    if (!std::exchange(changed_, false)) return;
    const QSignalBlocker quiet(box_);
    if (entries_changed_) {
      entries_->Reload();
      const bool measured = model_.Count() <= kMeasuredEntries;
      box_.setSizeAdjustPolicy(measured ? QComboBox::AdjustToContentsOnFirstShow
                                        : QComboBox::AdjustToMinimumContentsLengthWithIcon);
      box_.setMinimumContentsLength(measured ? kFewestCharacters : kUsualCharacters);
    }
    entries_changed_ = false;
    if (box_.currentIndex() != model_.ListIndex()) box_.setCurrentIndex(model_.ListIndex());
    if (const QString text = ToQt(model_.Text()); box_.isEditable() && box_.currentText() != text) {
      box_.setEditText(text);
    }
    box_.update();
  }

 protected:
  void ShowOwn(ui::Property property) override {
    if (property == ui::Property::Items) entries_changed_ = true;
    if (property == ui::Property::Items || property == ui::Property::Selection ||
        property == ui::Property::Text) {
      changed_ = true;
      door_.RefreshLater();
    }
  }

 private:
  ui::ComboBox& model_;
  QComboBox& box_;
  EntryModel* entries_ = nullptr;
  bool entries_changed_ = true;
  bool changed_ = true;
};

}  // namespace

BinderPtr BindComboBox(ui::ComboBox& box, PersonDoor& door, QWidget& parent) {
  return std::make_unique<ComboBoxBinder>(box, door, parent);
}

}  // namespace pactora::desktop
