#include "automation/scripts/ScriptScreen.h"

#include <gmock/gmock.h>

#include "automation/formats/JsonWriter.h"
#include "automation/scripts/dialog_state.h"
#include "automation/workspace/database.h"
#include "platform/Error.h"
#include "support/SampleForm.h"

namespace pactora::scripts {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// A script's screen, a dialog, and what was written down of them.
struct Stage {
  Stage() {
    form.SetCaption("Muster");
    form.txtMemo.SetFocus();
  }

  void Show(const std::string& list) {
    const Actions actions =
        ParseActions(formats::Json::parse(list), formats::Place("a.json", "do"));
    screen.Run(actions, [&] { form.Show(screen); });
  }
  std::string Failure() const {
    return screen.Failed() ? screen.Failed()->place + ": " + screen.Failed()->reason : "";
  }
  // The events so far without their keys: "message Weg? 36 Pactora yes".
  std::vector<std::string> Events() const {
    std::vector<std::string> lines;
    for (const formats::Json& event : events) {
      std::string line;
      for (const auto& [key, value] : event.items()) {
        if (key == "dialog") continue;
        line += (line.empty() ? "" : " ") +
                (value.is_string() ? value.get<std::string>() : formats::OneLine(value));
      }
      lines.push_back(line);
    }
    return lines;
  }

  std::vector<formats::Json> events;
  std::vector<std::size_t> units;  // how many events had come when a unit was ended
  std::optional<std::size_t> failing_unit;
  ScriptScreen screen{[this](const formats::Json& event) { events.push_back(event); },
                      [this] {
                        units.push_back(events.size());
                        if (units.size() - 1 == failing_unit) throw platform::Error(1, "voll");
                      }};
  ui::SampleForm form;
};

struct ScriptScreenTest : testing::Test, Stage {};

TEST_F(ScriptScreenTest, CarriesOutEachActionAndClosesTheDialog) {
  form.lvwRows.AddRow("9", {"Wartung"});
  form.lvwRows.AddRow("8", {"Server"});
  form.txtDauer.SetText("12");
  form.txtMemo.SetText("alt");
  form.Ran();
  Show(R"([
    {"type": "txtDauer", "keys": "3{BS}{ü"}, {"leave": "txtDauer"},
    {"type": "txtMemo", "clear": true, "keys": "neu"}, {"click": "optB"}, {"click": "chkFlag"}, {"set": "chkFlag", "value": false},
    {"set": "cboFree", "value": "kg"}, {"set": "dtpStart", "value": "2024-03-15"},
    {"set": "dtpClosed", "value": null}, {"select": "cboList", "index": 1},
    {"select": "cboList", "text": "Monate"}, {"select": "lstRows", "index": 0},
    {"select": "lstRows", "none": true}, {"select": "lvwRows", "row": 1},
    {"select": "lvwRows", "text": "Server"}, {"click": "cmdOK"}])");
  EXPECT_EQ(Failure(), "");
  ASSERT_EQ(events.size(), 2u);
  EXPECT_EQ(formats::OneLine(events[0]),
            R"({"event":"show","dialog":"frmSample","caption":"Muster"})");
  EXPECT_EQ(formats::OneLine(events[1]),
            R"({"event":"hide","dialog":"frmSample","caption":"Muster"})");
  EXPECT_EQ(form.txtDauer.Text() + form.txtMemo.Text(), "12{üneu");
  EXPECT_EQ(form.dtpStart.Value(), platform::FromCivil(2024, 3, 15));
  EXPECT_THAT(
      form.Ran(),
      ElementsAre("txtDauer_KeyPress 51", "txtDauer_Change", "txtDauer_KeyPress 8",
                  "txtDauer_Change", "txtDauer_KeyPress 123", "txtDauer_Change",
                  "txtDauer_KeyPress 252", "txtDauer_Change", "txtDauer_Validate", "optB_Click",
                  "chkFlag_Click", "chkFlag_Click", "cboFree_Change", "dtpStart_Change",
                  "dtpClosed_Change", "cboList_Click", "lstRows_Click", "lstRows_Click",
                  "lvwRows_ItemClick 1", "lvwRows_ItemClick 2", "cmdOK_Click", "cmdCancel_Click"));
}

