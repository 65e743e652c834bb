// A person at a window: mouse and keyboard events on its widgets, which are told by
// the names of their controls.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QTest>
#include <stdexcept>
#include <string>

namespace pactora::desktop {

class WindowUser {
 public:
  explicit WindowUser(QWidget& window) : window_(window) {}

  template <typename T = QWidget>
  T& Get(const char* name) const {
    T* widget = window_.findChild<T*>(QString::fromUtf8(name));
    if (!widget) throw std::invalid_argument(std::string("no control ") + name);
    return *widget;
  }
  QWidget& Window() const { return window_; }

  // A click where the eye looks: at the left, where the mark or the text begins.
  void Click(const char* name) {
    QWidget* widget = &Get(name);
    if (auto* area = qobject_cast<QAbstractScrollArea*>(widget)) widget = area->viewport();
    QTest::mouseClick(widget, Qt::LeftButton, {}, QPoint(10, widget->height() / 2));
  }
  void ClickRow(const char* name, int row) {
    auto& view = Get<QAbstractItemView>(name);
    int column = 0;
    QModelIndex index = view.model()->index(row, column);
    while (view.visualRect(index).isEmpty() && column < view.model()->columnCount()) {
      index = view.model()->index(row, ++column);
    }
    view.scrollTo(index);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(index).center());
  }

  // Keys go to the widget that has the focus.
  void Key(Qt::Key key, Qt::KeyboardModifiers held = {}) { QTest::keyClick(Target(), key, held); }
  void Keys(const char* text) {
    for (const QChar character : QString::fromUtf8(text)) TypeCharacter(character, {});
  }
  void TypeCharacter(QChar character, Qt::KeyboardModifiers held) {
    const int code = character.unicode() < 128 ? character.toUpper().unicode() : 0;
    QTest::sendKeyEvent(QTest::Click, Target(), static_cast<Qt::Key>(code), QString(character),
                        held);
  }
  // Goes to the box, into a line by the mouse, and types over what it holds.
  void Retype(const char* name, const char* text) {
    if (qobject_cast<QLineEdit*>(&Get(name))) {
      Click(name);
    } else {
      GoTo(name);
    }
    Key(Qt::Key_A, Qt::ControlModifier);
    Keys(text);
  }
  // Tabs forward until the control has the focus.
  void GoTo(const char* name) {
    for (int i = 0; i < 100; ++i) {
      if (Focus() == name) return;
      Key(Qt::Key_Tab);
    }
    ADD_FAILURE() << "the tab key never comes to " << name;
  }
  // Opens the list of a box and takes the entry with the return key.
  void ChooseEntry(const char* name, const char* text) {
    GoTo(name);
    auto& box = Get<QComboBox>(name);
    const int entry = box.findText(QString::fromUtf8(text), Qt::MatchExactly);
    ASSERT_GE(entry, 0) << name << " has no " << text;
    box.showPopup();
    QTest::keyClick(box.view(), Qt::Key_Home);
    for (int i = 0; i < entry; ++i) QTest::keyClick(box.view(), Qt::Key_Down);
    QTest::keyClick(box.view(), Qt::Key_Return);
  }

  // The name of the control that has the focus.
  std::string Focus() const {
    const QWidget* widget = window_.focusWidget();
    while (widget && (widget->objectName().isEmpty() || IsPart(widget->objectName()))) {
      widget = widget->parentWidget();
    }
    return widget ? widget->objectName().toStdString() : "";
  }

  std::string Text(const char* name) const { return Get<QLineEdit>(name).text().toStdString(); }

 private:
  // Parts of a date box, and of Qt's own widgets.
  static bool IsPart(const QString& name) {
    return name.endsWith("_tick") || name.endsWith("_edit") || name.startsWith("qt_");
  }
  QWidget* Target() const { return window_.focusWidget() ? window_.focusWidget() : &window_; }

  QWidget& window_;
};

}  // namespace pactora::desktop
