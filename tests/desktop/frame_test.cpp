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

TEST(DrawnFrame, HasItsCaptionInTheLineWithAGapAndLooksDisabled) {
  for (const char* name : {"Fusion", "Windows"}) {
    SCOPED_TRACE(name);
    const std::unique_ptr<QStyle> style(QStyleFactory::create(name));
    FrameWidget frame(nullptr, "fraTyp");
    QWidget child(&frame);
    frame.setStyle(style.get());
    frame.resize(200, 80);
    const auto drawn = [&] { return frame.grab(QRect(0, 0, 200, 80)).toImage(); };
    frame.SetCaption("");
    const bool themed = frame.Frame().Themed();
    EXPECT_EQ(themed, std::string(name) == "Fusion");
    const int line = frame.fontMetrics().height() / 2;  // its row of pixels
    const QImage plain = drawn();
    EXPECT_FALSE(HasInk(frame, plain, QRect(20, 0, 100, line - 1)));
    EXPECT_TRUE(HasInk(frame, plain, QRect(20, line - 1, 100, 4)));

    frame.SetCaption("Erstvertrag");
    EXPECT_GE(frame.contentsMargins().top(), frame.fontMetrics().height());
    const QImage image = drawn();
    const int left = themed ? 9 : 4;
    const int margin = themed ? 2 : 1;
    const int right = left + frame.fontMetrics().horizontalAdvance("Erstvertrag");
    EXPECT_TRUE(HasInk(frame, image, QRect(left, 0, right - left, line - 2))) << "the caption";
    EXPECT_FALSE(HasInk(frame, image, QRect(left - margin, 0, margin, 2 * line))) << "the gap";
    EXPECT_FALSE(margin > 1 && HasInk(frame, image, QRect(right + 1, 0, margin - 1, 2 * line)));
    EXPECT_TRUE(HasInk(frame, image, QRect(right + margin + 4, line - 1, 10, 4))) << "the line";

    frame.SetFrameEnabled(false);
    EXPECT_FALSE(child.isEnabled());
    EXPECT_NE(drawn(), image);
    frame.SetFrameEnabled(true);
    EXPECT_TRUE(child.isEnabled());
    EXPECT_EQ(drawn(), image);
  }
}

}  // namespace
}  // namespace pactora::desktop
