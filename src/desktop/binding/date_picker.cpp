#include <QCalendarWidget>
#include <QCheckBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScreen>
#include <QToolButton>

#include "desktop/binding/binders.h"
#include "desktop/text.h"
#include "dialogs/typed_date.h"
#include "platform/Date.h"

namespace pactora::desktop {
namespace {

constexpr char kLongestDate[] = "00.00.0000 ";

QDate ToQDate(platform::Date date) {
  const platform::CivilDate civil = platform::ToCivil(date);
  return {civil.year, civil.month, civil.day};
}

platform::Date FromQDate(const QDate& date) {
  return platform::FromCivil(date.year(), date.month(), date.day());
}

// A line that reports the keys that turn a date back and forth.
class DateEdit final : public QLineEdit {
 public:
  using QLineEdit::QLineEdit;
  std::function<void(int days, int months)> Moved;
  std::function<void()> OpenCalendar;

  QSize sizeHint() const override { return minimumSizeHint(); }
  QSize minimumSizeHint() const override {
    const QSize size = QLineEdit::minimumSizeHint();
    const int text = fontMetrics().horizontalAdvance(QLatin1String(kLongestDate));
    const int frame = QLineEdit::sizeHint().width() - 17 * fontMetrics().horizontalAdvance('x');
    return {text + qMax(frame, 2 * 4), size.height()};
  }

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    const bool alt = event->modifiers().testFlag(Qt::AltModifier);
    switch (event->key()) {
      case Qt::Key_F4:
        return OpenCalendar();
      case Qt::Key_Up:
      case Qt::Key_Plus:
        return Moved(1, 0);
      case Qt::Key_Down:
        return alt ? OpenCalendar() : Moved(-1, 0);
      case Qt::Key_Minus:
        // Among typed digits it stands between day, month and year.
        return isModified() ? QLineEdit::keyPressEvent(event) : Moved(-1, 0);
      case Qt::Key_PageUp:
        return Moved(0, 1);
      case Qt::Key_PageDown:
        return Moved(0, -1);
      default:
        QLineEdit::keyPressEvent(event);
    }
  }
};

// A tick where there may be no date, the date to type, and the calendar.
class DatePickerBinder final : public Binder {
 public:
  DatePickerBinder(ui::DTPicker& picker, PersonDoor& door, QWidget& parent)
      : Binder(door, picker), picker_(picker), widget_(*new QWidget(&parent)) {
    auto* row = new QHBoxLayout(&widget_);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(4);
    const QString name = QString::fromStdString(picker.Name());
    if (picker.HasCheckBox()) {
      tick_ = new QCheckBox(&widget_);
      tick_->setObjectName(name + QLatin1String("_tick"));
      tick_->setFocusPolicy(Qt::TabFocus);
      tick_->setToolTip(tr("Datum angeben"));
      connect(tick_, &QCheckBox::clicked, this, [this](bool ticked) { Tick(ticked); });
      row->addWidget(tick_);
    }
    edit_ = new DateEdit(&widget_);
    edit_->setObjectName(name + QLatin1String("_edit"));
    edit_->setFocusPolicy(Qt::TabFocus);
    edit_->Moved = [this](int days, int months) { Move(days, months); };
    edit_->OpenCalendar = [this] { OpenCalendar(); };
    connect(edit_, &QLineEdit::textEdited, this, [this] { Typed(); });
    row->addWidget(edit_);
    open_ = new QToolButton(&widget_);
    open_->setObjectName(name + QLatin1String("_open"));
    open_->setArrowType(Qt::DownArrow);
    open_->setFocusPolicy(Qt::NoFocus);
    open_->setAccessibleName(tr("Kalender"));
    open_->setToolTip(tr("Kalender (F4)"));
    connect(open_, &QToolButton::clicked, this, [this] { OpenCalendar(); });
    row->addWidget(open_);
    row->addStretch();
    widget_.setFocusPolicy(Qt::TabFocus);  // a label's access key asks for one
  }

  QWidget& Widget() const override { return widget_; }
  std::vector<QWidget*> FocusStops() const override {
    if (tick_) return {tick_, edit_};
    return {edit_};
  }
  std::vector<QWidget*> PressTargets() const override {
    if (tick_) return {tick_, edit_, open_};
    return {edit_, open_};
  }

