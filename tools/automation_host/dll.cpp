// The class Pactora.AutomationHost: a database in memory, filled from a dataset.
#include <windows.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>

#include "automation/dataset/dataset_export.h"
#include "automation/dataset/dataset_import.h"
#include "automation_host/Served.h"
#include "automation_host/serve_host.h"
#include "component/com/ClassFactory.h"
#include "component/com/class_keys.h"
#include "component/com/text.h"
#include "component/com/values.h"
#include "embedded/Host.h"
#include "store/memory/MemoryStore.h"

namespace pactora::automation_host {
namespace {

using component::CreatableClass;

const CreatableClass kClass = {
    L"Pactora.AutomationHost",
    {0x0b1f6a5c, 0x52d3, 0x4c7e, {0x9d, 0x0e, 0x3f, 0x61, 0xa8, 0x2c, 0x77, 0x14}}};

constexpr std::int32_t kFileFailed = 57;  // input and output failed, as scripts know it

std::filesystem::path PathIn(const Arguments& args) {
  return component::Wide(host::ToText(args.at(0)));
}

[[noreturn]] void RaiseFile(const std::filesystem::path& path) {
  throw platform::Error(kFileFailed, "Datei nicht lesbar oder nicht schreibbar: " +
                                         component::Narrow(path.wstring()));
}

class Database {
 public:
  Database() { Use(schema::ContractCatalog(true)); }

  std::shared_ptr<host::HostApp> App() { return host_->App(); }

  void Load(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    if (!(text << in.rdbuf())) RaiseFile(path);
    const auto source = formats::MemorySource(component::Narrow(path.wstring()), text.str());
    const dataset::DatasetSurvey survey = dataset::SurveyDataset(source);
    Use(schema::ContractCatalog(survey.workflow_add_on));
    dataset::ImportDataset(host_->Store(), source, survey, kName);
    host_->DropUnit();  // the host reads what the dataset says of users and settings
  }

  void Save(const std::filesystem::path& path) {
    host_->EndUnit();
    std::ofstream out(path, std::ios::binary);
    dataset::ExportDataset(host_->Store(), out);
    out.close();
    if (!out) RaiseFile(path);
  }

 private:
  static constexpr const char* kName = "PACTORA";

  void Use(const schema::Catalog& catalog) {
    host_ = std::make_unique<embedded::Host>(
        store::CreateMemoryStore(catalog, store::DefaultProfile(kName)));
  }

  std::unique_ptr<embedded::Host> host_;
};

IUnknown* MakeDatabase() {
  const auto database = std::make_shared<Database>();
  const auto does = [](auto body) {
    return [body](const Arguments& args) {
      if (args.size() != 1) platform::Raise(platform::RuntimeError::InvalidArgument);
      body(PathIn(args));
      return host::Value();
    };
  };
  const host::Value object = Serve({
      {L"App", [database](const Arguments&) { return ServeApp(database->App()); }, nullptr},
      {L"Load", does([database](const auto& path) { database->Load(path); }), nullptr},
      {L"Save", does([database](const auto& path) { database->Save(path); }), nullptr},
  });
  return component::ObjectIn(component::Variant(object).Get()).Detach();
}

}  // namespace
}  // namespace pactora::automation_host

// The system's headers declare them.
STDAPI DllGetClassObject(REFCLSID class_id, REFIID id, LPVOID* object) {
  static pactora::component::ClassFactory factory(pactora::automation_host::MakeDatabase);
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (class_id != pactora::automation_host::kClass.id) return CLASS_E_CLASSNOTAVAILABLE;
  return factory.QueryInterface(id, object);
}

STDAPI DllCanUnloadNow() {
  const bool held = pactora::automation_host::traffic.objects != 0;
  return held || pactora::component::IsInUse() ? S_FALSE : S_OK;
}

STDAPI DllRegisterServer() {
  return pactora::component::ForMachineOrUser([](HKEY root) {
    pactora::component::EnterClass(root, pactora::automation_host::kClass, {});
  });
}

STDAPI DllUnregisterServer() {
  return pactora::component::ForMachineAndUser(
      [](HKEY root) { pactora::component::RemoveClass(root, pactora::automation_host::kClass); });
}
