// The group frame as a widget: the frame's own logic drawn with Qt.
#pragma once

#include <QPainter>
#include <QWidget>
#include <cstdint>
#include <memory>
#include <string_view>

#include "ui/XPFrame.h"

namespace pactora::desktop {

// Draws on a widget while its paint event runs; at any other time nothing is drawn
// and a paint event is asked for.
class QtFrameSurface final : public ui::FrameSurface {
 public:
  explicit QtFrameSurface(QWidget& widget) : widget_(widget) {}

  // Requires: the widget's paint event runs until the painter is taken back with
  // null.
  void SetPainter(QPainter* painter) { painter_ = painter; }

  std::int32_t IsAppThemed() override;
  std::shared_ptr<void> CreateThemeProbe() override;
  void Clear() override;
  std::int32_t Width() override { return widget_.width(); }
  std::int32_t Height() override { return widget_.height(); }
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
  void EnableControl(bool enabled) override { widget_.setEnabled(enabled); }

 private:
  void DrawCaption(std::string_view text, const QRect& rectangle, std::int32_t flags);

  QWidget& widget_;
  QPainter* painter_ = nullptr;
};

// Its contents margins keep what is laid out in it clear of line and caption.
class FrameWidget final : public QWidget {
 public:
  FrameWidget(QWidget* parent, const QString& name);

  void SetCaption(const QString& caption);
  // No line and no margins: a frame that only holds its controls together.
  void SetPlain();
  void SetFrameEnabled(bool enabled) { frame_.SetEnabled(enabled); }
  const ui::XPFrame& Frame() const { return frame_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;
  QSize minimumSizeHint() const override;

 private:
  void SetMargins();

  QtFrameSurface surface_{*this};
  ui::XPFrame frame_;
  bool plain_ = false;
};

}  // namespace pactora::desktop
