// The dialog in which a user concludes a contract for the current address, new
// or taken over while it is already running.
//
// It holds no contract data of its own until OK is pressed: it works from the
// contract type chosen in lvwBezeichnung, stored or changed in memory, and from
// what the user entered. A save stores row by row; rows stored before a failure
// stay, the dialog stays open, and another OK writes a complete new contract.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "definitions/vv_CDefinition.h"
#include "host/HostTable.h"
#include "newcontract/ContractRows.h"
#include "newcontract/DefinitionSource.h"
#include "platform/Date.h"
#include "shell/Module.h"
#include "ui/controls.h"

namespace pactora::newcontract {

class frmNewContract final : public ui::Form {
 public:
  // Touches nothing of the host. The module must outlive the dialog.
  explicit frmNewContract(shell::Module& module);

  // Loads the dialog for the current row of Adressen. False, after a message, when
  // there is no released contract type or on an error; the dialog must not be
  // shown then. Requires: gDb and gAddonError are set.
  bool InitNew();
  // Takes over the contract type in memory if it belongs to the chosen one.
  void InitAgain();

  bool mbOK = false;              // a contract was saved
  std::int32_t mlVSCount = 0;     // status rows written by the last save
  std::string msOID;              // Oid of the type last opened with the details button
  bool mbShowDefDetails = false;  // nothing in the dialog sets it

  // Controls in tab order.
  ui::ListView lvwBezeichnung{*this, "lvwBezeichnung"};
  ui::Label lblDirty{*this, "lblDirty", "Vertragsdefinition wurde geändert !"};
  ui::Button cmdDetails{*this, "cmdDetails", "Vertragsdefinition bearbeiten"};

  ui::Label lblVertragnummer{*this, "lblVertragnummer", "Vertragsnummer"};
  ui::TextBox txtVertragnummer{*this, "txtVertragnummer"};
  ui::CheckBox ChkAutoNumber{*this, "ChkAutoNumber", "Nummer automatisch vergeben"};
  ui::Label lblVertragBeginn{*this, "lblVertragBeginn", "Vertragsbeginn"};
  ui::DTPicker DTPVertragBeginn{*this, "DTPVertragBeginn"};
  ui::Label lblGeschlossenAm{*this, "lblGeschlossenAm", "Vertrag geschlossen am"};
  ui::DTPicker DTPGeschlossenAm{*this, "DTPGeschlossenAm", ui::DTPicker::Null::WithCheckBox};
  ui::Label lblVerantwortlich{*this, "lblVerantwortlich", "Verantwortlich"};
  // Free text: the current user may be one that the list leaves out.
  ui::ComboBox cboVerantwortlich{*this, "cboVerantwortlich", ui::ComboBox::Style::FreeText};
  ui::Label lblRabatt{*this, "lblRabatt", "Rabatt"};
  ui::TextBox txtRabatt{*this, "txtRabatt"};
  ui::Label lblProzent{*this, "lblProzent", "in  Prozent"};
  ui::CheckBox chkRabattNurErsteLaufzeit{*this, "chkRabattNurErsteLaufzeit",
                                         "Rabatt nur für erste Laufzeit"};
  ui::CheckBox chkNoBooking{*this, "chkNoBooking", "Fremdfakturierung"};
  ui::Label lblMemo{*this, "lblMemo", "Bearbeitungs- hinweis (intern)"};
  ui::TextBox txtMemo{*this, "txtMemo", ui::TextBox::Lines::Multiple};

  ui::CheckBox chkOldContract{*this, "chkOldContract",
                              "Für den Vertrag wurden bereits vergangene Perioden fakturiert"};
  ui::Label lblInvoices{*this, "lblInvoices",
                        "Wählen Sie den Zeitraum aus, der zuletzt fakturiert wurde."};
  ui::ListBox lstInvoices{*this, "lstInvoices"};

