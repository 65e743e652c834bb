#include "definitions/AttributeChooser.h"

#include <cstddef>
#include <utility>

#include "definitions/loading_scope.h"
#include "definitions/tables.h"
#include "host/row.h"
#include "platform/Date.h"
#include "platform/Text.h"
#include "schema/names.h"
#include "shell/handlers.h"

namespace pactora::definitions {
namespace {

constexpr char kEmptyEntry[] = "<leer>";

std::string NameOf(std::string_view before, const AttributeRole& role, std::string_view after) {
  return std::string(before) + std::string(role.name) + std::string(after);
}

void ChooseFirst(ui::ComboBox& box) {
  if (box.Count() > 0) box.SetListIndex(0);
}

// The Oid that belongs to the chosen entry. Requires: an entry is chosen.
const std::string& ChosenOid(const ui::ComboBox& box, const std::vector<std::string>& oids) {
  return oids.at(static_cast<std::size_t>(box.ListIndex()));
}

}  // namespace

AttributeChooser::AttributeChooser(ui::Container& parent, const AttributeRole& role,
                                   shell::Module& module, const AttributeTables& tables,
                                   bool& loading)
    : role_(role),
      module_(module),
      tables_(tables),
      mbLoading(loading),
      frame_(parent, std::string(role.frame), std::string(role.caption)),
      lblGroup(frame_, NameOf("lbl", role, "Group"), "Gruppe"),
      cboGroup(frame_, NameOf("cbo", role, "Group")),
      lblAttribute(frame_, NameOf("lbl", role, "Attribute"), "Merkmal"),
      cboAttribute(frame_, NameOf("cbo", role, "Attribute")),
      lblValue(frame_, NameOf("lbl", role, "Value"), "Wert"),
      cboValue(frame_, NameOf("cbo", role, "Value")),
      DTPValue(frame_, NameOf("DTP", role, "Value")) {
  DTPValue.SetVisible(false);
  DTPValue.SetValue(module.environment.clock.Today());
  cboGroup.Click = [this] { cboGroup_Click(); };
  cboAttribute.Click = [this] { cboAttribute_Click(); };
}

void AttributeChooser::AddEmptyGroup() { AddGroup(kEmptyEntry, ""); }

void AttributeChooser::AddGroup(std::string name, std::string oid) {
  cboGroup.AddItem(std::move(name));
  msGroupOids.push_back(std::move(oid));
}

void AttributeChooser::SelectEmptyGroup() { cboGroup.SetListIndex(0); }

void AttributeChooser::FillEmptyAttribute() {
  cboAttribute.Clear();
  cboAttribute.AddItem(kEmptyEntry);
  msAttributeOids.assign(1, "");
}

void AttributeChooser::SelectEmptyAttribute() { cboAttribute.SetListIndex(0); }

void AttributeChooser::cboGroup_Click() {
  Report("cbo", "Group_Click", [this] {
    if (mbLoading || cboGroup.ListIndex() == ui::ListControl::kNone) return;
    const std::string& oid = ChosenOid(cboGroup, msGroupOids);
    if (oid.empty()) {
      {
        const LoadingScope loading(mbLoading);
        FillEmptyAttribute();
      }
      SelectEmptyAttribute();
      return;
    }
    host::HostTable& groups = Held(tables_.moMerkmalgruppen);
    if (!groups.FindOid(oid, host::kFlagsUsual)) {
      if (role_.returns_to_first_group) groups.MoveFirst(host::kFlagsUsual);
      return;
    }
    ReadAttributeList();
    ChooseFirst(cboAttribute);
  });
}

void AttributeChooser::ReadAttributeList() {
  Report("Read", "AttributeList", [this] {
    cboAttribute.Clear();
    msAttributeOids.clear();
    host::HostTable& attributes = Held(tables_.moMerkmale);
    attributes.Indexes().SelectNone(host::kFlagsNone);
    for (attributes.MoveFirst(host::kFlagsUsual); !attributes.Eof();
         attributes.MoveNext(1, host::kFlagsUsual)) {
      cboAttribute.AddItem(GetText(attributes, schema::field::Merkmal));
      msAttributeOids.push_back(attributes.Oid());
    }
  });
}

void AttributeChooser::cboAttribute_Click() {
  Report("cbo", "Attribute_Click", [this] {
    if (mbLoading) return;
    cboValue.Clear();
    if (cboAttribute.ListIndex() == ui::ListControl::kNone) return;
    const std::string& oid = ChosenOid(cboAttribute, msAttributeOids);
    if (oid.empty()) {
      ShowValueBox();
      cboValue.SetEnabled(false);
      return;
    }
    if (Held(tables_.moMerkmale).FindOid(oid, host::kFlagsUsual)) {
      OfferValues();
    } else {
      ShowValueBox();
    }
    cboValue.SetEnabled(cboValue.Count() > 0);
    ChooseFirst(cboValue);
  });
}

// The first value says what kind of values the attribute of the current row has.
void AttributeChooser::OfferValues() {
  host::HostTable& values = Held(tables_.moMerkmalwerte);
  values.Indexes().SelectNone(host::kFlagsNone);
  values.MoveFirst(host::kFlagsUsual);
  const std::string first = values.Eof() ? std::string() : GetText(values, schema::field::Wert);
  if (first == schema::kDateValue) {
    mlValueKind = kDateKind;
    cboValue.SetVisible(false);
    DTPValue.SetVisible(true);
    DTPValue.SetValue(module_.environment.clock.Today());
    return;
  }
  ShowValueBox();
  if (first == schema::kUserNameValue) {
    LoadUsers();
    return;
  }
  for (; !values.Eof(); values.MoveNext(1, host::kFlagsUsual)) {
    cboValue.AddItem(GetText(values, schema::field::Wert));
  }
}

void AttributeChooser::LoadUsers() {
  Report("Load", "Users", [this] {
    cboValue.Clear();
    host::HostUsers& users = module_.gDb->Users();
    const std::int32_t count = users.Count();
    for (std::int32_t i = 0; i < count; ++i) {
      const std::string name = users.Item(i).Name();
      if (name != schema::kDevelopmentUser) cboValue.AddItem(name);
    }
    ChooseFirst(cboValue);
  });
}

void AttributeChooser::ShowValueBox() {
  mlValueKind = 0;
  cboValue.SetVisible(true);
  DTPValue.SetVisible(false);
}

void AttributeChooser::Restore(const AttributeTriple& stored) {
  if (!stored.group.empty()) {
    host::HostTable& groups = Held(tables_.moMerkmalgruppen);
    groups.Indexes().Select(schema::index::Merkmalgruppe, host::kFlagsUsual);
    if (groups.SeekKey(platform::UpperCase(stored.group), host::kFlagsUsual)) {
      cboGroup.SetText(stored.group);
    }
  }
  if (!stored.attribute.empty()) RestoreAttribute(stored);
  if (stored.value.empty()) return;
  if (cboValue.FindText(stored.value) == ui::ListControl::kNone) cboValue.AddItem(stored.value);
  cboValue.SetListIndex(cboValue.FindText(stored.value));
}

void AttributeChooser::RestoreAttribute(const AttributeTriple& stored) {
  host::HostTable& attributes = Held(tables_.moMerkmale);
  attributes.Indexes().Select(schema::index::Merkmal, host::kFlagsUsual);
  if (attributes.SeekKey(stored.attribute, host::kFlagsUsual)) {
    if (GetText(Held(tables_.moMerkmalgruppen), schema::field::Gruppe) == stored.group) {
      cboAttribute.SetText(stored.attribute);
    } else if (cboAttribute.Count() > 0) {
      // An attribute of another group by that name takes the first place.
      cboAttribute.SetItemText(0, stored.attribute);
      msAttributeOids.at(0) = attributes.Oid();
    } else {
      cboAttribute.AddItem(stored.attribute);
      msAttributeOids.push_back(attributes.Oid());
      cboAttribute.SetText(stored.attribute);
    }
    return;
  }
  {
    const LoadingScope loading(mbLoading);
    if (cboAttribute.Count() > 0 && cboAttribute.ItemText(0) == kEmptyEntry) {
      cboAttribute.SetItemText(0, stored.attribute);
      msAttributeOids.at(0).clear();
    } else {
      cboAttribute.AddItem(stored.attribute);
      msAttributeOids.emplace_back();
    }
  }
  cboAttribute.SetText(stored.attribute);
}

bool AttributeChooser::NothingChosen() const { return cboAttribute.Text() == kEmptyEntry; }

AttributeTriple AttributeChooser::Chosen() const {
  if (NothingChosen()) return {};
  AttributeTriple chosen;
  chosen.attribute = cboAttribute.Text();
  chosen.value = mlValueKind == kDateKind
                     ? platform::FormatDate(DTPValue.Value(), platform::kIsoPattern)
                     : cboValue.Text();
  if (cboGroup.Text() != kEmptyEntry) chosen.group = cboGroup.Text();
  return chosen;
}

void AttributeChooser::Report(std::string_view before, std::string_view after,
                              const std::function<void()>& body) {
  shell::WithReporter(module_, shell::module_name::frmFEditDefinitions,
                      NameOf(before, role_, after), body);
}

}  // namespace pactora::definitions
