#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <optional>
#include <utility>

#include "dialogs/typed_date.h"
#include "platform/Date.h"
#include "win32/binding/binders.h"
#include "win32/text.h"

namespace pactora::win32 {
namespace {

constexpr char kLongestDate[] = "00.00.0000 ";
constexpr std::int32_t kTick = 18;  // the tick and the gap behind it, at 96 to the inch
constexpr std::int32_t kGap = 2;    // between the date and its button

SYSTEMTIME ToSystem(platform::Date date) {
  const platform::CivilDate civil = platform::ToCivil(date);
  SYSTEMTIME time{};
  time.wYear = static_cast<WORD>(civil.year);
  time.wMonth = static_cast<WORD>(civil.month);
  time.wDay = static_cast<WORD>(civil.day);
  return time;
}

// The day so far away, at most the last one of its month; none outside the calendar.
std::optional<platform::Date> Turned(platform::Date from, std::int32_t days, std::int32_t months) {
  platform::CivilDate civil = platform::ToCivil(from);
  const std::int32_t month = civil.year * 12 + civil.month - 1 + months;
  civil.year = month / 12;
  civil.month = month % 12 + 1;
  civil.day = std::min(civil.day, platform::DaysInMonth(civil.year, civil.month));
  const std::int32_t day = platform::DayNumber(civil) + days;
  if (day < platform::kFirstDay || day > platform::kLastDay) return std::nullopt;
  return platform::Date{static_cast<double>(day)};
}

// A month to choose a day from, above everything else until it is left.
class Calendar {
 public:
  Calendar(HWND owner, const RECT& below, platform::Date shown, HFONT font,
           std::function<void(std::optional<platform::Date>)> done)
      : done_(std::move(done)),
        window_([this](const WindowMessage& message) { return Receive(message); },
                WS_POPUP | WS_BORDER, WS_EX_TOOLWINDOW, owner),
        month_(MakeControl(MONTHCAL_CLASSW, WS_VISIBLE | MCS_WEEKNUMBERS, 0, window_.Handle())),
        hook_(month_, [this](const WindowMessage& message) { return ReceiveKey(message); }) {
    SendMessageW(month_, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    SendMessageW(month_, MCM_SETFIRSTDAYOFWEEK, 0, 0);  // Monday
    const SYSTEMTIME day = ToSystem(shown);
    SendMessageW(month_, MCM_SETCURSEL, 0, reinterpret_cast<LPARAM>(&day));
    RECT size{};
    SendMessageW(month_, MCM_GETMINREQRECT, 0, reinterpret_cast<LPARAM>(&size));
    Move(month_, {0, 0, size.right, size.bottom});
    AdjustWindowRectEx(&size, WS_POPUP | WS_BORDER, FALSE, WS_EX_TOOLWINDOW);
    const LONG width = size.right - size.left;
    const LONG height = size.bottom - size.top;
    // Below the box, or above it where the screen ends.
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromRect(&below, MONITOR_DEFAULTTONEAREST), &monitor);
    const bool fits = below.bottom + height <= monitor.rcWork.bottom;
    const LONG top = fits ? below.bottom : below.top - height;
    SetWindowPos(window_.Handle(), HWND_TOP, below.left, top, width, height, SWP_SHOWWINDOW);
    SetFocus(month_);
  }

  HWND Handle() const { return window_.Handle(); }

 private:
  Answered Receive(const WindowMessage& message) {
    if (message.id == WM_NOTIFY &&
        reinterpret_cast<NMHDR*>(message.l)->code == static_cast<UINT>(MCN_SELECT)) {
      Take();
      return 0;
    }
    if (message.id == WM_ACTIVATE && LOWORD(message.w) == WA_INACTIVE) done_(std::nullopt);
    return std::nullopt;
  }

  Answered ReceiveKey(const WindowMessage& message) {
    if (message.id != WM_KEYDOWN) return std::nullopt;
    if (message.w == VK_RETURN) Take();
    if (message.w == VK_ESCAPE || message.w == VK_F4) done_(std::nullopt);
    return std::nullopt;
  }

  void Take() {
    SYSTEMTIME day{};
    SendMessageW(month_, MCM_GETCURSEL, 0, reinterpret_cast<LPARAM>(&day));
    done_(platform::FromCivil(day.wYear, day.wMonth, day.wDay));
  }

  const std::function<void(std::optional<platform::Date>)> done_;
  OwnWindow window_;
  const HWND month_;
  Hook hook_;
};

// A tick where there may be no date, the date to type, and the calendar.
class DatePickerBinder final : public Binder {
 public:
  DatePickerBinder(ui::DTPicker& picker, PersonDoor& door, HWND parent)
      : Binder(door, picker),
        picker_(picker),
        window_([](const WindowMessage& message) { return Forward(message); },
                WS_CHILD | WS_CLIPCHILDREN, WS_EX_CONTROLPARENT, parent) {
    if (picker.HasCheckBox()) tick_ = Part(WC_BUTTONW, BS_CHECKBOX, 0);
    edit_ = Part(WC_EDITW, ES_AUTOHSCROLL, WS_EX_CLIENTEDGE);
    open_ = Part(WC_BUTTONW, BS_PUSHBUTTON, 0);
    SetWindowTextW(open_, L"\u25BE");
  }

  HWND Window() const override { return window_.Handle(); }
  std::vector<HWND> Parts() const override {
    if (tick_) return {tick_, edit_, open_};
    return {edit_, open_};
  }
  std::vector<HWND> FocusStops() const override {
    if (tick_) return {tick_, edit_};
    return {edit_};
  }

