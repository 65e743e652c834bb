#include "desktop/DialogWindow.h"

#include <QCloseEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QStyle>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "desktop/MessageBox.h"
#include "desktop/appearance.h"
#include "desktop/arrange.h"
#include "desktop/text.h"
#include "desktop/unsaved_input.h"
#include "dialogs/access_keys.h"
#include "dialogs/input.h"
#include "dialogs/layouts.h"
#include "dialogs/order.h"

namespace pactora::desktop {

DialogWindow::DialogWindow(ui::Form& form, std::function<void()> end_unit, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                          Qt::WindowCloseButtonHint | Qt::WindowMaximizeButtonHint),
      form_(form),
      end_unit_(std::move(end_unit)) {
  setObjectName(QString::fromStdString(form.ClassName()));
  setWindowModality(Qt::ApplicationModal);
  setWindowTitle(ToQt(form.Caption()));
  MakeWidgets();
  form_.AddObserver(*this);
}

DialogWindow::~DialogWindow() { form_.RemoveObserver(*this); }

void DialogWindow::MakeWidgets() {
  auto* outer = new QVBoxLayout(this);
  outer->setContentsMargins(0, 0, 0, 0);
  outer->setSpacing(0);
  scroll_area_ = new QScrollArea(this);
  scroll_area_->setFrameShape(QFrame::NoFrame);
  scroll_area_->setWidgetResizable(true);
  scroll_area_->setFocusPolicy(Qt::NoFocus);
  body_ = new QWidget;
  scroll_area_->setWidget(body_);
  outer->addWidget(scroll_area_);
  for (ui::Control* control : form_.Controls()) {
    const Binder* frame = BinderOf(control->Parent().AsFrame());
    binders_.push_back(Bind(*control, *this, frame ? frame->Widget() : *body_));
    Binder* binder = binders_.back().get();
    binder_of_[control] = binder;
    for (QWidget* widget : binder->PressTargets()) pressed_[widget] = binder;
    for (QWidget* widget : binder->FocusStops()) focused_[widget] = binder;
  }
  for (auto it = pressed_.keyBegin(); it != pressed_.keyEnd(); ++it) {
    const_cast<QObject*>(*it)->installEventFilter(this);
  }
  for (auto it = focused_.keyBegin(); it != focused_.keyEnd(); ++it) {
    if (!pressed_.contains(*it)) const_cast<QObject*>(*it)->installEventFilter(this);
  }
  ConnectLabels();
  footer_ = Arrange(dialogs::LayoutOf(form_), *body_, [this](std::string_view name) -> QWidget* {
    const ui::Control* control = form_.Find(name);
    return control ? &BinderOf(control)->Widget() : nullptr;
  });
  if (footer_) outer->addWidget(footer_);
  for (const BinderPtr& binder : binders_) {
    // A box is called by its label, and so are the parts of a date box.
    const ui::Label* label = dialogs::LabelOf(binder->Control());
    binder->SetName(label ? ToQt(label->Caption()) : QString());
    binder->Show(ui::Property::Order);
    binder->Show(ui::Property::ToolTip);
  }
  for (const auto& [control, key] : dialogs::AccessKeysOf(form_))
    BinderOf(control)->SetAccessKey(key);
}

void DialogWindow::ConnectLabels() {
  for (const BinderPtr& binder : binders_) {
    const auto* label = dynamic_cast<const ui::Label*>(&binder->Control());
    Binder* const box = label ? BinderOf(dialogs::LabelledBy(*label)) : nullptr;
    if (box) qobject_cast<QLabel*>(&binder->Widget())->setBuddy(&box->Widget());
  }
}

// The whole dialog; a scroll area alone would be content with a part.
QSize DialogWindow::sizeHint() const {
  const QLayout& layout = *body_->layout();
  const QSize footer = footer_ ? footer_->sizeHint() : QSize(0, 0);
  const QSize body = layout.totalSizeHint().expandedTo(layout.totalMinimumSize());
  const int width = qMax(body.width(), footer.width());
  const int height = layout.hasHeightForWidth() ? layout.totalHeightForWidth(width) : 0;
  return {width, qMax(body.height(), height) + footer.height()};
}

void DialogWindow::FitToScreen() {
  const QSize room = RoomFor(*this);
  // A part that is scrolled needs the bar's width beside it.
  const QSize whole = sizeHint();
  const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  resize(QSize(whole.width() + (whole.height() > room.height() ? bar : 0), whole.height())
             .boundedTo(room));
}

void DialogWindow::Run() {
  FitToScreen();
  show();
  acting_ = true;
  try {
    form_.BeginModal();
    end_unit_();
  } catch (...) {
    form_.Hide();
    throw;
  }
  acting_ = false;
  input_at_start_ = dialogs::InputOf(form_);
  Refresh();
  ShowFocus(Qt::TabFocusReason);
  if (form_.Visible()) loop_.exec();
  form_.Hide();
  hide();
  if (failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
}

void DialogWindow::Refresh() {
  refresh_asked_ = false;
  for (const BinderPtr& binder : binders_) binder->Refresh();
}

void DialogWindow::RefreshLater() {
  if (acting_ || std::exchange(refresh_asked_, true)) return;
  QTimer::singleShot(0, this, [this] {
    if (refresh_asked_) Refresh();
  });
}

void DialogWindow::Complain(const QString& text) {
  ShowMessageBox({FromQt(text), ui::style::kExclamation}, this);
}

bool DialogWindow::Act(const ui::Control& control, const Action& action) {
  const auto* button = dynamic_cast<const ui::Button*>(&control);
  const bool cancels = button && button->GetRole() == ui::Button::Role::Cancel;
  if (form_.Focus() != &control && !cancels && !CommitFocused()) return false;
  return Carry(action).Done();
}

ui::Outcome DialogWindow::Carry(const Action& action) {
  const ui::Outcome not_now{ui::Outcome::Kind::Impossible, ui::Obstacle::DialogClosed};
  if (acting_ || failure_ || !form_.Visible()) return not_now;
  ui::Outcome outcome = not_now;
  acting_ = true;
  try {
    outcome = action(person_);
    end_unit_();
  } catch (...) {
    failure_ = std::current_exception();
    form_.Hide();
  }
  acting_ = false;
  Refresh();
  return outcome;
}

bool DialogWindow::CommitFocused() {
  Binder* binder = BinderOf(form_.Focus());
  if (!binder || binder->Commit()) return true;
  ShowFocus(Qt::TabFocusReason);
  return false;
}

bool DialogWindow::Enter(ui::Control& control, Qt::FocusReason reason) {
  reason_ = reason;
  const bool done = Act(control, [&](ui::Person& person) { return person.Enter(control); });
  reason_ = Qt::OtherFocusReason;
  return done;
}

bool DialogWindow::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      if (Binder* binder = pressed_.value(watched); binder && !acting_) {
        if (!Enter(binder->Control(), Qt::MouseFocusReason)) return true;
        if (auto* stop = qobject_cast<QWidget*>(watched);
            focused_.contains(stop) && form_.Focus() == &binder->Control()) {
          stop->setFocus(Qt::MouseFocusReason);
        }
      }
      break;
    case QEvent::FocusIn:
      // An access key of a label, or assistive technology.
      if (Binder* binder = focused_.value(watched);
          binder && !acting_ && form_.Visible() && form_.Focus() != &binder->Control()) {
        if (!Enter(binder->Control(), Qt::ShortcutFocusReason)) ShowFocus(Qt::TabFocusReason);
      }
      break;
    default:
      break;
  }
  return QDialog::eventFilter(watched, event);
}

