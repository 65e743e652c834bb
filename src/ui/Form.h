// A dialog: controls, focus, and the place where its events are dispatched.
//
// A dialog derives from Form and has its controls as members:
//
//   class frmExample : public ui::Form {
//    public:
//     frmExample(...) : Form("frmExample") {
//       OnError = [this](const std::string& procedure, const platform::Error& error) {...};
//       cmdOK.Click = [this] { cmdOK_Click(); };
//     }
//     ui::Frame fraTerm{*this, "fraTerm", "Dauer"};
//     ui::TextBox txtDauer{fraTerm, "txtDauer"};
//     ui::Button cmdOK{*this, "cmdOK", "OK", ui::Button::Role::Default};
//   };
//
// An error that a handler raises reaches the caller that changed the control: code that
// set a value gets it as from any other call. A person has no code to get it, so
// the outermost event of a person's action ends here: OnError is called, and the
// dialog stays as it is.
#pragma once

#include "platform/Error.h"
#include "ui/Control.h"
#include "ui/Screen.h"

namespace pactora::ui {

class Button;

// Who put the focus where it is now. Kept: a box refused to be left.
enum class FocusCause { Person, Program, Kept };

// Called for everything that happens to a form and its controls, after it happened
// and before handlers run. Knows how the form is shown, or writes it down.
class FormObserver {
 public:
  virtual ~FormObserver() = default;
  virtual void ControlChanged(const Control& control, Property property) = 0;
  // Null: no control has the focus.
  virtual void FocusChanged(const Control* control, FocusCause cause) = 0;
  virtual void CaptionChanged() = 0;
  virtual void Hidden() = 0;
};

class Form : public Container {
 public:
  virtual ~Form() = default;

  // The class name, for example "frmNewContract".
  const std::string& ClassName() const { return class_name_; }
  const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption);

  // All controls in tab order, those in frames included.
  const std::vector<Control*>& Controls() const { return controls_; }
  // By exact name; null when the form has no such control.
  Control* Find(std::string_view name) const;
  // Likewise, and null when the control is of another kind.
  template <typename T>
  T* Find(std::string_view name) const {
    return dynamic_cast<T*>(Find(name));
  }
  // The button of that role, or null.
  Button* CancelButton() const;
  Button* DefaultButton() const;

  // Shows the form modally: returns when it was hidden.
  void Show(Screen& screen) { screen.ShowModal(*this); }
  // Ends the modal show. Members and controls stay readable.
  void Hide();
  bool Visible() const { return visible_; }

  Control* Focus() const { return focus_; }

  // Runs each time the form comes up, as Form_Activate.
  std::function<void()> Activate;
  // Gets the errors of events; the procedure is named like "cmdOK_Click". Without
  // it they are raised on to the host.
  std::function<void(const std::string& procedure, const platform::Error& error)> OnError;

  // For hosts. Begin makes the form visible, gives the first control that can
  // take it the focus if none has it, and runs Activate.
  void BeginModal();
  // Hides the form if it is still visible.
  void EndModal();
  // An observer must be removed before it is destroyed.
  void AddObserver(FormObserver& observer);
  void RemoveObserver(FormObserver& observer);

 protected:
  explicit Form(std::string class_name);

 private:
  friend class Control;
  friend class Person;

  // Runs the body as the event procedure of that name. True when it ended
  // normally. Within a person's action the outermost call hands an error to
  // OnError and returns false; otherwise the error is raised on. An exception
  // other than Error counts as error 51.
  bool Dispatch(const std::string& procedure, const std::function<void()>& body);
  void MoveFocus(Control* control, FocusCause cause);
  void NotifyChanged(const Control& control, Property property) const;

  const std::string class_name_;
  std::string caption_;
  std::vector<Control*> controls_;
  std::vector<FormObserver*> observers_;
  Control* focus_ = nullptr;
  bool visible_ = false;
  bool person_acts_ = false;  // a person's action runs and no handler yet
};

}  // namespace pactora::ui
