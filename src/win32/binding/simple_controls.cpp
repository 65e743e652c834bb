#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include "win32/FrameWindow.h"
#include "win32/binding/binders.h"

namespace pactora::win32 {
namespace {

constexpr std::int32_t kWrappedCharacters = 16;
constexpr std::int32_t kButtonWidth = 75;   // at least, as everything below at 96 to the inch
constexpr std::int32_t kButtonInset = 10;   // left and right of the caption
constexpr std::int32_t kButtonHeight = 10;  // beside the line
constexpr std::int32_t kMark = 22;          // the mark of a check box and the gap behind it
constexpr std::int32_t kEnough = 30000;     // no text is that wide

class LabelBinder final : public Binder {
 public:
  LabelBinder(ui::Label& label, PersonDoor& door, HWND parent, const Look& look)
      : Binder(door, label),
        label_(label),
        wrapped_(look.wrapped),
        window_(MakeControl(WC_STATICW, SS_LEFT, 0, parent)) {}

  HWND Window() const override { return window_; }
  std::vector<HWND> FocusStops() const override { return {}; }
  void ShowFont() override { ShowOwn(ui::Property::Bold); }

  dialogs::Wish Wish() const override {
    const std::int32_t room = wrapped_ ? Sizes().Characters(kWrappedCharacters) : kEnough;
    const SIZE size = Sizes().SizeOf(label_.Caption(), label_.Bold(), room);
    return {size.cx, size.cy};
  }

 protected:
  void ShowOwn(ui::Property property) override {
    if (property == ui::Property::Caption) {
      ShowCaption(label_.Caption());
    } else if (property == ui::Property::Bold) {
      SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(Sizes().Font(label_.Bold())),
                   TRUE);
    }
  }

 private:
  ui::Label& label_;
  const bool wrapped_;
  const HWND window_;
};

class FrameBinder final : public Binder {
 public:
  FrameBinder(ui::Frame& frame, PersonDoor& door, HWND parent, const Look& look)
      : Binder(door, frame), frame_(frame), window_(parent, frame.Name(), look.plain, Sizes()) {}

  HWND Window() const override { return window_.Handle(); }
  std::vector<HWND> FocusStops() const override { return {}; }
  void ShowFont() override { InvalidateRect(Window(), nullptr, TRUE); }
  dialogs::Wish Wish() const override { return {window_.NarrowestWidth(), 0, true, true}; }
  ui::Rectangle Border() const override { return window_.Border(); }

 protected:
  void ShowEnabled(bool enabled) override { window_.Frame().SetEnabled(enabled); }
  void ShowOwn(ui::Property property) override {
    if (property == ui::Property::Caption) window_.Frame().SetCaption(frame_.Caption());
  }

 private:
  ui::Frame& frame_;
  FrameWindow window_;
};

// Button, option button and check box: a caption that is clicked. The control decides what a
// click makes of its state.
template <typename Model>
class ClickedBinder : public Binder {
 public:
  ClickedBinder(Model& model, PersonDoor& door, HWND parent, DWORD style)
      : Binder(door, model),
        model_(model),
        window_(MakeControl(WC_BUTTONW, style | BS_NOTIFY, 0, parent)) {
    HookPart(window_);
    // An option that comes by the keyboard is not clicked by that.
    constexpr UINT kDontClick = 0x00F8;
    SendMessageW(window_, kDontClick, TRUE, 0);
  }

  HWND Window() const override { return window_; }

  dialogs::Wish Wish() const override {
    return {Sizes().WidthOf(model_.Caption()) + Sizes().Scaled(kMark),
            Sizes().LineHeight() + Sizes().Scaled(4)};
  }

  void Report(HWND, WORD code) override {
    if (code != BN_CLICKED) return;
    this->Act([this](ui::Person& person) { return person.Click(model_); });
  }

 protected:
  void ShowOwn(ui::Property property) override {
    if (property == ui::Property::Caption) this->ShowCaption(model_.Caption());
  }
  void ShowMark(bool set) {
    SendMessageW(window_, BM_SETCHECK, set ? BST_CHECKED : BST_UNCHECKED, 0);
  }

  Model& model_;

 private:
  const HWND window_;
};

class CheckBoxBinder final : public ClickedBinder<ui::CheckBox> {
 public:
  CheckBoxBinder(ui::CheckBox& box, PersonDoor& door, HWND parent)
      : ClickedBinder(box, door, parent, BS_CHECKBOX) {}

 protected:
  void ShowOwn(ui::Property property) override {
    ClickedBinder::ShowOwn(property);
    if (property == ui::Property::Value) ShowMark(model_.Checked());
  }
};

class OptionBinder final : public ClickedBinder<ui::OptionButton> {
 public:
  OptionBinder(ui::OptionButton& option, PersonDoor& door, HWND parent)
      : ClickedBinder(option, door, parent, BS_RADIOBUTTON) {}

 protected:
  void ShowOwn(ui::Property property) override {
    ClickedBinder::ShowOwn(property);
    if (property == ui::Property::Value) ShowMark(model_.Value());
  }
};

class ButtonBinder final : public ClickedBinder<ui::Button> {
 public:
  ButtonBinder(ui::Button& button, PersonDoor& door, HWND parent)
      : ClickedBinder(button, door, parent, BS_PUSHBUTTON) {}

  // A press on this one leaves no box, so that no box can keep a person from it.
  bool EntersByPress() const override { return model_.GetRole() != ui::Button::Role::Cancel; }

  dialogs::Wish Wish() const override {
    const std::int32_t text = Sizes().WidthOf(model_.Caption());
    return {std::max(text + 2 * Sizes().Scaled(kButtonInset), Sizes().Scaled(kButtonWidth)),
            Sizes().LineHeight() + Sizes().Scaled(kButtonHeight)};
  }
  void ShowDefault(bool is_default) override {
    SendMessageW(Window(), BM_SETSTYLE,
                 static_cast<WPARAM>(is_default ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON), TRUE);
  }
};

}  // namespace

BinderPtr BindLabel(ui::Label& label, PersonDoor& door, HWND parent, const Look& look) {
  return std::make_unique<LabelBinder>(label, door, parent, look);
}

BinderPtr BindFrame(ui::Frame& frame, PersonDoor& door, HWND parent, const Look& look) {
  return std::make_unique<FrameBinder>(frame, door, parent, look);
}

BinderPtr BindCheckBox(ui::CheckBox& box, PersonDoor& door, HWND parent) {
  return std::make_unique<CheckBoxBinder>(box, door, parent);
}

BinderPtr BindOptionButton(ui::OptionButton& option, PersonDoor& door, HWND parent) {
  return std::make_unique<OptionBinder>(option, door, parent);
}

BinderPtr BindButton(ui::Button& button, PersonDoor& door, HWND parent) {
  return std::make_unique<ButtonBinder>(button, door, parent);
}

}  // namespace pactora::win32
