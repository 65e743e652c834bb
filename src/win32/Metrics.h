// Fonts of a dialog and the sizes that follow from them, in pixels of its screen.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string_view>

namespace pactora::win32 {

class Metrics {
 public:
  Metrics() = default;
  ~Metrics();
  Metrics(const Metrics&) = delete;
  Metrics& operator=(const Metrics&) = delete;

  // Takes the system's font for that resolution. What had the fonts before must get the new
  // ones at once.
  void Load(int dpi);

  // Pixels here for those of a screen with 96 to the inch.
  std::int32_t Scaled(std::int32_t pixels) const { return MulDiv(pixels, dpi_, 96); }

  HFONT Font(bool bold = false) const { return bold ? bold_ : regular_; }
  std::int32_t LineHeight() const { return line_height_; }
  // Of that many characters of average width.
  std::int32_t Characters(std::int32_t count) const { return average_width_ * count; }
  std::int32_t WidthOf(std::string_view text, bool bold = false) const;
  // Of the text with its line breaks, broken into more lines where it is wider than width.
  SIZE SizeOf(std::string_view text, bool bold, std::int32_t width) const;
  // Of a box with one line: the system's boxes have edges that do not grow with the screen.
  std::int32_t BoxHeight() const { return line_height_ + 6 + Scaled(2); }

 private:
  void Drop();

  int dpi_ = 96;
  HFONT regular_ = nullptr;
  HFONT bold_ = nullptr;
  std::int32_t line_height_ = 0;
  std::int32_t average_width_ = 0;
};

}  // namespace pactora::win32
