// The frame's geometry, flags and order of drawing, as a recorded list of calls.

#include "ui/XPFrame.h"

#include <gtest/gtest.h>

#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace pactora::ui {
namespace {

std::string Text(const Rectangle& r) {
  return std::to_string(r.left) + "," + std::to_string(r.top) + "," + std::to_string(r.right) +
         "," + std::to_string(r.bottom);
}

// A character is 6 pixels wide; writes down what is drawn.
class RecordingSurface final : public FrameSurface {
 public:
  bool styled = true;  // a visual style is active
  bool has_probe = true;
  bool probe_fails = false;
  bool theme_fails = false;  // opening the theme raises
  bool query_fails = false;
  std::int32_t text_height = 13;
  std::vector<std::string> calls;

  std::int32_t IsAppThemed() override {
    if (query_fails) throw std::runtime_error("no theme library");
    return styled ? 1 : 0;
  }
  std::shared_ptr<void> CreateThemeProbe() override {
    if (probe_fails) throw std::runtime_error("no such class");
    return has_probe ? std::make_shared<int>(1) : nullptr;
  }
  void Clear() override { calls = {"clear"}; }
  std::int32_t Width() override { return 200; }
  std::int32_t Height() override { return 80; }
  Extent GetTextExtent(std::string_view text) override {
    calls.push_back("measure '" + std::string(text) + "'");
    return {static_cast<std::int32_t>(6 * text.size()), text_height};
  }
  void FillBackground(const Rectangle& r) override { calls.push_back("fill " + Text(r)); }
  Theme OpenThemeData(std::string_view class_list) override {
    if (theme_fails) throw std::runtime_error("no theme");
    calls.push_back("open " + std::string(class_list));
    return 7;
  }
  void DrawThemeBackground(Theme theme, std::int32_t part, std::int32_t state,
                           const Rectangle& r) override {
    calls.push_back("background " + std::to_string(theme) + " " + std::to_string(part) + " " +
                    std::to_string(state) + " " + Text(r));
  }
  void DrawThemeText(Theme, std::int32_t part, std::int32_t state, std::string_view text,
                     std::int32_t flags, std::int32_t flags2, const Rectangle& r) override {
    calls.push_back("text " + std::to_string(part) + " " + std::to_string(state) + " '" +
                    std::string(text) + "' " + std::to_string(flags) + " " +
                    std::to_string(flags2) + " " + Text(r));
  }
  void CloseThemeData(Theme theme) override { calls.push_back("close " + std::to_string(theme)); }
  void DrawEdge(const Rectangle& r, std::int32_t edge, std::int32_t flags) override {
    calls.push_back("edge " + std::to_string(edge) + " " + std::to_string(flags) + " " + Text(r));
  }
  void DrawState(std::string_view text, std::int32_t left, std::int32_t top, Extent size,
                 std::int32_t flags) override {
    calls.push_back("state '" + std::string(text) + "' " + std::to_string(left) + "," +
                    std::to_string(top) + " " + std::to_string(size.cx) + "x" +
                    std::to_string(size.cy) + " " + std::to_string(flags));
  }
  void EnableControl(bool enabled) override { calls.push_back(enabled ? "enable" : "disable"); }
};

using Calls = std::vector<std::string>;

TEST(XPFrame, DrawsWithTheVisualStyle) {
  RecordingSurface surface;
  XPFrame frame(surface, "fraTyp");
  frame.SetCaption("&Typ");
  EXPECT_EQ(surface.calls,
            (Calls{"clear", "measure 'Typ'", "open Button", "background 7 4 0 0,6,200,80",
                   "fill 7,0,29,13", "text 4 1 '&Typ' 0 0 9,0,27,13", "close 7"}));
  frame.SetEnabled(false);
  EXPECT_EQ(surface.calls.at(5), "text 4 1 '&Typ' 0 32 9,0,27,13");
}

TEST(XPFrame, DrawsAnEtchedLineWithoutAVisualStyle) {
  RecordingSurface surface;
  surface.styled = false;
  surface.text_height = 15;
  XPFrame frame(surface, "fraArt");
  frame.SetCaption("A&&B");
  EXPECT_EQ(surface.calls, (Calls{"clear", "measure 'AB'", "edge 6 15 0,8,200,80", "fill 3,0,17,15",
                                  "state 'A&&B' 4,0 12x15 2"}));
  frame.SetEnabled(false);
  EXPECT_EQ(surface.calls.back(), "state 'A&&B' 4,0 12x15 34");
}

TEST(XPFrame, AnEmptyCaptionHasAHeightAndNoGap) {
  RecordingSurface surface;
  XPFrame frame(surface, "fra");
  frame.SetCaption("");
  EXPECT_EQ(surface.calls,
            (Calls{"clear", "measure ' '", "open Button", "background 7 4 0 0,6,200,80",
                   "text 4 1 '' 0 0 9,0,15,13", "close 7"}));
}

TEST(XPFrame, IsThemedOnlyWithAProbeAndAnActiveStyle) {
  struct Case {
    bool styled, has_probe, probe_fails, query_fails, themed;
  };
  for (const Case& c :
       {Case{true, true, false, false, true}, Case{false, true, false, false, false},
        Case{true, false, false, false, false}, Case{true, true, true, false, false},
        Case{true, true, false, true, false}}) {
    RecordingSurface surface;
    surface.styled = c.styled;
    surface.has_probe = c.has_probe;
    surface.probe_fails = c.probe_fails;
    surface.query_fails = c.query_fails;
    EXPECT_EQ(XPFrame(surface, "fra").Themed(), c.themed);
  }
}

TEST(XPFrame, AnErrorEndsTheRepaintWithoutAWord) {
  RecordingSurface surface;
  XPFrame frame(surface, "fra");
  surface.theme_fails = true;
  EXPECT_NO_THROW(frame.DrawFrame());
  EXPECT_EQ(surface.calls, (Calls{"clear", "measure 'fra'"}));
  surface.theme_fails = false;
  frame.DrawFrame();
  EXPECT_EQ(surface.calls.back(), "close 7") << "the next paint draws it whole";
}

class MapStore final : public PropertyStore {
 public:
  std::map<std::string, std::string, std::less<>> values;

