#include "ui/XPFrame.h"

#include <algorithm>
#include <utility>

namespace pactora::ui {
namespace {

constexpr std::string_view kEnabledKey = "Enabled";
constexpr std::string_view kCaptionKey = "Caption";

// Without access-key marks; a blank stands for an empty caption, so that it has
// a height.
std::string TextToMeasure(const std::string& caption) {
  if (caption.empty()) return " ";
  std::string text = caption;
  text.erase(std::remove(text.begin(), text.end(), '&'), text.end());
  return text;
}

// Half of a height, a half pixel to the nearest even number.
std::int32_t Half(std::int32_t height) {
  const std::int32_t half = height / 2;
  return half + (height % 2 != 0 && half % 2 != 0 ? 1 : 0);
}

}  // namespace

XPFrame::XPFrame(FrameSurface& surface, std::string display_name)
    : surface_(surface), display_name_(std::move(display_name)), mCaption(display_name_) {
  try {
    mThemeProbe = surface_.CreateThemeProbe();
  } catch (...) {
    mThemeProbe.reset();  // no visual styles here
  }
}

void XPFrame::SetEnabled(bool enabled) {
  mEnabled = enabled;
  if (PropertyChanged) PropertyChanged();
  surface_.EnableControl(enabled);
  DrawFrame();
}

void XPFrame::SetCaption(std::string caption) {
  mCaption = std::move(caption);
  if (PropertyChanged) PropertyChanged();
  DrawFrame();
}

bool XPFrame::Themed() const {
  try {
    return mThemeProbe != nullptr && surface_.IsAppThemed() != 0;
  } catch (...) {
    return false;
  }
}

void XPFrame::ReadProperties(PropertyStore& store) {
  mEnabled = store.ReadBoolean(kEnabledKey, true);
  mCaption = store.ReadText(kCaptionKey, display_name_);
}

void XPFrame::WriteProperties(PropertyStore& store) const {
  store.WriteBoolean(kEnabledKey, mEnabled, true);
  store.WriteText(kCaptionKey, mCaption, display_name_);
}

void XPFrame::DrawFrame() noexcept {
  try {
    Draw();
  } catch (...) {
    return;
  }
}

void XPFrame::Draw() {
  namespace drawing = frame_drawing;
  surface_.Clear();
  const bool themed_measures = Themed();
  mCaptionLeft = themed_measures ? 9.0F : 4.0F;
  mCaptionMargin = themed_measures ? 2.0F : 1.0F;

  const Extent size = surface_.GetTextExtentPoint32A(TextToMeasure(mCaption));
  const std::int32_t width = surface_.Width();
  const std::int32_t height = surface_.Height();
  const auto left = static_cast<std::int32_t>(mCaptionLeft);
  Rectangle frame;
  SetRect(frame, 0, Half(size.cy), width, height);
  Rectangle caption;
  SetRect(caption, left, 0, left + size.cx, size.cy);
  const std::int32_t disabled = mEnabled ? 0 : drawing::kDisabled;

  if (Themed()) {
    const FrameSurface::Theme theme = surface_.OpenThemeData(drawing::kThemeClass);
    surface_.DrawThemeBackground(theme, drawing::kGroupBox, drawing::kBackgroundState, frame);
    if (!mCaption.empty()) ClearCaptionGap(size);
    surface_.DrawThemeText(theme, drawing::kGroupBox, drawing::kTextState, mCaption, 0, disabled,
                           caption);
    surface_.CloseThemeData(theme);
  } else {
    surface_.DrawEdge(frame, drawing::kEtchedEdge, drawing::kAllSides);
    if (!mCaption.empty()) ClearCaptionGap(size);
    surface_.DrawStateA(mCaption, left, 0, size, drawing::kPrefixText | disabled);
  }
}

void XPFrame::ClearCaptionGap(Extent caption) {
  const auto left = static_cast<std::int32_t>(mCaptionLeft);
  const auto margin = static_cast<std::int32_t>(mCaptionMargin);
  surface_.FillBackground({left - margin, 0, left + caption.cx + margin, caption.cy});
}

}  // namespace pactora::ui
