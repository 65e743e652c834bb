#include "automation/scripts/dialog_actions.h"

#include <gmock/gmock.h>

#include "automation/formats/errors.h"

namespace pactora::scripts {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

Actions ReadActions(const std::string& text) {
  return ParseActions(formats::Json::parse(text), formats::Place("a.json", "do"));
}

TEST(ParseActions, ReadsEachKind) {
  const Actions actions = ReadActions(R"([
    {"click": "cmdOK", "answers": ["yes", "no", "ok"], "do": [{"close": true}]},
    {"type": "txt", "keys": "1.{BS}{ü", "clear": true},
    {"set": "dtp", "value": null}, {"set": "chk", "value": true}, {"set": "txt", "value": "a"},
    {"leave": "txt"},
    {"select": "cbo", "text": "Wochen"}, {"select": "cbo", "index": 0},
    {"select": "lvw", "row": 3}, {"select": "lst", "none": true},
    {"read": "lbl"}, {"read": ["a", "b"]}])");
  ASSERT_EQ(actions.size(), 12U);
  EXPECT_EQ(std::get<ClickAction>(actions[0].what).control, "cmdOK");
  EXPECT_THAT(actions[0].answers, ElementsAre(ui::Answer::Yes, ui::Answer::No, ui::Answer::Ok));
  ASSERT_EQ(actions[0].inner.size(), 1U);
  EXPECT_EQ(actions[0].inner[0].place, "do[0].do[0]");
  EXPECT_TRUE(std::holds_alternative<CloseAction>(actions[0].inner[0].what));
  const auto& type = std::get<TypeAction>(actions[1].what);
  EXPECT_THAT(type.keys, ElementsAre('1', '.', 8, '{', 0xFC));
  EXPECT_TRUE(type.clear);
  EXPECT_TRUE(std::holds_alternative<std::nullptr_t>(std::get<SetAction>(actions[2].what).value));
  EXPECT_EQ(std::get<bool>(std::get<SetAction>(actions[3].what).value), true);
  EXPECT_EQ(std::get<std::string>(std::get<SetAction>(actions[4].what).value), "a");
  EXPECT_EQ(std::get<LeaveAction>(actions[5].what).control, "txt");
  EXPECT_EQ(std::get<std::string>(std::get<SelectAction>(actions[6].what).entry), "Wochen");
  const auto position = [&](std::size_t i) {
    return std::get<std::int32_t>(std::get<SelectAction>(actions[i].what).entry);
  };
  EXPECT_EQ(position(7), 0);
  EXPECT_EQ(position(8), 2);
  EXPECT_EQ(position(9), -1);
  EXPECT_THAT(std::get<ReadAction>(actions[10].what).controls, ElementsAre("lbl"));
  EXPECT_THAT(std::get<ReadAction>(actions[11].what).controls, ElementsAre("a", "b"));
}

TEST(ParseActions, NamesThePlaceOfWhatItCannotRead) {
  struct Case {
    const char* text;
    const char* place;
    const char* what;
  };
  const Case cases[] = {
      {R"({})", "do", "Liste"},
      {R"(["click"])", "do[0]", "Objekt"},
      {R"([{}])", "do[0]", "eine Aktion"},
      {R"([{"press": "x"}])", "do[0]", "press"},
      {R"([{"read": "x"}, {"click": "x", "leave": "y"}])", "do[1]", "zwei Aktionen"},
      {R"([{"click": "x", "text": "y"}])", "do[0]", "text"},
      {R"([{"click": 1}])", "do[0].click", "Text"},
      {R"([{"type": "x"}])", "do[0]", "keys"},
      {R"([{"type": "x", "keys": 12}])", "do[0].keys", "Text"},
      {R"([{"type": "x", "keys": "", "clear": 1}])", "do[0].clear", "true"},
      {R"([{"set": "x"}])", "do[0]", "value"},
      {R"([{"set": "x", "value": 12}])", "do[0].value", "Text"},
      {R"([{"select": "x"}])", "do[0]", "genau einer"},
      {R"([{"select": "x", "row": 1, "index": 0}])", "do[0]", "genau einer"},
      {R"([{"select": "x", "row": 0}])", "do[0].row", "ab 1"},
      {R"([{"select": "x", "index": -1}])", "do[0].index", "ab 0"},
      {R"([{"select": "x", "none": false}])", "do[0].none", "true"},
      {R"([{"read": ["a", null]}])", "do[0].read[1]", "Text"},
      {R"([{"close": false}])", "do[0].close", "true"},
      {R"([{"click": "x", "answers": ["Ja"]}])", "do[0].answers[0]", "yes"},
      {R"([{"click": "x", "do": [{"click": "y", "index": 1}]}])", "do[0].do[0]", "index"},
  };
  for (const auto& [text, place, what] : cases) {
    try {
      ReadActions(text);
      ADD_FAILURE() << text;
    } catch (const platform::Error& error) {
      EXPECT_EQ(error.Number(), Number(formats::DoorError::BadInput));
      EXPECT_THAT(error.Description(), HasSubstr(std::string("a.json: ") + place + ":")) << text;
      EXPECT_THAT(error.Description(), HasSubstr(what)) << text;
    }
  }
}

}  // namespace
}  // namespace pactora::scripts