TEST_F(ScriptScreenTest, GoesOnWhenABoxKeepsTheFocus) {
  form.on_validate = [this](bool& cancel) { cancel = form.txtDauer.Text().empty(); };
  Show(R"([{"leave": "txtDauer"}, {"click": "cmdOK"}, {"type": "txtDauer", "keys": "1"},
          {"click": "cmdOK"}])");
  EXPECT_EQ(Failure(), "");
  EXPECT_THAT(Events(),
              ElementsAre("show Muster", "focus txtDauer", "focus txtDauer", "hide Muster"));
  EXPECT_EQ(std::ranges::count(form.log, "cmdOK_Click"), 1);
}

// Each action has its own answers, then those that the message proposes; a dialog
// that opens has the actions inside, the second time none.
TEST_F(ScriptScreenTest, GivesTheMessagesAndTheDialogOfAnActionWhatItSays) {
  using enum ui::Answer;
  ui::SampleForm inner;
  inner.SetCaption("Innen");
  inner.txtMemo.SetFocus();
  inner.on_ok = [&] { screen.ShowMessage({"innen", 292}); };
  std::vector<ui::Answer> answers;
  form.on_ok = [&] {
    inner.Show(screen);
    for (const std::int32_t style : {292, 36, 292, 36, 0}) {
      answers.push_back(screen.ShowMessage({"Weg?", style}));
    }
    inner.Show(screen);
  };
  Show(R"([{"click": "cmdOK", "answers": ["yes", "no"],
           "do": [{"click": "cmdOK"}, {"close": true}]}])");
  EXPECT_EQ(Failure(), "");
  EXPECT_THAT(answers, ElementsAre(Yes, No, No, Yes, Ok));
  EXPECT_THAT(Events(),
              ElementsAre("show Muster", "show Innen", "message innen 292 Pactora no", "hide Innen",
                          "message Weg? 292 Pactora yes", "message Weg? 36 Pactora no",
                          "message Weg? 292 Pactora no", "message Weg? 36 Pactora yes",
                          "message Weg? 0 Pactora ok", "show Innen", "hide Innen", "hide Muster"));
  EXPECT_THAT(inner.Ran(), ElementsAre("cmdOK_Click", "cmdCancel_Click", "cmdCancel_Click"));
}

TEST_F(ScriptScreenTest, StopsAtWhatAPersonCouldNotDo) {
  const std::pair<const char*, const char*> cases[] = {
      {R"({"click": "cmdok"})", "der Dialog frmSample hat kein Steuerelement „cmdok“"},
      {R"({"read": ["txtDauer", "txt"]})", "der Dialog frmSample hat kein Steuerelement „txt“"},
      {R"({"leave": "cboFree"})", "„cboFree“ ist gesperrt"},
      {R"({"set": "chkFlag", "value": "ja"})", "„chkFlag“ nimmt keinen solchen Wert"},
      {R"({"set": "dtpStart", "value": null})", "„dtpStart“ braucht ein Datum wie 2024-03-15"},
      {R"({"select": "cboList", "text": "Tage"})", "„cboList“ hat keinen solchen Eintrag"},
      {R"({"click": "cmdOK", "answers": ["ok"]})",
       "die Antwort „ok“ gibt es in der Meldung nicht: Weg?"},
      {R"({"close": true}, {"read": "lblDauer"})", "der Dialog ist geschlossen"},
      {R"({"click": "cmdOK", "do": [{"read": "lblDauer"}]})", "der Dialog wurde nicht geöffnet"},
  };
  for (const auto& [action, reason] : cases) {
    Stage stage;
    stage.form.cboFree.SetEnabled(false);
    stage.form.on_ok = [&] { stage.screen.ShowMessage({"Weg?", 292}); };
    stage.Show(std::string("[{\"click\": \"chkFlag\"}, ") + action + R"(, {"click": "cmdOK"}])");
    ASSERT_TRUE(stage.screen.Failed()) << action;
    EXPECT_EQ(stage.screen.Failed()->reason, reason);
    EXPECT_FALSE(stage.form.Visible());
  }
}

