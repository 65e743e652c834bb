#include "win32/DialogWindow.h"

#include <commctrl.h>

#include <algorithm>
#include <utility>

#include "dialogs/input.h"
#include "dialogs/layouts.h"
#include "dialogs/order.h"
#include "win32/system.h"
#include "win32/text.h"
#include "win32/unsaved_input.h"

namespace pactora::win32 {
namespace {

constexpr UINT kRefresh = WM_APP;     // posted to the dialog's own window
constexpr UINT kChosen = WM_APP + 1;  // likewise, with a part of the control
constexpr UINT kFocusCame = WM_APP + 2;
constexpr UINT kDpiChanged = 0x02E0;  // WM_DPICHANGED

constexpr DWORD kStyle =
    WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MAXIMIZEBOX | WS_CLIPCHILDREN;
constexpr DWORD kExtendedStyle = WS_EX_CONTROLPARENT | WS_EX_DLGMODALFRAME;
constexpr std::int32_t kSmallest = 200;  // width and height at 96 to the inch
constexpr std::int32_t kWheelStep = 48;  // of one notch, likewise
constexpr std::int32_t kLine = 16;       // of the scroll bar's arrows, likewise

// Keeps the owner from being used; it can be used again before the dialog goes, so that the
// system makes it the active window then and no other.
class DisabledOwner {
 public:
  explicit DisabledOwner(HWND owner)
      : owner_(owner != nullptr && EnableWindow(owner, FALSE) == FALSE ? owner : nullptr) {}
  ~DisabledOwner() {
    if (owner_ != nullptr) EnableWindow(owner_, TRUE);
  }
  DisabledOwner(const DisabledOwner&) = delete;
  DisabledOwner& operator=(const DisabledOwner&) = delete;

 private:
  HWND owner_;
};

}  // namespace

DialogWindow::DialogWindow(ui::Form& form, HWND owner)
    : form_(form),
      placing_(dialogs::LayoutOf(form), metrics_,
               [this](const std::string& name) { return BinderOf(form_.Find(name)); }),
      window_([this](const WindowMessage& message) { return Receive(message); }, kStyle,
              kExtendedStyle, owner),
      view_([this](const WindowMessage& message) { return ReceiveInView(message); },
            WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, WS_EX_CONTROLPARENT, window_.Handle()) {
  metrics_.Load(DpiOf(owner != nullptr ? owner : Handle()));
  CaptionChanged();
  MakeWindows();
  MakeToolTips();
  form_.AddObserver(*this);
  FitToScreen(owner);
}

DialogWindow::~DialogWindow() { form_.RemoveObserver(*this); }

void DialogWindow::MakeWindows() {
  for (ui::Control* control : form_.Controls()) {
    const Binder* frame = BinderOf(control->Parent().AsFrame());
    const HWND parent = frame                                ? frame->Window()
                        : placing_.InFooter(control->Name()) ? Handle()
                                                             : view_.Handle();
    binders_.push_back(Bind(*control, *this, parent, placing_.LookOf(control->Name())));
    Binder* binder = binders_.back().get();
    binder_of_[control] = binder;
    for (const HWND part : binder->Parts()) parts_[part] = binder;
  }
  access_keys_ = dialogs::AccessKeysOf(form_);
  for (const auto& [control, key] : access_keys_) BinderOf(control)->SetAccessKey(key);
  SendMessageW(Handle(), WM_CHANGEUISTATE, MAKEWPARAM(UIS_INITIALIZE, 0), 0);
}

void DialogWindow::MakeToolTips() {
  tool_tips_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX, 0,
                               0, 0, 0, Handle(), nullptr, nullptr, nullptr);
  SendMessageW(tool_tips_, TTM_SETMAXTIPWIDTH, 0, metrics_.Scaled(400));  // with line breaks
  for (const BinderPtr& binder : binders_) ShowToolTip(*binder);
}

