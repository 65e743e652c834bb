// What a script may let a person do in a dialog, and how its faults are named.
#include "automation/scripts/dialog_actions.h"

#include <gmock/gmock.h>

#include "automation/formats/errors.h"
#include "support/error_of.h"

namespace pactora::scripts {
namespace {

using testing::AllOf;
using testing::HasSubstr;

TEST(ParseActions, NamesThePlaceOfWhatItCannotRead) {
  struct Case {
    const char* text;
    const char* place;
    const char* what;
  };
  const Case cases[] = {
      {R"([{}])", "do[0]", "eine Aktion"},
      {R"([{"press": "x"}])", "do[0]", "press"},
      {R"([{"read": "x"}, {"click": "x", "leave": "y"}])", "do[1]", "zwei Aktionen"},
      {R"([{"click": "x", "text": "y"}])", "do[0]", "text"},
      {R"([{"type": "x"}])", "do[0]", "keys"},
      {R"([{"type": "x", "keys": "", "clear": 1}])", "do[0].clear", "true"},
      {R"([{"set": "x"}])", "do[0]", "value"},
      {R"([{"select": "x"}])", "do[0]", "genau einer"},
      {R"([{"select": "x", "row": 1, "index": 0}])", "do[0]", "genau einer"},
      {R"([{"select": "x", "row": 0}])", "do[0].row", "ab 1"},
      {R"([{"select": "x", "none": false}])", "do[0].none", "true"},
      {R"([{"read": ["a", null]}])", "do[0].read[1]", "Text"},
      {R"([{"click": "x", "answers": ["Ja"]}])", "do[0].answers[0]", "yes"},
      {R"([{"click": "x", "do": [{"click": "y", "index": 1}]}])", "do[0].do[0]", "index"},
  };
  for (const auto& [text, place, what] : cases) {
    const auto error = support::ErrorOf([&text = text] {
      ParseActions(formats::Json::parse(text), formats::Place("a.json", "do"));
    });
    ASSERT_TRUE(error) << text;
    EXPECT_EQ(error->Number(), Number(formats::DoorError::BadInput)) << text;
    EXPECT_THAT(error->Description(),
                AllOf(HasSubstr(std::string("a.json: ") + place + ":"), HasSubstr(what)));
  }
}

}  // namespace
}  // namespace pactora::scripts
