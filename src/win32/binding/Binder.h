// One control of a dialog and the window that stands for it, kept alike in both directions:
// the window shows what the control holds, and what a person does to the window is done to
// the control through ui::Person.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "dialogs/access_keys.h"
#include "dialogs/arrangement.h"
#include "ui/Control.h"
#include "ui/Person.h"
#include "win32/Metrics.h"
#include "win32/window.h"

namespace pactora::win32 {

class Binder;

// Where a person's actions go in: the window of the dialog.
class PersonDoor {
 public:
  virtual ~PersonDoor() = default;

  using Action = std::function<ui::Outcome(ui::Person&)>;

  // Carries out a person's action on a control. False when it was not carried out,
  // also because what was typed into another box could not be taken; the window
  // must show its control again then.
  virtual bool Act(const ui::Control& control, const Action& action) = 0;
  // Has Binder::Refresh called soon, at the latest when the running action ends.
  virtual void RefreshLater() = 0;
  // Has Binder::Chosen called when the control is through with its message.
  virtual void ChosenLater(const Binder& binder) = 0;
  // Shows the person the reason of a refusal.
  virtual void Complain(const std::string& text) = 0;
  // Messages to the control come here before the binder and the control.
  virtual Answered Before(Binder& binder, const WindowMessage& message) = 0;
  virtual const Metrics& Sizes() const = 0;
};

// What the layout says of a control.
struct Look {
  bool right_aligned = false;
  bool wrapped = false;  // takes several lines where it must
  bool plain = false;    // a frame without a line
};

class Binder {
 public:
  Binder(PersonDoor& door, ui::Control& control) : door_(door), control_(control) {}
  virtual ~Binder() = default;
  Binder(const Binder&) = delete;
  Binder& operator=(const Binder&) = delete;

  ui::Control& Control() const { return control_; }
  // Owned by the window of the dialog.
  virtual HWND Window() const = 0;
  // All windows whose reports to the dialog are this binder's.
  virtual std::vector<HWND> Parts() const { return {Window()}; }
  // The windows that the keyboard stops at, in order.
  virtual std::vector<HWND> FocusStops() const { return {Window()}; }
  // Whether a mouse press on one of its windows is a person's way into the control.
  virtual bool EntersByPress() const { return true; }

  // Brings one property of the control to the window, or all of them.
  void Show(ui::Property property);
  void ShowAll();
  // Shows the changes that Show postponed, for lists that change many times in a row.
  virtual void Refresh() {}
  // The fonts are others than before.
  virtual void ShowFont();

  // Takes over what was typed but not handed to the control yet. False, after a
  // message, when it cannot be taken: the person has to correct it.
  virtual bool Commit() { return true; }
  // Whether there is something that Commit would take over.
  virtual bool HasUncommitted() const { return false; }

  // Marks the key from now on wherever it occurs in the text; none for 0.
  void SetAccessKey(dialogs::AccessKey key);

  virtual dialogs::Wish Wish() const = 0;
  // Of a frame: what lies between its edges and its content.
  virtual ui::Rectangle Border() const { return {}; }
  // Takes place in a rectangle that is at least as large as the wish.
  virtual void Place(const ui::Rectangle& room);

  // WM_COMMAND and WM_NOTIFY of one of the parts.
  virtual void Report(HWND, WORD) {}
  virtual Answered Notify(NMHDR&) { return std::nullopt; }
  // What Before let pass.
  virtual Answered Message(const WindowMessage&) { return std::nullopt; }
  // Sets the colours of a part that is about to be drawn; null for the usual ones.
  virtual HBRUSH Paint(HDC) { return nullptr; }
  // What was to be done once the control is through with its message.
  virtual void Chosen() {}
  // Whether a key that usually moves in the dialog or ends it is the control's own now.
  virtual bool TakesKey(WPARAM) const { return false; }
  // Of a button: whether the return key presses it now.
  virtual void ShowDefault(bool) {}

 protected:
  // Properties other than Enabled and Visible.
  virtual void ShowOwn(ui::Property property) = 0;
  virtual void ShowEnabled(bool enabled) { EnableWindow(Window(), enabled ? TRUE : FALSE); }

  // Has the messages of a part come to Before and Message.
  void HookPart(HWND part);
  // What the control itself does with the message.
  LRESULT Pass(const WindowMessage& message) const;
  // A text as a caption: the access key marked, "&" itself made harmless.
  void ShowCaption(const std::string& caption);
  // Carries out an action on the control; shows the control again afterwards if it
  // was not carried out.
  void Act(const PersonDoor::Action& action);
  const Metrics& Sizes() const { return door_.Sizes(); }

  PersonDoor& door_;

 private:
  ui::Control& control_;
  dialogs::AccessKey access_key_ = 0;
  std::vector<std::pair<HWND, std::unique_ptr<Hook>>> hooks_;
};

}  // namespace pactora::win32
