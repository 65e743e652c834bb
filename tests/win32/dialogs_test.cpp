// Windows of dialogs as a whole: keys, the focus, leaving, messages, and a contract that is
// saved.
#include <gmock/gmock.h>
#include <windows.h>

#include <commctrl.h>

#include "newcontract/dialog_world.h"
#include "shell/entry/CVV.h"
#include "support/SampleForm.h"
#include "win32/Screen.h"
#include "win32/text.h"
#include "win32/window.h"
#include "win32_dialogs/WindowSteps.h"

namespace pactora::win32 {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Dialogs : public testing::Test {
 protected:
  void Show() {
    steps.Run([this] { form.Show(screen); });
  }

  ui::SampleForm form;
  Screen screen;
  WindowSteps steps;
};

TEST_F(Dialogs, ABoxThatRefusesIsNeverLeftButByCancelling) {
  form.on_validate = [](bool& cancel) { cancel = true; };
  const auto stays = [&](HWND dialog) {
    EXPECT_EQ(GetFocus(), Find(dialog, "txtDauer"));
    EXPECT_THAT(form.Ran(), ElementsAre("txtDauer_Validate"));
  };
  steps.Add([](HWND) { PressKey(VK_TAB); });
  steps.Add([&](HWND dialog) {
    stays(dialog);
    Click(Find(dialog, "chkFlag"));
    stays(dialog);
    SetFocus(Find(dialog, "txtMemo"));  // as assistive technology does
  });
  steps.Add([&](HWND dialog) {
    stays(dialog);
    PressAccessKey(dialog, L'O');
  });
  steps.Add([&](HWND dialog) {
    stays(dialog);
    Click(Find(dialog, "cmdCancel"));
  });
  Show();
  EXPECT_THAT(form.Ran(), ElementsAre("cmdCancel_Click"));
}

TEST_F(Dialogs, KeysGoThroughTheDialogAndEndIt) {
  steps.Add([](HWND) { PressKey(VK_TAB); });
  steps.Add([&](HWND dialog) {
    EXPECT_EQ(GetFocus(), Find(dialog, "txtMemo"));
    PressKey(VK_TAB);
  });
  steps.Add([&](HWND dialog) {
    EXPECT_EQ(GetFocus(), Find(dialog, "cboList"));
    PressAccessKey(dialog, L'f');  // of the tick
  });
  steps.Add([&](HWND) {
    EXPECT_TRUE(form.chkFlag.Checked());
    PressKey(VK_RETURN);
  });
  steps.Add([&](HWND) {
    EXPECT_THAT(form.Ran(), ElementsAre("txtDauer_Validate", "chkFlag_Click", "cmdOK_Click"));
    PressKey(VK_ESCAPE);
  });
  steps.Add([&](HWND box) {
    EXPECT_TRUE(form.Visible());
    PressKey(VK_RETURN);
    EXPECT_NE(FindButton(box, L"Weiter bearbeiten"), nullptr);
  });
  steps.Add([&](HWND dialog) { PostMessageW(dialog, WM_CLOSE, 0, 0); });
  steps.Add([](HWND box) { Click(FindButton(box, L"Verwerfen")); });
  Show();
  EXPECT_THAT(form.Ran(), ElementsAre("cmdCancel_Click"));
}

TEST_F(Dialogs, TheCalendarGivesItsDayAndWhatIsNoDateIsNotLeft) {
  form.dtpStart.SetValue(support::Day(31, 1, 2024));
  form.Ran();
  steps.Add([&](HWND dialog) {
    form.dtpStart.SetFocus();
    const HWND edit = PartOf(Find(dialog, "dtpStart"), WC_EDITW);
    SendMessageW(edit, EM_SETSEL, 0, -1);
    Type(edit, L"morgen");
    PressKey(VK_TAB);
  });
  steps.Add([](HWND) { PressKey(VK_RETURN); });  // the message
  steps.Add([&](HWND dialog) {
    EXPECT_EQ(GetFocus(), PartOf(Find(dialog, "dtpStart"), WC_EDITW));
    Type(GetFocus(), L"1.2.");
    PressKey(VK_F4);
  });
  steps.Add([](HWND calendar) {
    const SYSTEMTIME day{2024, 2, 0, 5, 0, 0, 0, 0};
    SendMessageW(GetFocus(), MCM_SETCURSEL, 0, reinterpret_cast<LPARAM>(&day));
    EXPECT_EQ(GetFocus(), PartOf(calendar, MONTHCAL_CLASSW));
    PressKey(VK_RETURN);
  });
  steps.Add([&](HWND) { form.Hide(); });
  Show();
  EXPECT_EQ(form.dtpStart.Value(), support::Day(5, 2, 2024));
  EXPECT_THAT(form.Ran(), ElementsAre("dtpStart_Change", "dtpStart_Change"));
}

TEST_F(Dialogs, TheOwnerCannotBeUsedMeanwhileAndTheThreadsEndIsPassedOn) {
  const OwnWindow host([](const WindowMessage&) { return Answered(); },
                       WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, nullptr);
  SetActiveWindow(host.Handle());
  steps.Add([&](HWND dialog) {
    EXPECT_FALSE(IsWindowEnabled(host.Handle()));
    EXPECT_EQ(GetWindow(dialog, GW_OWNER), host.Handle());
    PostQuitMessage(7);
  });
  Show();
  EXPECT_TRUE(IsWindowEnabled(host.Handle()));
  EXPECT_FALSE(form.Visible());
  MSG message;
  ASSERT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
  EXPECT_EQ(message.wParam, 7u);
}

TEST_F(Dialogs, AMessageHasTextTitleAndButtonsAsItsStyleSays) {
  steps.Add([](HWND box) {
    EXPECT_EQ(Narrow(TextOf(box)), "Titel");
    EXPECT_NE(FindButton(box, L"Löschen?"), nullptr);
    PressKey(VK_RETURN);
  });
  ui::Answer answer = ui::Answer::Ok;
  steps.Run([&] { answer = screen.ShowMessage({"Löschen?", 292, "Titel"}); });
  EXPECT_EQ(answer, ui::Answer::No);
}

TEST(Contract, IsSavedFromItsDialog) {
  support::ContractWorld world;
  world.Add(schema::table::vv_Vertragsdefinitionen, newcontract::Quarterly());
  world.host.EndUnit();
  Screen screen;
  shell::Module module({screen, world.clock, platform::Locale{}, embedded::CreateErrorTexts,
                        [&] { return world.host.App(); }});
  shell::CVV entry(module);
  world.Goto(schema::table::Adressen, world.address);
  bool saved = false;
  bool show_details = false;
  std::int32_t status_rows = 0;
  WindowSteps steps;
  steps.Add([](HWND dialog) {
    Click(Find(dialog, "ChkAutoNumber"));
    const HWND number = Find(dialog, "txtVertragnummer");
    SendMessageW(number, WM_LBUTTONDOWN, 0, 0);
    SendMessageW(number, WM_LBUTTONUP, 0, 0);
    Type(number, L"V-7");
    const HWND begin = PartOf(Find(dialog, "DTPVertragBeginn"), WC_EDITW);
    SendMessageW(begin, EM_SETSEL, 0, -1);
    Type(begin, L"1.4.24");
    PressKey(VK_RETURN);
  });
  steps.Run([&] { entry.NewContract(world.host.App(), saved, status_rows, show_details); });
  world.host.EndUnit();
  EXPECT_TRUE(saved);
  const support::Row contract = world.TheOnly(schema::table::vv_Vertraege);
  EXPECT_EQ(support::Shown(contract["Vertragnummer"]), "V-7");
  EXPECT_EQ(support::Shown(contract["VertragBeginn"]), "01.04.2024");
}

}  // namespace
}  // namespace pactora::win32
