// What must hold for every widget of every dialog, found by walking through them: at
// three sizes of text, and in both looks.
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSet>
#include <QTreeView>
#include <QWidget>
#include <set>

#include "desktop/FrameWidget.h"
#include "desktop/appearance.h"
#include "desktop/colors.h"
#include "desktop/office.h"

namespace pactora::desktop {
namespace {

struct Dialog {
  const char* name;
  void (*open)(Office& office);
  // Comes to the dialog from the first one that the call opens; null if that is it.
  void (*go_on)(WindowSteps& steps);
};

const Dialog kDialogs[] = {
    {"frmNewContract", [](Office& office) { office.NewContract(); }, nullptr},
    {"frmFEditDefinitions", [](Office& office) { office.EditType("Wartung"); }, nullptr},
    {"frmFEditDefPositions", [](Office& office) { office.EditType("Wartung"); },
     [](WindowSteps& steps) {
       steps.Add("frmFEditDefinitions",
                 [](QWidget& window) { WindowUser(window).Click("cmdEditPos"); });
     }},
};

class Walk : public testing::TestWithParam<std::tuple<Dialog, int>> {
 protected:
  Walk() {
    QFont font = usual;
    font.setPointSizeF(usual.pointSizeF() * std::get<int>(GetParam()) / 100.0);
    QApplication::setFont(font);
  }
  ~Walk() override {
    QApplication::setFont(usual);
    UseTheme(Theme::Light);
  }

  void In(const std::function<void(WindowUser& user)>& look) {
    Office office;
    WindowSteps steps;
    const Dialog& dialog = std::get<Dialog>(GetParam());
    if (dialog.go_on) dialog.go_on(steps);
    steps.Add(dialog.name, [&](QWidget& window) {
      QApplication::processEvents();
      WindowUser user(window);
      look(user);
      dynamic_cast<QDialog&>(window).reject();
    });
    if (dialog.go_on) {
      steps.Add("frmFEditDefinitions",
                [](QWidget& window) { dynamic_cast<QDialog&>(window).reject(); });
    }
    steps.Run([&] { dialog.open(office); });
    EXPECT_TRUE(steps.Problems().isEmpty()) << steps.Problems().join('\n').toStdString();
  }

  const QFont usual = QApplication::font();
};

std::string Describe(const QWidget& widget) {
  return widget.objectName().toStdString() + " (" + widget.metaObject()->className() + ", " +
         std::to_string(widget.width()) + " x " + std::to_string(widget.height()) + ")";
}

// A text that does not fit into its widget, or a widget that its parent cuts off.
bool IsCut(const QWidget& widget) {
  const QRect room = widget.parentWidget()->rect();
  if (!room.contains(widget.geometry())) return true;
  if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
    if (label->wordWrap()) return label->height() < label->heightForWidth(label->width());
    return label->width() < label->sizeHint().width() ||
           label->height() < label->sizeHint().height();
  }
  if (qobject_cast<const QAbstractButton*>(&widget) || qobject_cast<const QComboBox*>(&widget)) {
    return widget.width() < widget.sizeHint().width() ||
           widget.height() < widget.sizeHint().height();
  }
  if (const auto* line = qobject_cast<const QLineEdit*>(&widget)) {
    if (line->height() < line->minimumSizeHint().height()) return true;
    return line->objectName().endsWith("_edit") &&
           line->width() < line->fontMetrics().horizontalAdvance(line->text() + "  ");
  }
  if (const auto* frame = dynamic_cast<const FrameWidget*>(&widget)) {
    const QString caption = QString::fromStdString(frame->Frame().Caption());
    return frame->width() < frame->fontMetrics().horizontalAdvance(caption) + 2 * 9;
  }
  if (const auto* view = qobject_cast<const QTreeView*>(&widget)) {
    const QHeaderView& header = *view->header();
    int width = 0;
    for (int i = 0; i < header.count(); ++i) {
      if (header.isSectionHidden(i)) continue;
      width += header.sectionSize(i);
      if (header.sectionSize(i) < header.sectionSizeHint(i)) return true;
    }
    return width > view->viewport()->width();
  }
  return false;
}

TEST_P(Walk, NothingIsCutOff) {
  In([](WindowUser& user) {
    int seen = 0;
    for (const QWidget* widget : user.Window().findChildren<QWidget*>()) {
      if (!widget->isVisible() || widget->objectName().startsWith("qt_")) continue;
      // Qt's own parts of a widget.
      if (widget->objectName().isEmpty()) continue;
      ++seen;
      EXPECT_FALSE(IsCut(*widget)) << Describe(*widget);
    }
    EXPECT_GT(seen, 20);
  });
}

TEST_P(Walk, WidgetsThatAreSeenDoNotOverlap) {
  In([](WindowUser& user) {
    QList<QWidget*> widgets;
    for (QWidget* widget : user.Window().findChildren<QWidget*>()) {
      const bool is_frame = dynamic_cast<FrameWidget*>(widget) != nullptr;
      if (widget->isVisible() && !is_frame &&
          (qobject_cast<QLabel*>(widget) || widget->focusPolicy() != Qt::NoFocus)) {
        widgets.push_back(widget);
      }
    }
    for (QWidget* one : widgets) {
      for (QWidget* other : widgets) {
        if (one >= other || one->isAncestorOf(other) || other->isAncestorOf(one)) continue;
        const auto place = [&](QWidget* w) {
          return w->visibleRegion().boundingRect().translated(
              w->mapTo(&user.Window(), QPoint(0, 0)));
        };
        EXPECT_FALSE(place(one).intersects(place(other)))
            << Describe(*one) << " over " << Describe(*other);
      }
    }
  });
}

QString Caption(const QWidget& widget) {
  if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) return button->text();
  const auto* label = qobject_cast<const QLabel*>(&widget);
  return label && label->buddy() ? label->text() : QString();
}

