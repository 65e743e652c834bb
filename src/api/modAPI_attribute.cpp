// The address attribute that a contract sets.
#include <optional>
#include <utility>

#include "api/modAPI.h"
#include "api/vv_CContractD.h"
#include "host/Value.h"
#include "host/row.h"
#include "shell/handlers.h"

namespace pactora::api {

namespace {

namespace field = schema::field;

// The host's answer for an attribute that it does not store and that counts as
// set all the same.
constexpr std::int32_t kAttributeNotStored = platform::ErrorNumber(0x80041096);

// Runs steps one after the other whatever becomes of each, and keeps the last
// error.
class Steps {
 public:
  template <typename Step>
  void operator()(Step&& step) {
    platform::Error error(0, {});
    if (!shell::IgnoringErrors(&error, std::forward<Step>(step))) last_error_ = error;
  }
  const std::optional<platform::Error>& LastError() const { return last_error_; }

 private:
  std::optional<platform::Error> last_error_;
};

}  // namespace

void CreateAttribute(shell::Module& module) {
  shell::RaisingAgain(shell::module_name::modAPI, "CreateAttribute", [&] {
    const vv_CContractD& contract = *module.gApiContract;
    if (contract.SetztMerkmal.empty() || contract.SetztWert.empty()) return;

    const std::shared_ptr<host::HostTable> attributes =
        module.gDb->Tables().Item(schema::table::Adressmerkmale);
    ShowAllRows(*attributes, host::kFlagsUsual);

    Steps run;
    const auto write = [&](std::string_view name, const host::Value& value) {
      run([&] { Set(*attributes, name, value); });
    };
    run([&] { BeginNewRow(*attributes); });
    if (!contract.SetztMerkmalGruppe.empty()) write(field::Gruppe, contract.SetztMerkmalGruppe);
    write(field::Merkmal, contract.SetztMerkmal);
    write(field::Wert, contract.SetztWert);
    write(field::GültigVom, contract.VertragBeginn);
    write(field::GültigBis, module.gApiVertragEnde);
    write(field::Beschreibung, module.gApiVertragnummer + " / " + contract.Bezeichnung);
    run([&] { attributes->StoreNew(host::kFlagsNone); });

    const auto& error = run.LastError();
    if (error && error->Number() != kAttributeNotStored) {
      throw platform::Error(*error);
    }
  });
}

}  // namespace pactora::api
