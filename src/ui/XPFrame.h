// The group frame of the dialogs: a line around its controls with the caption
// set into the top edge. It takes the look of the platform's visual style where
// one is active and draws an etched line where not.
//
// This is the logic alone: it turns caption, enabled state and size into
// rectangles and flags and draws through a small surface. Measures are pixels of
// the surface.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace pactora::ui {

struct Rectangle {
  std::int32_t left = 0;
  std::int32_t top = 0;
  std::int32_t right = 0;
  std::int32_t bottom = 0;

  friend bool operator==(const Rectangle&, const Rectangle&) = default;
};

constexpr void SetRect(Rectangle& rectangle, std::int32_t left, std::int32_t top,
                       std::int32_t right, std::int32_t bottom) {
  rectangle = {left, top, right, bottom};
}

struct Extent {
  std::int32_t cx = 0;
  std::int32_t cy = 0;

  friend bool operator==(const Extent&, const Extent&) = default;
};

// Parts, states and flags that go to the surface.
namespace frame_drawing {
inline constexpr std::string_view kThemeClass = "Button";
inline constexpr std::int32_t kGroupBox = 4;  // part
inline constexpr std::int32_t kBackgroundState = 0;
inline constexpr std::int32_t kTextState = 1;
inline constexpr std::int32_t kEtchedEdge = 6;
inline constexpr std::int32_t kAllSides = 15;
inline constexpr std::int32_t kPrefixText = 2;  // the text carries access-key marks
inline constexpr std::int32_t kDisabled = 32;
}  // namespace frame_drawing

// What a frame draws on. Any operation may raise an exception.
class FrameSurface {
 public:
  virtual ~FrameSurface() = default;

  using Theme = std::uintptr_t;

  // Whether a visual style is active (not 0).
  virtual std::int32_t IsAppThemed() = 0;
  // An object that exists only where visual styles do; null where they don't.
  virtual std::shared_ptr<void> CreateThemeProbe() = 0;

  virtual void Clear() = 0;
  virtual std::int32_t Width() = 0;
  virtual std::int32_t Height() = 0;
  virtual Extent GetTextExtentPoint32A(std::string_view text) = 0;
  virtual void FillBackground(const Rectangle& rectangle) = 0;

  virtual Theme OpenThemeData(std::string_view class_list) = 0;
  virtual void DrawThemeBackground(Theme theme, std::int32_t part, std::int32_t state,
                                   const Rectangle& rectangle) = 0;
  virtual void DrawThemeText(Theme theme, std::int32_t part, std::int32_t state,
                             std::string_view text, std::int32_t flags, std::int32_t flags2,
                             const Rectangle& rectangle) = 0;
  virtual void CloseThemeData(Theme theme) = 0;

  virtual void DrawEdge(const Rectangle& rectangle, std::int32_t edge, std::int32_t flags) = 0;
  virtual void DrawStateA(std::string_view text, std::int32_t left, std::int32_t top, Extent size,
                          std::int32_t flags) = 0;

  // Takes over the enabled state for the control as a whole, its children too.
  virtual void EnableControl(bool enabled) = 0;
};

// The kept properties of a control, by key.
class PropertyStore {
 public:
  virtual ~PropertyStore() = default;
  virtual bool ReadBoolean(std::string_view key, bool default_value) = 0;
  virtual std::string ReadText(std::string_view key, const std::string& default_value) = 0;
  virtual void WriteBoolean(std::string_view key, bool value, bool default_value) = 0;
  virtual void WriteText(std::string_view key, const std::string& value,
                         const std::string& default_value) = 0;
};

class XPFrame {
 public:
  // The display name is the control's own name in its container; it is the first
  // caption. The surface must outlive the frame.
  XPFrame(FrameSurface& surface, std::string display_name);

  bool Enabled() const { return mEnabled; }
  void SetEnabled(bool enabled);
  const std::string& Caption() const { return mCaption; }
  void SetCaption(std::string caption);
  // Whether a visual style is active; false when finding out fails.
  bool Themed() const;

  void ReadProperties(PropertyStore& store);
  void WriteProperties(PropertyStore& store) const;
  // Called when a property was written to; optional.
  std::function<void()> PropertyChanged;

  // Draws the whole control. An error ends it there and is forgotten: the next
  // paint event draws again.
  void DrawFrame() noexcept;

 private:
  void Draw();
  // Wipes out the frame line behind the caption.
  void ClearCaptionGap(Extent caption);

  FrameSurface& surface_;
  const std::string display_name_;
  bool mEnabled = true;
  std::string mCaption;  // with its access-key marks ("&")
  std::shared_ptr<void> mThemeProbe;
  float mCaptionLeft = 0;    // left edge of the caption, set at every repaint
  float mCaptionMargin = 0;  // free space left and right of it, likewise
};

}  // namespace pactora::ui
