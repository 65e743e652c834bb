#include <windows.h>

#include <commctrl.h>

#include <algorithm>

#include "ui/keys.h"
#include "win32/binding/binders.h"
#include "win32/text.h"

namespace pactora::win32 {
namespace {

constexpr std::int32_t kLineCharacters = 17;
constexpr std::int32_t kMemoCharacters = 24;
constexpr std::int32_t kMemoLines = 3;

class TextBoxBinder : public Binder {
 public:
  TextBoxBinder(ui::TextBox& box, PersonDoor& door, HWND parent, DWORD style)
      : Binder(door, box),
        box_(box),
        edit_(MakeControl(WC_EDITW, style | (box.ReadOnly() ? ES_READONLY : 0), WS_EX_CLIENTEDGE,
                          parent)) {
    SendMessageW(edit_, EM_SETLIMITTEXT, 0, 0);
    HookPart(edit_);
  }

  HWND Window() const override { return edit_; }

  void Report(HWND, WORD code) override {
    if (code == EN_CHANGE && !showing_) Changed();
  }

  Answered Message(const WindowMessage& message) override {
    constexpr WPARAM kSelectAll = 1;  // Ctrl+A
    if (message.id != WM_CHAR) return std::nullopt;
    if (message.w == kSelectAll) return SendMessageW(edit_, EM_SETSEL, 0, -1);
    if (box_.ReadOnly() || !Filters(message.w)) return std::nullopt;
    auto key = static_cast<std::int32_t>(message.w);
    if (GoesBehindNumber(key) && !Commit()) return 0;
    // An action that was not carried out types nothing.
    if (!door_.Act(box_, [&](ui::Person& person) { return person.PressKey(box_, key); }) ||
        key == 0) {
      return 0;
    }
    return Pass({message.window, message.id, static_cast<WPARAM>(key), message.l});
  }

  HBRUSH Paint(HDC device) override {
    if (box_.ForeColor() == ui::color::kWindowText || box_.ReadOnly()) return nullptr;
    SetTextColor(device, box_.ForeColor() & 0xFFFFFF);
    SetBkColor(device, GetSysColor(COLOR_WINDOW));
    return GetSysColorBrush(COLOR_WINDOW);
  }

 protected:
  virtual void Changed() { Typed(); }

  // The person changed the text.
  void Typed() {
    const std::string text = Narrow(TextOf(edit_));
    Act([&](ui::Person& person) { return person.Paste(box_, text); });
  }

  // Where a person types, the caret keeps its distance from the end: the program rewrites what
  // is just being typed. Elsewhere the text shows its beginning.
  virtual void ShowText(const std::wstring& text) {
    DWORD begin = 0;
    DWORD end = 0;
    SendMessageW(edit_, EM_GETSEL, reinterpret_cast<WPARAM>(&begin),
                 reinterpret_cast<LPARAM>(&end));
    const auto behind = static_cast<std::ptrdiff_t>(TextOf(edit_).size() - end);
    showing_ = true;
    SetWindowTextW(edit_, text.c_str());
    showing_ = false;
    const std::ptrdiff_t caret =
        GetFocus() == edit_
            ? std::max<std::ptrdiff_t>(0, static_cast<std::ptrdiff_t>(text.size()) - behind)
            : 0;
    SendMessageW(edit_, EM_SETSEL, static_cast<WPARAM>(caret), caret);
  }

  void ShowOwn(ui::Property property) override {
    if (property == ui::Property::Text) {
      if (const std::wstring text = Wide(box_.Text()); text != TextOf(edit_)) ShowText(text);
    } else if (property == ui::Property::ForeColor) {
      InvalidateRect(edit_, nullptr, TRUE);
    }
  }

  ui::TextBox& box_;
  const HWND edit_;

 private:
  // Whether a character goes through the key handler; halves of characters and what Ctrl
  // makes of a letter do not.
  static bool Filters(WPARAM key) {
    const bool half = key >= 0xD800 && key <= 0xDFFF;
    return !half && (key >= ' ' || key == ui::kBackspace || key == ui::kReturn) && key != 0x7F;
  }
  // Whether the key handler has to know what was typed before this key.
  static bool GoesBehindNumber(std::int32_t key) {
    return key != ui::kBackspace && !(key >= '0' && key <= '9');
  }

  bool showing_ = false;
};

// A number is handed over when the person pauses or does something else: its first digit
// alone is mostly not what was meant, and some dialogs object to it at once.
class LineBinder final : public TextBoxBinder {
 public:
  LineBinder(ui::TextBox& box, PersonDoor& door, HWND parent, const Look& look)
      : TextBoxBinder(box, door, parent,
                      static_cast<DWORD>(ES_AUTOHSCROLL | (look.right_aligned ? ES_RIGHT : 0))) {}

  dialogs::Wish Wish() const override {
    return {Sizes().Characters(kLineCharacters), Sizes().BoxHeight(), true};
  }

  bool HasUncommitted() const override { return pausing_; }
  bool Commit() override {
    if (!pausing_) return true;
    StopPause();
    const std::wstring typed = TextOf(edit_);
    Typed();
    // What the dialog made of it is to be seen before anything follows from it.
    return TextOf(edit_) == typed;
  }

  Answered Message(const WindowMessage& message) override {
    if (message.id != WM_TIMER || message.w != kPause) return TextBoxBinder::Message(message);
    StopPause();
    Typed();
    return 0;
  }

 protected:
  void Changed() override {
    StopPause();
    if (!IsNumber(TextOf(edit_))) return Typed();
    pausing_ = true;
    SetTimer(edit_, kPause, kPause, nullptr);
  }
  void ShowText(const std::wstring& text) override {
    StopPause();
    TextBoxBinder::ShowText(text);
  }

 private:
  static constexpr UINT kPause = 700;  // milliseconds, and the timer's number

  static bool IsNumber(const std::wstring& text) {
    return !text.empty() && text.find_first_not_of(L"0123456789,.-") == std::wstring::npos;
  }

  void StopPause() {
    if (std::exchange(pausing_, false)) KillTimer(edit_, kPause);
  }

  bool pausing_ = false;
};

class MemoBinder final : public TextBoxBinder {
 public:
  MemoBinder(ui::TextBox& box, PersonDoor& door, HWND parent)
      : TextBoxBinder(box, door, parent,
                      ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN | WS_VSCROLL) {}

  dialogs::Wish Wish() const override {
    return {Sizes().Characters(kMemoCharacters),
            Sizes().LineHeight() * kMemoLines + Sizes().Scaled(8), true, true};
  }
  bool TakesKey(WPARAM key) const override { return key == VK_RETURN && !box_.ReadOnly(); }
};

}  // namespace

BinderPtr BindTextBox(ui::TextBox& box, PersonDoor& door, HWND parent, const Look& look) {
  if (box.MultiLine()) return std::make_unique<MemoBinder>(box, door, parent);
  return std::make_unique<LineBinder>(box, door, parent, look);
}

}  // namespace pactora::win32
