// What a saved contract causes at its address: an attribute, or the host's macro
// that sets it together with a workflow.
#include "host/row.h"
#include "newcontract/columns.h"
#include "newcontract/frmNewContract.h"
#include "schema/names.h"
#include "shell/handlers.h"

namespace pactora::newcontract {

namespace field = schema::field;
namespace macro = schema::macro;

namespace {

// The host's answer to an attribute that the address has already.
constexpr std::int32_t kAttributeExists = platform::ErrorNumber(0x80041096);

// The procedure, or null when any name on the way to it is missing.
std::shared_ptr<host::HostProcedure> FindMacro(host::HostApp& app) {
  const auto project = app.MacroHost().Projects(macro::Project);
  const auto item = project ? project->ProjectItems(macro::vv_Macros) : nullptr;
  return item ? item->Procedures(macro::vv_CreateAttribute) : nullptr;
}

}  // namespace

void frmNewContract::FollowUp(const SetAttribute& attribute, DefinitionSource& source,
                              const Validity& validity) {
  if (attribute.attribute.empty()) return;
  const std::string row_name = lvwBezeichnung.Text(lvwBezeichnung.SelectedRow());
  const std::string number = txtVertragnummer.Text() + " / ";
  if (chkWorkflow.Checked()) {
    RunAttributeMacro(attribute, number + row_name, validity);
  } else {
    WriteAttribute(attribute, number + source.AttributeTitle(row_name), validity);
  }
}

// The macro does the work. Whether it exists and succeeds is its own affair: the
// contract counts as saved in any case.
void frmNewContract::RunAttributeMacro(const SetAttribute& attribute,
                                       const std::string& description, const Validity& validity) {
  shell::IgnoringErrors(nullptr, [&] {
    if (!module_.gHostApp) return;
    const std::shared_ptr<host::HostProcedure> procedure = FindMacro(*module_.gHostApp);
    if (!procedure) return;
    host::ValueArray args = {
        attribute.group, attribute.attribute, attribute.value, description,
        validity.from,   validity.until,      cmbUser.Text(),  optDefinierteBenutzer.Value()};
    procedure->Run(args);
  });
  shell::IgnoringErrors(nullptr, [&] { module_.environment.screen.ProcessPendingMessages(); });
}

// A field that cannot be written is passed over and the row stored without it; the
// last error decides how the save ends. Only without a row of its own nothing is
// written: the fields would go into another attribute of the address.
void frmNewContract::WriteAttribute(const SetAttribute& attribute, const std::string& description,
                                    const Validity& validity) {
  std::optional<platform::Error> error;
  const auto step = [&error](auto&& body) {
    platform::Error raised(0, "");
    const bool done = shell::IgnoringErrors(&raised, body);
    if (!done) error = raised;
    return done;
  };
  host::HostTable& row = *moAdressmerkmale;
  if (step([&] { BeginNewRow(row); })) {
    const auto write = [&](std::string_view name, const host::Value& value) {
      step([&] { Set(row, name, value); });
    };
    if (!attribute.group.empty()) write(field::Gruppe, attribute.group);
    write(field::Merkmal, attribute.attribute);
    write(field::Wert, attribute.value);
    write(field::GültigVom, validity.from);
    write(field::GültigBis, host::DateOrNone(validity.until));
    write(field::Beschreibung, description);
    step([&] { row.StoreNew(host::kFlagsNone); });
  }
  if (error && error->Number() != kAttributeExists) throw platform::Error(*error);
}

}  // namespace pactora::newcontract
