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

constexpr char kShow[] = R"({"event":"show","dialog":"frmSample","caption":"Muster"})";
constexpr char kHide[] = R"({"event":"hide","dialog":"frmSample","caption":"Muster"})";
constexpr char kFocusDauer[] = R"({"event":"focus","dialog":"frmSample","name":"txtDauer"})";

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
  static std::string MessageEvent(const std::string& text, int style, const std::string& answer) {
    return R"({"event":"message","text":")" + text + R"(","style":)" + std::to_string(style) +
           R"(,"title":"Pactora","answer":")" + answer + R"("})";
  }

  std::vector<std::string> events;
  std::vector<std::size_t> units;  // how many events had come when a unit was ended
  std::function<void()> on_end_unit;
  ScriptScreen screen{
      [this](const formats::Json& event) { events.push_back(formats::OneLine(event)); },
      [this] {
        units.push_back(events.size());
        if (on_end_unit) on_end_unit();
      }};
  ui::SampleForm form;
};

struct ScriptScreenTest : testing::Test, Stage {};

TEST_F(ScriptScreenTest, CarriesOutEachActionAndClosesTheDialog) {
  form.lvwRows.AddRow("9", {"Wartung"});
  form.lvwRows.AddRow("8", {"Server"});
  form.txtDauer.SetText("12");
  form.Ran();
  Show(R"([
    {"type": "txtDauer", "keys": "3{BS}4"}, {"leave": "txtDauer"},
    {"click": "optB"}, {"click": "chkFlag"}, {"set": "chkFlag", "value": false},
    {"set": "cboFree", "value": "kg"}, {"set": "dtpStart", "value": "2024-03-15"},
    {"set": "dtpClosed", "value": null}, {"select": "cboList", "index": 1},
    {"select": "cboList", "text": "Monate"}, {"select": "lstRows", "index": 0},
    {"select": "lstRows", "none": true}, {"select": "lvwRows", "row": 1},
    {"select": "lvwRows", "text": "Server"}, {"click": "cmdOK"}])");
  EXPECT_EQ(Failure(), "");
  EXPECT_THAT(events, ElementsAre(kShow, kHide));
  EXPECT_EQ(form.txtDauer.Text(), "124");
  EXPECT_EQ(form.dtpStart.Value(), platform::FromCivil(2024, 3, 15));
  EXPECT_THAT(form.Ran(),
              ElementsAre("txtDauer_KeyPress 51", "txtDauer_Change", "txtDauer_KeyPress 8",
                          "txtDauer_Change", "txtDauer_KeyPress 52", "txtDauer_Change",
                          "txtDauer_Validate", "optB_Click", "chkFlag_Click", "chkFlag_Click",
                          "cboFree_Change", "dtpStart_Change", "dtpClosed_Change", "cboList_Click",
                          "lstRows_Click", "lstRows_Click", "lvwRows_ItemClick 1",
                          "lvwRows_ItemClick 2", "cmdOK_Click", "cmdCancel_Click"));
}

TEST_F(ScriptScreenTest, ClearsTheBoxBeforeTypingUnlessTheFocusGoesElsewhere) {
  form.txtDauer.SetText("12");
  Show(R"([{"type": "txtDauer", "clear": true, "keys": "7"}])");
  EXPECT_EQ(form.txtDauer.Text(), "7");
  form.txtDauer.Change = [this] { form.cboList.SetFocus(); };
  events.clear();
  Show(R"([{"type": "txtDauer", "clear": true, "keys": "8"}])");
  EXPECT_EQ(form.txtDauer.Text(), "");
  EXPECT_THAT(
      events,
      ElementsAre(kShow, R"({"event":"focus","dialog":"frmSample","name":"cboList"})", kHide));
}

TEST_F(ScriptScreenTest, GoesOnWhenABoxKeepsTheFocus) {
  form.on_validate = [this](bool& cancel) { cancel = form.txtDauer.Text().empty(); };
  Show(R"([{"leave": "txtDauer"}, {"click": "cmdOK"}, {"type": "txtDauer", "keys": "1"},
          {"click": "cmdOK"}])");
  EXPECT_EQ(Failure(), "");
  EXPECT_THAT(events, ElementsAre(kShow, kFocusDauer, kFocusDauer, kHide));
  EXPECT_EQ(std::ranges::count(form.log, "cmdOK_Click"), 1);
}