  bool ReadBoolean(std::string_view key, bool default_value) override {
    const auto found = values.find(key);
    return found == values.end() ? default_value : found->second == "1";
  }
  std::string ReadText(std::string_view key, const std::string& default_value) override {
    const auto found = values.find(key);
    return found == values.end() ? default_value : found->second;
  }
  void WriteBoolean(std::string_view key, bool value, bool default_value) override {
    if (value != default_value) values[std::string(key)] = value ? "1" : "0";
  }
  void WriteText(std::string_view key, const std::string& value,
                 const std::string& default_value) override {
    if (value != default_value) values[std::string(key)] = value;
  }
};

TEST(XPFrame, KeepsItsPropertiesAndTellsOfChanges) {
  RecordingSurface surface;
  XPFrame frame(surface, "fraWorkflow");
  EXPECT_TRUE(frame.Enabled());
  EXPECT_EQ(frame.Caption(), "fraWorkflow");
  MapStore store;
  frame.WriteProperties(store);
  EXPECT_TRUE(store.values.empty()) << "defaults are not written";
  int changes = 0;
  frame.PropertyChanged = [&] { ++changes; };
  frame.SetEnabled(false);
  EXPECT_EQ(surface.calls.front(), "clear");
  frame.SetCaption("Workflow");
  EXPECT_EQ(changes, 2);
  frame.WriteProperties(store);
  XPFrame other(surface, "fraWorkflow");
  other.ReadProperties(store);
  EXPECT_FALSE(other.Enabled());
  EXPECT_EQ(other.Caption(), "Workflow");
}

}  // namespace
}  // namespace pactora::ui
