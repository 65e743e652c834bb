#include "ui/Person.h"

#include <gmock/gmock.h>

#include "support/SampleForm.h"

namespace pactora::ui {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct PersonTest : testing::Test {
  PersonTest() {
    form.txtMemo.SetFocus();
    form.BeginModal();
  }

  void Expect(Obstacle obstacle, const Outcome& outcome) {
    EXPECT_EQ(outcome.kind, Outcome::Kind::Impossible);
    EXPECT_EQ(Describe(outcome.obstacle), Describe(obstacle));
  }

  SampleForm form;
  Person person{form};
};

TEST_F(PersonTest, ClickingARowAlwaysCounts) {
  form.lvwRows.AddRow("9", {"Wartung"});
  form.lvwRows.AddRow("8", {"Server"});
  person.Choose(form.lvwRows, 0);
  person.Choose(form.lvwRows, 0);
  person.ChooseText(form.lvwRows, "Server");
  person.Choose(form.lvwRows, -1);
  EXPECT_THAT(form.Ran(),
              ElementsAre("lvwRows_ItemClick 1", "lvwRows_ItemClick 1", "lvwRows_ItemClick 2"));
  EXPECT_EQ(form.lvwRows.SelectedRow(), 0);
  Expect(Obstacle::NotInList, person.ChooseText(form.lvwRows, "9"));  // a hidden column
}

TEST_F(PersonTest, BackspaceTakesTheLastCharacter) {
  form.txtDauer.SetText("1ü");
  for (const char* left : {"1", "", ""}) {
    person.TypeKey(form.txtDauer, 8);
    EXPECT_EQ(form.txtDauer.Text(), left);
  }
  person.Type(form.txtMemo, "a\n");
  EXPECT_EQ(form.txtMemo.Text(), "a\r\n");
  person.TypeKey(form.txtMemo, 8);
  EXPECT_EQ(form.txtMemo.Text(), "a");
  person.Type(form.txtDauer, "1\n2");
  EXPECT_EQ(form.txtDauer.Text(), "12") << "the return key writes nothing on a single line";
}

TEST_F(PersonTest, ValidatesTheBoxThatIsLeft) {
  person.Enter(form.txtDauer);
  person.Click(form.cmdOK);
  EXPECT_THAT(form.Ran(), ElementsAre("txtDauer_Validate", "cmdOK_Click"));
  person.Click(form.cmdOK);
  EXPECT_THAT(form.Ran(), ElementsAre("cmdOK_Click")) << "the focus was not in the box";
  person.Leave(form.txtDauer);
  EXPECT_EQ(form.Focus(), nullptr);
  person.Click(form.chkFlag);
  EXPECT_THAT(form.Ran(), ElementsAre("txtDauer_Validate", "chkFlag_Click"));
  // What the validation shuts off is out of reach.
  form.on_validate = [this](bool&) { form.cmdOK.SetEnabled(false); };
  person.Enter(form.txtDauer);
  Expect(Obstacle::Disabled, person.Click(form.cmdOK));
}

TEST_F(PersonTest, IsNeverTrappedInABox) {
  form.on_validate = [](bool& cancel) { cancel = true; };
  person.Enter(form.txtDauer);
  EXPECT_TRUE(person.Click(form.cmdCancel).Done());
  EXPECT_THAT(form.Ran(), ElementsAre("cmdCancel_Click"));
  for (const bool can_cancel : {true, false}) {
    form.BeginModal();
    person.Enter(form.txtDauer);
    form.cmdCancel.SetEnabled(can_cancel);
    EXPECT_TRUE(person.Close().Done());
    EXPECT_EQ(form.Ran().size(), can_cancel ? 1U : 0U);
    EXPECT_FALSE(form.Visible());
  }
}

TEST_F(PersonTest, CannotReachWhatIsShutOff) {
  struct Case {
    Obstacle obstacle;
    std::function<void()> shut;
    Control& control;
  };
  const Case cases[] = {
      {Obstacle::FrameBehind, [] {}, form.txtNote},
      {Obstacle::FrameBehind, [&] { form.fraPositionenK.BringToFront(); }, form.cmdAdd},
      {Obstacle::Disabled, [&] { form.chkFlag.SetEnabled(false); }, form.chkFlag},
      {Obstacle::Hidden, [&] { form.optElsewhere.SetVisible(false); }, form.optElsewhere},
      {Obstacle::FrameDisabled, [&] { form.fraTyp.SetEnabled(false); }, form.optA},
      {Obstacle::FrameDisabled, [] {}, form.txtDauer},  // two frames up
      {Obstacle::FrameHidden, [&] { form.fraTyp.SetVisible(false); }, form.optB},
      {Obstacle::WrongKind, [] {}, form.lblDauer},
      {Obstacle::WrongKind, [] {}, form.fraPositionen},
      {Obstacle::DialogClosed, [&] { form.Hide(); }, form.cmdOK},
  };
  for (const Case& c : cases) {
    c.shut();
    Expect(c.obstacle, person.Enter(c.control));
    EXPECT_EQ(form.Focus(), &form.txtMemo);
  }
  EXPECT_THAT(form.Ran(), IsEmpty());
}

TEST_F(PersonTest, CannotDoWhatTheControlDoesNotOffer) {
  form.txtMemo.SetReadOnly(true);
  Expect(Obstacle::ReadOnly, person.Type(form.txtMemo, "a"));
  Expect(Obstacle::ReadOnly, person.Paste(form.txtMemo, "a"));
  Expect(Obstacle::WrongKind, person.Type(form.cboList, "M"));
  Expect(Obstacle::WrongKind, person.Paste(form.chkFlag, "1"));
  Expect(Obstacle::WrongKind, person.Click(form.txtMemo));
  Expect(Obstacle::WrongKind, person.SetCheck(form.optA, true));
  Expect(Obstacle::WrongKind, person.Choose(form.txtMemo, 0));
  Expect(Obstacle::WrongKind, person.PickDate(form.txtMemo, std::nullopt));
  Expect(Obstacle::NotInList, person.Choose(form.cboList, 2));
  Expect(Obstacle::NotInList, person.ChooseText(form.cboList, "Tage"));
  Expect(Obstacle::EntryNeeded, person.Choose(form.cboList, -1));
  EXPECT_TRUE(person.Choose(form.cboFree, -1).Done());
  Expect(Obstacle::DateNeeded, person.PickDate(form.dtpStart, std::nullopt));
  EXPECT_THAT(form.Ran(), IsEmpty());
  EXPECT_TRUE(person.Click(form.cmdAdd).Done()) << "its frame lies in front";
  EXPECT_TRUE(person.Enter(form.txtMemo).Done()) << "a read-only box can have the focus";
}

TEST_F(PersonTest, PressesAKeyThatTheHostTypesItself) {
  std::int32_t key = '.';
  Expect(Obstacle::WrongKind, person.PressKey(form.chkFlag, key));
  form.on_key = [](std::int32_t& pressed) { pressed = ','; };
  EXPECT_TRUE(person.PressKey(form.txtDauer, key).Done());
  EXPECT_EQ(key, ',');
  EXPECT_EQ(form.txtDauer.Text(), "");
  form.on_key = [this](std::int32_t&) { form.cboList.SetFocus(); };
  EXPECT_TRUE(person.PressKey(form.txtDauer, key).Done());
  EXPECT_EQ(key, 0) << "the handler went elsewhere";
}

}  // namespace
}  // namespace pactora::ui