TEST_F(ScriptScreenTest, AnswersTheMessagesOfAnAction) {
  std::vector<ui::Answer> answers;
  form.on_ok = [&] {
    for (const std::int32_t style : {292, 36, 292, 0}) {
      answers.push_back(screen.ShowMessage({"Weg?", style}));
    }
  };
  Show(R"([{"click": "cmdOK", "answers": ["yes", "no"]}, {"click": "cmdOK"}])");
  using enum ui::Answer;
  EXPECT_THAT(answers, ElementsAre(Yes, No, No, Ok, No, Yes, No, Ok));
  EXPECT_THAT(events,
              ElementsAre(kShow, MessageEvent("Weg?", 292, "yes"), MessageEvent("Weg?", 36, "no"),
                          MessageEvent("Weg?", 292, "no"), MessageEvent("Weg?", 0, "ok"),
                          MessageEvent("Weg?", 292, "no"), MessageEvent("Weg?", 36, "yes"),
                          MessageEvent("Weg?", 292, "no"), MessageEvent("Weg?", 0, "ok"), kHide));
}

TEST_F(ScriptScreenTest, GivesTheDialogOfAnActionItsOwnActionsAndAnswers) {
  ui::SampleForm inner;
  inner.SetCaption("Innen");
  inner.txtMemo.SetFocus();
  inner.on_ok = [&] { screen.ShowMessage({"innen", 292}); };
  form.on_ok = [&] {
    inner.Show(screen);
    screen.ShowMessage({"außen", 292});
    inner.Show(screen);
  };
  Show(R"([{"click": "cmdOK", "answers": ["yes"],
           "do": [{"click": "cmdOK"}, {"click": "cmdCancel"}]}])");
  EXPECT_EQ(Failure(), "");
  const std::string inner_show = R"({"event":"show","dialog":"frmSample","caption":"Innen"})";
  const std::string inner_hide = R"({"event":"hide","dialog":"frmSample","caption":"Innen"})";
  EXPECT_THAT(events,
              ElementsAre(kShow, inner_show, MessageEvent("innen", 292, "no"), inner_hide,
                          MessageEvent("außen", 292, "yes"), inner_show, inner_hide, kHide));
  EXPECT_THAT(inner.Ran(), ElementsAre("cmdOK_Click", "cmdCancel_Click", "cmdCancel_Click"))
      << "the second time there is nothing to do but to close it";
}

TEST_F(ScriptScreenTest, StopsAtWhatAPersonCouldNotDo) {
  struct Case {
    const char* action;
    const char* reason;
  };
  const Case cases[] = {
      {R"({"click": "cmdok"})", "der Dialog frmSample hat kein Steuerelement „cmdok“"},
      {R"({"read": ["txtDauer", "txt"]})", "der Dialog frmSample hat kein Steuerelement „txt“"},
      {R"({"click": "optA"})", "„optA“ steht in einem gesperrten Rahmen"},
      {R"({"leave": "cboFree"})", "„cboFree“ ist gesperrt"},
      {R"({"type": "txtNote", "keys": "1"})", "„txtNote“ steht in einem verdeckten Rahmen"},
      {R"({"click": "lblDauer"})", "„lblDauer“ ist kein Steuerelement für diese Aktion"},
      {R"({"set": "txtMemo", "value": true})", "„txtMemo“ nimmt keinen solchen Wert"},
      {R"({"set": "chkFlag", "value": "ja"})", "„chkFlag“ nimmt keinen solchen Wert"},
      {R"({"set": "dtpStart", "value": "15.3.2024"})",
       "„dtpStart“ braucht ein Datum wie 2024-03-15"},
      {R"({"set": "dtpStart", "value": null})", "„dtpStart“ braucht ein Datum wie 2024-03-15"},
      {R"({"select": "cboList", "text": "Tage"})", "„cboList“ hat keinen solchen Eintrag"},
      {R"({"select": "lvwRows", "row": 1})", "„lvwRows“ hat keinen solchen Eintrag"},
      {R"({"click": "cmdOK", "answers": ["ok"]})",
       "die Antwort „ok“ gibt es in der Meldung nicht: Weg?"},
      {R"({"click": "cmdCancel"}, {"read": "lblDauer"})", "der Dialog ist geschlossen"},
      {R"({"click": "cmdOK", "do": [{"read": "lblDauer"}]})", "der Dialog wurde nicht geöffnet"},
  };
  for (const auto& [action, reason] : cases) {
    Stage stage;
    stage.form.fraTyp.SetEnabled(false);
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
  form.on_ok = [&] {
    inner.Show(screen);
    EXPECT_EQ(screen.ShowMessage({"Weg?", 292}), ui::Answer::No);
    inner.Show(screen);
  };
  Show(R"([{"click": "cmdOK", "answers": ["yes"], "do": [{"click": "x"}, {"click": "chkFlag"}]},
          {"click": "chkFlag"}])");
  EXPECT_EQ(screen.Failed()->place, "do[0].do[0]");
  EXPECT_EQ(events.size(), 2U) << "the two shows";
  EXPECT_THAT(form.Ran(), ElementsAre("cmdOK_Click"));
  EXPECT_THAT(inner.Ran(), IsEmpty());
  EXPECT_FALSE(form.Visible());
  EXPECT_FALSE(inner.Visible());
}

