#include "win32/Placing.h"

#include <algorithm>
#include <utility>

#include "ui/Frame.h"

namespace pactora::win32 {
namespace {

using dialogs::kMargin;

bool Contains(const std::vector<std::string>& names, const std::string& name) {
  return std::ranges::find(names, name) != names.end();
}

dialogs::Item FooterOf(const dialogs::Layout& layout) {
  std::vector<dialogs::Item> items;
  for (const std::string& note : layout.notes) items.emplace_back(note.c_str());
  items.push_back(dialogs::Stretch());
  for (const std::string& button : layout.buttons) items.emplace_back(button.c_str());
  return dialogs::Row(std::move(items));
}

// Tells the view how much there is of what; what is seen stays where it can.
void SetBar(HWND view, bool across, std::int32_t whole, std::int32_t seen) {
  SCROLLINFO bar{};
  bar.cbSize = sizeof bar;
  bar.fMask = SIF_RANGE | SIF_PAGE;
  bar.nMax = std::max(0, whole - 1);
  bar.nPage = static_cast<UINT>(seen);
  SetScrollInfo(view, across ? SB_HORZ : SB_VERT, &bar, TRUE);
}

std::int32_t PlaceOfBar(HWND view, bool across) {
  return GetScrollPos(view, across ? SB_HORZ : SB_VERT);
}

}  // namespace

Placing::Placing(dialogs::Layout layout, const Metrics& metrics, FindBinder find)
    : layout_(std::move(layout)),
      footer_(FooterOf(layout_)),
      metrics_(metrics),
      find_(std::move(find)) {}

bool Placing::InFooter(const std::string& control) const {
  return Contains(layout_.notes, control) || Contains(layout_.buttons, control);
}

Look Placing::LookOf(const std::string& control) const {
  return {Contains(layout_.right_aligned, control), Contains(layout_.wrapped, control),
          Contains(layout_.plain_frames, control)};
}

dialogs::Wish Placing::WishOf(const std::string& control) const {
  dialogs::Wish wish = find_(control)->Wish();
  const auto narrowest = narrowest_.find(control);
  if (narrowest != narrowest_.end()) wish.width = std::max(wish.width, narrowest->second);
  return wish;
}

ui::Rectangle Placing::BorderOf(const std::string& frame) const { return find_(frame)->Border(); }

// Of frames in one place each takes it, so that nothing moves when another comes to the front.
bool Placing::TakesPlace(const std::string& name) const {
  const ui::Control& control = find_(name)->Control();
  return control.Visible() || Contains(layout_.keep_place, name);
}

void Placing::MeasureGroups() {
  narrowest_.clear();
  const auto measure = [&](const std::vector<std::string>& group) {
    std::int32_t widest = 0;
    for (const std::string& control : group)
      widest = std::max(widest, find_(control)->Wish().width);
    for (const std::string& control : group) narrowest_[control] = widest;
  };
  for (const auto& group : layout_.same_width) measure(group);
  measure(layout_.buttons);
}

std::int32_t Placing::FooterHeight() const {
  if (layout_.notes.empty() && layout_.buttons.empty()) return 0;
  return dialogs::WishOf(footer_, *this).height + 2 * Scaled(kMargin);
}

SIZE Placing::Body() const {
  const dialogs::Wish wish = dialogs::WishOf(layout_.body, *this);
  const std::int32_t below = FooterHeight() == 0 ? Scaled(kMargin) : 0;
  return {wish.width + 2 * Scaled(kMargin), wish.height + Scaled(kMargin) + below};
}

SIZE Placing::Whole() const {
  const SIZE body = Body();
  const LONG footer = dialogs::WishOf(footer_, *this).width + 2 * Scaled(kMargin);
  return {std::max(body.cx, footer), body.cy + FooterHeight()};
}

void Placing::Place(HWND dialog, HWND view) {
  MeasureGroups();
  RECT area{};
  GetClientRect(dialog, &area);
  const std::int32_t margin = Scaled(kMargin);
  const std::int32_t footer = FooterHeight();
  Move(view, {0, 0, area.right, std::max(0L, area.bottom - footer)});

  const SIZE body = Body();
  LONG width = area.right;
  LONG height = area.bottom - footer;
  const bool scrolls_down = body.cy > height;
  if (scrolls_down) width -= GetSystemMetrics(SM_CXVSCROLL);
  const bool scrolls_across = body.cx > width;
  if (scrolls_across) height -= GetSystemMetrics(SM_CYHSCROLL);
  SetBar(view, false, body.cy, height);
  SetBar(view, true, body.cx, width);
  width = std::max(width, body.cx);
  height = std::max(height, body.cy);
  const LONG below = footer == 0 ? margin : 0;
  PlaceAll(dialogs::Arrange(layout_.body, {margin, margin, width - margin, height - below}, *this),
           PlaceOfBar(view, true), PlaceOfBar(view, false));
  PlaceAll(dialogs::Arrange(
               footer_,
               {margin, area.bottom - footer + margin, area.right - margin, area.bottom - margin},
               *this),
           0, 0);
}

void Placing::PlaceAll(const dialogs::Places& places, LONG left, LONG top) const {
  for (const auto& [name, place] : places) {
    Binder* binder = find_(name);
    ui::Rectangle room = place;
    if (binder->Control().Parent().AsFrame() == nullptr) {
      room.left -= left;
      room.right -= left;
      room.top -= top;
      room.bottom -= top;
    }
    binder->Place(room);
  }
}

void Placing::Scroll(HWND view, bool across, std::int32_t pixels) const {
  const int bar = across ? SB_HORZ : SB_VERT;
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_POS;
  const std::int32_t before = GetScrollPos(view, bar);
  info.nPos = before + pixels;
  SetScrollInfo(view, bar, &info, TRUE);
  const std::int32_t moved = before - GetScrollPos(view, bar);
  if (moved == 0) return;
  ScrollWindowEx(view, across ? moved : 0, across ? 0 : moved, nullptr, nullptr, nullptr, nullptr,
                 SW_SCROLLCHILDREN | SW_INVALIDATE | SW_ERASE);
}

void Placing::ShowAllOf(HWND window, HWND view) const {
  if (IsChild(view, window) == FALSE) return;
  RECT place{};
  RECT seen{};
  GetWindowRect(window, &place);
  GetClientRect(view, &seen);
  MapWindowPoints(nullptr, view, reinterpret_cast<POINT*>(&place), 2);
  const LONG margin = Scaled(kMargin);
  const auto towards = [&](LONG begin, LONG end, LONG last) -> LONG {
    if (end + margin > last && begin - margin >= 0) return end + margin - last;
    return begin < 0 ? begin - margin : 0;
  };
  Scroll(view, true, towards(place.left, place.right, seen.right));
  Scroll(view, false, towards(place.top, place.bottom, seen.bottom));
}

}  // namespace pactora::win32
