// The group frame as a window: the frame's own logic drawn with the functions of the system.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "ui/XPFrame.h"
#include "win32/Metrics.h"
#include "win32/window.h"

namespace pactora::win32 {

// Draws on a device while the window is painted; at any other time nothing is drawn and a
// paint message is asked for.
class FrameSurface final : public ui::FrameSurface {
 public:
  // The window must outlive the surface.
  explicit FrameSurface(const OwnWindow& window) : window_(window) {}

  // Null when the painting has ended.
  void SetDevice(HDC device) { device_ = device; }

  std::int32_t IsAppThemed() override;
  std::shared_ptr<void> CreateThemeProbe() override;
  void Clear() override;
  std::int32_t Width() override;
  std::int32_t Height() override;
  ui::Extent GetTextExtentPoint32A(std::string_view text) override;
  void FillBackground(const ui::Rectangle& rectangle) override;
  Theme OpenThemeData(std::string_view class_list) override;
  void DrawThemeBackground(Theme theme, std::int32_t part, std::int32_t state,
                           const ui::Rectangle& rectangle) override;
  void DrawThemeText(Theme theme, std::int32_t part, std::int32_t state, std::string_view text,
                     std::int32_t flags, std::int32_t flags2,
                     const ui::Rectangle& rectangle) override;
  void CloseThemeData(Theme theme) override;
  void DrawEdge(const ui::Rectangle& rectangle, std::int32_t edge, std::int32_t flags) override;
  void DrawStateA(std::string_view text, std::int32_t left, std::int32_t top, ui::Extent size,
                  std::int32_t flags) override;
  void EnableControl(bool enabled) override;

 private:
  const OwnWindow& window_;
  HDC device_ = nullptr;
};

class FrameWindow {
 public:
  // The metrics must outlive the window. A plain frame has no line and only holds its controls
  // together.
  FrameWindow(HWND parent, const std::string& name, bool plain, const Metrics& metrics);

  HWND Handle() const { return window_.Handle(); }
  ui::XPFrame& Frame() { return frame_; }
  // What lies between its edges and its content.
  ui::Rectangle Border() const;
  // Wide enough for the caption, also around small content.
  std::int32_t NarrowestWidth() const;

 private:
  Answered Receive(const WindowMessage& message);

  const bool plain_;
  const Metrics& metrics_;
  OwnWindow window_;
  FrameSurface surface_;
  ui::XPFrame frame_;
};

}  // namespace pactora::win32