void DialogWindow::ShowToolTip(const Binder& binder) {
  std::wstring text = Wide(binder.Control().ToolTip());
  for (const HWND part : binder.Parts()) {
    TOOLINFOW tool{};
    tool.cbSize = sizeof tool;
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = Handle();
    tool.uId = reinterpret_cast<UINT_PTR>(part);
    tool.lpszText = text.data();
    SendMessageW(tool_tips_, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    if (!text.empty()) SendMessageW(tool_tips_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
  }
}

void DialogWindow::LoadFonts() {
  metrics_.Load(DpiOf(Handle()));
  for (const BinderPtr& binder : binders_) binder->ShowFont();
  PlaceAll();
}

void DialogWindow::PlaceAll() {
  place_asked_ = false;
  if (!binders_.empty()) placing_.Place(Handle(), view_.Handle());
}

void DialogWindow::FitToScreen(HWND owner) {
  PlaceAll();  // what is as wide as others is known afterwards
  const SIZE whole = placing_.Whole();
  RECT frame{0, 0, whole.cx, whole.cy};
  AdjustWindowRectEx(&frame, kStyle, FALSE, kExtendedStyle);
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(MonitorFromWindow(owner ? owner : Handle(), MONITOR_DEFAULTTONEAREST), &monitor);
  const RECT& room = monitor.rcWork;
  LONG width = frame.right - frame.left;
  const LONG height = std::min(frame.bottom - frame.top, room.bottom - room.top);
  // A part that is scrolled needs the bar's width beside it.
  if (height < frame.bottom - frame.top) width += GetSystemMetrics(SM_CXVSCROLL);
  width = std::min(width, room.right - room.left);
  RECT middle = room;
  if (owner != nullptr && IsWindowVisible(owner) != FALSE && IsIconic(owner) == FALSE)
    GetWindowRect(owner, &middle);
  const LONG left =
      std::clamp((middle.left + middle.right - width) / 2, room.left, room.right - width);
  const LONG top =
      std::clamp((middle.top + middle.bottom - height) / 2, room.top, room.bottom - height);
  Move(Handle(), {left, top, left + width, top + height});
}

void DialogWindow::Run() {
  const DisabledOwner disabled(GetWindow(Handle(), GW_OWNER));
  ShowWindow(Handle(), SW_SHOW);
  acting_ = true;
  try {
    form_.BeginModal();
  } catch (...) {
    form_.Hide();
    throw;
  }
  acting_ = false;
  input_at_start_ = dialogs::InputOf(form_);
  Refresh();
  ShowFocus(By::Key);
  Loop();
  form_.Hide();
  if (failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
}

void DialogWindow::Loop() {
  MSG message;
  while (form_.Visible()) {
    if (GetMessageW(&message, nullptr, 0, 0) <= 0) {
      // Whoever runs the thread's own loop is to see that it ends.
      PostQuitMessage(static_cast<int>(message.wParam));
      return;
    }
    if (TakeKey(message)) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

void DialogWindow::Refresh() {
  refresh_asked_ = false;
  for (const BinderPtr& binder : binders_) binder->Refresh();
  if (place_asked_) PlaceAll();
}

void DialogWindow::RefreshLater() {
  if (acting_ || std::exchange(refresh_asked_, true)) return;
  PostMessageW(Handle(), kRefresh, 0, 0);
}

void DialogWindow::ChosenLater(const Binder& binder) {
  PostMessageW(Handle(), kChosen, reinterpret_cast<WPARAM>(binder.Parts().front()), 0);
}

void DialogWindow::Complain(const std::string& text) {
  MessageBoxW(Handle(), Wide(text).c_str(), Wide(ui::kDefaultTitle).c_str(),
              static_cast<UINT>(ui::style::kExclamation));
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
  ShowFocus(By::Key);
  return false;
}

bool DialogWindow::Enter(ui::Control& control, By by) {
  by_ = by;
  const bool done = Act(control, [&](ui::Person& person) { return person.Enter(control); });
  by_ = By::Program;
  return done;
}

void DialogWindow::Click(ui::Control& control) {
  Act(control, [&](ui::Person& person) { return person.Click(control); });
}

Answered DialogWindow::Before(Binder& binder, const WindowMessage& message) {
  switch (message.id) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
      if (acting_) return 0;
      if (binder.EntersByPress() && !Enter(binder.Control(), By::Mouse)) return 0;
      return std::nullopt;
    case WM_SETFOCUS:
      // By assistive technology, or by the system.
      if (!acting_ && form_.Visible() && form_.Focus() != &binder.Control() &&
          binder.EntersByPress()) {
        PostMessageW(Handle(), kFocusCame, reinterpret_cast<WPARAM>(message.window), 0);
      }
      return std::nullopt;
    default:
      return std::nullopt;
  }
}

void DialogWindow::ShowFocus(By by) {
  const Binder* binder = BinderOf(form_.Focus());
  const bool on_button = binder && binder->Control().Kind() == ui::ControlKind::Button;
  const ui::Control* pressed = on_button ? &binder->Control() : form_.DefaultButton();
  for (const BinderPtr& each : binders_) each->ShowDefault(&each->Control() == pressed);
  // A window that is not active takes no focus from others; it is shown when it becomes active.
  if (GetActiveWindow() != Handle()) return;
  if (!binder) {
    SetFocus(Handle());
    return;
  }
  const std::vector<HWND> stops = binder->FocusStops();
  const auto is_open = [](HWND stop) { return IsWindowEnabled(stop) != FALSE; };
  const auto open = std::ranges::find_if(stops, is_open);
  if (open == stops.end()) return;
  if (std::ranges::find(stops, GetFocus()) == stops.end()) {
    const bool from_behind = by == By::KeyBackwards && is_open(stops.back());
    SetFocus(from_behind ? stops.back() : *open);
  }
  // Coming by mouse or by typing, a person has put the caret where it is to be.
  if (by == By::Key || by == By::KeyBackwards) {
    wchar_t name[8] = L"";
    GetClassNameW(GetFocus(), name, 8);
    const bool one_line = (GetWindowLongPtrW(GetFocus(), GWL_STYLE) & ES_MULTILINE) == 0;
    if (lstrcmpiW(name, WC_EDITW) == 0 && one_line) SendMessageW(GetFocus(), EM_SETSEL, 0, -1);
  }
  placing_.ShowAllOf(binder->Window(), view_.Handle());
}

void DialogWindow::CloseByPerson() {
  if (!form_.Visible() || acting_) return;
  const Binder* binder = BinderOf(form_.Focus());
  const bool is_typing = binder && binder->HasUncommitted();
  if ((is_typing || dialogs::InputOf(form_) != input_at_start_) && !MayDiscardInput(Handle()))
    return;
  Carry([](ui::Person& person) { return person.Close(); });
}

void DialogWindow::ControlChanged(const ui::Control& control, ui::Property property) {
  Binder* binder = BinderOf(&control);
  if (property == ui::Property::ToolTip) return ShowToolTip(*binder);
  binder->Show(property);
  switch (property) {
    case ui::Property::Enabled:
      // What is in a frame looks as the frame does.
      if (const auto* frame = dynamic_cast<const ui::Frame*>(&control))
        for (const ui::Control* child : frame->Children())
          ControlChanged(*child, ui::Property::Enabled);
      return;
    case ui::Property::Visible:
    case ui::Property::Caption:
    case ui::Property::Items:
    case ui::Property::Bold:
      place_asked_ = true;
      return RefreshLater();
    default:
      return;
  }
}

void DialogWindow::FocusChanged(const ui::Control*, ui::FocusCause cause) {
  ShowFocus(cause == ui::FocusCause::Person ? by_ : By::Key);
}

void DialogWindow::CaptionChanged() { SetWindowTextW(Handle(), Wide(form_.Caption()).c_str()); }

void DialogWindow::Hidden() { PostMessageW(Handle(), WM_NULL, 0, 0); }

Binder* DialogWindow::BinderOf(const ui::Control* control) const {
  const auto found = binder_of_.find(control);
  return found == binder_of_.end() ? nullptr : found->second;
}

Binder* DialogWindow::BinderOf(HWND part) const {
  const auto found = parts_.find(part);
  return found == parts_.end() ? nullptr : found->second;
}

Answered DialogWindow::ReceiveFromChild(const WindowMessage& message) {
  const bool notifies = message.id == WM_NOTIFY;
  auto* report = reinterpret_cast<NMHDR*>(message.l);
  const HWND part = notifies ? report->hwndFrom : reinterpret_cast<HWND>(message.l);
  Binder* binder = BinderOf(part);
  if (binder == nullptr) return std::nullopt;
  if (notifies) return binder->Notify(*report);
  if (message.id == WM_COMMAND) {
    if (!acting_ || HIWORD(message.w) == EN_CHANGE) binder->Report(part, HIWORD(message.w));
    return 0;
  }
  const auto device = reinterpret_cast<HDC>(message.w);
  if (const HBRUSH brush = binder->Paint(device)) return reinterpret_cast<LRESULT>(brush);
  return std::nullopt;
}

Answered DialogWindow::ReceiveInView(const WindowMessage& message) {
  if (ComesFromChild(message.id)) return ReceiveFromChild(message);
  switch (message.id) {
    case WM_VSCROLL:
    case WM_HSCROLL: {
      const bool across = message.id == WM_HSCROLL;
      SCROLLINFO bar{};
      bar.cbSize = sizeof bar;
      bar.fMask = SIF_ALL;
      GetScrollInfo(view_.Handle(), across ? SB_HORZ : SB_VERT, &bar);
      const auto page = static_cast<std::int32_t>(bar.nPage);
      std::int32_t by = 0;
      switch (LOWORD(message.w)) {
        case SB_LINEUP:
          by = -metrics_.Scaled(kLine);
          break;
        case SB_LINEDOWN:
          by = metrics_.Scaled(kLine);
          break;
        case SB_PAGEUP:
          by = -page;
          break;
        case SB_PAGEDOWN:
          by = page;
          break;
        case SB_THUMBTRACK:
          by = bar.nTrackPos - bar.nPos;
          break;
        default:
          break;
      }
      placing_.Scroll(view_.Handle(), across, by);
      return 0;
    }
    case WM_MOUSEWHEEL:
      placing_.Scroll(
          view_.Handle(), false,
          -GET_WHEEL_DELTA_WPARAM(message.w) * metrics_.Scaled(kWheelStep) / WHEEL_DELTA);
      return 0;
    default:
      return std::nullopt;
  }
}

Answered DialogWindow::Receive(const WindowMessage& message) {
  if (ComesFromChild(message.id)) return ReceiveFromChild(message);
  switch (message.id) {
    case WM_CLOSE:
      CloseByPerson();
      return 0;
    case WM_SIZE:
      PlaceAll();
      return 0;
    case WM_SETFOCUS:
      if (form_.Visible()) ShowFocus(By::Program);
      return 0;
    case WM_MOUSEWHEEL:
      return ReceiveInView(message);
    case WM_GETMINMAXINFO: {
      auto& sizes = *reinterpret_cast<MINMAXINFO*>(message.l);
      sizes.ptMinTrackSize = {metrics_.Scaled(kSmallest), metrics_.Scaled(kSmallest)};
      return 0;
    }
    case kDpiChanged: {
      const RECT& place = *reinterpret_cast<RECT*>(message.l);
      Move(Handle(), {place.left, place.top, place.right, place.bottom});
      LoadFonts();
      return 0;
    }
    case WM_SETTINGCHANGE:
    case WM_THEMECHANGED:
      LoadFonts();
      return std::nullopt;
    case kRefresh:
      if (refresh_asked_ && !acting_) Refresh();
      return 0;
    case kChosen:
      BinderOf(reinterpret_cast<HWND>(message.w))->Chosen();
      return 0;
    case kFocusCame: {
      const auto part = reinterpret_cast<HWND>(message.w);
      Binder* binder = BinderOf(part);
      if (binder == nullptr || acting_ || GetFocus() != part) return 0;
      if (form_.Focus() == &binder->Control()) return 0;
      if (!Enter(binder->Control(), By::Mouse)) ShowFocus(By::Key);
      return 0;
    }
    default:
      return std::nullopt;
  }
}

}  // namespace pactora::win32
