// The controls of the dialog that maintains a contract type, as they stand before
// anything is loaded.
#pragma once

#include "definitions/AttributeChooser.h"
#include "shell/Module.h"
#include "ui/controls.h"

namespace pactora::definitions {

class DefinitionForm : public ui::Form {
 protected:
  explicit DefinitionForm(shell::Module& module);

  static constexpr char kInMonths[] = "in Monaten";

  shell::Module& module_;
  AttributeTables attribute_tables_;
  bool mbLoading = false;  // the click handlers of the combo boxes keep still

  // Controls in tab order.
  ui::Frame fraTyp{*this, "fraTyp"};
  ui::Label lblBezeichnung{fraTyp, "lblBezeichnung", "Vertragstyp"};
  ui::TextBox txtBezeichnung{fraTyp, "txtBezeichnung"};
  ui::Label lblStatus{fraTyp, "lblStatus", "Status"};
  ui::ComboBox cboStatus{fraTyp, "cboStatus", ui::ComboBox::Style::FreeText};
  ui::Label lblArt{fraTyp, "lblArt", "Art"};
  ui::Frame fraArt{fraTyp, "fraArt"};
  ui::OptionButton optDebitor{fraArt, "optDebitor", "Forderungs-Vertrag"};
  ui::OptionButton optKreditor{fraArt, "optKreditor", "Verbindlichkeits-Vertrag"};
  ui::Label lblDauer{fraTyp, "lblDauer", "Dauer"};
  ui::Frame fraDauer{fraTyp, "fraDauer"};
  ui::OptionButton optBefristet{fraDauer, "optBefristet", "Befristet"};
  ui::CheckBox chkVerlaengerbar{fraDauer, "chkVerlaengerbar", "mit automat. Folgevertrag"};
  ui::OptionButton optUnbefristet{fraDauer, "optUnbefristet", "Unbefristet"};

  ui::Frame fraErstvertrag{*this, "fraErstvertrag", "Erstvertrag"};
  ui::Label lblDauer1{fraErstvertrag, "lblDauer1", "Vertragsdauer"};
  ui::TextBox txtDauer{fraErstvertrag, "txtDauer"};
  ui::Label lblDauerEinheit{fraErstvertrag, "lblDauerEinheit"};
  ui::Label lblZahlungsPeriode{fraErstvertrag, "lblZahlungsPeriode", "Zahlungsperiode"};
  ui::ComboBox cboZahlungsperiode{fraErstvertrag, "cboZahlungsperiode"};
  ui::Label lblRechnungWann{fraErstvertrag, "lblRechnungWann", "Rechnung"};
  ui::ComboBox cboRechnungWann{fraErstvertrag, "cboRechnungWann"};
  ui::CheckBox chkNoBooking{fraErstvertrag, "chkNoBooking", "Fremdfakturierung"};
  ui::Frame fraKuendFrist{fraErstvertrag, "fraKuendFrist"};
  ui::Label lblKuendFrist{fraKuendFrist, "lblKuendFrist", "Kündigungsfrist"};
  ui::ComboBox cboKuendFrist{fraKuendFrist, "cboKuendFrist"};
  ui::ComboBox cboKuendEinh{fraKuendFrist, "cboKuendEinh"};
  ui::ComboBox cboKuenfristBezug{fraKuendFrist, "cboKuenfristBezug"};

  ui::Frame fraVerlaengerung{*this, "fraVerlaengerung", "Folgevertrag"};
  ui::Label lblDauer2{fraVerlaengerung, "lblDauer2", "Vertragsdauer"};
  ui::TextBox txtDauer2{fraVerlaengerung, "txtDauer2"};
  ui::Label lblDauerEinheit2{fraVerlaengerung, "lblDauerEinheit2"};
  ui::Label lblZahlungsPeriode2{fraVerlaengerung, "lblZahlungsPeriode2", "Zahlungsperiode"};
  ui::ComboBox cboZahlungsperiode2{fraVerlaengerung, "cboZahlungsperiode2"};
  ui::Label lblKuendFrist2{fraVerlaengerung, "lblKuendFrist2", "Kündigungsfrist"};
  ui::ComboBox cboKuendFrist2{fraVerlaengerung, "cboKuendFrist2"};
  ui::ComboBox cboKuendEinh2{fraVerlaengerung, "cboKuendEinh2"};

  AttributeChooser requi_attribute_;
  AttributeChooser put_attribute_;

  ui::Frame fraWF{*this, "fraWF", "Workflow bei Verlängerung"};
  ui::Label lblWorkflow{fraWF, "lblWorkflow", "Workflow"};
  ui::ComboBox cboWorkflow{fraWF, "cboWorkflow"};

  ui::Frame fraPositionen{*this, "fraPositionen", "Bearbeitung der Vertragspositionen"};
  ui::Label lblArtikel{fraPositionen, "lblArtikel", "Artikelpositionen"};
  ui::ComboBox cboArtikelGruppen{fraPositionen, "cboArtikelGruppen"};
  ui::ListView lvwArtikel{fraPositionen, "lvwArtikel"};
  ui::Button cmdAddPos{fraPositionen, "cmdAddPos", "->+"};
  ui::Button cmdDeletePos{fraPositionen, "cmdDeletePos", "<- -"};
  ui::Button cmdEditPos{fraPositionen, "cmdEditPos", "..."};
  ui::Label lblPositionen{fraPositionen, "lblPositionen", "Vertragspositionen"};
  ui::ListView lvwPositionen{fraPositionen, "lvwPositionen"};

  ui::Frame fraPositionenK{*this, "fraPositionenK"};
  ui::Label lblPositionenK{
      fraPositionenK, "lblPositionenK",
      "Bei einem Verbindlichkeits-Vertag werden keine Vertagspositionenvorbelegt."};

  ui::Button cmdSave{*this, "cmdSave", "Speichern", ui::Button::Role::Default};
  ui::Button cmdCancel{*this, "cmdCancel", "Abbrechen", ui::Button::Role::Cancel};
};

}  // namespace pactora::definitions
