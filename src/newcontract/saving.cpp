// The buttons that end the dialog: checks, the road to take, the dialog's values.
#include "contract/dates.h"
#include "contract/modVV.h"
#include "host/row.h"
#include "newcontract/MemoryDefinition.h"
#include "newcontract/StoredDefinition.h"
#include "newcontract/columns.h"
#include "newcontract/frmNewContract.h"
#include "platform/Text.h"
#include "schema/names.h"
#include "shell/handlers.h"

namespace pactora::newcontract {

namespace field = schema::field;

namespace {

constexpr char kNumberMissing[] = "Vergeben Sie bitte eine Vertragsnummer!";
constexpr char kNotOpened[] =
    "Der Dialog konnte nicht vollständig geöffnet werden. Es wird kein Vertrag gespeichert.";
constexpr std::int32_t kDaysUntilReminder = 2;

std::string AttributeMissing(const std::string& attribute, const std::string& value) {
  return "Das für diesen Vertrag erforderliche Adressmerkmal  \"" + attribute + " -> " + value +
         "\"  ist nicht vorhanden!";
}

}  // namespace

void frmNewContract::cmdOK_Click() {
  shell::WithInlineMessage(module_, shell::module_name::frmNewContract, "cmdOK_Click", [&] {
    if (lvwBezeichnung.RowCount() == 0) return;
    // A dialog whose opening failed half way knows no type, whatever its list shows.
    if (!mbInitDone) {
      throw platform::Error(static_cast<std::int32_t>(platform::RuntimeError::ObjectNotSet),
                            kNotOpened);
    }
    const std::string oid = lvwBezeichnung.Text(lvwBezeichnung.SelectedRow(), column::kOid);
    if (!moDefinitionen->FindOid(oid, host::kFlagsUsual)) return;
    StoredDefinition stored(moDefinitionen, Tables().Item(schema::table::vv_Definitionspositionen));
    if (!HasRequiredAttribute()) return;
    const bool saved = mbDefinitionDirty ? SaveFromMemory() : Save(stored);
    if (!saved) return;
    mbOK = true;
    Hide();
  });
}

void frmNewContract::cmdCancel_Click() { Hide(); }

// False, after a message, when the address lacks the attribute that the stored
// type demands; a type changed in memory demands the same.
bool frmNewContract::HasRequiredAttribute() {
  const std::string attribute = GetText(*moDefinitionen, field::ErfordertMerkmal);
  const std::string value = GetText(*moDefinitionen, field::ErfordertWert);
  if (attribute.empty()) return true;
  host::HostTable& attributes = *moAdressmerkmale;
  for (attributes.MoveFirst(host::kFlagsUsual); !attributes.Eof();
       attributes.MoveNext(1, host::kFlagsUsual)) {
    if (GetText(attributes, field::Merkmal) == attribute &&
        GetText(attributes, field::Wert) == value) {
      return true;
    }
  }
  Say(AttributeMissing(attribute, value));
  return false;
}

bool frmNewContract::Save(DefinitionSource& source) {
  const ContractInput input = Input();
  ContractRows rows(module_, source, input);
  if (!HasNumber()) return false;
  const SetAttribute attribute = source.AttributeToSet();
  const std::optional<Validity> validity =
      chkOldContract.Checked() ? SaveTakeover(rows, source, input) : SaveNew(rows, source, input);
  if (!validity) return false;
  FollowUp(attribute, source, *validity);
  return true;
}

bool frmNewContract::SaveFromMemory() {
  bool saved = false;
  shell::WithInlineMessage(module_, shell::module_name::frmNewContract, "SaveFromMemory", [&] {
    MemoryDefinition memory(module_);
    saved = Save(memory);
  });
  return saved;
}

// A typed number may hold blanks around it; blanks alone are none.
bool frmNewContract::HasNumber() {
  if (ChkAutoNumber.Checked() || !platform::Trim(txtVertragnummer.Text()).empty()) return true;
  Warn(kNumberMissing);
  return false;
}

ContractInput frmNewContract::Input() const {
  ContractInput input;
  input.typ = msTyp;
  input.art = mlArt;
  input.rechnung_wann = mlRechnungWann;
  input.dauer = mlDauer;
  input.verl_dauer = mlVerlDauer;
  input.zahlungsperiode = mlZahlungsperiode;
  input.verl_zahlungsperiode = mlVerlZahlungsperiode;
  input.discount = mdblRabatt;
  input.discount_first_term_only = chkRabattNurErsteLaufzeit.Checked();
  input.no_booking = chkNoBooking.Checked();
  input.begin = DTPVertragBeginn.Value();
  if (!DTPGeschlossenAm.IsNull()) input.signed_on = DTPGeschlossenAm.Value();
  input.memo = txtMemo.Text();
  input.responsible = cboVerantwortlich.Text();
  return input;
}

// The number is drawn at the last moment and shown in the dialog.
void frmNewContract::DrawNumber(ContractRows& rows) {
  if (ChkAutoNumber.Checked()) {
    txtVertragnummer.SetText(contract::GetNextNumber(module_, rows.NumberField()));
  }
  rows.WriteNumber(txtVertragnummer.Text());
}

// An appointment in two days for a contract without a day of signature.
void frmNewContract::RemindOfSignature() {
  if (!DTPGeschlossenAm.IsNull()) return;
  contract::CreateOpenAlarm(
      module_, "", contract::AddDays(module_.environment.clock.Today(), kDaysUntilReminder),
      cboVerantwortlich.Text());
}

}  // namespace pactora::newcontract
