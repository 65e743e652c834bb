// The workflow that goes with the attribute of the chosen type, and the one that
// is started on renewal. The tables of the workflow add-on are only read.
#include "host/row.h"
#include "newcontract/frmNewContract.h"
#include "platform/Text.h"
#include "schema/names.h"
#include "shell/handlers.h"

namespace pactora::newcontract {

namespace field = schema::field;
namespace index = schema::index;
namespace table = schema::table;

namespace {

constexpr char kNoWorkflow[] = "   <kein Workflow zugewiesen>";
constexpr char kNoRenewalWorkflow[] = "< kein Workflow zugeordnet >";

// A level of the attribute tables with an index of its own for the search.
class Level {
 public:
  Level(host::HostTables& tables, std::string_view table_name, std::string_view index_name)
      : table_(tables.Item(table_name)), kept_(table_->Indexes().Current()) {
    table_->Indexes().Select(index_name, host::kFlagsUsual);
  }

  bool Seek(const std::string& key) { return table_->SeekKey(key, host::kFlagsUsual); }
  std::string Id() { return GetText(*table_, field::ID); }

  // Takes the row's workflow if the table knows workflows at all.
  void ReadWorkflow(std::string& id, std::string& name) {
    host::HostFields& fields = table_->Fields();
    if (!fields.Exists(field::KELDO_WorkflowID) || !fields.Exists(field::KELDO_WorkflowName)) {
      return;
    }
    id = GetText(*table_, field::KELDO_WorkflowID);
    name = GetText(*table_, field::KELDO_WorkflowName);
  }

  void RestoreIndex() {
    if (kept_) {
      table_->Indexes().SetCurrent(kept_);
    } else {
      table_->Indexes().SelectNone(host::kFlagsUsual);
    }
  }

 private:
  std::shared_ptr<host::HostTable> table_;
  std::shared_ptr<host::HostIndex> kept_;
};

}  // namespace

void frmNewContract::SetWorkflowFrameVisibility() {
  shell::WithInlineMessage(
      module_, shell::module_name::frmNewContract, "SetWorkflowFrameVisibility", [&] {
        ResetWorkflowFrames();
        SetAttribute attribute;
        if (mbDefinitionDirty) {
          const definitions::vv_CDefinition& type = MemoryType();
          attribute = {type.SetztMerkmalGruppe, type.SetztMerkmal, type.SetztWert};
        } else {
          attribute = {GetText(*moDefinitionen, field::SetztMerkmalGruppe),
                       GetText(*moDefinitionen, field::SetztMerkmal),
                       GetText(*moDefinitionen, field::SetztWert)};
        }
        if (attribute.group.empty() || attribute.attribute.empty() || attribute.value.empty()) {
          return;
        }
        OfferWorkflow(attribute);
      });
}

void frmNewContract::ResetWorkflowFrames() {
  fraWorkflow.SetEnabled(false);
  chkWorkflow.SetChecked(false);
  chkWorkflow.SetCaption(kNoWorkflow);
  fraResponsible.SetEnabled(false);
  optDefinierteBenutzer.SetEnabled(false);
  optneuerBenutzer.SetEnabled(false);
  cmbUser.SetEnabled(false);
}

// The most specific level that names a workflow, by name or ID, decides.
void frmNewContract::OfferWorkflow(const SetAttribute& attribute) {
  host::HostTables& tables = Tables();
  Level group(tables, table::MerkmalgruppeAdressen, index::Merkmalgruppe);
  Level list(tables, table::MerkmallisteAdressen, index::MerkmalgruppeIDMerkmal);
  Level value(tables, table::WerteMerkmalAdressen, index::MerkmalIDWert);
  if (group.Seek(platform::UpperCase(attribute.group)) &&
      list.Seek(group.Id() + platform::UpperCase(attribute.attribute)) &&
      value.Seek(list.Id() + platform::UpperCase(attribute.value))) {
    std::string id;
    std::string name;
    value.ReadWorkflow(id, name);
    if (id.empty() && name.empty()) list.ReadWorkflow(id, name);
    if (id.empty() && name.empty()) group.ReadWorkflow(id, name);
    if (!id.empty()) ShowWorkflow(id, name);
  }
  value.RestoreIndex();
  list.RestoreIndex();
  group.RestoreIndex();
}

void frmNewContract::ShowWorkflow(const std::string& id, const std::string& name) {
  const std::shared_ptr<host::HostTable> workflow = FindWorkflow(id);
  if (!workflow) return;
  const bool by_user = host::ToBoolean(Get(*workflow, field::benutzerabhaengig));
  const bool changeable = host::ToBoolean(Get(*workflow, field::voreinstellungaenderbar));
  optDefinierteBenutzer.SetValue(!by_user);
  optneuerBenutzer.SetValue(by_user);
  optDefinierteBenutzer.SetEnabled(changeable);
  optneuerBenutzer.SetEnabled(changeable);
  cmbUser.SetEnabled(by_user || changeable);
  chkWorkflow.SetChecked(true);
  chkWorkflow.SetCaption("Workflow  '" + name + "'  erstellen");
  fraResponsible.SetEnabled(true);
  fraWorkflow.SetEnabled(true);
}

// The ID is stored with the contract whether or not its workflow can be shown.
void frmNewContract::ShowRenewalWorkflow() {
  const std::string id = mbDefinitionDirty ? MemoryType().VerlaengerungsWorkflowID
                                           : GetText(*moDefinitionen, field::WorkflowID);
  std::string caption = kNoRenewalWorkflow;
  if (!id.empty()) {
    const std::shared_ptr<host::HostTable> workflow = FindWorkflow(id);
    if (workflow && GetText(*workflow, field::Status) == schema::kReleased) {
      caption = GetText(*workflow, field::Betreff);
    }
  }
  lblWorkflow2.SetCaption(caption);
  lblWorkflow2.SetEnabled(!id.empty());
  fraWorkflow2.SetEnabled(!id.empty());
}

// The workflow table on that row, or null. It is fetched only when there is an ID
// to look up: a database without the workflow add-on has no such table.
std::shared_ptr<host::HostTable> frmNewContract::FindWorkflow(const std::string& id) {
  std::shared_ptr<host::HostTable> workflows = Tables().Item(table::KELDO_Vorgaenge);
  workflows->Indexes().Select(index::ID, host::kFlagsUsual);
  return workflows->SeekKey(id, host::kFlagsUsual) ? workflows : nullptr;
}

}  // namespace pactora::newcontract