  bool HasUncommitted() const override { return typed_; }
  bool Commit() override {
    if (!typed_) return true;
    const auto date = dialogs::ReadTypedDate(FromQt(edit_->text()), picker_.ShownDate());
    if (!date) {
      door_.Complain(
          tr("„%1“ ist kein Datum.\nGeben Sie es in der Form TT.MM.JJJJ ein!").arg(edit_->text()));
      return false;
    }
    Pick(*date);
    return !typed_;
  }

 protected:
  void ShowOwn(ui::Property property) override {
    if (property != ui::Property::Value) return;
    typed_ = false;
    const bool has_date = !picker_.IsNull();
    edit_->setText(ToQt(platform::FormatDate(picker_.ShownDate(), platform::kGermanPattern)));
    edit_->setEnabled(has_date);
    open_->setEnabled(has_date);
    if (tick_) tick_->setChecked(has_date);
    widget_.setFocusProxy(has_date ? static_cast<QWidget*>(edit_) : tick_);
  }

 private:
  static QString tr(const char* text) { return QString::fromUtf8(text); }

  // A person who types into the box is in it, however the focus came here.
  void Typed() {
    typed_ = door_.Act(picker_, [this](ui::Person& person) { return person.Enter(picker_); });
    if (!typed_) ShowOwn(ui::Property::Value);
  }

  void Pick(std::optional<platform::Date> date) {
    typed_ = false;
    Act([&](ui::Person& person) { return person.PickDate(picker_, date); });
    // Also when the date is the one that it was: the text may be in another form.
    ShowOwn(ui::Property::Value);
  }

  void Tick(bool ticked) {
    Pick(ticked ? std::optional(picker_.ShownDate()) : std::nullopt);
    if (ticked) edit_->setFocus(Qt::TabFocusReason);
  }

  // From the date as it is typed, if that is one.
  void Move(int days, int months) {
    const auto typed = dialogs::ReadTypedDate(FromQt(edit_->text()), picker_.ShownDate());
    const QDate from = ToQDate(typed.value_or(picker_.ShownDate()));
    const QDate to = from.addMonths(months).addDays(days);
    if (to.isValid() && to.year() >= 100 && to.year() <= 9999) Pick(FromQDate(to));
    edit_->selectAll();
  }

  void OpenCalendar() {
    if (!Commit()) return;
    auto* calendar = new QCalendarWidget(&widget_);
    calendar->setObjectName(widget_.objectName() + QLatin1String("_calendar"));
    calendar->setWindowFlags(Qt::Popup);
    calendar->setAttribute(Qt::WA_DeleteOnClose);
    calendar->setGridVisible(false);
    calendar->setVerticalHeaderFormat(QCalendarWidget::ISOWeekNumbers);
    calendar->setFirstDayOfWeek(Qt::Monday);
    calendar->setLocale(QLocale(QLocale::German, QLocale::Germany));
    calendar->setSelectedDate(ToQDate(picker_.ShownDate()));
    const auto take = [this, calendar](const QDate& date) {
      calendar->close();
      Pick(FromQDate(date));
    };
    connect(calendar, &QCalendarWidget::clicked, this, take);
    connect(calendar, &QCalendarWidget::activated, this, take);
    calendar->adjustSize();
    calendar->move(PlaceFor(*calendar));
    calendar->show();
    calendar->setFocus();
  }

  // Below the box, or above it where the screen ends.
  QPoint PlaceFor(const QWidget& calendar) const {
    const QPoint below = widget_.mapToGlobal(QPoint(0, widget_.height()));
    const QScreen* screen = widget_.screen();
    if (!screen || below.y() + calendar.height() <= screen->availableGeometry().bottom()) {
      return below;
    }
    return widget_.mapToGlobal(QPoint(0, -calendar.height()));
  }

  ui::DTPicker& picker_;
  QWidget& widget_;
  QCheckBox* tick_ = nullptr;
  DateEdit* edit_ = nullptr;
  QToolButton* open_ = nullptr;
  bool typed_ = false;  // and not handed to the control yet
};

}  // namespace

BinderPtr BindDatePicker(ui::DTPicker& picker, PersonDoor& door, QWidget& parent) {
  return std::make_unique<DatePickerBinder>(picker, door, parent);
}

}  // namespace pactora::desktop