TEST_F(ScriptScreenTest, DoesAndWritesNothingAfterItFailed) {
  ui::SampleForm inner;
  inner.SetCaption("Innen");
  form.on_ok = [&] {
    inner.Show(screen);
    EXPECT_EQ(screen.ShowMessage({"Weg?", 292}), ui::Answer::No);
    inner.Show(screen);
  };
  Show(R"([{"click": "cmdOK", "answers": ["yes"], "do": [{"click": "x"}, {"click": "chkFlag"}]},
          {"click": "chkFlag"}])");
  EXPECT_EQ(screen.Failed()->place, "do[0].do[0]");
  EXPECT_THAT(Events(), ElementsAre("show Muster", "show Innen"));
  EXPECT_THAT(form.Ran(), ElementsAre("cmdOK_Click"));
  EXPECT_THAT(inner.Ran(), IsEmpty());
  EXPECT_FALSE(form.Visible() || inner.Visible());
}

TEST_F(ScriptScreenTest, EndsTheUnitOfWorkWhereTheProgramWaitsAndRaisesWhatThatRaises) {
  form.on_ok = [&] { screen.ShowMessage({"Fertig"}); };
  Show(R"([{"click": "cmdOK"}, {"read": "chkFlag"}])");
  // Before the dialog, once it is up, before the message, after each action and
  // after closing.
  EXPECT_THAT(units, ElementsAre(0, 1, 1, 2, 3, 4));
  for (const std::size_t failing : {0u, 2u}) {  // before the dialog, after an action
    Stage stage;
    stage.failing_unit = failing;
    EXPECT_THROW(stage.Show(R"([{"click": "chkFlag"}, {"click": "cmdOK"}])"), platform::Error);
    EXPECT_EQ(stage.form.Ran().size(), failing ? 1u : 0u);
    EXPECT_EQ(stage.events.size(), failing ? 2u : 0u);
    EXPECT_FALSE(stage.form.Visible() || stage.screen.Failed());
  }
}

TEST(ControlEvent, HoldsWhatTheKindHas) {
  ui::SampleForm form;
  form.lvwRows.AddRow("9", {"Wartung", "zuviel"});
  form.cboList.SetListIndex(1);
  form.dtpClosed.SetNull();
  form.fraInner.SetEnabled(false);
  form.lblDauer.SetVisible(false);
  const std::pair<const ui::Control&, const char*> cases[] = {
      {form.cboList,
       R"(true,"visible":true,"text":"Monate",)"
       R"("items":[{"text":"Wochen","data":7},{"text":"Monate","data":30}],"index":1)"},
      {form.lvwRows, R"(true,"visible":true,"rows":[["9","Wartung"]],"row":1)"},
      {form.chkFlag, R"(true,"visible":true,"caption":"Fremdfakturierung","value":false)"},
      {form.dtpClosed, R"(true,"visible":true,"value":null)"},
      {form.lblDauer, R"(true,"visible":false,"caption":"Dauer")"},
      {form.fraInner, R"(false,"visible":true,"caption":"")"},
  };
  for (const auto& [control, content] : cases) {
    EXPECT_EQ(formats::OneLine(ControlEvent(control)),
              R"({"event":"control","dialog":"frmSample","name":")" + control.Name() +
                  R"(","enabled":)" + content + "}");
  }
}

}  // namespace
}  // namespace pactora::scripts
