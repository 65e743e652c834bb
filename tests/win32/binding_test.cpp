// Each kind of control and its window, in both directions.
#include <gmock/gmock.h>
#include <windows.h>

#include <commctrl.h>

#include "support/SampleForm.h"
#include "support/contract_world.h"
#include "win32/Screen.h"
#include "win32/text.h"
#include "win32_dialogs/WindowSteps.h"

namespace pactora::win32 {
namespace {

using support::Day;
using testing::ElementsAreArray;

constexpr WPARAM kPause = 700;

bool Ticked(HWND button) { return SendMessageW(button, BM_GETCHECK, 0, 0) == BST_CHECKED; }
void Press(HWND window) {
  SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(2, 2));
  SendMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(2, 2));
}

struct Taken {
  const char* name;
  std::function<void(HWND dialog)> acts;
  std::vector<std::string> ran;
  std::function<std::string(const ui::SampleForm& form)> value;
  const char* expected;
};

TEST(Binding, WhatAPersonDoesReachesTheControl) {
  const auto dur = [](const ui::SampleForm& form) { return form.txtDauer.Text(); };
  const auto date = [](const ui::DTPicker& picker) {
    return picker.IsNull() ? "none" : platform::FormatDate(picker.ShownDate(), "dd.MM.yyyy");
  };
  const Taken cases[] = {
      {"a number waits for the pause or a sign, through the filter of keys",
       [](HWND dialog) {
         const HWND box = Find(dialog, "txtDauer");
         Type(box, L"1x2");
         SendMessageW(box, WM_TIMER, kPause, 0);
         SendMessageW(box, EM_SETSEL, 0, 0);
         Type(box, L"7\b");
         Type(box, L"-");
       },
       {"txtDauer_KeyPress 49", "txtDauer_Change", "txtDauer_KeyPress 120", "txtDauer_KeyPress 50",
        "txtDauer_Change", "txtDauer_KeyPress 55", "txtDauer_KeyPress 8", "txtDauer_KeyPress 45"},
       dur,
       "12"},
      {"digits are handed on before a button is pressed",
       [](HWND dialog) {
         Type(Find(dialog, "txtDauer"), L"5");
         Click(Find(dialog, "cmdOK"));
       },
       {"txtDauer_KeyPress 53", "txtDauer_Change", "txtDauer_Validate", "cmdOK_Click"},
       dur,
       "5"},
      {"several lines",
       [](HWND dialog) {
         Press(Find(dialog, "txtMemo"));
         Type(Find(dialog, "txtMemo"), L"ä\rb");
       },
       {"txtDauer_Validate"},
       [](const ui::SampleForm& form) { return form.txtMemo.Text(); },
       "ä\r\nb"},
      {"an entry of a list, once",
       [](HWND dialog) {
         ChooseEntry(Find(dialog, "cboList"), 1);
         ChooseEntry(Find(dialog, "cboList"), 1);
       },
       {"txtDauer_Validate", "cboList_Click"},
       [](const ui::SampleForm& form) { return form.cboList.Text(); },
       "Monate"},
      {"free text",
       [](HWND dialog) {
         const HWND edit = GetWindow(Find(dialog, "cboFree"), GW_CHILD);
         Press(edit);
         Type(edit, L"kg");
       },
       {"txtDauer_Validate", "cboFree_Change", "cboFree_Change"},
       [](const ui::SampleForm& form) { return form.cboFree.Text(); },
       "kg"},
      {"a row of a list box",
       [](HWND dialog) { ClickRow(Find(dialog, "lstRows"), 1); },
       {"txtDauer_Validate", "lstRows_Click"},
       [](const ui::SampleForm& form) { return std::to_string(form.lstRows.ListIndex()); },
       "1"},
      {"every click on a row of a list view",
       [](HWND dialog) {
         ClickRow(Find(dialog, "lvwRows"), 1);
         ClickRow(Find(dialog, "lvwRows"), 1);
         PressKey(VK_UP);
       },
       {"txtDauer_Validate", "lvwRows_ItemClick 2", "lvwRows_ItemClick 2", "lvwRows_ItemClick 1"},
       [](const ui::SampleForm& form) { return std::to_string(form.lvwRows.SelectedRow()); },
       "1"},
      {"options, by the arrow keys as well",
       [](HWND dialog) {
         Click(Find(dialog, "optB"));
         Click(Find(dialog, "optB"));
         PressKey(VK_DOWN);
       },
       {"txtDauer_Validate", "optB_Click", "optA_Click"},
       [](const ui::SampleForm& form) { return std::string(form.optA.Value() ? "A" : ""); },
       "A"},
      {"a tick",
       [](HWND dialog) { Click(Find(dialog, "chkFlag")); },
       {"txtDauer_Validate", "chkFlag_Click"},
       [](const ui::SampleForm& form) { return std::to_string(form.chkFlag.Value()); },
       "1"},
      {"a typed date, when it is left",
       [](HWND dialog) {
         const HWND edit = PartOf(Find(dialog, "dtpStart"), WC_EDITW);
         Press(edit);
         SendMessageW(edit, EM_SETSEL, 0, -1);
         Type(edit, L"1.2.24");
         PressKey(VK_TAB);
       },
       {"txtDauer_Validate", "dtpStart_Change"},
       [date](const ui::SampleForm& form) { return date(form.dtpStart); },
       "01.02.2024"},
      {"a month on and no date",
       [](HWND dialog) {
         const HWND picker = Find(dialog, "dtpClosed");
         const HWND edit = PartOf(picker, WC_EDITW);
         Press(edit);
         SendMessageW(edit, WM_KEYDOWN, VK_PRIOR, 1);
         Click(PartOf(picker, WC_BUTTONW));
       },
       {"txtDauer_Validate", "dtpClosed_Change", "dtpClosed_Change"},
       [date](const ui::SampleForm& form) {
         return date(form.dtpClosed) + platform::FormatDate(form.dtpClosed.ShownDate(), " dd.MM.");
       },
       "none 29.02."},
  };
  for (const Taken& one : cases) {
    SCOPED_TRACE(one.name);
    ui::SampleForm form;
    Screen screen;
    WindowSteps steps;
    form.on_key = [](std::int32_t& key) { key = key == 'x' ? 0 : key; };
    form.dtpClosed.SetValue(Day(31, 1, 2024));
    form.lvwRows.AddRow("1", {"eins"});
    form.lvwRows.AddRow("2", {"zwei"});
    form.Ran();
    steps.Add(one.acts);
    steps.Add([&](HWND) { form.Hide(); });
    steps.Run([&] { form.Show(screen); });
    EXPECT_THAT(form.Ran(), ElementsAreArray(one.ran));
    EXPECT_EQ(one.value(form), one.expected);
  }
}

