#include "definitions/AttributeChooser.h"

#include <cstddef>
#include <utility>

#include "definitions/current_row.h"
#include "definitions/loading_scope.h"
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
      loading_(loading),
      frame_(parent, std::string(role.frame), std::string(role.caption)),
      group_label_(frame_, NameOf("lbl", role, "Group"), "Gruppe"),
      group_(frame_, NameOf("cbo", role, "Group")),
      attribute_label_(frame_, NameOf("lbl", role, "Attribute"), "Merkmal"),
      attribute_(frame_, NameOf("cbo", role, "Attribute")),
      value_label_(frame_, NameOf("lbl", role, "Value"), "Wert"),
      value_(frame_, NameOf("cbo", role, "Value")),
      date_(frame_, NameOf("DTP", role, "Value")) {
  date_.SetVisible(false);
  date_.SetValue(module.environment.clock.Today());
  group_.Click = [this] { Group_Click(); };
  attribute_.Click = [this] { Attribute_Click(); };
}

void AttributeChooser::AddEmptyGroup() { AddGroup(kEmptyEntry, ""); }

void AttributeChooser::AddGroup(std::string name, std::string oid) {
  group_.AddItem(std::move(name));
  group_oids_.push_back(std::move(oid));
}

void AttributeChooser::SelectEmptyGroup() { group_.SetListIndex(0); }

void AttributeChooser::FillEmptyAttribute() {
  attribute_.Clear();
  attribute_.AddItem(kEmptyEntry);
  attribute_oids_.assign(1, "");
}

void AttributeChooser::SelectEmptyAttribute() { attribute_.SetListIndex(0); }

void AttributeChooser::Group_Click() {
  Report("cbo", "Group_Click", [this] {
    if (loading_ || group_.ListIndex() == ui::ListControl::kNone) return;
    const std::string& oid = ChosenOid(group_, group_oids_);
    if (oid.empty()) {
      {
        const LoadingScope loading(loading_);
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
    ChooseFirst(attribute_);
  });
}

void AttributeChooser::ReadAttributeList() {
  Report("Read", "AttributeList", [this] {
    attribute_.Clear();
    attribute_oids_.clear();
    host::HostTable& attributes = Held(tables_.moMerkmale);
    attributes.Indexes().SelectNone(host::kFlagsNone);
    for (attributes.MoveFirst(host::kFlagsUsual); !attributes.Eof();
         attributes.MoveNext(1, host::kFlagsUsual)) {
      attribute_.AddItem(ReadText(attributes, schema::field::Merkmal));
      attribute_oids_.push_back(attributes.Oid());
    }
  });
}

void AttributeChooser::Attribute_Click() {
  Report("cbo", "Attribute_Click", [this] {
    if (loading_) return;
    value_.Clear();
    if (attribute_.ListIndex() == ui::ListControl::kNone) return;
    const std::string& oid = ChosenOid(attribute_, attribute_oids_);
    if (oid.empty()) {
      ShowValueBox();
      value_.SetEnabled(false);
      return;
    }
    if (Held(tables_.moMerkmale).FindOid(oid, host::kFlagsUsual)) {
      OfferValues();
    } else {
      ShowValueBox();
    }
    value_.SetEnabled(value_.Count() > 0);
    ChooseFirst(value_);
  });
}

// The first value says what kind of values the attribute of the current row has.
void AttributeChooser::OfferValues() {
  host::HostTable& values = Held(tables_.moMerkmalwerte);
  values.Indexes().SelectNone(host::kFlagsNone);
  values.MoveFirst(host::kFlagsUsual);
  const std::string first = values.Eof() ? std::string() : ReadText(values, schema::field::Wert);
  if (first == schema::kDateValue) {
    value_kind_ = kDateKind;
    value_.SetVisible(false);
    date_.SetVisible(true);
    date_.SetValue(module_.environment.clock.Today());
    return;
  }
  ShowValueBox();
  if (first == schema::kUserNameValue) {
    LoadUsers();
    return;
  }
  for (; !values.Eof(); values.MoveNext(1, host::kFlagsUsual)) {
    value_.AddItem(ReadText(values, schema::field::Wert));
  }
}

void AttributeChooser::LoadUsers() {
  Report("Load", "Users", [this] {
    value_.Clear();
    host::HostUsers& users = module_.gDb->Users();
    const std::int32_t count = users.Count();
    for (std::int32_t i = 0; i < count; ++i) {
      const std::string name = users.Item(i).Name();
      if (name != schema::kDevelopmentUser) value_.AddItem(name);
    }
    ChooseFirst(value_);
  });
}

void AttributeChooser::ShowValueBox() {
  value_kind_ = 0;
  value_.SetVisible(true);
  date_.SetVisible(false);
}

void AttributeChooser::Restore(const AttributeTriple& stored) {
  if (!stored.group.empty()) {
    host::HostTable& groups = Held(tables_.moMerkmalgruppen);
    groups.Indexes().Select(schema::index::Merkmalgruppe, host::kFlagsUsual);
    if (groups.SeekKey(platform::UpperCase(stored.group), host::kFlagsUsual)) {
      group_.SetText(stored.group);
    }
  }
  if (!stored.attribute.empty()) RestoreAttribute(stored);
  if (stored.value.empty()) return;
  if (value_.FindText(stored.value) == ui::ListControl::kNone) value_.AddItem(stored.value);
  value_.SetListIndex(value_.FindText(stored.value));
}

void AttributeChooser::RestoreAttribute(const AttributeTriple& stored) {
  host::HostTable& attributes = Held(tables_.moMerkmale);
  attributes.Indexes().Select(schema::index::Merkmal, host::kFlagsUsual);
  if (attributes.SeekKey(stored.attribute, host::kFlagsUsual)) {
    if (ReadText(Held(tables_.moMerkmalgruppen), schema::field::Gruppe) == stored.group) {
      attribute_.SetText(stored.attribute);
    } else if (attribute_.Count() > 0) {
      // An attribute of another group by that name takes the first place.
      attribute_.SetItemText(0, stored.attribute);
      attribute_oids_.at(0) = attributes.Oid();
    } else {
      attribute_.AddItem(stored.attribute);
      attribute_oids_.push_back(attributes.Oid());
      attribute_.SetText(stored.attribute);
    }
    return;
  }
  {
    const LoadingScope loading(loading_);
    if (attribute_.Count() > 0 && attribute_.ItemText(0) == kEmptyEntry) {
      attribute_.SetItemText(0, stored.attribute);
      attribute_oids_.at(0).clear();
    } else {
      attribute_.AddItem(stored.attribute);
      attribute_oids_.emplace_back();
    }
  }
  attribute_.SetText(stored.attribute);
}

bool AttributeChooser::NothingChosen() const { return attribute_.Text() == kEmptyEntry; }

AttributeTriple AttributeChooser::Chosen() const {
  if (NothingChosen()) return {};
  AttributeTriple chosen;
  chosen.attribute = attribute_.Text();
  chosen.value = value_kind_ == kDateKind
                     ? platform::FormatDate(date_.Value(), platform::kIsoPattern)
                     : value_.Text();
  if (group_.Text() != kEmptyEntry) chosen.group = group_.Text();
  return chosen;
}

void AttributeChooser::Report(std::string_view before, std::string_view after,
                              const std::function<void()>& body) {
  shell::WithReporter(module_, shell::module_name::frmFEditDefinitions,
                      NameOf(before, role_, after), body);
}

}  // namespace pactora::definitions
