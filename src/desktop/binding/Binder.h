// One control of a dialog and the widget that stands for it, kept alike in both
// directions: the widget shows what the control holds, and what a person does to
// the widget is done to the control through ui::Person.
#pragma once

#include <QObject>
#include <QString>
#include <QWidget>
#include <functional>
#include <vector>

#include "dialogs/access_keys.h"
#include "ui/Control.h"
#include "ui/Person.h"

namespace pactora::desktop {

// Where a person's actions go in: the window of the dialog.
class PersonDoor {
 public:
  virtual ~PersonDoor() = default;

  using Action = std::function<ui::Outcome(ui::Person&)>;

  // Carries out a person's action on a control. False when it was not carried out,
  // also because what was typed into another box could not be taken; the widget
  // must show its control again then.
  virtual bool Act(const ui::Control& control, const Action& action) = 0;
  // Has Binder::Refresh called soon, at the latest when the running action ends.
  virtual void RefreshLater() = 0;
  // Shows the person the reason of a refusal.
  virtual void Complain(const QString& text) = 0;
};

// A QObject, so that connections end with it: widgets live on a little longer.
class Binder : public QObject {
 public:
  Binder(PersonDoor& door, ui::Control& control) : door_(door), control_(control) {}

  ui::Control& Control() const { return control_; }
  // The widget that carries the control's name. Owned by its parent widget.
  virtual QWidget& Widget() const = 0;
  // The widgets that the keyboard stops at, in order.
  virtual std::vector<QWidget*> FocusStops() const { return {&Widget()}; }
  // The widgets on which a mouse press is a person's way into the control.
  virtual std::vector<QWidget*> PressTargets() const { return {&Widget()}; }

  // Brings one property of the control to the widget, or all of them.
  void Show(ui::Property property);
  void ShowAll();
  // Shows the changes that Show postponed, for lists that change many times in a row.
  virtual void Refresh() {}

  // Takes over what was typed but not handed to the control yet. False, after a
  // message, when it cannot be taken: the person has to correct it.
  virtual bool Commit() { return true; }
  // Whether there is something that Commit would take over.
  virtual bool HasUncommitted() const { return false; }

  // The text in which an access key can be marked; empty for none.
  virtual QString MarkableText() const { return {}; }
  // What assistive technology calls the control; one that has a name keeps it.
  void SetName(const QString& name);
  // Marks the key from now on wherever it occurs in the text; none for 0.
  void SetAccessKey(dialogs::AccessKey key);

 protected:
  // Properties other than Enabled, Visible and ToolTip.
  virtual void ShowOwn(ui::Property property) = 0;
  virtual void ShowEnabled(bool enabled) { Widget().setEnabled(enabled); }
  virtual void ShowVisible(bool visible) { Widget().setVisible(visible); }
  virtual void ShowMarked(const QString&) {}

  // The text with the access key marked and everything else that Qt would take for
  // a mark made harmless.
  QString Marked(const QString& text) const;
  // Carries out an action on the control; shows the control again afterwards if it
  // was not carried out.
  void Act(const PersonDoor::Action& action);

  PersonDoor& door_;

 private:
  void ShowToolTip();

  ui::Control& control_;
  dialogs::AccessKey access_key_ = 0;
};

}  // namespace pactora::desktop
