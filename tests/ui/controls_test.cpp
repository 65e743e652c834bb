#include <gmock/gmock.h>

#include "support/SampleForm.h"
#include "support/error_of.h"

namespace pactora::ui {
namespace {

constexpr platform::Date kDay{45366.0};

struct Step {
  const char* name;
  std::function<void(SampleForm&)> act;
  std::vector<std::string> runs;
};

TEST(Controls, RunTheirHandlersOnARealChangeOnly) {
  const Step steps[] = {
      {"text", [](auto& f) { f.txtDauer.SetText("12"); }, {"txtDauer_Change"}},
      {"same text", [](auto& f) { f.txtDauer.SetText("12"); }, {}},
      {"entry by text", [](auto& f) { f.cboList.SetText("Monate"); }, {"cboList_Click"}},
      {"same entry by text", [](auto& f) { f.cboList.SetText("Monate"); }, {}},
      {"another entry", [](auto& f) { f.cboList.SetListIndex(0); }, {"cboList_Click"}},
      {"no entry", [](auto& f) { f.cboList.SetListIndex(-1); }, {"cboList_Click"}},
      {"further entry", [](auto& f) { f.cboList.AddItem("Tage"); }, {}},
      {"chosen entry's text", [](auto& f) { f.cboList.SetListIndex(2); }, {"cboList_Click"}},
      {"free text", [](auto& f) { f.cboFree.SetText("kg"); }, {"cboFree_Change"}},
      {"list entry", [](auto& f) { f.lstRows.SetListIndex(0); }, {"lstRows_Click"}},
      {"option", [](auto& f) { f.optA.SetValue(true); }, {"optA_Click"}},
      {"other option", [](auto& f) { f.optB.SetValue(true); }, {"optB_Click"}},
      {"option off", [](auto& f) { f.optB.SetValue(false); }, {}},
      {"check", [](auto& f) { f.chkFlag.SetValue(1); }, {"chkFlag_Click"}},
      {"uncheck", [](auto& f) { f.chkFlag.SetValue(0); }, {"chkFlag_Click"}},
      {"date", [](auto& f) { f.dtpStart.SetValue(kDay); }, {"dtpStart_Change"}},
      {"time of the same day", [](auto& f) { f.dtpStart.SetValue({45366.5}); }, {}},
      {"no date", [](auto& f) { f.dtpClosed.SetNull(); }, {"dtpClosed_Change"}},
      {"the day shown", [](auto& f) { f.dtpClosed.SetValue({0.0}); }, {"dtpClosed_Change"}},
      {"row", [](auto& f) { f.lvwRows.AddRow("1"); }, {}},
      {"selected row", [](auto& f) { f.lvwRows.SelectRow(0); }, {}},
  };
  SampleForm form;
  for (const Step& step : steps) {
    step.act(form);
    EXPECT_EQ(form.Ran(), step.runs) << step.name;
  }
}

TEST(Controls, RefuseWhatDoesNotExist) {
  SampleForm form;
  form.lvwRows.AddRow("1");
  const std::pair<std::int32_t, std::function<void()>> cases[] = {
      {380, [&] { form.cboList.SetText("monate"); }},
      {9, [&] { form.cboList.SetListIndex(2); }},
      {9, [&] { form.cboList.SetListIndex(-2); }},
      {9, [&] { form.cboList.ItemData(-1); }},
      {9, [&] { form.cboList.SetItemText(2, ""); }},
      {91, [&] { form.lvwRows.Text(0); }},
      {9, [&] { form.lvwRows.Text(2); }},
      {9, [&] { form.lvwRows.SelectRow(2); }},
      {9, [&] { form.lvwRows.RemoveRow(-1); }},
      {5, [&] { form.chkFlag.SetValue(2); }},
      {5, [&] { form.dtpStart.SetNull(); }},
      {13, [&] { form.dtpClosed.SetNull(), form.dtpClosed.Value(); }},
  };
  for (const auto& [number, act] : cases) EXPECT_EQ(support::ErrorNumberOf(act), number);
  EXPECT_EQ(form.cboList.ListIndex(), -1);
}

TEST(ListView, KeepsTheSelectionWithItsRow) {
  SampleForm form;
  ListView& view = form.lvwRows;
  EXPECT_EQ(view.SelectedRow(), 0);
  for (const char* text : {"a", "b", "c"}) view.AddRow(text);
  EXPECT_EQ(view.SelectedRow(), 1) << "the first row of a list is selected";
  view.SelectRow(3);
  view.RemoveRow(1);
  EXPECT_EQ(view.Text(view.SelectedRow()), "c");
  view.RemoveRow(2);
  EXPECT_EQ(view.SelectedRow(), 0);
  view.AddRow("d");
  EXPECT_EQ(view.Text(view.SelectedRow()), "d");
  view.ClearRows();
  EXPECT_EQ(view.SelectedRow(), 0);
}

}  // namespace
}  // namespace pactora::ui
