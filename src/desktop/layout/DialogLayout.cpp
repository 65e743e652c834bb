#include "desktop/layout/DialogLayout.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSizePolicy>
#include <QStackedWidget>
#include <QTreeView>
#include <algorithm>
#include <stdexcept>
#include <string>

#include "desktop/binding/ChoosingView.h"

namespace pactora::desktop {
namespace {

template <typename Layout>
Layout* Plain(Layout* layout) {
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(DialogLayout::kSpacing);
  return layout;
}

}  // namespace

QWidget& DialogLayout::operator[](std::string_view control) const {
  QWidget* widget = find_(control);
  if (!widget) throw std::invalid_argument("no control " + std::string(control));
  return *widget;
}

QGridLayout* DialogLayout::Grid(QWidget& owner) const { return Plain(new QGridLayout(&owner)); }

QVBoxLayout* DialogLayout::Column(QWidget& owner) const { return Plain(new QVBoxLayout(&owner)); }

QHBoxLayout* DialogLayout::Row(QWidget& owner) const { return Plain(new QHBoxLayout(&owner)); }

QVBoxLayout* DialogLayout::Column() { return Plain(new QVBoxLayout); }

QHBoxLayout* DialogLayout::Row(std::initializer_list<std::string_view> controls) const {
  auto* row = Plain(new QHBoxLayout);
  for (const std::string_view control : controls) row->addWidget(&(*this)[control]);
  return row;
}

QWidget* DialogLayout::Footer(std::initializer_list<std::string_view> notes,
                              std::initializer_list<std::string_view> buttons) const {
  auto* strip = new QWidget;
  auto* row = Row(*strip);
  row->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  for (const std::string_view note : notes) row->addWidget(&(*this)[note]);
  row->addStretch();
  for (const std::string_view button : buttons) row->addWidget(&(*this)[button]);
  SameWidth(buttons);
  return strip;
}

QWidget* DialogLayout::Stack(std::initializer_list<std::string_view> frames) const {
  auto* stack = new QStackedWidget;
  for (const std::string_view frame : frames) stack->addWidget(&(*this)[frame]);
  return stack;
}

void DialogLayout::Wrap(std::string_view label) const { Get<QLabel>(label).setWordWrap(true); }

void DialogLayout::AlignRight(std::initializer_list<std::string_view> boxes) const {
  for (const std::string_view box : boxes) {
    Get<QLineEdit>(box).setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  }
}

void DialogLayout::KeepPlace(std::initializer_list<std::string_view> controls) const {
  for (const std::string_view control : controls) {
    QWidget& widget = (*this)[control];
    QSizePolicy policy = widget.sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget.setSizePolicy(policy);
  }
}

void DialogLayout::Name(std::string_view control, const char* name) const {
  (*this)[control].setAccessibleName(QString::fromUtf8(name));
}

void DialogLayout::OpenRowsBy(std::string_view list_view, std::string_view button) const {
  auto& view = Get<ChoosingView<QTreeView>>(list_view);
  view.Opened = [&view, &pressed = Get<QPushButton>(button)] {
    if (!pressed.isEnabled()) return;
    pressed.click();
    view.setFocus();  // for the next row
  };
}

void DialogLayout::SameWidth(std::initializer_list<std::string_view> controls) const {
  int widest = 0;
  for (const std::string_view control : controls) {
    widest = std::max(widest, (*this)[control].sizeHint().width());
  }
  for (const std::string_view control : controls) (*this)[control].setMinimumWidth(widest);
}

}  // namespace pactora::desktop
