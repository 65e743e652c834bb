// The frame's geometry, flags and order of drawing.
#include "ui/XPFrame.h"

#include <gmock/gmock.h>

#include <stdexcept>

namespace pactora::ui {
namespace {

using testing::NiceMock;
using testing::Return;
using testing::Throw;
using Int = std::int32_t;
using Text = std::string_view;
using Probe = std::shared_ptr<void>;

struct Surface : FrameSurface {
  explicit Surface(testing::Action<Probe()> probe, testing::Action<Int()> style) {
    ON_CALL(*this, CreateThemeProbe()).WillByDefault(probe);
    ON_CALL(*this, IsAppThemed()).WillByDefault(style);
  }
  Int Width() override { return 200; }
  Int Height() override { return 80; }
  MOCK_METHOD(Int, IsAppThemed, (), (override));
  MOCK_METHOD(Probe, CreateThemeProbe, (), (override));
  MOCK_METHOD(void, Clear, (), (override));
  MOCK_METHOD(Extent, GetTextExtentPoint32A, (Text), (override));
  MOCK_METHOD(void, FillBackground, (const Rectangle&), (override));
  MOCK_METHOD(Theme, OpenThemeData, (Text), (override));
  MOCK_METHOD(void, DrawThemeBackground, (Theme, Int, Int, const Rectangle&), (override));
  MOCK_METHOD(void, DrawThemeText, (Theme, Int, Int, Text, Int, Int, const Rectangle&), (override));
  MOCK_METHOD(void, CloseThemeData, (Theme), (override));
  MOCK_METHOD(void, DrawEdge, (const Rectangle&, Int, Int), (override));
  MOCK_METHOD(void, DrawStateA, (Text, Int, Int, Extent, Int), (override));
  MOCK_METHOD(void, EnableControl, (bool), (override));
};

const Probe kProbe = std::make_shared<int>();

TEST(XPFrame, DrawsItsCaptionIntoTheLine) {
  struct {
    Int styled;
    Text caption, measured;
    Extent size;
    Rectangle line, gap, at;
    bool enabled;
    Int flags;
  } const rows[] = {
      {1, "&Typ", "Typ", {18, 13}, {0, 6, 200, 80}, {7, 0, 29, 13}, {9, 0, 27, 13}, true, 0},
      {1, "", " ", {6, 15}, {0, 8, 200, 80}, {}, {9, 0, 15, 15}, false, 32},
      {0, "A&&B", "AB", {12, 15}, {0, 8, 200, 80}, {3, 0, 17, 15}, {4, 0, 16, 15}, true, 2},
      {0, "", " ", {6, 16}, {0, 8, 200, 80}, {}, {4, 0, 10, 16}, false, 34},
  };
  for (const auto& [styled, caption, measured, size, line, gap, at, enabled, flags] : rows) {
    NiceMock<Surface> surface(Return(kProbe), Return(styled));
    XPFrame frame(surface, "fra");
    frame.SetEnabled(enabled);
    const testing::InSequence drawing;
    EXPECT_CALL(surface, Clear());
    EXPECT_CALL(surface, GetTextExtentPoint32A(measured)).WillOnce(Return(size));
    if (styled) {
      EXPECT_CALL(surface, OpenThemeData(Text("Button"))).WillOnce(Return(7));
      EXPECT_CALL(surface, DrawThemeBackground(7, 4, 0, line));
    } else {
      EXPECT_CALL(surface, DrawEdge(line, 6, 15));
    }
    EXPECT_CALL(surface, FillBackground(gap)).Times(caption.empty() ? 0 : 1);
    if (styled) {
      EXPECT_CALL(surface, DrawThemeText(7, 4, 1, caption, 0, flags, at));
      EXPECT_CALL(surface, CloseThemeData(7));
    } else {
      EXPECT_CALL(surface, DrawStateA(caption, at.left, at.top, size, flags));
    }
    frame.SetCaption(std::string(caption));
  }
}

TEST(XPFrame, IsThemedOnlyWithAProbeAndAnActiveStyle) {
  const auto themed = [](testing::Action<Probe()> probe, testing::Action<Int()> style) {
    NiceMock<Surface> surface(probe, style);
    return XPFrame(surface, "fra").Themed();
  };
  const std::runtime_error no_library("no such library");
  EXPECT_TRUE(themed(Return(kProbe), Return(1)));
  EXPECT_FALSE(themed(Return(kProbe), Return(0)));
  EXPECT_FALSE(themed(Return(kProbe), Throw(no_library)));
  EXPECT_FALSE(themed(Return(nullptr), Return(1)));
  EXPECT_FALSE(themed(Throw(no_library), Return(1)));
}

class Store : public PropertyStore {
 public:
  MOCK_METHOD(bool, ReadBoolean, (Text, bool), (override));
  MOCK_METHOD(std::string, ReadText, (Text, const std::string&), (override));
  MOCK_METHOD(void, WriteBoolean, (Text, bool, bool), (override));
  MOCK_METHOD(void, WriteText, (Text, const std::string&, const std::string&), (override));
};

TEST(XPFrame, KeepsItsPropertiesAndReportsTheirChange) {
  NiceMock<Surface> surface(Return(kProbe), Return(1));
  XPFrame frame(surface, "fra");
  testing::StrictMock<Store> store;
  EXPECT_CALL(store, WriteBoolean(Text("Enabled"), true, true));
  EXPECT_CALL(store, WriteText(Text("Caption"), "fra", "fra"));
  frame.WriteProperties(store);
  EXPECT_CALL(store, ReadBoolean(Text("Enabled"), true)).WillOnce(Return(false));
  EXPECT_CALL(store, ReadText(Text("Caption"), "fra")).WillOnce(Return("Workflow"));
  frame.ReadProperties(store);
  EXPECT_FALSE(frame.Enabled());
  EXPECT_EQ(frame.Caption(), "Workflow");

  testing::MockFunction<void()> changed;
  frame.PropertyChanged = changed.AsStdFunction();
  EXPECT_CALL(changed, Call()).Times(2);
  EXPECT_CALL(surface, EnableControl(true));
  // An error ends a repaint without a word.
  EXPECT_CALL(surface, Clear()).Times(2).WillRepeatedly(Throw(std::runtime_error("gone")));
  EXPECT_CALL(surface, OpenThemeData).Times(0);
  frame.SetEnabled(true);
  frame.SetCaption("Art");
}

}  // namespace
}  // namespace pactora::ui