TEST(Binding, WindowsShowWhatTheProgramChanges) {
  ui::SampleForm form;
  Screen screen;
  WindowSteps steps;
  form.lvwRows.AddRow("1", {"eins"});
  steps.Add([&](HWND dialog) {
    const auto text = [&](const char* name) { return Narrow(TextOf(Find(dialog, name))); };
    for (ui::Control* control : form.Controls()) {
      const HWND window = Find(dialog, control->Name());
      for (const bool on : {false, true}) {
        control->SetEnabled(on);
        EXPECT_EQ(IsWindowEnabled(window) != FALSE, on) << control->Name();
        control->SetVisible(on);
        const bool behind = control == &form.fraPositionenK;
        EXPECT_EQ((GetWindowLongPtrW(window, GWL_STYLE) & WS_VISIBLE) != 0, on && !behind)
            << control->Name();
      }
    }
    form.fraTyp.SetEnabled(false);
    EXPECT_FALSE(IsWindowEnabled(Find(dialog, "txtDauer")));
    form.fraPositionenK.BringToFront();
    EXPECT_TRUE(IsWindowVisible(Find(dialog, "txtNote")));
    EXPECT_FALSE(IsWindowVisible(Find(dialog, "cmdAdd")));
    form.txtMemo.SetText("eins\r\nzwei");
    EXPECT_EQ(text("txtMemo"), "eins\r\nzwei");
    form.lblDauer.SetCaption("A & B");
    EXPECT_EQ(text("lblDauer"), "A && B");
    form.optB.SetValue(true);
    form.chkFlag.SetChecked(true);
    EXPECT_TRUE(Ticked(Find(dialog, "optB")) && Ticked(Find(dialog, "chkFlag")));
    form.cboList.AddItem("Jahre");
    form.cboList.SetListIndex(2);
    form.cboFree.SetText("kg");
    form.lvwRows.AddRow("2", {"zwei"});
    form.lvwRows.SelectRow(2);
    form.dtpStart.SetValue(Day(3, 4, 2025));
  });
  steps.Add([&](HWND dialog) {
    const auto text = [&](const char* name) { return Narrow(TextOf(Find(dialog, name))); };
    EXPECT_EQ(text("cboList"), "Jahre");
    EXPECT_EQ(text("cboFree"), "kg");
    EXPECT_EQ(Narrow(TextOf(PartOf(Find(dialog, "dtpStart"), WC_EDITW))), "03.04.2025");
    const HWND rows = Find(dialog, "lvwRows");
    wchar_t cell[8] = L"";
    LVITEMW item{};
    item.pszText = cell;
    item.cchTextMax = 8;
    SendMessageW(rows, LVM_GETITEMTEXTW, 1, reinterpret_cast<LPARAM>(&item));
    EXPECT_STREQ(cell, L"zwei");
    EXPECT_EQ(SendMessageW(rows, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED), 1);
    form.Hide();
  });
  steps.Run([&] { form.Show(screen); });
}

}  // namespace
}  // namespace pactora::win32
