#include "ui/RecordingScreen.h"

#include <gmock/gmock.h>

#include "platform/Error.h"
#include "support/SampleForm.h"

namespace pactora::ui {
namespace {

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

TEST(RecordingScreen, FollowsItsScript) {
  RecordingScreen screen;
  SampleForm outer;
  SampleForm inner;
  outer.on_ok = [&] {
    EXPECT_EQ(screen.ShowMessage(kQuestion), Answer::Yes);
    inner.Show(screen);
    screen.ShowMessage(kNote);
    outer.Hide();
  };
  screen.ExpectDialog("frmSample", [&](Form&, Person& person) {
    screen.ExpectMessage(kQuestion, Answer::Yes);
    screen.ExpectDialog("frmSample",
                        [](Form&, Person& in_inner) { EXPECT_TRUE(in_inner.Close().Done()); });
    screen.ExpectMessage(kNote);
    EXPECT_TRUE(person.Click(outer.cmdOK).Done());
  });
  outer.Show(screen);
  EXPECT_THAT(screen.Problems(), IsEmpty());
  EXPECT_EQ(screen.Messages().size(), 2U);
}

TEST(RecordingScreen, NamesWhatComesDifferently) {
  RecordingScreen screen;
  SampleForm form;
  screen.ExpectMessage(kNote);
  EXPECT_EQ(screen.ShowMessage(kQuestion), Answer::No);
  form.Show(screen);
  EXPECT_FALSE(form.Visible());
  EXPECT_THAT(screen.Problems(), ElementsAre(HasSubstr("unexpected message \"Weg damit?\""),
                                             HasSubstr("unexpected dialog frmSample"),
                                             HasSubstr("did not come: message \"Fertig.\"")));
}

TEST(RecordingScreen, NamesATitleOrStyleThatDiffers) {
  for (const Message& shown : {Message{kNote.text, 64}, Message{kNote.text, 0, "Titel"}}) {
    RecordingScreen screen;
    screen.ExpectMessage(kNote);
    screen.ShowMessage(shown);
    EXPECT_EQ(screen.Problems().size(), 2U) << shown.style << shown.title;
  }
}

TEST(RecordingScreen, WantsADialogsExpectationsUsedUpInIt) {
  RecordingScreen screen;
  SampleForm form;
  screen.ExpectDialog("frmSample", [&](Form&, Person&) { screen.ExpectMessage(kNote); });
  form.Show(screen);
  EXPECT_FALSE(form.Visible()) << "closed by its frame";
  EXPECT_EQ(form.Ran(), std::vector<std::string>{"cmdCancel_Click"});
  screen.ShowMessage(kNote);
  EXPECT_EQ(screen.Problems().size(), 2U);
}

TEST(RecordingScreen, HidesADialogThatRaised) {
  RecordingScreen screen;
  SampleForm form;
  form.on_ok = [] { platform::Raise(platform::RuntimeError::Overflow); };
  screen.ExpectDialog("frmSample", [&](Form&, Person& person) { person.Click(form.cmdOK); });
  EXPECT_THROW(form.Show(screen), platform::Error);
  EXPECT_FALSE(form.Visible());
  EXPECT_THAT(screen.Problems(), IsEmpty());
}

}  // namespace
}  // namespace pactora::ui
