#include "ui/Screen.h"

#include <gmock/gmock.h>

#include "support/RecordingScreen.h"
#include "support/SampleForm.h"

namespace pactora::ui {
namespace {

using support::RecordingScreen;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const Message kQuestion{"Weg damit?", 292, "Frage"};
const Message kNote{"Fertig."};

TEST(Screen, KnowsTheButtonsOfABox) {
  struct Case {
    std::int32_t flags;
    Answer answer;
  };
  for (const auto& [flags, answer] :
       {Case{0, Answer::Ok}, Case{48, Answer::Ok}, Case{64, Answer::Ok}, Case{292, Answer::No},
        Case{4 + 32, Answer::Yes}, Case{4 + 256 + 48, Answer::No}}) {
    EXPECT_EQ(DefaultAnswer(flags), answer) << flags;
    EXPECT_EQ(Offers(flags, Answer::Ok), answer == Answer::Ok) << flags;
    EXPECT_EQ(Offers(flags, Answer::Yes), answer != Answer::Ok) << flags;
  }
}

// Every other test of dialogs rests on these two: a screen that let things pass
// would blind them.
TEST(RecordingScreen, FollowsItsScript) {
  RecordingScreen screen;
  SampleForm outer;
  SampleForm inner;
  outer.on_ok = [&] {
    EXPECT_EQ(screen.ShowMessage(kQuestion), Answer::Yes);
    inner.Show(screen);
    outer.Hide();
  };
  screen.ExpectDialog("frmSample", [&](Form&, Person& person) {
    screen.ExpectMessage(kQuestion, Answer::Yes);
    screen.ExpectDialog("frmSample", nullptr);
    EXPECT_TRUE(person.Click(outer.cmdOK).Done());
  });
  outer.Show(screen);
  EXPECT_FALSE(inner.Visible()) << "closed by its frame";
  EXPECT_EQ(inner.Ran(), std::vector<std::string>{"cmdCancel_Click"});
  EXPECT_THAT(screen.Problems(), IsEmpty());
}

TEST(RecordingScreen, NamesWhatComesDifferently) {
  RecordingScreen screen;
  SampleForm form;
  screen.ExpectDialog("frmSample", [&](Form&, Person&) { screen.ExpectMessage(kQuestion); });
  form.Show(screen);
  screen.ExpectMessage(kQuestion, Answer::Ok);
  EXPECT_EQ(screen.ShowMessage(kQuestion), Answer::No);
  screen.ExpectMessage(kNote);
  screen.ShowMessage({kNote.text, 64});
  form.Show(screen);
  EXPECT_FALSE(form.Visible());
  EXPECT_THAT(screen.Problems(), ElementsAre(HasSubstr("did not come: message \"Weg damit?\""),
                                             HasSubstr("no such button: message \"Weg damit?\""),
                                             HasSubstr("unexpected message \"Fertig.\" (64"),
                                             HasSubstr("unexpected dialog frmSample, instead of"),
                                             HasSubstr("did not come: message \"Fertig.\"")));
}

}  // namespace
}  // namespace pactora::ui
