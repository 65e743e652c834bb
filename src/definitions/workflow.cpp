// The workflow that a renewal starts.
#include <algorithm>
#include <cstddef>

#include "definitions/frmFEditDefinitions.h"
#include "definitions/loading_scope.h"
#include "definitions/tables.h"
#include "host/row.h"
#include "schema/names.h"

namespace pactora::definitions {

void frmFEditDefinitions::FillWorkflows() {
  moVorgaenge = OpenTable(module_, schema::table::KELDO_Vorgaenge);
  host::HostTable& workflows = *moVorgaenge;
  workflows.Indexes().SelectNone(host::kFlagsUsual);
  cboWorkflow.AddItem("<kein Workflow>");
  msWorkflowIDs.assign(1, "");
  for (workflows.MoveFirst(host::kFlagsUsual); !workflows.Eof();
       workflows.MoveNext(1, host::kFlagsUsual)) {
    if (GetText(workflows, schema::field::Status) != schema::kReleased) continue;
    cboWorkflow.AddItem(GetText(workflows, schema::field::Betreff));
    msWorkflowIDs.push_back(GetText(workflows, schema::field::ID));
  }
  cboWorkflow.SetListIndex(0);
}

void frmFEditDefinitions::EnableWorkflowSelection(bool enabled) {
  Report("EnableWorkflowSelection", [&] {
    const LoadingScope loading(mbLoading);
    // The choice is kept while it cannot be made, and comes back with it. An ID
    // that is not offered shows as no workflow.
    std::size_t place = 0;
    if (enabled && !msWorkflowID.empty()) {
      const auto found = std::ranges::find(msWorkflowIDs, msWorkflowID);
      if (found != msWorkflowIDs.end()) {
        place = static_cast<std::size_t>(found - msWorkflowIDs.begin());
      }
    }
    cboWorkflow.SetListIndex(static_cast<std::int32_t>(place));
    cboWorkflow.SetEnabled(enabled);
    lblWorkflow.SetEnabled(enabled);
    fraWF.SetEnabled(enabled);
  });
}

void frmFEditDefinitions::cboWorkflow_Click() {
  Report("cboWorkflow_Click()", [this] {
    if (!mbLoading) msWorkflowID = ChosenWorkflowID();
  });
}

std::string frmFEditDefinitions::ChosenWorkflowID() const {
  const auto place = static_cast<std::size_t>(cboWorkflow.ListIndex());
  if (place >= msWorkflowIDs.size()) platform::Raise(platform::RuntimeError::IndexOutOfRange);
  return msWorkflowIDs[place];
}

}  // namespace pactora::definitions
