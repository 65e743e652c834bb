#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <utility>

#include "win32/binding/binders.h"
#include "win32/text.h"

namespace pactora::win32 {
namespace {

// Longer lists are not measured: their box has a usual width.
constexpr std::int32_t kMeasuredEntries = 100;
constexpr std::int32_t kUsualCharacters = 18;
constexpr std::int32_t kFewestCharacters = 3;
constexpr std::int32_t kOpenEntries = 20;

class ComboBoxBinder final : public Binder {
 public:
  ComboBoxBinder(ui::ComboBox& model, PersonDoor& door, HWND parent)
      : Binder(door, model),
        model_(model),
        box_(MakeControl(WC_COMBOBOXW,
                         WS_VSCROLL | CBS_AUTOHSCROLL |
                             static_cast<DWORD>(model.ListOnly() ? CBS_DROPDOWNLIST : CBS_DROPDOWN),
                         0, parent)),
        edit_(model.ListOnly() ? nullptr : GetWindow(box_, GW_CHILD)) {
    HookPart(box_);
    if (edit_ != nullptr) HookPart(edit_);
  }

  HWND Window() const override { return box_; }
  std::vector<HWND> FocusStops() const override { return {edit_ ? edit_ : box_}; }
  void ShowFont() override {
    Binder::ShowFont();
    // Of the same height as boxes of text, whatever its own edges are.
    const std::int32_t wanted = Sizes().BoxHeight();
    SetLineHeight(wanted);
    RECT place{};
    GetWindowRect(box_, &place);
    SetLineHeight(2 * wanted - (place.bottom - place.top));
  }

  void Report(HWND, WORD code) override {
    switch (code) {
      case CBN_EDITCHANGE: {
        const std::string text = Narrow(TextOf(box_));
        return Act([&](ui::Person& person) { return person.Paste(model_, text); });
      }
      case CBN_SELCHANGE:
        // In the open list a person is still looking for an entry.
        if (!IsOpen()) door_.ChosenLater(*this);
        return;
      case CBN_SELENDOK:
        return door_.ChosenLater(*this);
      case CBN_SELENDCANCEL:
        changed_ = true;
        return door_.RefreshLater();
      default:
        return;
    }
  }

  void Chosen() override {
    const auto index = static_cast<std::int32_t>(SendMessageW(box_, CB_GETCURSEL, 0, 0));
    if (index < 0 || index == model_.ListIndex()) return;
    Act([&](ui::Person& person) { return person.Choose(model_, index); });
  }

  // The wheel changes nothing in a box that it passes over.
  Answered Message(const WindowMessage& message) override {
    if (message.id != WM_MOUSEWHEEL || model_.HasFocus()) return std::nullopt;
    return SendMessageW(GetParent(box_), message.id, message.w, message.l);
  }

  bool TakesKey(WPARAM key) const override {
    return (key == VK_RETURN || key == VK_ESCAPE) && IsOpen();
  }

  void Refresh() override {
    if (!std::exchange(changed_, false)) return;
    if (std::exchange(entries_changed_, false)) ShowEntries();
    if (SendMessageW(box_, CB_GETCURSEL, 0, 0) != model_.ListIndex())
      SendMessageW(box_, CB_SETCURSEL, static_cast<WPARAM>(model_.ListIndex()), 0);
    const std::wstring text = Wide(model_.Text());
    if (edit_ != nullptr && TextOf(box_) != text) SetWindowTextW(box_, text.c_str());
  }

  dialogs::Wish Wish() const override {
    std::int32_t text = Sizes().Characters(kUsualCharacters);
    if (model_.Count() <= kMeasuredEntries) {
      text = Sizes().Characters(kFewestCharacters);
      for (const ui::ListItem& item : model_.Items())
        text = std::max(text, Sizes().WidthOf(item.text));
    }
    return {text + GetSystemMetrics(SM_CXVSCROLL) + Sizes().Scaled(14), Sizes().BoxHeight(), true};
  }

  // With the room of its open list below it.
  void Place(const ui::Rectangle& room) override {
    ui::Rectangle place = room;
    place.top += std::max(0, (room.bottom - room.top - Sizes().BoxHeight()) / 2);
    place.bottom = place.top + Sizes().BoxHeight() + kOpenEntries * Sizes().LineHeight();
    Move(box_, place);
  }

 protected:
  void ShowOwn(ui::Property property) override {
    if (property == ui::Property::Items) entries_changed_ = true;
    if (property == ui::Property::Items || property == ui::Property::Selection ||
        property == ui::Property::Text) {
      changed_ = true;
      door_.RefreshLater();
    }
  }

 private:
  void SetLineHeight(std::int32_t height) const {
    SendMessageW(box_, CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), height);
  }

  bool IsOpen() const { return SendMessageW(box_, CB_GETDROPPEDSTATE, 0, 0) != 0; }

  void ShowEntries() const {
    SendMessageW(box_, WM_SETREDRAW, FALSE, 0);
    SendMessageW(box_, CB_RESETCONTENT, 0, 0);
    for (const ui::ListItem& item : model_.Items())
      SendMessageW(box_, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(item.text).c_str()));
    SendMessageW(box_, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(box_, nullptr, TRUE);
  }

  ui::ComboBox& model_;
  const HWND box_;
  const HWND edit_;  // of a box with free text
  bool entries_changed_ = true;
  bool changed_ = true;
};

}  // namespace

BinderPtr BindComboBox(ui::ComboBox& box, PersonDoor& door, HWND parent) {
  return std::make_unique<ComboBoxBinder>(box, door, parent);
}

}  // namespace pactora::win32
