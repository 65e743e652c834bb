// What must hold for every widget of every dialog, found by walking through them: at
// three sizes of text, and in both looks.
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QTreeView>
#include <algorithm>

#include "desktop/FrameWidget.h"
#include "desktop/appearance.h"
#include "desktop/colors.h"
#include "desktop/office.h"

namespace pactora::desktop {
namespace {

// The widgets but for Qt's own parts of them.
QList<QWidget*> Widgets(const WindowUser& user) {
  return user.Window().findChildren<QWidget*>(QRegularExpression("^(?!qt_)."));
}

QRect Place(const WindowUser& user, const QWidget& widget) {
  const QRect seen = widget.visibleRegion().boundingRect();
  return seen.translated(widget.mapTo(&user.Window(), QPoint(0, 0)));
}

// A text that does not fit into its widget, or a widget that its parent cuts off.
bool IsCut(const QWidget& widget) {
  if (!widget.parentWidget()->rect().contains(widget.geometry())) return true;
  const QFontMetrics metrics = widget.fontMetrics();
  if (const auto* label = qobject_cast<const QLabel*>(&widget); label && label->wordWrap()) {
    return label->height() < label->heightForWidth(label->width());
  }
  if (qobject_cast<const QLabel*>(&widget) || qobject_cast<const QAbstractButton*>(&widget) ||
      qobject_cast<const QComboBox*>(&widget)) {
    return widget.size().expandedTo(widget.sizeHint()) != widget.size();
  }
  if (const auto* line = qobject_cast<const QLineEdit*>(&widget)) {
    const bool date = line->objectName().endsWith("_edit");
    return line->height() < line->minimumSizeHint().height() ||
           (date && line->width() < metrics.horizontalAdvance(line->text() + "  "));
  }
  if (const auto* frame = dynamic_cast<const FrameWidget*>(&widget)) {
    const QString caption = QString::fromStdString(frame->Frame().Caption());
    return frame->width() < metrics.horizontalAdvance(caption) + 2 * 9;
  }
  const auto* view = qobject_cast<const QTreeView*>(&widget);
  for (int i = 0; view && i < view->header()->count(); ++i) {
    const int width = view->header()->sectionSize(i);
    if (width != 0 && width < view->header()->sectionSizeHint(i)) return true;
  }
  return view && view->header()->length() > view->viewport()->width();
}

bool IsNameless(const QWidget& widget) {
  static const QRegularExpression box("^(txt|cbo|cmb|lst|lvw|DTP)");
  return widget.objectName().contains(box) && widget.accessibleName().isEmpty();
}

bool IsReadable(const QPalette& palette, QPalette::ColorRole text, QPalette::ColorRole ground) {
  return std::abs(palette.color(QPalette::Active, text).lightness() -
                  palette.color(QPalette::Active, ground).lightness()) > 90;
}

// The largest dialog has more captions than the alphabet has letters for them. Only an
// option may then go without one: the arrow keys come to it from its neighbour.
void ExpectAccessKeys(const WindowUser& user) {
  QString keys;
  QString options;  // without a key
  for (const QWidget* widget : Widgets(user)) {
    const auto* button = qobject_cast<const QAbstractButton*>(widget);
    const auto* label = qobject_cast<const QLabel*>(widget);
    QString caption = button ? button->text() : label && label->buddy() ? label->text() : "";
    const qsizetype mark = caption.remove("&&").indexOf('&');
    if (mark >= 0) {
      EXPECT_FALSE(keys.contains(caption[mark + 1].toLower()))
          << "twice: " << caption.toStdString();
      keys += caption[mark + 1].toLower();
    } else if (!caption.isEmpty()) {
      EXPECT_TRUE(qobject_cast<const QRadioButton*>(widget)) << caption.toStdString();
      options += caption.toLower();
    }
  }
  for (const QChar letter : options)
    EXPECT_TRUE(!letter.isLetterOrNumber() || keys.contains(letter));
}

// From left to right and from top to bottom within a frame or a column: a stop never
// lies above the one before it in the same column.
void ExpectTabStops(WindowUser& user) {
  std::vector<std::string> stops{user.Focus()};
  for (int i = 0; i < 80; ++i) {
    user.Key(Qt::Key_Tab);
    const std::string here = user.Focus();
    if (here == stops.back()) continue;  // the other part of a date box
    if (std::ranges::count(stops, here) > 0) {
      EXPECT_EQ(here, stops.front());
      break;
    }
    const QRect place = Place(user, user.Get(here.c_str()));
    const QRect before = Place(user, user.Get(stops.back().c_str()));
    EXPECT_FALSE(place.bottom() < before.top() && place.left() <= before.left())
        << here << " lies above " << stops.back();
    stops.push_back(here);
  }
  for (const QWidget* widget : Widgets(user)) {
    const bool stop =
        qobject_cast<const QLineEdit*>(widget) || qobject_cast<const QComboBox*>(widget) ||
        qobject_cast<const QCheckBox*>(widget) || qobject_cast<const QPushButton*>(widget);
    const bool part_of_date = widget->objectName().contains(QRegularExpression("_(edit|tick)$"));
    if (!stop || part_of_date || !widget->isVisible() || !widget->isEnabled()) continue;
    EXPECT_THAT(stops, testing::Contains(widget->objectName().toStdString()));
  }
}

void ExpectAllWell(WindowUser& user) {
  QList<QWidget*> seen;
  for (QWidget* widget : Widgets(user)) {
    SCOPED_TRACE(widget->objectName().toStdString());
    EXPECT_FALSE(IsNameless(*widget));
    const QPalette& palette = widget->palette();
    EXPECT_TRUE(IsReadable(palette, QPalette::WindowText, QPalette::Window));
    EXPECT_TRUE(IsReadable(palette, QPalette::Text, QPalette::Base));
    EXPECT_TRUE(IsReadable(palette, QPalette::ButtonText, QPalette::Button));
    if (!widget->isVisible()) continue;
    EXPECT_FALSE(IsCut(*widget)) << widget->width() << " x " << widget->height();
    if (!qobject_cast<QLabel*>(widget) && widget->focusPolicy() == Qt::NoFocus) continue;
    for (const QWidget* other : seen) {
      if (other->isAncestorOf(widget) || widget->isAncestorOf(other)) continue;
      EXPECT_FALSE(Place(user, *widget).intersects(Place(user, *other)))
          << "over " << other->objectName().toStdString();
    }
    seen.push_back(widget);
  }
  EXPECT_GT(seen.size(), 10);
  ExpectAccessKeys(user);
  ExpectTabStops(user);
}

class Walk : public testing::TestWithParam<std::tuple<const char*, int>> {};

TEST_P(Walk, AllIsWellWithEveryWidget) {
  const auto& [dialog, percent] = GetParam();
  const std::string name = dialog;
  const QFont usual = QApplication::font();
  QFont font = usual;
  font.setPointSizeF(usual.pointSizeF() * percent / 100.0);
  QApplication::setFont(font);
  for (const Theme theme : {Theme::Dark, Theme::Light}) {
    UseTheme(theme);
    Office office;
    WindowSteps steps;
    const char* const type = "frmFEditDefinitions";
    const bool position = name == "frmFEditDefPositions";
    if (position) steps.Add(type, [](QWidget& window) { WindowUser(window).Click("cmdEditPos"); });
    steps.Add(dialog, [&](QWidget& window) {
      QApplication::processEvents();
      EXPECT_EQ(IsDark(window.palette()), theme == Theme::Dark);
      WindowUser user(window);
      ExpectAllWell(user);
      window.close();
    });
    // Going through the boxes has worked out prices anew.
    if (position) ExpectDiscardQuestion(steps, "&Verwerfen");
    if (position) steps.Add(type, [](QWidget& window) { window.close(); });
    RunSteps(steps,
             [&] { name == "frmNewContract" ? office.NewContract() : office.EditType("Wartung"); });
  }
  QApplication::setFont(usual);
}

INSTANTIATE_TEST_SUITE_P(Dialogs, Walk,
                         testing::Combine(testing::Values("frmNewContract", "frmFEditDefinitions",
                                                          "frmFEditDefPositions"),
                                          testing::Values(100, 150, 200)),
                         [](const auto& tested) {
                           return std::get<0>(tested.param) + std::string("At") +
                                  std::to_string(std::get<1>(tested.param));
                         });

}  // namespace
}  // namespace pactora::desktop
