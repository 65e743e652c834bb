// The dialog that maintains a contract type: a new one, a stored one, or a copy
// of a stored one for a single contract, which goes to memory instead of the
// tables.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "definitions/DefinitionForm.h"
#include "definitions/vv_CDefinition.h"
#include "host/HostTable.h"
#include "shell/Module.h"

namespace pactora::definitions {

class frmFEditDefinitions final : public DefinitionForm {
 public:
  // Fills the lists from the tables; a failure is reported and leaves a dialog
  // that is not fit for use.
  // Requires: gDb and gAddonError are set. The module must outlive the dialog.
  explicit frmFEditDefinitions(shell::Module& module);

  // Prepares for a new type. Always true.
  bool InitNew();
  // Prepares for the current row of vv_Vertragsdefinitionen. False when that
  // row cannot be shown; the dialog must not be shown then.
  bool InitEdit();
  // After InitEdit: what is changed will go to gDefinition and gPositions. Brings
  // back an earlier change that is still held there for the same type.
  void ShowForNewContract();

  bool mbOK = false;  // the user saved

 private:
  // Opening.
  void Wire();
  void Form_Load();
  void FillLists();
  void FillAttributes();
  void FillArticleGroups();
  bool ShowStoredType();
  bool SelectTyp();
  void FixTyp();
  bool SelectKind(std::int32_t art);
  void SelectStatus(const std::string& status);
  void SelectPeriod(ui::ComboBox& box, std::int32_t period);
  void SelectRechnungWann(std::int32_t place);

  // Term and payment.
  void cboZahlungsperiode_Click();
  void cboKuendFrist_Click();
  void cboKuendEinh_Click();
  void txtDauer_Change();
  void txtDauer2_Validate(bool& cancel);
  void optBefristet_Click();
  void optUnbefristet_Click();
  void chkVerlaengerbar_Click();
  void optDebitor_Click();
  void optKreditor_Click();
  void ApplyFollowUpState();
  void EnableKuendFrist(bool enabled);
  void EnableVerlaengerung(bool enabled);
  bool CheckPeriod();   // says so when the first contract's period does not fit
  bool CheckPeriod2();  // the follow-up contract's
  void RemindPriceCheck();
  void SetSinglePaymentTerm(std::int32_t term);
  bool IsRenewableClaim() const;
  std::int32_t Dauer() const;
  std::int32_t Dauer2() const;
  std::int32_t Zahlungsperiode() const;
  std::int32_t Zahlungsperiode2() const;

  // Workflow.
  void FillWorkflows();
  void EnableWorkflowSelection(bool enabled);
  void cboWorkflow_Click();
  std::string ChosenWorkflowID() const;

  // Positions.
  void cboArtikelGruppen_Click();
  void cmdAddPos_Click();
  void cmdEditPos_Click();
  void cmdDeletePos_Click();
  void AddPosition();
  void EditPosition();
  void ReadStoredPositions();
  bool HasPositionOf(const std::string& article_id) const;
  std::int32_t PriceTerm() const;
  std::string Evaluate(std::string_view expression);
  std::string Fixed(double number) const;

  // Leaving.
  void cmdSave_Click();
  void cmdCancel_Click();
  bool MayBeSaved();
  bool SaveType();
  vv_CDefinition EnteredDefinition() const;
  void WriteDefinition(const vv_CDefinition& definition);
  std::optional<double> WritePositions();  // the net sum; none when it failed
  void DeleteRemovedPositions();
  std::optional<double> WritePositionRows();
  std::optional<double> WriteDummyPosition();

  // Memory.
  void ShowFromMemory();
  void ShowDefinition(const vv_CDefinition& definition);
  void ShowPositionsFromMemory(const shell::PositionCollection& positions);
  void WriteToNewContract();
  double CollectPositions();

  // A procedure whose failure the reporter shows.
  void Report(std::string_view procedure, const std::function<void()>& body);

  static constexpr char kUsualNotice[] = "6";
  static constexpr char kNoNotice[] = "0";
  static constexpr char kSinglePayment[] = "einmalig";

  std::shared_ptr<host::HostTable> moArtikel;
  std::shared_ptr<host::HostTable> moArtikelgruppen;
  std::shared_ptr<host::HostTable> moDefinitionen;
  std::shared_ptr<host::HostTable> moPositionen;
  std::shared_ptr<host::HostTable> moVorgaenge;
  std::vector<std::string> msArtikelgruppeIDs;  // by list position + 1; element 0 is ""
  std::vector<std::string> msWorkflowIDs;       // by list position
  std::deque<std::string> mcolDeletedOids;      // stored positions removed in the dialog
  bool mbNew = false;
  bool mbForNewContract = false;
  std::int32_t mlArt = 0;
  std::string msTyp;
  std::string msWorkflowID;  // of the chosen workflow, kept while none can be chosen
};

}  // namespace pactora::definitions
