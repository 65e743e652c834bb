// A person at a window: mouse and keyboard events on its widgets, which are known by
// the names of their controls.
#pragma once

#include <gmock/gmock.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <functional>
#include <stdexcept>
#include <string>
#include <utility>

#include "pictures/WindowSteps.h"
#include "platform/Date.h"

namespace pactora::desktop {

// Carries out the steps while the call runs; each of them must come.
inline void RunSteps(WindowSteps& steps, const std::function<void()>& call) {
  steps.Run(call);
  EXPECT_EQ(steps.Problems().join('\n').toStdString(), "");
}

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
  // Lets the time pass after which what was typed is handed over.
  void Pause() {
    for (QTimer* pause : window_.findChildren<QTimer*>(QStringLiteral("pause"))) {
      if (!pause->isActive()) continue;
      const int usual = pause->interval();
      pause->setInterval(0);
      while (pause->isActive()) QApplication::processEvents();
      pause->setInterval(usual);
    }
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
  // The row that has the text in one of its cells.
  void ClickRow(const char* name, const char* text) {
    const QAbstractItemModel& rows = *Get<QAbstractItemView>(name).model();
    for (int column = 0; column < rows.columnCount(); ++column) {
      const auto found = rows.match(rows.index(0, column), Qt::DisplayRole, QString::fromUtf8(text),
                                    1, Qt::MatchContains);
      if (!found.empty()) return ClickRow(name, found.front().row());
    }
    ADD_FAILURE() << name << " has no row " << text;
  }
  void ChooseRow(const char* name, int row) { ClickRow(name, row - 1); }

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
    SelectAll(name);
    Keys(text);
  }
  void Paste(const char* name, const char* text) {
    SelectAll(name);
    QApplication::clipboard()->setText(text);
    Key(Qt::Key_V, Qt::ControlModifier);
  }
  // Tabs forward until the control has the focus.
  void GoTo(const char* name) {
    for (int i = 0; i < 100; ++i) {
      if (Focus() == name) return;
      Key(Qt::Key_Tab);
    }
    ADD_FAILURE() << "the tab key never comes to " << name;
  }
  // Clicks the row of a list, or opens the list of a box and takes the entry with the return key.
  void Choose(const char* name, const char* text) {
    if (qobject_cast<QAbstractItemView*>(&Get(name))) return ClickRow(name, text);
    GoTo(name);
    auto& box = Get<QComboBox>(name);
    const int entry = box.findText(QString::fromUtf8(text), Qt::MatchExactly);
    ASSERT_GE(entry, 0) << name << " has no " << text;
    box.showPopup();
    QTest::keyClick(box.view(), Qt::Key_Home);
    for (int i = 0; i < entry; ++i) QTest::keyClick(box.view(), Qt::Key_Down);
    QTest::keyClick(box.view(), Qt::Key_Return);
  }
  void Pick(const char* name, platform::Date date) {
    Retype(name, platform::FormatDate(date, "d.M.yy").c_str());
  }
  // The key that the caption marks, together with the Alt key.
  void AccessKey(const QString& caption) {
    const QChar key = caption[caption.indexOf('&') + 1].toUpper();
    QTest::keyClick(&window_, static_cast<Qt::Key>(key.unicode()), Qt::AltModifier);
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
  void SelectAll(const char* name) {
    qobject_cast<QLineEdit*>(&Get(name)) ? Click(name) : GoTo(name);
    Key(Qt::Key_A, Qt::ControlModifier);
  }
  QWidget* Target() const { return window_.focusWidget() ? window_.focusWidget() : &window_; }

  QWidget& window_;
};

inline WindowSteps::Action AsUser(std::function<void(WindowUser& user)> acts) {
  return [acts = std::move(acts)](QWidget& window) {
    WindowUser user(window);
    acts(user);
  };
}

// The next message box; a person closes it with the return key.
inline void ExpectMessage(WindowSteps& steps, const std::string& text) {
  steps.Add("message", [text](QWidget& window) {
    EXPECT_THAT(window.property("text").toString().toStdString(), testing::HasSubstr(text));
    QTest::keyClick(&window, Qt::Key_Return);
  });
}

// The question whether the input is to be given up, answered by the button of that text.
inline void ExpectDiscardQuestion(WindowSteps& steps, const QString& answer) {
  steps.Add("message", [answer](QWidget& window) {
    EXPECT_EQ(window.property("text").toString(), "Die Eingaben sind nicht gespeichert.");
    for (auto* button : window.findChildren<QPushButton*>())
      if (button->text() == answer) button->click();
  });
}

}  // namespace pactora::desktop
