// Filling the lists, and opening for a new or a stored type.
#include <cstddef>
#include <utility>

#include "contract/modVV.h"
#include "definitions/frmFEditDefinitions.h"
#include "definitions/price_rules.h"
#include "definitions/tables.h"
#include "host/row.h"
#include "platform/Error.h"
#include "schema/names.h"

namespace pactora::definitions {

namespace field = schema::field;

void frmFEditDefinitions::Form_Load() {
  Report("Form_Load", [this] {
    mbLoading = true;
    fraPositionen.BringToFront();
    mbOK = false;
    FillLists();
    FillWorkflows();
    FillAttributes();
    FillArticleGroups();
    moDefinitionen = OpenTable(module_, schema::table::vv_Vertragsdefinitionen);
    moDefinitionen->LinkChildren();
    moPositionen = OpenTable(module_, schema::table::vv_Definitionspositionen);
    ShowAllRows(*moPositionen, host::kFlagsNone);
  });
}

void frmFEditDefinitions::FillLists() {
  for (std::string& status : LookupList(module_, schema::setting::vv_lt_VertragstypStatus)) {
    cboStatus.AddItem(std::move(status));
  }
  if (cboStatus.Count() > 0) cboStatus.SetListIndex(0);

  for (ui::ComboBox* box : {&cboZahlungsperiode, &cboZahlungsperiode2}) {
    for (const std::int32_t period : schema::kPeriods) {
      box->AddItem(contract::GetPeriodName(period), period);
    }
    box->SetListIndex(0);
  }
  for (const std::string_view text : schema::kRechnungWannTexts) {
    cboRechnungWann.AddItem(std::string(text));
  }
  cboRechnungWann.SetListIndex(schema::kInAdvance);
  for (ui::ComboBox* box : {&cboKuendFrist, &cboKuendFrist2}) {
    for (const std::string_view notice : kNoticePeriods) box->AddItem(std::string(notice));
    box->SetText(kUsualNotice);
  }
  for (ui::ComboBox* box : {&cboKuendEinh, &cboKuendEinh2}) {
    box->AddItem(std::string(schema::kWeeks));
    box->AddItem(std::string(schema::kMonths));
    box->SetListIndex(0);
  }
}

void frmFEditDefinitions::FillAttributes() {
  AttributeTables& tables = attribute_tables_;
  tables.moMerkmalgruppen = OpenTable(module_, schema::table::MerkmalgruppeAdressen);
  tables.moMerkmale = OpenTable(module_, schema::table::MerkmallisteAdressen);
  tables.moMerkmalwerte = OpenTable(module_, schema::table::WerteMerkmalAdressen);

  host::HostTable& groups = *tables.moMerkmalgruppen;
  groups.Indexes().Select(schema::index::Merkmalgruppe, host::kFlagsUsual);
  requi_attribute_.AddEmptyGroup();
  put_attribute_.AddEmptyGroup();
  for (groups.MoveFirst(host::kFlagsUsual); !groups.Eof(); groups.MoveNext(1, host::kFlagsUsual)) {
    const std::string name = GetText(groups, field::Gruppe);
    requi_attribute_.AddGroup(name, groups.Oid());
    put_attribute_.AddGroup(name, groups.Oid());
  }
  groups.MoveFirst(host::kFlagsUsual);
  tables.moMerkmale->Indexes().SelectNone(host::kFlagsNone);
  tables.moMerkmalwerte->Indexes().SelectNone(host::kFlagsNone);
  for (AttributeChooser* chooser : {&requi_attribute_, &put_attribute_}) {
    chooser->SelectEmptyGroup();
    chooser->FillEmptyAttribute();
  }
  mbLoading = false;
  requi_attribute_.SelectEmptyAttribute();
  put_attribute_.SelectEmptyAttribute();
}

void frmFEditDefinitions::FillArticleGroups() {
  moArtikelgruppen = OpenTable(module_, schema::table::Artikelgruppen);
  host::HostTable& groups = *moArtikelgruppen;
  ShowAllRows(groups, host::kFlagsNone);
  groups.Indexes().Select(schema::index::ID, host::kFlagsNone);
  msArtikelgruppeIDs.assign(1, "");
  for (groups.MoveFirst(host::kFlagsUsual); !groups.Eof(); groups.MoveNext(1, host::kFlagsUsual)) {
    cboArtikelGruppen.AddItem(GetText(groups, field::Artikelgruppe));
    msArtikelgruppeIDs.push_back(GetText(groups, field::ID));
  }
  moArtikel = OpenTable(module_, schema::table::Artikel);
  ShowAllRows(*moArtikel, host::kFlagsUsual);
  if (cboArtikelGruppen.Count() > 0) cboArtikelGruppen.SetListIndex(0);
}

bool frmFEditDefinitions::InitNew() {
  mbNew = true;
  mlArt = schema::kArtRenewable;
  msTyp = schema::kTypDebtor;
  SetCaption("Vertragstyp [Neu]");
  optDebitor.SetValue(true);
  return true;
}

bool frmFEditDefinitions::InitEdit() {
  bool shown = false;
  Report("InitEdit", [&] { shown = ShowStoredType(); });
  return shown;
}

// The boxes of the first contract overwrite those of the follow-up contract, so
// these come after them. Positions come last: as long as there are none, nobody
// is reminded to check their prices.
bool frmFEditDefinitions::ShowStoredType() {
  SetCaption("Vertragstyp [Ändern]");
  mbNew = false;
  host::HostTable& type = Held(moDefinitionen);
  msTyp = GetText(type, field::Typ);
  if (!SelectTyp()) return false;
  msWorkflowID = GetText(type, field::WorkflowID);
  if (!SelectKind(GetLong(type, field::Art))) return false;
  SelectStatus(GetText(type, field::Status));
  chkNoBooking.SetChecked(host::ToBoolean(Get(type, field::NoBooking)));
  txtBezeichnung.SetText(GetText(type, field::Bezeichnung));
  txtDauer.SetText(std::to_string(GetLong(type, field::Dauer)));
  SelectPeriod(cboZahlungsperiode, GetLong(type, field::Zahlungsperiode));
  cboKuendFrist.SetText(std::to_string(GetLong(type, field::Kuendigungsfrist)));
  cboKuendEinh.SetText(GetText(type, field::KuendigungsfristEinh));
  txtDauer2.SetText(std::to_string(GetLong(type, field::Verlaengerungsdauer)));
  SelectPeriod(cboZahlungsperiode2, GetLong(type, field::VerlaengerungsZahlungsperiode));
  cboKuendFrist2.SetText(std::to_string(GetLong(type, field::VerlKuendigungsfrist)));
  cboKuendEinh2.SetText(GetText(type, field::VerlKuendigungsfristEinh));
  SelectRechnungWann(GetLong(type, field::RechnungWann));
  requi_attribute_.Restore({GetText(type, field::ErfordertMerkmalGruppe),
                            GetText(type, field::ErfordertMerkmal),
                            GetText(type, field::ErfordertWert)});
  put_attribute_.Restore({GetText(type, field::SetztMerkmalGruppe),
                          GetText(type, field::SetztMerkmal), GetText(type, field::SetztWert)});
  ReadStoredPositions();
  EnableWorkflowSelection(IsRenewableClaim());
  return true;
}

// A stored type stays a claim or a liability.
bool frmFEditDefinitions::SelectTyp() {
  if (msTyp == schema::kTypDebtor) {
    optDebitor.SetValue(true);
    chkNoBooking.SetEnabled(true);
  } else if (msTyp == schema::kTypCreditor) {
    optKreditor.SetValue(true);
    chkNoBooking.SetEnabled(false);
  } else {
    return false;
  }
  FixTyp();
  return true;
}

void frmFEditDefinitions::FixTyp() {
  (msTyp == schema::kTypDebtor ? optKreditor : optDebitor).SetEnabled(false);
}

bool frmFEditDefinitions::SelectKind(std::int32_t art) {
  switch (art) {
    case schema::kArtRenewable:
    case schema::kArtOnce:
      mlArt = art;
      optBefristet.SetValue(true);
      chkVerlaengerbar.SetChecked(art == schema::kArtRenewable);
      return true;
    case schema::kArtUnlimited:
      mlArt = art;
      optUnbefristet.SetValue(true);
      chkVerlaengerbar.SetEnabled(false);
      return true;
    default:
      return false;
  }
}

void frmFEditDefinitions::SelectStatus(const std::string& status) {
  if (cboStatus.FindText(status) == ui::ListControl::kNone) cboStatus.AddItem(status);
  cboStatus.SetListIndex(cboStatus.FindText(status));
}

void frmFEditDefinitions::SelectPeriod(ui::ComboBox& box, std::int32_t period) {
  const std::int32_t place = box.FindData(period);
  if (place != ui::ListControl::kNone) box.SetListIndex(place);
}

void frmFEditDefinitions::SelectRechnungWann(std::int32_t place) {
  if (place == ui::ListControl::kNone) {
    platform::Raise(platform::RuntimeError::ValueNotInList);
  }
  cboRechnungWann.SetListIndex(place);
}

}  // namespace pactora::definitions
