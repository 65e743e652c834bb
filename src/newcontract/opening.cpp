// Opening the dialog: controls, users, settings, the list of contract types.
#include "contract/default_start.h"
#include "contract/modVV.h"
#include "host/row.h"
#include "newcontract/columns.h"
#include "newcontract/frmNewContract.h"
#include "platform/Error.h"
#include "platform/Locale.h"
#include "schema/names.h"
#include "shell/CConfig.h"
#include "shell/handlers.h"
#include "shell/modGlobalDefs.h"

namespace pactora::newcontract {

namespace field = schema::field;

namespace {

constexpr char kCaption[] = "Neuer Vertrag für:   ";
constexpr char kNoReleasedType[] =
    "Es muss mindestens ein freigegebener Vertragstyp definiert sein.\r\n"
    "Legen Sie einen Vertragstyp an!";
constexpr char kDiscountTip[] = "Ein Rabatt soll nur für die erste Laufzeit gewährt werden.";
constexpr char kNoBookingTip[] =
    "Für diesen Vertrag sollen keine Rechnungen in der Tessarin-Fakturierung erstellt werden.";

// The host's numbers as the list keeps them; an unwritten one is 0.
std::string NumberText(const host::HostField& field) {
  return std::to_string(host::ToLong(field.Value()));
}

}  // namespace

frmNewContract::frmNewContract(shell::Module& module)
    : ui::Form("frmNewContract"), module_(module) {
  lvwBezeichnung.AddColumn("Typ", 3);
  lvwBezeichnung.AddColumn("Dauer", 1);
  for (const char* caption : {"OID", "Typ", "Art", "RechnungWann", "Dauer1", "Zahlungsperiode1",
                              "DAuer2", "Zahlungsperiode2"}) {
    lvwBezeichnung.AddColumn(caption, 0);
  }
  lvwBezeichnung.AddColumn("Art", 1);
  lvwBezeichnung.AddColumn("NoBooking", 0);
  chkRabattNurErsteLaufzeit.SetToolTip(kDiscountTip);
  chkNoBooking.SetToolTip(kNoBookingTip);
  lblDirty.SetVisible(false);
  lblInvoices.SetVisible(false);
  lstInvoices.SetVisible(false);
  lstInvoices.SetEnabled(false);
  DTPVertragBeginn.SetValue(module_.environment.clock.Today());
  Wire();
}

void frmNewContract::Wire() {
  OnError = [this](const std::string& procedure, const platform::Error& error) {
    shell::ReportError(module_, shell::DisplayName(shell::module_name::frmNewContract, procedure),
                       error);
  };
  lvwBezeichnung.RowClick = [this](std::int32_t row) { lvwBezeichnung_ItemClick(row); };
  cmdDetails.Click = [this] { cmdDetails_Click(); };
  ChkAutoNumber.Click = [this] { ChkAutoNumber_Click(); };
  DTPVertragBeginn.Change = [this] { DTPVertragBeginn_Change(); };
  txtRabatt.KeyPress = [](std::int32_t& key) { txtRabatt_KeyPress(key); };
  txtRabatt.Validate = [this](bool& cancel) { txtRabatt_Validate(cancel); };
  chkOldContract.Click = [this] { chkOldContract_Click(); };
  cmdOK.Click = [this] { cmdOK_Click(); };
  cmdCancel.Click = [this] { cmdCancel_Click(); };
}

void frmNewContract::Form_Load() {
  lblVersion.SetCaption(module_.gVersionText);
  DTPGeschlossenAm.SetValue(module_.environment.clock.Today());
  mbInitDone = mbOK = mbShowDefDetails = false;
  LoadUsers();
  module_.gAlarmWochenKuendigung = contract::ReadAlarmWochenKuendigung(module_);
  module_.gAlarmWochenEnde = contract::ReadAlarmWochenEnde(module_);
  module_.gAppointment4AllContracts = shell::ReadAppointment4AllContracts(module_);
}

void frmNewContract::LoadUsers() {
  host::HostUsers& users = module_.gDb->Users();
  const std::int32_t count = users.Count();
  for (std::int32_t i = 0; i < count; ++i) {
    const std::string name = users.Item(i).Name();
    if (name == schema::kDevelopmentUser) continue;
    cboVerantwortlich.AddItem(name);
    cmbUser.AddItem(name);
  }
  const std::string current = users.CurrentUser().Name();
  cboVerantwortlich.SetText(current);
  cmbUser.SetText(current);
}

bool frmNewContract::InitNew() {
  bool ready = false;
  shell::WithInlineMessage(module_, shell::module_name::frmNewContract, "InitNew", [&] {
    host::HostTables& tables = Tables();
    Form_Load();
    const auto name = module_.gDb->Formulas().Compile(schema::expression::Name_, host::kFlagsNone);
    SetCaption(kCaption + host::ToText(name->Eval(host::kFlagsNone)));
    txtVertragnummer.SetEnabled(false);
    moAdressmerkmale = tables.Item(schema::table::Adressmerkmale);
    ShowAllRows(*moAdressmerkmale, host::kFlagsUsual);
    if (!LoadReleasedTypes()) {
      Warn(kNoReleasedType);
      return;
    }
    lvwBezeichnung_ItemClick(1);
    mlAktuelleZeile = 1;
    DTPVertragBeginn.SetValue(contract::DefaultContractStart(module_.environment.clock.Today()));
    mdblRabatt = 0.0;
    txtRabatt.SetText(platform::FormatFixed(mdblRabatt, module_.environment.locale));
    lstInvoices.SetBackColor(ui::color::kButtonFace);
    mbInitDone = true;
    DTPVertragBeginn_Change();
    if (msTyp == schema::kTypCreditor) {
      ApplyCreditorState();
      txtVertragnummer.SetText("");
      txtVertragnummer.SetEnabled(true);
    }
    ready = true;
  });
  return ready;
}

// One row for each released type, in the order of their names. Leaves the table
// on its first row. False when no type is released.
bool frmNewContract::LoadReleasedTypes() {
  moDefinitionen = Tables().Item(schema::table::vv_Vertragsdefinitionen);
  host::HostTable& types = *moDefinitionen;
  ShowAllRows(types, host::kFlagsUsual);
  types.Indexes().Select(schema::index::Bezeichnung, host::kFlagsUsual);
  types.MoveFirst(host::kFlagsUsual);
  if (types.Eof()) return false;

  // Fields live as long as their table: looked up once, not for each row.
  host::HostFields& fields = types.Fields();
  const host::HostField& status = fields.Item(field::Status);
  const host::HostField& bezeichnung = fields.Item(field::Bezeichnung);
  const host::HostField& art_str = fields.Item(field::ArtStr);
  const host::HostField& typ = fields.Item(field::Typ);
  const host::HostField& art = fields.Item(field::Art);
  const host::HostField& rechnung_wann = fields.Item(field::RechnungWann);
  const host::HostField& dauer = fields.Item(field::Dauer);
  const host::HostField& zahlungsperiode = fields.Item(field::Zahlungsperiode);
  const host::HostField& verl_dauer = fields.Item(field::Verlaengerungsdauer);
  const host::HostField& verl_periode = fields.Item(field::VerlaengerungsZahlungsperiode);
  const host::HostField& no_booking = fields.Item(field::NoBooking);
  for (; !types.Eof(); types.MoveNext(1, host::kFlagsUsual)) {
    if (host::ToText(status.Value()) != schema::kReleased) continue;
    std::string name = host::ToText(bezeichnung.Value());
    std::string side = host::ToText(typ.Value());
    const std::string_view side_name = schema::TypText(side);
    std::vector<std::string> texts;
    texts.reserve(static_cast<std::size_t>(column::kCount));
    texts.push_back(host::ToText(art_str.Value()));
    texts.push_back(types.Oid());
    texts.push_back(std::move(side));
    for (const host::HostField* number :
         {&art, &rechnung_wann, &dauer, &zahlungsperiode, &verl_dauer, &verl_periode}) {
      texts.push_back(NumberText(*number));
    }
    texts.emplace_back(side_name);
    texts.push_back(host::ToText(host::ToBoolean(no_booking.Value())));
    std::string tool_tip = name;
    lvwBezeichnung.AddRow(std::move(name), std::move(texts), std::move(tool_tip));
  }
  types.MoveFirst(host::kFlagsUsual);
  return lvwBezeichnung.RowCount() > 0;
}

host::HostTables& frmNewContract::Tables() const {
  if (!module_.gDb) platform::Raise(platform::RuntimeError::ObjectNotSet);
  return module_.gDb->Tables();
}

void frmNewContract::Warn(std::string text) {
  module_.environment.screen.ShowMessage(
      {std::move(text), ui::style::kExclamation, shell::kAddonTitle});
}

void frmNewContract::Say(std::string text) {
  module_.environment.screen.ShowMessage({std::move(text)});
}

}  // namespace pactora::newcontract
