// A small dialog that writes down each event procedure that runs.
#pragma once

#include <string>
#include <vector>

#include "ui/controls.h"

namespace pactora::ui {

struct SampleForm final : Form {
  SampleForm() : Form("frmSample") {
    fraPositionen.LieOver(fraPositionenK);
    cboList.AddItem("Wochen", 7);
    cboList.AddItem("Monate", 30);
    cboFree.AddItem("Stück");
    lstRows.AddItem("eins");
    lstRows.AddItem("zwei");
    lvwRows.AddColumn("OID", 0);
    lvwRows.AddColumn("Artikel", 3);
    txtDauer.Change = Logs("txtDauer_Change");
    txtDauer.KeyPress = [this](std::int32_t& key) {
      log.push_back("txtDauer_KeyPress " + std::to_string(key));
      if (on_key) on_key(key);
    };
    txtDauer.Validate = [this](bool& cancel) {
      log.push_back("txtDauer_Validate");
      if (on_validate) on_validate(cancel);
    };
    cboList.Click = Logs("cboList_Click");
    cboList.Change = Logs("cboList_Change");
    cboFree.Click = Logs("cboFree_Click");
    cboFree.Change = Logs("cboFree_Change");
    lstRows.Click = Logs("lstRows_Click");
    lvwRows.RowClick = [this](std::int32_t row) {
      log.push_back("lvwRows_ItemClick " + std::to_string(row));
    };
    optA.Click = Logs("optA_Click");
    optB.Click = Logs("optB_Click");
    optElsewhere.Click = Logs("optElsewhere_Click");
    chkFlag.Click = Logs("chkFlag_Click");
    dtpStart.Change = Logs("dtpStart_Change");
    dtpClosed.Change = Logs("dtpClosed_Change");
    cmdOK.Click = [this] {
      log.push_back("cmdOK_Click");
      if (on_ok) on_ok();
    };
    cmdCancel.Click = [this] {
      log.push_back("cmdCancel_Click");
      Hide();
    };
  }

  std::function<void()> Logs(std::string procedure) {
    return [this, procedure] { log.push_back(procedure); };
  }
  // What ran since the last call.
  std::vector<std::string> Ran() { return std::exchange(log, {}); }

  std::vector<std::string> log;
  std::function<void(std::int32_t& key)> on_key;
  std::function<void(bool& cancel)> on_validate;
  std::function<void()> on_ok;

  Label lblDauer{*this, "lblDauer", "Dauer"};
  Frame fraTyp{*this, "fraTyp", "Typ"};
  Frame fraInner{fraTyp, "fraInner"};
  TextBox txtDauer{fraInner, "txtDauer"};
  TextBox txtMemo{*this, "txtMemo", TextBox::Lines::Multiple};
  ComboBox cboList{*this, "cboList"};
  ComboBox cboFree{*this, "cboFree", ComboBox::Style::FreeText};
  ListBox lstRows{*this, "lstRows"};
  ListView lvwRows{*this, "lvwRows"};
  OptionButton optA{fraTyp, "optA", "A"};
  OptionButton optB{fraTyp, "optB", "B"};
  OptionButton optElsewhere{*this, "optElsewhere", "C"};
  CheckBox chkFlag{*this, "chkFlag", "Fremdfakturierung"};
  DTPicker dtpStart{*this, "dtpStart"};
  DTPicker dtpClosed{*this, "dtpClosed", DTPicker::Null::WithCheckBox};
  Frame fraPositionen{*this, "fraPositionen"};
  Button cmdAdd{fraPositionen, "cmdAdd", "->+"};
  Frame fraPositionenK{*this, "fraPositionenK"};
  TextBox txtNote{fraPositionenK, "txtNote"};
  Button cmdOK{*this, "cmdOK", "OK", Button::Role::Default};
  Button cmdCancel{*this, "cmdCancel", "Abbrechen", Button::Role::Cancel};
};

}  // namespace pactora::ui
