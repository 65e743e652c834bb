// Choosing an address attribute as group, attribute and value. The dialog of
// contract types has two: the attribute that a new contract requires and the one
// that it sets.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/HostTable.h"
#include "shell/Module.h"
#include "ui/controls.h"

namespace pactora::definitions {

// Groups, their attributes and those attributes' values: a chain of tables whose
// cursors both choosers move.
struct AttributeTables {
  std::shared_ptr<host::HostTable> moMerkmalgruppen;
  std::shared_ptr<host::HostTable> moMerkmale;
  std::shared_ptr<host::HostTable> moMerkmalwerte;
};

// All three are empty for no attribute. A value that is a date is written
// "yyyy-MM-dd".
struct AttributeTriple {
  std::string group;
  std::string attribute;
  std::string value;

  friend bool operator==(const AttributeTriple&, const AttributeTriple&) = default;
};

// Where the two choosers differ.
struct AttributeRole {
  std::string_view name;  // in the names of the controls and procedures
  std::string_view frame;
  std::string_view caption;
  // A group that is gone puts the groups' cursor on the first one.
  bool returns_to_first_group = false;
};

inline constexpr AttributeRole kRequiAttribute{
    "Requi", "Frame3", "Erforderliches Adressmerkmal bei neuem Vertrag", true};
inline constexpr AttributeRole kPutAttribute{
    "Put", "Frame4", "Setzt Adressmerkmal bei Anlage eines neuen Vertrages", false};

// Controls, members and procedures are called as those of the two, less the role:
// cboGroup_Click is cboRequiGroup_Click in the one and cboPutGroup_Click in the
// other, ReadAttributeList is ReadRequiAttributeList and ReadPutAttributeList.
class AttributeChooser {
 public:
  // While loading is true the boxes' handlers do nothing. The references must
  // outlive the chooser.
  AttributeChooser(ui::Container& parent, const AttributeRole& role, shell::Module& module,
                   const AttributeTables& tables, bool& loading);

  // Filling at the start: "<leer>", then each group, then the start selection.
  // Requires: loading is true.
  void AddEmptyGroup();
  void AddGroup(std::string name, std::string oid);
  void SelectEmptyGroup();
  void FillEmptyAttribute();
  // Requires: loading is false.
  void SelectEmptyAttribute();

  // Shows stored values. A group that is gone stays "<leer>"; an attribute or a
  // value that is gone is put into its box all the same. A date is not brought
  // back: the picker keeps today.
  void Restore(const AttributeTriple& stored);

  // What is chosen, as it is stored.
  AttributeTriple Chosen() const;
  bool NothingChosen() const;

  ui::Frame& Frame() { return frame_; }

 private:
  void cboGroup_Click();
  void ReadAttributeList();
  void cboAttribute_Click();
  void OfferValues();
  void LoadUsers();
  void RestoreAttribute(const AttributeTriple& stored);
  void ShowValueBox();
  void Report(std::string_view before, std::string_view after, const std::function<void()>& body);

  static constexpr std::int32_t kDateKind = 1;  // the picker holds the value

  const AttributeRole role_;
  shell::Module& module_;
  const AttributeTables& tables_;
  bool& mbLoading;

  ui::Frame frame_;
  ui::Label lblGroup;
  ui::ComboBox cboGroup;
  ui::Label lblAttribute;
  ui::ComboBox cboAttribute;
  ui::Label lblValue;
  ui::ComboBox cboValue;
  ui::DTPicker DTPValue;

  // Oids of the rows at the boxes' list positions; "" for "<leer>".
  std::vector<std::string> msGroupOids;
  std::vector<std::string> msAttributeOids;
  std::int32_t mlValueKind = 0;
};

}  // namespace pactora::definitions