  ui::Frame fraWorkflow{*this, "fraWorkflow"};
  ui::CheckBox chkWorkflow{fraWorkflow, "chkWorkflow", ""};
  ui::Frame fraResponsible{*this, "fraResponsible"};
  ui::OptionButton optDefinierteBenutzer{fraResponsible, "optDefinierteBenutzer",
                                         "für voreingestellten Benutzer übernehmen"};
  ui::OptionButton optneuerBenutzer{fraResponsible, "optneuerBenutzer",
                                    "für folgenden Benutzer anlegen"};
  ui::ComboBox cmbUser{fraResponsible, "cmbUser", ui::ComboBox::Style::FreeText};
  ui::Frame fraWorkflow2{*this, "fraWorkflow2",
                         "Workflow, der bei automat. Verlängerung erstellt wird"};
  ui::Label lblWorkflow2{fraWorkflow2, "lblWorkflow2"};

  ui::Button cmdOK{*this, "cmdOK", "OK", ui::Button::Role::Default};
  ui::Button cmdCancel{*this, "cmdCancel", "Abbrechen", ui::Button::Role::Cancel};
  ui::Label lblVersion{*this, "lblVersion"};

 private:
  // How long the attribute of a saved contract is valid.
  struct Validity {
    Date from;
    Date until;  // kNoDate for a contract without an end
  };

  // Opening.
  void Wire();
  void Form_Load();
  void LoadUsers();
  bool LoadReleasedTypes();

  // Choice of a contract type.
  void lvwBezeichnung_ItemClick(std::int32_t row);
  void ApplyTypeToControls();
  void ApplyCreditorState();
  void ChkAutoNumber_Click();

  // Start, invoice periods and discount.
  void DTPVertragBeginn_Change();
  void FillInvoiceList();
  contract::InvoicePeriodTerms InvoiceTerms() const;
  void chkOldContract_Click();
  static void txtRabatt_KeyPress(std::int32_t& key);
  void txtRabatt_Validate(bool& cancel);

  // Leaving.
  void cmdOK_Click();
  void cmdCancel_Click();
  bool HasRequiredAttribute();
  bool Save(DefinitionSource& source);
  bool SaveFromMemory();
  bool HasNumber();
  ContractInput Input() const;
  void DrawNumber(ContractRows& rows);
  void RemindOfSignature();
  Validity SaveNew(ContractRows& rows, DefinitionSource& source, const ContractInput& input);
  std::optional<Validity> SaveTakeover(ContractRows& rows, DefinitionSource& source,
                                       const ContractInput& input);
  Validity TakeOverRenewable(ContractRows& rows, DefinitionSource& source,
                             const ContractInput& input);
  Validity TakeOverOther(ContractRows& rows, DefinitionSource& source, const ContractInput& input);
  contract::RunningContract RunningContractOf(DefinitionSource& source) const;

  // The details button.
  void cmdDetails_Click();

  // Workflow and address attribute.
  void SetWorkflowFrameVisibility();
  void ResetWorkflowFrames();
  void OfferWorkflow(const SetAttribute& attribute);
  void ShowWorkflow(const std::string& id, const std::string& name);
  void ShowRenewalWorkflow();
  std::shared_ptr<host::HostTable> FindWorkflow(const std::string& id);
  void FollowUp(const SetAttribute& attribute, DefinitionSource& source, const Validity& validity);
  void RunAttributeMacro(const SetAttribute& attribute, const std::string& description,
                         const Validity& validity);
  void WriteAttribute(const SetAttribute& attribute, const std::string& description,
                      const Validity& validity);

  host::HostTables& Tables() const;  // raises error 91 without an open database
  const definitions::vv_CDefinition& MemoryType() const;  // raises error 91 without one
  void Warn(std::string text);
  void Say(std::string text);

  shell::Module& module_;
  std::shared_ptr<host::HostTable> moDefinitionen;    // stands on the chosen type
  std::shared_ptr<host::HostTable> moAdressmerkmale;  // of the current address
  std::int32_t mlArt = 0;
  std::string msTyp;
  std::int32_t mlRechnungWann = 0;
  std::int32_t mlDauer = 0;
  std::int32_t mlVerlDauer = 0;
  std::int32_t mlZahlungsperiode = 0;
  std::int32_t mlVerlZahlungsperiode = 0;
  bool mbInitDone = false;           // the list of invoice periods can be built
  bool mbDefinitionDirty = false;    // the contract is built from the type in memory
  Date mdtLetzteListe;               // start of the last row put into lstInvoices
  std::int32_t mlAktuelleZeile = 0;  // chosen row of lvwBezeichnung
  double mdblRabatt = 0.0;           // percent
};

}  // namespace pactora::newcontract
