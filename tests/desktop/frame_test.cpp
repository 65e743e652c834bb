// The group frame as it is drawn.
#include <gtest/gtest.h>

#include <QImage>
#include <QStyle>
#include <QStyleFactory>
#include <memory>

#include "desktop/FrameWidget.h"

namespace pactora::desktop {
namespace {

// Whether anything but the background stands in the rectangle.
bool HasInk(const FrameWidget& frame, const QImage& image, const QRect& rectangle) {
  QImage background = image.copy(rectangle);
  background.fill(frame.palette().color(QPalette::Window));
  return image.copy(rectangle) != background;
}

TEST(DrawnFrame, HasItsCaptionInTheLineAndLooksDisabled) {
  for (const char* name : {"Fusion", "Windows"}) {
    SCOPED_TRACE(name);
    const std::unique_ptr<QStyle> style(QStyleFactory::create(name));
    FrameWidget frame(nullptr, "fraTyp");
    QWidget child(&frame);
    frame.setStyle(style.get());
    frame.resize(200, 80);
    const auto drawn = [&] { return frame.grab(QRect(0, 0, 200, 80)).toImage(); };
    const int line = frame.fontMetrics().height() / 2;  // its row of pixels
    const QRect above(20, 0, 100, line - 1);
    frame.SetCaption("");
    EXPECT_FALSE(HasInk(frame, drawn(), above));
    EXPECT_TRUE(HasInk(frame, drawn(), QRect(20, line - 1, 100, 4))) << "the line";
    frame.SetCaption("Erstvertrag");
    const QImage image = drawn();
    EXPECT_TRUE(HasInk(frame, image, above)) << "the caption";
    const QRect gap(frame.Frame().Themed() ? 7 : 3, 0, 1, 2 * line);
    EXPECT_FALSE(HasInk(frame, image, gap));
    frame.SetFrameEnabled(false);
    EXPECT_FALSE(child.isEnabled());
    EXPECT_NE(drawn(), image);
  }
}

}  // namespace
}  // namespace pactora::desktop