  dialogs::Wish Wish() const override {
    return {Left() + DateWidth() + Sizes().Scaled(kGap) + Sizes().BoxHeight(), Sizes().BoxHeight()};
  }
  void Place(const ui::Rectangle& room) override {
    Binder::Place(room);
    const std::int32_t height = Sizes().BoxHeight();
    const std::int32_t right = Left() + DateWidth();
    const std::int32_t gap = Sizes().Scaled(kGap);
    if (tick_) Move(tick_, {0, 0, Left(), height});
    Move(edit_, {Left(), 0, right, height});
    Move(open_, {right + gap, 0, right + gap + height, height});
  }

  void Report(HWND part, WORD code) override {
    if (part == edit_ && code == EN_CHANGE && !showing_) return Typed();
    if (code != BN_CLICKED) return;
    if (part == tick_) return Tick(picker_.IsNull());
    if (part == open_) OpenCalendar();
  }

  Answered Message(const WindowMessage& message) override {
    const bool key = message.id == WM_KEYDOWN || message.id == WM_SYSKEYDOWN;
    if (message.window != edit_ || !key) return std::nullopt;
    switch (message.w) {
      case VK_F4:
        if (message.id == WM_SYSKEYDOWN) return std::nullopt;
        OpenCalendar();
        return 0;
      case VK_UP:
        Turn(1, 0);
        return 0;
      case VK_DOWN:
        if (message.id == WM_SYSKEYDOWN) {
          OpenCalendar();
        } else {
          Turn(-1, 0);
        }
        return 0;
      case VK_PRIOR:
        Turn(0, 1);
        return 0;
      case VK_NEXT:
        Turn(0, -1);
        return 0;
      default:
        return std::nullopt;
    }
  }

  bool HasUncommitted() const override { return typed_; }
  bool Commit() override {
    if (!typed_) return true;
    const std::string text = Narrow(TextOf(edit_));
    const auto date = dialogs::ReadTypedDate(text, picker_.ShownDate());
    if (!date) {
      door_.Complain("„" + text + "“ ist kein Datum.\r\nGeben Sie es in der Form TT.MM.JJJJ ein!");
      return false;
    }
    Pick(*date);
    return !typed_;
  }

  void Chosen() override {
    calendar_.reset();
    if (const auto date = std::exchange(chosen_, std::nullopt)) Pick(*date);
    SetFocus(edit_);
  }

 protected:
  void ShowOwn(ui::Property property) override {
    if (property != ui::Property::Value) return;
    typed_ = false;
    showing_ = true;
    SetWindowTextW(
        edit_, Wide(platform::FormatDate(picker_.ShownDate(), platform::kGermanPattern)).c_str());
    showing_ = false;
    if (tick_) SendMessageW(tick_, BM_SETCHECK, picker_.IsNull() ? BST_UNCHECKED : BST_CHECKED, 0);
    Show(ui::Property::Enabled);
  }
  void ShowEnabled(bool enabled) override {
    Binder::ShowEnabled(enabled);
    const BOOL date_enabled = enabled && !picker_.IsNull() ? TRUE : FALSE;
    if (tick_) EnableWindow(tick_, enabled ? TRUE : FALSE);
    EnableWindow(edit_, date_enabled);
    EnableWindow(open_, date_enabled);
  }

 private:
  static Answered Forward(const WindowMessage& message) {
    if (!ComesFromChild(message.id)) return std::nullopt;
    return SendMessageW(GetParent(message.window), message.id, message.w, message.l);
  }

  HWND Part(const wchar_t* window_class, DWORD style, DWORD extended_style) {
    const HWND part =
        MakeControl(window_class, style | WS_VISIBLE, extended_style, window_.Handle());
    HookPart(part);
    return part;
  }

  std::int32_t Left() const { return tick_ ? Sizes().Scaled(kTick) : 0; }
  std::int32_t DateWidth() const { return Sizes().WidthOf(kLongestDate) + Sizes().Scaled(12); }

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
    if (ticked) SetFocus(edit_);
  }

  // From the date as it is typed, if that is one.
  void Turn(std::int32_t days, std::int32_t months) {
    const auto typed = dialogs::ReadTypedDate(Narrow(TextOf(edit_)), picker_.ShownDate());
    if (const auto to = Turned(typed.value_or(picker_.ShownDate()), days, months)) Pick(*to);
    SendMessageW(edit_, EM_SETSEL, 0, -1);
  }

  void OpenCalendar() {
    if (!Commit()) return;
    RECT box{};
    GetWindowRect(Window(), &box);
    calendar_ =
        std::make_unique<Calendar>(GetAncestor(Window(), GA_ROOT), box, picker_.ShownDate(),
                                   Sizes().Font(), [this](std::optional<platform::Date> date) {
                                     if (date) chosen_ = date;
                                     door_.ChosenLater(*this);
                                   });
  }

  ui::DTPicker& picker_;
  OwnWindow window_;
  HWND tick_ = nullptr;
  HWND edit_ = nullptr;
  HWND open_ = nullptr;
  std::unique_ptr<Calendar> calendar_;
  std::optional<platform::Date> chosen_;  // in the calendar
  bool typed_ = false;                    // and not handed to the control yet
  bool showing_ = false;
};

}  // namespace

BinderPtr BindDatePicker(ui::DTPicker& picker, PersonDoor& door, HWND parent) {
  return std::make_unique<DatePickerBinder>(picker, door, parent);
}

}  // namespace pactora::win32
