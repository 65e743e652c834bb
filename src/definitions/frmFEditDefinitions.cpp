// Which control's event runs which procedure.
#include "definitions/frmFEditDefinitions.h"

#include "shell/handlers.h"
#include "ui/keys.h"

namespace pactora::definitions {
namespace {

// txtDauer_KeyPress and txtDauer2_KeyPress: a term is typed in digits.
void TakeDigitsOnly(std::int32_t& key) {
  const bool is_digit = key >= '0' && key <= '9';
  if (!is_digit && key != ui::kBackspace) key = 0;
}

}  // namespace

frmFEditDefinitions::frmFEditDefinitions(shell::Module& module) : DefinitionForm(module) {
  Wire();
  Form_Load();
}

void frmFEditDefinitions::Wire() {
  OnError = [this](const std::string& procedure, const platform::Error& error) {
    shell::ReportError(
        module_, shell::DisplayName(shell::module_name::frmFEditDefinitions, procedure), error);
  };
  optDebitor.Click = [this] { optDebitor_Click(); };
  optKreditor.Click = [this] { optKreditor_Click(); };
  optBefristet.Click = [this] { optBefristet_Click(); };
  optUnbefristet.Click = [this] { optUnbefristet_Click(); };
  chkVerlaengerbar.Click = [this] { chkVerlaengerbar_Click(); };
  txtDauer.KeyPress = TakeDigitsOnly;
  txtDauer.Change = [this] { txtDauer_Change(); };
  txtDauer2.KeyPress = TakeDigitsOnly;
  txtDauer2.Validate = [this](bool& cancel) { txtDauer2_Validate(cancel); };
  cboZahlungsperiode.Click = [this] { cboZahlungsperiode_Click(); };
  cboKuendFrist.Click = [this] { cboKuendFrist_Click(); };
  cboKuendEinh.Click = [this] { cboKuendEinh_Click(); };
  cboWorkflow.Click = [this] { cboWorkflow_Click(); };
  cboArtikelGruppen.Click = [this] { cboArtikelGruppen_Click(); };
  cmdAddPos.Click = [this] { cmdAddPos_Click(); };
  cmdEditPos.Click = [this] { cmdEditPos_Click(); };
  cmdDeletePos.Click = [this] { cmdDeletePos_Click(); };
  cmdSave.Click = [this] { cmdSave_Click(); };
  cmdCancel.Click = [this] { cmdCancel_Click(); };
}

void frmFEditDefinitions::Report(std::string_view procedure, const std::function<void()>& body) {
  shell::WithReporter(module_, shell::module_name::frmFEditDefinitions, procedure, body);
}

}  // namespace pactora::definitions
