#include "win32/FrameWindow.h"

#include "win32/system.h"
#include "win32/text.h"

namespace pactora::win32 {
namespace {

constexpr std::int32_t kInset = 9;  // from the line to what is in the frame, at 96 to the inch
constexpr std::int32_t kBelowCaption = 5;  // likewise from the caption

RECT ToRect(const ui::Rectangle& r) { return {r.left, r.top, r.right, r.bottom}; }

RECT AreaOf(HWND window) {
  RECT area{};
  GetClientRect(window, &area);
  return area;
}

HTHEME ToTheme(ui::FrameSurface::Theme theme) {
  return reinterpret_cast<HTHEME>(theme);  // NOLINT: a handle of the system
}

}  // namespace

std::int32_t FrameSurface::IsAppThemed() {
  const ThemeFunctions* themes = Themes();
  return themes ? themes->is_app_themed() : 0;
}

// The library that draws in visual styles.
std::shared_ptr<void> FrameSurface::CreateThemeProbe() {
  const ThemeFunctions* themes = Themes();
  return themes ? std::make_shared<ThemeFunctions>(*themes) : nullptr;
}

void FrameSurface::Clear() {
  if (device_ == nullptr) {
    InvalidateRect(window_.Handle(), nullptr, FALSE);
    return;
  }
  const RECT area = AreaOf(window_.Handle());
  FillRect(device_, &area, GetSysColorBrush(COLOR_BTNFACE));
}

std::int32_t FrameSurface::Width() { return AreaOf(window_.Handle()).right; }
std::int32_t FrameSurface::Height() { return AreaOf(window_.Handle()).bottom; }

ui::Extent FrameSurface::GetTextExtentPoint32A(std::string_view text) {
  const std::string ansi = Ansi(text);
  SIZE size{};
  ::GetTextExtentPoint32A(device_, ansi.data(), static_cast<int>(ansi.size()), &size);
  return {size.cx, size.cy};
}

void FrameSurface::FillBackground(const ui::Rectangle& rectangle) {
  const RECT area = ToRect(rectangle);
  FillRect(device_, &area, GetSysColorBrush(COLOR_BTNFACE));
}

FrameSurface::Theme FrameSurface::OpenThemeData(std::string_view class_list) {
  return reinterpret_cast<Theme>(Themes()->open(window_.Handle(), Wide(class_list).c_str()));
}

void FrameSurface::CloseThemeData(Theme theme) { Themes()->close(ToTheme(theme)); }

void FrameSurface::DrawThemeBackground(Theme theme, std::int32_t part, std::int32_t state,
                                       const ui::Rectangle& rectangle) {
  const RECT area = ToRect(rectangle);
  Themes()->draw_background(ToTheme(theme), device_, part, state, &area, nullptr);
}

void FrameSurface::DrawThemeText(Theme theme, std::int32_t part, std::int32_t state,
                                 std::string_view text, std::int32_t flags, std::int32_t flags2,
                                 const ui::Rectangle& rectangle) {
  const std::wstring wide = Wide(text);
  const RECT area = ToRect(rectangle);
  Themes()->draw_text(ToTheme(theme), device_, part, state, wide.data(),
                      static_cast<int>(wide.size()), static_cast<DWORD>(flags),
                      static_cast<DWORD>(flags2), &area);
}

void FrameSurface::DrawEdge(const ui::Rectangle& rectangle, std::int32_t edge, std::int32_t flags) {
  RECT area = ToRect(rectangle);
  ::DrawEdge(device_, &area, static_cast<UINT>(edge), static_cast<UINT>(flags));
}

void FrameSurface::DrawStateA(std::string_view text, std::int32_t left, std::int32_t top,
                              ui::Extent size, std::int32_t flags) {
  const std::string ansi = Ansi(text);
  ::DrawStateA(device_, nullptr, nullptr, reinterpret_cast<LPARAM>(ansi.data()), ansi.size(), left,
               top, size.cx, size.cy, static_cast<UINT>(flags));
}

void FrameSurface::EnableControl(bool enabled) {
  EnableWindow(window_.Handle(), enabled ? TRUE : FALSE);
}

FrameWindow::FrameWindow(HWND parent, const std::string& name, bool plain, const Metrics& metrics)
    : plain_(plain),
      metrics_(metrics),
      window_([this](const WindowMessage& message) { return Receive(message); },
              WS_CHILD | WS_CLIPCHILDREN, WS_EX_CONTROLPARENT, parent),
      surface_(window_),
      frame_(surface_, name) {}

Answered FrameWindow::Receive(const WindowMessage& message) {
  if (ComesFromChild(message.id))
    return SendMessageW(GetParent(message.window), message.id, message.w, message.l);
  switch (message.id) {
    case WM_ERASEBKGND:
      if (plain_) return std::nullopt;
      return 1;
    case WM_SIZE:
      InvalidateRect(message.window, nullptr, FALSE);
      return std::nullopt;
    case WM_PAINT: {
      if (plain_) return std::nullopt;
      PAINTSTRUCT paint;
      const HDC device = BeginPaint(message.window, &paint);
      const HGDIOBJ before = SelectObject(device, metrics_.Font());
      SetBkMode(device, TRANSPARENT);
      surface_.SetDevice(device);
      frame_.DrawFrame();
      surface_.SetDevice(nullptr);
      SelectObject(device, before);
      EndPaint(message.window, &paint);
      return 0;
    }
    default:
      return std::nullopt;
  }
}

ui::Rectangle FrameWindow::Border() const {
  if (plain_) return {};
  const std::int32_t inset = metrics_.Scaled(kInset);
  const std::int32_t line = metrics_.LineHeight();
  const std::int32_t top =
      frame_.Caption().empty() ? line / 2 + inset : line + metrics_.Scaled(kBelowCaption);
  return {inset, top, inset, inset};
}

std::int32_t FrameWindow::NarrowestWidth() const {
  return plain_ ? 0 : metrics_.WidthOf(frame_.Caption()) + 2 * metrics_.Scaled(kInset);
}

}  // namespace pactora::win32