TEST_F(ScriptScreenTest, EndsTheUnitOfWorkWhereTheProgramWaits) {
  form.on_ok = [&] { screen.ShowMessage({"Fertig"}); };
  Show(R"([{"click": "cmdOK"}, {"read": "chkFlag"}])");
  // Before the dialog, once it is up, before the message, after each action and
  // after closing.
  EXPECT_THAT(units, ElementsAre(0, 1, 1, 2, 3, 4));
}

TEST_F(ScriptScreenTest, RaisesWhatEndingTheUnitRaises) {
  struct Case {
    const char* name;
    std::size_t failing_unit;
    bool shown;
  };
  const Case cases[] = {{"before the dialog", 0, false}, {"after an action", 2, true}};
  for (const auto& [name, failing_unit, shown] : cases) {
    Stage stage;
    stage.on_end_unit = [&] {
      if (stage.units.size() == failing_unit + 1) throw platform::Error(1, "voll");
    };
    EXPECT_THROW(stage.Show(R"([{"click": "chkFlag"}, {"click": "cmdOK"}])"), platform::Error)
        << name;
    EXPECT_EQ(stage.form.Ran().size(), shown ? 1U : 0U) << name;
    EXPECT_EQ(stage.events.size(), shown ? 2U : 0U) << name;
    EXPECT_FALSE(stage.form.Visible()) << name;
    EXPECT_FALSE(stage.screen.Failed()) << name;
  }
}

TEST_F(ScriptScreenTest, ClosesADialogThatHasNoActions) {
  form.Show(screen);  // outside of any call of the script
  EXPECT_THAT(events, ElementsAre(kShow, kHide));
}

TEST(ControlEvent, HoldsWhatTheKindHas) {
  ui::SampleForm form;
  form.lvwRows.AddRow("9", {"Wartung", "zuviel"});
  form.cboList.SetListIndex(1);
  form.dtpClosed.SetNull();
  form.dtpStart.SetValue(platform::FromCivil(2024, 3, 15));
  form.fraInner.SetEnabled(false);
  form.lblDauer.SetVisible(false);
  form.optA.SetEnabled(false);
  form.chkFlag.SetChecked(true);
  struct Case {
    const ui::Control& control;
    const char* content;
  };
  const Case cases[] = {
      {form.txtDauer, R"("enabled":true,"visible":true,"text":"")"},
      {form.cboList,
       R"("enabled":true,"visible":true,"text":"Monate",)"
       R"("items":[{"text":"Wochen","data":7},{"text":"Monate","data":30}],"index":1)"},
      {form.lstRows, R"("enabled":true,"visible":true,)"
                     R"("items":[{"text":"eins","data":0},{"text":"zwei","data":0}],"index":-1)"},
      {form.lvwRows, R"("enabled":true,"visible":true,"rows":[["9","Wartung"]],"row":1)"},
      {form.optA, R"("enabled":false,"visible":true,"caption":"A","value":false)"},
      {form.chkFlag, R"("enabled":true,"visible":true,"caption":"Fremdfakturierung","value":true)"},
      {form.dtpStart, R"("enabled":true,"visible":true,"value":"2024-03-15")"},
      {form.dtpClosed, R"("enabled":true,"visible":true,"value":null)"},
      {form.lblDauer, R"("enabled":true,"visible":false,"caption":"Dauer")"},
      {form.fraInner, R"("enabled":false,"visible":true,"caption":"")"},
      {form.cmdOK, R"("enabled":true,"visible":true,"caption":"OK")"},
  };
  for (const auto& [control, content] : cases) {
    EXPECT_EQ(formats::OneLine(ControlEvent(control)),
              R"({"event":"control","dialog":"frmSample","name":")" + control.Name() + "\"," +
                  content + "}");
  }
}

}  // namespace
}  // namespace pactora::scripts
