// The parts from which the dialogs' layouts are made.
#pragma once

#include <QBoxLayout>
#include <QGridLayout>
#include <QWidget>
#include <initializer_list>
#include <string_view>

#include "desktop/layout/layouts.h"

namespace pactora::desktop {

class DialogLayout {
 public:
  // Distances in pixels.
  static constexpr int kMargin = 12;
  static constexpr int kSpacing = 8;

  DialogLayout(QWidget& body, FindWidget find) : body_(body), find_(std::move(find)) {}

  QWidget& Body() const { return body_; }
  // Raises std::invalid_argument for a name that the dialog does not have.
  QWidget& operator[](std::string_view control) const;
  template <typename T>
  T& Get(std::string_view control) const {
    return dynamic_cast<T&>((*this)[control]);
  }

  // Layouts without margins that belong to a frame or the body.
  QGridLayout* Grid(QWidget& owner) const;
  QVBoxLayout* Column(QWidget& owner) const;
  QHBoxLayout* Row(QWidget& owner) const;
  // Likewise, to be put into another layout.
  static QVBoxLayout* Column();
  QHBoxLayout* Row(std::initializer_list<std::string_view> controls) const;

  // The strip at the bottom: notes at the left, buttons at the right.
  QWidget* Footer(std::initializer_list<std::string_view> notes,
                  std::initializer_list<std::string_view> buttons) const;

  // Frames that lie on top of each other.
  QWidget* Stack(std::initializer_list<std::string_view> frames) const;

  // A label whose text runs over several lines where it must.
  void Wrap(std::string_view label) const;
  void AlignRight(std::initializer_list<std::string_view> boxes) const;
  // The place of a hidden widget stays free.
  void KeepPlace(std::initializer_list<std::string_view> controls) const;
  // What assistive technology calls a control that has no label.
  void Name(std::string_view control, const char* name) const;
  // Double click and return key on a row of the list view press this button.
  void OpenRowsBy(std::string_view list_view, std::string_view button) const;
  // All these are as wide as the widest of them.
  void SameWidth(std::initializer_list<std::string_view> controls) const;

 private:
  QWidget& body_;
  FindWidget find_;
};

// The dialogs' layouts.
QWidget* ArrangeNewContract(const DialogLayout& dialog);
QWidget* ArrangeEditDefinitions(const DialogLayout& dialog);
QWidget* ArrangeEditDefPositions(const DialogLayout& dialog);

}  // namespace pactora::desktop
