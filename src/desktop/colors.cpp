#include "desktop/colors.h"

#include "ui/Control.h"

namespace pactora::desktop {
namespace {

constexpr int kReadableLightness = 170;  // on a dark background, of 255

QColor OwnColor(std::uint32_t color) {
  const auto part = [color](unsigned shift) { return static_cast<int>((color >> shift) & 0xFFU); };
  return {part(0), part(8), part(16)};
}

QColor OfRole(std::uint32_t color, const QPalette& palette) {
  switch (color) {
    case ui::color::kWindowBackground:
      return palette.color(QPalette::Base);
    case ui::color::kWindowText:
      return palette.color(QPalette::Text);
    case ui::color::kButtonFace:
      return palette.color(QPalette::Window);
    default:
      return OwnColor(color);
  }
}

}  // namespace

bool IsDark(const QPalette& palette) {
  return palette.color(QPalette::Base).lightness() < palette.color(QPalette::Text).lightness();
}

QColor TextColor(std::uint32_t color, const QPalette& palette) {
  const QColor found = OfRole(color, palette);
  if (color == ui::color::kWindowText || !IsDark(palette)) return found;
  return QColor::fromHsl(found.hslHue(), found.hslSaturation(),
                         qMax(found.lightness(), kReadableLightness));
}

QColor BackgroundColor(std::uint32_t color, const QPalette& palette) {
  return OfRole(color, palette);
}

}  // namespace pactora::desktop
