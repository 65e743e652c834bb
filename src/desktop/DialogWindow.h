// The window of one dialog. It makes a widget for each control, has them laid out,
// and is the door through which what a person does gets to the dialog.
//
// The dialog knows where the focus is and the widgets follow: a key or a press that
// would move the focus asks the dialog first, so that a box that refuses to be left
// is never left, not even for a moment.
#pragma once

#include <QDialog>
#include <QEventLoop>
#include <QHash>
#include <exception>
#include <functional>
#include <string>
#include <vector>

#include "desktop/binding/binders.h"
#include "ui/Form.h"
#include "ui/Person.h"

class QScrollArea;

namespace pactora::desktop {

class DialogWindow final : public QDialog, private PersonDoor, private ui::FormObserver {
 public:
  // The form must outlive the window; end_unit ends the host's unit of work.
  DialogWindow(ui::Form& form, std::function<void()> end_unit, QWidget* parent);
  ~DialogWindow() override;

  // Shows the form and returns when it was hidden. Raises what ending a unit of
  // work raised, and errors of events that the form does not handle.
  void Run();
  // Shows what changed in lists by now.
  void Refresh();

  // Of the whole dialog; on a small screen a part of it is scrolled.
  QSize sizeHint() const override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  bool focusNextPrevChild(bool next) override;
  void closeEvent(QCloseEvent* event) override;
  void reject() override;  // the escape key

 private:
  bool Act(const ui::Control& control, const Action& action) override;
  void RefreshLater() override;
  void Complain(const QString& text) override;

  void ControlChanged(const ui::Control& control, ui::Property property) override;
  void FocusChanged(const ui::Control* control, ui::FocusCause cause) override;
  void CaptionChanged() override;
  void Hidden() override { loop_.quit(); }

  void MakeWidgets();
  void ConnectLabels();
  void FitToScreen();
  // By Esc or by the window's frame: asks first where something was entered.
  void CloseByPerson();
  // Runs what a person did; afterwards the unit of work is ended and the widgets
  // show the outcome. A failure ends the dialog.
  ui::Outcome Carry(const Action& action);
  bool Enter(ui::Control& control, Qt::FocusReason reason);
  // Takes over what was typed into the box that has the focus.
  bool CommitFocused();
  void ShowFocus(Qt::FocusReason reason);
  Binder* BinderOf(const ui::Control* control) const;

  ui::Form& form_;
  const std::function<void()> end_unit_;
  ui::Person person_{form_};
  QScrollArea* scroll_area_ = nullptr;
  QWidget* body_ = nullptr;
  QWidget* footer_ = nullptr;
  std::vector<BinderPtr> binders_;  // in tab order
  QHash<const ui::Control*, Binder*> binder_of_;
  QHash<const QObject*, Binder*> pressed_;  // by the widgets that a press may hit
  QHash<const QObject*, Binder*> focused_;  // by the widgets that the keyboard stops at
  Qt::FocusReason reason_ = Qt::OtherFocusReason;
  QEventLoop loop_;
  std::exception_ptr failure_;
  std::string input_at_start_;
  bool acting_ = false;
  bool refresh_asked_ = false;
};

}  // namespace pactora::desktop
