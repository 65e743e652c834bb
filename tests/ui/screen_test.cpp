#include "ui/Screen.h"

#include <gmock/gmock.h>

#include "support/RecordingScreen.h"
#include "support/SampleForm.h"

namespace pactora::ui {
namespace {

using support::RecordingScreen;
using testing::ElementsAre;
using testing::HasSubstr;

const Message kQuestion{"Weg damit?", 292, "Frage"};
const Message kNote{"Fertig."};

// A screen that let things pass would blind every other test of dialogs.
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