bool DialogWindow::focusNextPrevChild(bool next) {
  if (acting_ || !form_.Visible()) return false;
  // A control may have several stops.
  if (const Binder* binder = BinderOf(form_.Focus())) {
    const std::vector<QWidget*> stops = binder->FocusStops();
    const auto here = std::ranges::find(stops, focusWidget());
    if (here != stops.end()) {
      if (next && here + 1 != stops.end() && (*(here + 1))->isEnabled()) {
        (*(here + 1))->setFocus(Qt::TabFocusReason);
        return true;
      }
      if (!next && here != stops.begin()) {
        (*(here - 1))->setFocus(Qt::BacktabFocusReason);
        return true;
      }
    }
  }
  if (ui::Control* stop = dialogs::NextStop(form_, next)) {
    Enter(*stop, next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
  }
  return true;
}

void DialogWindow::ShowFocus(Qt::FocusReason reason) {
  const Binder* binder = BinderOf(form_.Focus());
  if (!binder) {
    if (QWidget* widget = focusWidget()) widget->clearFocus();
    return;
  }
  const std::vector<QWidget*> stops = binder->FocusStops();
  const auto open = std::ranges::find_if(stops, &QWidget::isEnabled);
  if (open == stops.end()) return;
  if (std::ranges::find(stops, focusWidget()) == stops.end()) {
    const bool from_behind = reason == Qt::BacktabFocusReason && stops.back()->isEnabled();
    (from_behind ? stops.back() : *open)->setFocus(reason);
  }
  // Coming by mouse or by typing, a person has put the caret where it is to be.
  const bool by_key = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
                      reason == Qt::ShortcutFocusReason;
  if (auto* line = qobject_cast<QLineEdit*>(focusWidget()); line && by_key) line->selectAll();
  scroll_area_->ensureWidgetVisible(&binder->Widget());
}

void DialogWindow::CloseByPerson() {
  if (!form_.Visible() || acting_) return;
  const Binder* binder = BinderOf(form_.Focus());
  const bool is_typing = binder && binder->HasUncommitted();
  if ((is_typing || dialogs::InputOf(form_) != input_at_start_) && !MayDiscardInput(this)) return;
  Carry([](ui::Person& person) { return person.Close(); });
}

void DialogWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  CloseByPerson();
}

void DialogWindow::reject() { CloseByPerson(); }

void DialogWindow::ControlChanged(const ui::Control& control, ui::Property property) {
  if (Binder* binder = BinderOf(&control)) binder->Show(property);
}

void DialogWindow::FocusChanged(const ui::Control*, ui::FocusCause cause) {
  ShowFocus(cause == ui::FocusCause::Person ? reason_ : Qt::TabFocusReason);
}

void DialogWindow::CaptionChanged() { setWindowTitle(ToQt(form_.Caption())); }

Binder* DialogWindow::BinderOf(const ui::Control* control) const {
  return control ? binder_of_.value(control) : nullptr;
}

}  // namespace pactora::desktop
