// The buttons that end the dialog: one stores the type or hands it over to memory.
#include <cstddef>

#include "contract/position_groups.h"
#include "definitions/frmFEditDefinitions.h"
#include "definitions/messages.h"
#include "definitions/number_text.h"
#include "definitions/position_columns.h"
#include "definitions/tables.h"
#include "host/row.h"
#include "platform/Text.h"
#include "schema/names.h"

namespace pactora::definitions {
namespace {

namespace field = schema::field;

struct TripleFields {
  std::string_view group;
  std::string_view attribute;
  std::string_view value;
};

void WriteTriple(host::HostTable& type, const TripleFields& fields, const AttributeTriple& triple,
                 bool none) {
  if (none) Set(type, fields.group, "");
  Set(type, fields.attribute, triple.attribute);
  Set(type, fields.value, triple.value);
  if (!none) Set(type, fields.group, triple.group);
}

}  // namespace

void frmFEditDefinitions::cmdSave_Click() {
  Report("cmdSave_Click", [this] {
    if (!MayBeSaved()) return;
    if (mbForNewContract) {
      WriteToNewContract();
    } else if (!SaveType()) {
      return;
    }
    mbOK = true;
    Hide();
  });
}

// Nothing is written; removed positions stay in their table.
void frmFEditDefinitions::cmdCancel_Click() { Hide(); }

bool frmFEditDefinitions::MayBeSaved() {
  if (platform::Trim(txtBezeichnung.Text()).empty()) {
    Say(module_, "Geben Sie dem Vertragstyp bitte einen Namen !", ui::style::kInformation,
        kPleaseChange);
    txtBezeichnung.SetFocus();
    return false;
  }
  if (msTyp == schema::kTypDebtor && lvwPositionen.RowCount() == 0 &&
      !Ask(module_, "Sie haben keine Vertragspositionen eingegeben!\r\nHaben Sie das gewollt?",
           "Vertrag ohne Rechnungslegung?")) {
    return false;
  }
  if (!CheckPeriod() || !CheckPeriod2()) return false;
  if (mlArt == schema::kArtUnlimited) {
    txtDauer.SetText("0");
    txtDauer2.SetText("0");
    return true;
  }
  if (Dauer() == 0) {
    Say(module_, "Für diesen Vertragstyp müssen Sie eine Vertragsdauer eingeben !",
        ui::style::kInformation);
    return false;
  }
  if (mlArt == schema::kArtOnce) {
    cboKuendFrist.SetText(kNoNotice);
    cboKuendFrist2.SetText(kNoNotice);
  }
  return true;
}

bool frmFEditDefinitions::SaveType() {
  host::HostTable& type = Held(moDefinitionen);
  if (mbNew) {
    BeginNewRow(type);
    WriteDefinition(EnteredDefinition());
    type.StoreNew(host::kFlagsUsual);
    // The type exists now: when its positions fail, the next try goes on with it.
    mbNew = false;
    FixTyp();
  } else {
    WriteDefinition(EnteredDefinition());
    type.Store(host::kFlagsUsual);
  }
  const std::optional<double> net_sum =
      msTyp == schema::kTypDebtor ? WritePositions() : WriteDummyPosition();
  if (!net_sum) return false;
  Set(type, field::NettoSumme, *net_sum);
  type.Store(host::kFlagsUsual);
  return true;
}

// What is entered, but for the net sum and the type that it belongs to.
vv_CDefinition frmFEditDefinitions::EnteredDefinition() const {
  vv_CDefinition entered;
  entered.NoBooking = chkNoBooking.Checked();
  entered.Typ = msTyp;
  entered.Bezeichnung = txtBezeichnung.Text();
  entered.Art = mlArt;
  entered.ArtStr = schema::ArtText(mlArt);
  entered.Dauer = Dauer();
  entered.Verlaengerungsdauer = Dauer2();
  entered.Kuendigungsfrist = WholeNumberOf(cboKuendFrist.Text());
  entered.KuendigungsfristEinh = cboKuendEinh.Text();
  entered.VerlKuendigungsfrist = WholeNumberOf(cboKuendFrist2.Text());
  entered.VerlKuendigungsfristEinh = cboKuendEinh2.Text();
  entered.Zahlungsperiode = Zahlungsperiode();
  entered.VerlaengerungsZahlungsperiode = Zahlungsperiode2();
  entered.RechnungWann = cboRechnungWann.ListIndex();
  if (IsRenewableClaim()) entered.VerlaengerungsWorkflowID = ChosenWorkflowID();
  const AttributeTriple required = requi_attribute_.Chosen();
  entered.ErfordertMerkmalGruppe = required.group;
  entered.ErfordertMerkmal = required.attribute;
  entered.ErfordertWert = required.value;
  const AttributeTriple set = put_attribute_.Chosen();
  entered.SetztMerkmalGruppe = set.group;
  entered.SetztMerkmal = set.attribute;
  entered.SetztWert = set.value;
  return entered;
}

void frmFEditDefinitions::WriteDefinition(const vv_CDefinition& definition) {
  host::HostTable& type = Held(moDefinitionen);
  Set(type, field::Status, cboStatus.Text());
  Set(type, field::NoBooking, definition.NoBooking);
  Set(type, field::Typ, definition.Typ);
  Set(type, field::Bezeichnung, definition.Bezeichnung);
  Set(type, field::Art, definition.Art);
  Set(type, field::ArtStr, definition.ArtStr);
  Set(type, field::Dauer, definition.Dauer);
  Set(type, field::Verlaengerungsdauer, definition.Verlaengerungsdauer);
  Set(type, field::Kuendigungsfrist, definition.Kuendigungsfrist);
  Set(type, field::KuendigungsfristEinh, definition.KuendigungsfristEinh);
  Set(type, field::VerlKuendigungsfrist, definition.VerlKuendigungsfrist);
  Set(type, field::VerlKuendigungsfristEinh, definition.VerlKuendigungsfristEinh);
  Set(type, field::Zahlungsperiode, definition.Zahlungsperiode);
  Set(type, field::VerlaengerungsZahlungsperiode, definition.VerlaengerungsZahlungsperiode);
  Set(type, field::RechnungWann, definition.RechnungWann);
  Set(type, field::WorkflowID, definition.VerlaengerungsWorkflowID);
  WriteTriple(
      type, {field::ErfordertMerkmalGruppe, field::ErfordertMerkmal, field::ErfordertWert},
      {definition.ErfordertMerkmalGruppe, definition.ErfordertMerkmal, definition.ErfordertWert},
      requi_attribute_.NothingChosen());
  WriteTriple(type, {field::SetztMerkmalGruppe, field::SetztMerkmal, field::SetztWert},
              {definition.SetztMerkmalGruppe, definition.SetztMerkmal, definition.SetztWert},
              put_attribute_.NothingChosen());
}

std::optional<double> frmFEditDefinitions::WritePositions() {
  std::optional<double> net_sum;
  Report("WritePositions", [&] {
    DeleteRemovedPositions();
    net_sum = WritePositionRows();
  });
  return net_sum;
}

void frmFEditDefinitions::DeleteRemovedPositions() {
  host::HostTable& positions = Held(moPositionen);
  while (!mcolDeletedOids.empty()) {
    positions.GotoOid(mcolDeletedOids.front());
    positions.DeleteRec(host::kFlagsNone);
    mcolDeletedOids.pop_front();
  }
}

// None when a row of the list is not stored any more.
std::optional<double> frmFEditDefinitions::WritePositionRows() {
  host::HostTable& positions = Held(moPositionen);
  const platform::Locale& locale = module_.environment.locale;
  std::vector<std::string> groups;
  for (std::int32_t row = 1; row <= lvwPositionen.RowCount(); ++row) {
    groups.push_back(lvwPositionen.Text(row, column::Gruppierung));
  }
  double net_sum = 0.0;
  std::size_t number = 0;
  for (const contract::GroupedPosition& place : contract::WritingOrder(groups)) {
    const auto row = static_cast<std::int32_t>(place.index) + 1;
    const std::string& oid = lvwPositionen.Text(row, column::RecordOID);
    const bool is_new = oid.empty();
    if (is_new) {
      BeginNewRow(positions);
    } else if (!positions.FindOid(oid, host::kFlagsUsual)) {
      return std::nullopt;
    }
    WriteColumns(lvwPositionen, row, positions, locale);
    Set(positions, field::Row, contract::RowText(place.index + 1));
    Set(positions, field::Positionsnummer, std::to_string(++number));
    Set(positions, field::Gruppierung, groups[place.index]);
    Set(positions, field::Gruppierungsposition, place.group);
    net_sum += TotalOf(lvwPositionen, row, locale);
    if (is_new) {
      positions.StoreNew(host::kFlagsUsual);
    } else {
      positions.Store(host::kFlagsUsual);
    }
    lvwPositionen.SetText(row, column::RecordOID, positions.Oid());
  }
  return net_sum;
}

std::optional<double> frmFEditDefinitions::WriteDummyPosition() {
  std::optional<double> net_sum;
  Report("WriteDummyPosition", [&] {
    host::HostTable& positions = Held(moPositionen);
    // A type that has no position yet, or whose first try to store it failed,
    // gets one.
    if (positions.Oid().empty()) positions.MoveFirst(host::kFlagsUsual);
    const bool is_new = positions.Eof();
    if (is_new) BeginNewRow(positions);
    WriteDummyFields(positions);
    if (is_new) {
      positions.StoreNew(host::kFlagsUsual);
    } else {
      positions.Store(host::kFlagsUsual);
    }
    net_sum = 0.0;
  });
  return net_sum;
}

}  // namespace pactora::definitions
