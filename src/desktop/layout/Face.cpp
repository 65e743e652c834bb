#include "desktop/layout/Face.h"

#include <QLabel>
#include <QLineEdit>
#include <QSizePolicy>
#include <QStackedWidget>
#include <algorithm>
#include <stdexcept>
#include <string>

namespace pactora::desktop {
namespace {

template <typename Layout>
Layout* Plain(Layout* layout) {
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(Face::kSpacing);
  return layout;
}

}  // namespace

QWidget& Face::operator[](std::string_view control) const {
  QWidget* widget = find_(control);
  if (!widget) throw std::invalid_argument("no control " + std::string(control));
  return *widget;
}

QGridLayout* Face::Grid(QWidget& owner) const { return Plain(new QGridLayout(&owner)); }

QVBoxLayout* Face::Column(QWidget& owner) const { return Plain(new QVBoxLayout(&owner)); }

QHBoxLayout* Face::Row(QWidget& owner) const { return Plain(new QHBoxLayout(&owner)); }

QVBoxLayout* Face::Column() { return Plain(new QVBoxLayout); }

QHBoxLayout* Face::Row(std::initializer_list<std::string_view> controls) const {
  auto* row = Plain(new QHBoxLayout);
  for (const std::string_view control : controls) row->addWidget(&(*this)[control]);
  return row;
}

QWidget* Face::Footer(std::initializer_list<std::string_view> notes,
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

QWidget* Face::Stack(std::initializer_list<std::string_view> frames) const {
  auto* stack = new QStackedWidget;
  for (const std::string_view frame : frames) stack->addWidget(&(*this)[frame]);
  return stack;
}

void Face::Wrap(std::string_view label) const { Get<QLabel>(label).setWordWrap(true); }

void Face::AlignRight(std::initializer_list<std::string_view> boxes) const {
  for (const std::string_view box : boxes) {
    Get<QLineEdit>(box).setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  }
}

void Face::KeepPlace(std::initializer_list<std::string_view> controls) const {
  for (const std::string_view control : controls) {
    QWidget& widget = (*this)[control];
    QSizePolicy policy = widget.sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget.setSizePolicy(policy);
  }
}

void Face::Name(std::string_view control, const char* name) const {
  (*this)[control].setAccessibleName(QString::fromUtf8(name));
}

void Face::SameWidth(std::initializer_list<std::string_view> controls) const {
  int widest = 0;
  for (const std::string_view control : controls) {
    widest = std::max(widest, (*this)[control].sizeHint().width());
  }
  for (const std::string_view control : controls) (*this)[control].setMinimumWidth(widest);
}

}  // namespace pactora::desktop
