// The group frame as it is drawn.
#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QStyle>
#include <QStyleFactory>
#include <QVBoxLayout>
#include <memory>

#include "desktop/FrameWidget.h"

namespace pactora::desktop {
namespace {

constexpr int kWidth = 200;
constexpr int kHeight = 80;

QImage Drawn(FrameWidget& frame) {
  frame.resize(kWidth, kHeight);
  return frame.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

// Whether anything but the background stands in the rectangle.
bool HasInk(const QImage& image, const QRect& rectangle, QRgb background) {
  for (int y = rectangle.top(); y <= rectangle.bottom(); ++y) {
    for (int x = rectangle.left(); x <= rectangle.right(); ++x) {
      if (image.pixel(x, y) != background) return true;
    }
  }
  return false;
}

class DrawnFrame : public testing::TestWithParam<const char*> {
 protected:
  DrawnFrame() : style(QStyleFactory::create(GetParam())) { frame.setStyle(style.get()); }

  QRgb Background() const { return frame.palette().color(QPalette::Window).rgb(); }
  // The row of pixels of the upper line.
  int Line() const { return frame.fontMetrics().height() / 2; }
  bool Themed() const { return frame.Frame().Themed(); }

  std::unique_ptr<QStyle> style;
  FrameWidget frame{nullptr, "fraTyp"};
};

TEST_P(DrawnFrame, IsThemedWhereAVisualStyleIsActive) {
  EXPECT_EQ(Themed(), std::string(GetParam()) != "Windows");
}

TEST_P(DrawnFrame, HasItsUpperLineAtHalfTheHeightOfTheCaption) {
  frame.SetCaption("");
  const QImage image = Drawn(frame);
  EXPECT_FALSE(HasInk(image, QRect(20, 0, 100, Line() - 1), Background()));
  EXPECT_TRUE(HasInk(image, QRect(20, Line() - 1, 100, 4), Background()));
}

TEST_P(DrawnFrame, SetsTheCaptionIntoTheLineAndLeavesAGap) {
  const QString caption = "Erstvertrag";
  frame.SetCaption(caption);
  const QImage image = Drawn(frame);
  const int left = Themed() ? 9 : 4;
  const int margin = Themed() ? 2 : 1;
  const int width = frame.fontMetrics().horizontalAdvance(caption);
  EXPECT_TRUE(HasInk(image, QRect(left, 0, width, Line() - 2), Background())) << "the caption";
  EXPECT_FALSE(HasInk(image, QRect(left - margin, 0, margin, 2 * Line()), Background()))
      << "left gap";
  EXPECT_FALSE(HasInk(image, QRect(left + width + 1, 0, margin - 1, 2 * Line()), Background()));
  EXPECT_TRUE(HasInk(image, QRect(left + width + margin + 4, Line() - 1, 10, 4), Background()))
      << "the line goes on";
}

TEST_P(DrawnFrame, LooksDisabledAndDisablesWhatIsInIt) {
  frame.SetCaption("Folgevertrag");
  QWidget child(&frame);
  const QImage enabled = Drawn(frame);
  frame.SetFrameEnabled(false);
  EXPECT_FALSE(child.isEnabled());
  EXPECT_NE(Drawn(frame), enabled);
  frame.SetFrameEnabled(true);
  EXPECT_TRUE(child.isEnabled());
  EXPECT_EQ(Drawn(frame), enabled);
}

TEST_P(DrawnFrame, LiesWithinAnother) {
  frame.SetCaption("");
  auto* inner = new FrameWidget(&frame, "fraArt");
  inner->setStyle(style.get());
  inner->SetCaption("Art");
  auto* layout = new QVBoxLayout(&frame);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(inner);
  const QImage image = Drawn(frame);
  EXPECT_TRUE(frame.contentsRect().contains(inner->geometry()));
  const QPoint at = inner->pos();
  EXPECT_TRUE(HasInk(image, QRect(at.x() + 60, at.y() + Line() - 1, 60, 4), Background()));
}

INSTANTIATE_TEST_SUITE_P(Styles, DrawnFrame, testing::Values("Fusion", "Windows"),
                         [](const auto& tested) { return tested.param; });

}  // namespace
}  // namespace pactora::desktop
