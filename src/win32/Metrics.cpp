#include "win32/Metrics.h"

#include "win32/system.h"
#include "win32/text.h"

namespace pactora::win32 {
namespace {

// The screen's device with a font.
class Ruler {
 public:
  explicit Ruler(HFONT font) : device_(GetDC(nullptr)), before_(SelectObject(device_, font)) {}
  ~Ruler() {
    SelectObject(device_, before_);
    ReleaseDC(nullptr, device_);
  }
  Ruler(const Ruler&) = delete;
  Ruler& operator=(const Ruler&) = delete;
  HDC Device() const { return device_; }

 private:
  HDC device_;
  HGDIOBJ before_;
};

}  // namespace

Metrics::~Metrics() { Drop(); }

void Metrics::Drop() {
  for (const HFONT font : {regular_, bold_}) {
    if (font != nullptr) DeleteObject(font);
  }
}

void Metrics::Load(int dpi) {
  LOGFONTW font = MessageFont(dpi);
  Drop();
  dpi_ = dpi;
  regular_ = CreateFontIndirectW(&font);
  font.lfWeight = FW_BOLD;
  bold_ = CreateFontIndirectW(&font);
  const Ruler ruler(regular_);
  TEXTMETRICW text{};
  GetTextMetricsW(ruler.Device(), &text);
  line_height_ = text.tmHeight;
  average_width_ = text.tmAveCharWidth;
}

std::int32_t Metrics::WidthOf(std::string_view text, bool bold) const {
  const std::wstring wide = Wide(text);
  const Ruler ruler(Font(bold));
  SIZE size{};
  GetTextExtentPoint32W(ruler.Device(), wide.data(), static_cast<int>(wide.size()), &size);
  return size.cx;
}

SIZE Metrics::SizeOf(std::string_view text, bool bold, std::int32_t width) const {
  const std::wstring wide = Wide(text);
  const Ruler ruler(Font(bold));
  RECT room{0, 0, width, 0};
  DrawTextW(ruler.Device(), wide.data(), static_cast<int>(wide.size()), &room,
            DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX);
  return {room.right, wide.empty() ? line_height_ : room.bottom};
}

}  // namespace pactora::win32