QChar KeyOf(const QString& caption) {
  QString rest = caption;
  rest.replace("&&", "");
  const qsizetype mark = rest.indexOf('&');
  return mark < 0 ? QChar() : rest[mark + 1].toLower();
}

// The largest dialog has more captions than the alphabet has letters for them. Only an
// option may then go without one: the arrow keys come to it from its neighbour.
TEST_P(Walk, AccessKeysAreThereAndNoneTwice) {
  In([](WindowUser& user) {
    QSet<QChar> keys;
    QList<const QWidget*> without;
    for (const QWidget* widget : user.Window().findChildren<QWidget*>()) {
      const QString caption = Caption(*widget);
      if (caption.isEmpty() || widget->objectName().startsWith("qt_")) continue;
      const QChar key = KeyOf(caption);
      EXPECT_FALSE(keys.contains(key)) << "twice: " << caption.toStdString();
      if (key.isNull()) {
        without.push_back(widget);
      } else {
        keys.insert(key);
      }
    }
    for (const QWidget* widget : without) {
      EXPECT_TRUE(qobject_cast<const QRadioButton*>(widget)) << Describe(*widget);
      for (const QChar letter : Caption(*widget).toLower()) {
        EXPECT_TRUE(!letter.isLetterOrNumber() || keys.contains(letter)) << Describe(*widget);
      }
    }
  });
}

TEST_P(Walk, EveryBoxHasALabelOrAName) {
  In([](WindowUser& user) {
    QSet<const QWidget*> buddies;
    for (const QLabel* label : user.Window().findChildren<QLabel*>()) {
      if (label->buddy()) buddies.insert(label->buddy());
    }
    for (const QWidget* widget : user.Window().findChildren<QWidget*>()) {
      const QString name = widget->objectName();
      const bool is_box = name.startsWith("txt") || name.startsWith("cbo") ||
                          name.startsWith("cmb") || name.startsWith("lst") ||
                          name.startsWith("lvw") || name.startsWith("DTP");
      const QWidget* owner = widget->focusProxy() ? widget : widget->parentWidget();
      const bool named = buddies.contains(widget) || buddies.contains(owner) ||
                         !widget->accessibleName().isEmpty() || !owner->accessibleName().isEmpty();
      EXPECT_TRUE(!is_box || named) << name.toStdString();
    }
  });
}

// From left to right and from top to bottom within a frame or a column: a stop never
// lies above the one before it in the same column.
TEST_P(Walk, TheTabKeyVisitsEveryStopOnceAndReadsDownwards) {
  In([](WindowUser& user) {
    const std::string first = user.Focus();
    std::set<std::string> seen;
    std::string before;
    for (int i = 0; i < 80; ++i) {
      const std::string name = user.Focus();
      if (name != before) {
        if (seen.contains(name)) {
          EXPECT_EQ(name, first);
          break;
        }
        seen.insert(name);
        if (!before.empty()) {
          const auto place = [&](const std::string& n) {
            QWidget& widget = user.Get(n.c_str());
            return QRect(widget.mapTo(&user.Window(), QPoint(0, 0)), widget.size());
          };
          const QRect here = place(name);
          const QRect last = place(before);
          EXPECT_FALSE(here.bottom() < last.top() && here.left() <= last.left())
              << name << " lies above " << before;
        }
      }
      before = name;
      user.Key(Qt::Key_Tab);
    }
    for (const QWidget* widget : user.Window().findChildren<QWidget*>()) {
      const bool stop =
          widget->isVisible() && widget->isEnabled() &&
          (qobject_cast<const QLineEdit*>(widget) || qobject_cast<const QComboBox*>(widget) ||
           qobject_cast<const QCheckBox*>(widget) || qobject_cast<const QPushButton*>(widget));
      const std::string name = widget->objectName().toStdString();
      const bool part = name.ends_with("_edit") || name.ends_with("_tick") || name.empty() ||
                        name.starts_with("qt_");
      EXPECT_TRUE(!stop || part || seen.contains(name)) << name << " is never reached";
    }
  });
}

TEST_P(Walk, EveryTextIsReadableOnItsBackgroundInBothLooks) {
  for (const Theme theme : {Theme::Light, Theme::Dark}) {
    UseTheme(theme);
    In([&](WindowUser& user) {
      EXPECT_EQ(IsDark(user.Window().palette()), theme == Theme::Dark);
      for (const QWidget* widget : user.Window().findChildren<QWidget*>()) {
        const QPalette palette = widget->palette();
        const auto far = [&](QPalette::ColorRole text, QPalette::ColorRole ground) {
          return std::abs(palette.color(QPalette::Active, text).lightness() -
                          palette.color(QPalette::Active, ground).lightness());
        };
        EXPECT_GT(far(QPalette::WindowText, QPalette::Window), 90) << Describe(*widget);
        EXPECT_GT(far(QPalette::Text, QPalette::Base), 90) << Describe(*widget);
        EXPECT_GT(far(QPalette::ButtonText, QPalette::Button), 90) << Describe(*widget);
      }
    });
  }
}

INSTANTIATE_TEST_SUITE_P(Dialogs, Walk,
                         testing::Combine(testing::ValuesIn(kDialogs),
                                          testing::Values(100, 150, 200)),
                         [](const auto& tested) {
                           return std::get<Dialog>(tested.param).name + std::string("At") +
                                  std::to_string(std::get<int>(tested.param));
                         });

}  // namespace
}  // namespace pactora::desktop
