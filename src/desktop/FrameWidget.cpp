#include "desktop/FrameWidget.h"

#include <QtWidgets/qdrawutil.h>

#include <QEvent>
#include <QImage>
#include <QStyle>
#include <QStyleOptionFrame>

#include "desktop/text.h"

namespace pactora::desktop {
namespace {

namespace drawing = ui::frame_drawing;

constexpr int kInset = 9;         // from the line to what is in the frame, in pixels
constexpr int kBelowCaption = 5;  // likewise from the caption

// The style that draws as computers did before visual styles.
constexpr char kPlainStyle[] = "windows";

void DrawGroupBox(QStyleOptionFrame& option, QPainter& painter, const QWidget& widget) {
  option.lineWidth = 1;
  option.midLineWidth = 0;
  option.state |= QStyle::State_Sunken;
  widget.style()->drawPrimitive(QStyle::PE_FrameGroupBox, &option, &painter, &widget);
}

// How far below the top of its rectangle a style draws a group box: some leave room
// for a title of their own.
int TopInset(const QWidget& widget) {
  constexpr int kProbe = 200;  // higher than any title
  QImage image(kProbe, kProbe, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  QStyleOptionFrame option;
  option.initFrom(&widget);
  option.rect = image.rect();
  DrawGroupBox(option, painter, widget);
  painter.end();
  for (int y = 0; y < kProbe; ++y) {
    if (image.pixelColor(kProbe / 2, y).alpha() > 0) return y;
  }
  return 0;
}

QRect ToQt(const ui::Rectangle& r) { return {r.left, r.top, r.right - r.left, r.bottom - r.top}; }

}  // namespace

std::int32_t QtFrameSurface::IsAppThemed() {
  return widget_.style()->name().compare(QLatin1String(kPlainStyle), Qt::CaseInsensitive) != 0;
}

// Every style that Qt has can draw group boxes.
std::shared_ptr<void> QtFrameSurface::CreateThemeProbe() { return std::make_shared<int>(0); }

void QtFrameSurface::Clear() {
  if (painter_ == nullptr) {
    widget_.update();
    return;
  }
  painter_->fillRect(widget_.rect(), widget_.palette().window());
}

ui::Extent QtFrameSurface::GetTextExtentPoint32A(std::string_view text) {
  const QFontMetrics metrics = widget_.fontMetrics();
  return {metrics.horizontalAdvance(desktop::ToQt(text)), metrics.height()};
}

void QtFrameSurface::FillBackground(const ui::Rectangle& rectangle) {
  if (painter_) painter_->fillRect(ToQt(rectangle), widget_.palette().window());
}

QtFrameSurface::Theme QtFrameSurface::OpenThemeData(std::string_view) {
  return 1;  // Qt draws with the style itself and needs no handle
}

void QtFrameSurface::CloseThemeData(Theme) {}

void QtFrameSurface::DrawThemeBackground(Theme, std::int32_t, std::int32_t,
                                         const ui::Rectangle& rectangle) {
  if (!painter_) return;
  QStyleOptionFrame option;
  option.initFrom(&widget_);
  option.rect = ToQt(rectangle).adjusted(0, -TopInset(widget_), 0, 0);
  DrawGroupBox(option, *painter_, widget_);
}

void QtFrameSurface::DrawThemeText(Theme, std::int32_t, std::int32_t, std::string_view text,
                                   std::int32_t, std::int32_t flags2,
                                   const ui::Rectangle& rectangle) {
  DrawCaption(text, ToQt(rectangle), flags2);
}

void QtFrameSurface::DrawEdge(const ui::Rectangle& rectangle, std::int32_t, std::int32_t) {
  if (painter_) qDrawShadeRect(painter_, ToQt(rectangle), widget_.palette(), true, 1, 0);
}

void QtFrameSurface::DrawStateA(std::string_view text, std::int32_t left, std::int32_t top,
                                ui::Extent size, std::int32_t flags) {
  DrawCaption(text, {left, top, size.cx, size.cy}, flags);
}

void QtFrameSurface::DrawCaption(std::string_view text, const QRect& rectangle,
                                 std::int32_t flags) {
  if (!painter_) return;
  const bool enabled = (flags & drawing::kDisabled) == 0;
  widget_.style()->drawItemText(
      painter_, rectangle, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic,
      widget_.palette(), enabled, desktop::ToQt(text), QPalette::WindowText);
}

FrameWidget::FrameWidget(QWidget* parent, const QString& name)
    : QWidget(parent), frame_(surface_, FromQt(name)) {
  setObjectName(name);
  SetMargins();
}

void FrameWidget::SetCaption(const QString& caption) {
  frame_.SetCaption(FromQt(caption));
  setAccessibleName(caption);
  SetMargins();
}

void FrameWidget::SetPlain() {
  plain_ = true;
  SetMargins();
}

void FrameWidget::paintEvent(QPaintEvent*) {
  if (plain_) return;
  QPainter painter(this);
  surface_.SetPainter(&painter);
  frame_.DrawFrame();
  surface_.SetPainter(nullptr);
}

void FrameWidget::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) SetMargins();
}

// Wide enough for the caption, also around small content.
QSize FrameWidget::minimumSizeHint() const {
  QSize size = QWidget::minimumSizeHint();
  const int caption = fontMetrics().horizontalAdvance(desktop::ToQt(frame_.Caption()));
  return size.expandedTo({caption + 2 * kInset, 0});
}

void FrameWidget::SetMargins() {
  if (plain_) return setContentsMargins(0, 0, 0, 0);
  const int height = fontMetrics().height();
  const int top = frame_.Caption().empty() ? height / 2 + kInset : height + kBelowCaption;
  setContentsMargins(kInset, top, kInset, kInset);
}

}  // namespace pactora::desktop
