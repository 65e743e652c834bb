// The small company of the tests with the loaded component in it: its host is offered to
// automation, callers are early bound or scripts, and message boxes are answered.
#pragma once

#include <gtest/gtest.h>
#include <pactora2.h>

#include <string>
#include <vector>

#include "api/api_world.h"
#include "automation_host/Served.h"
#include "automation_host/serve_host.h"
#include "component/com/Ref.h"
#include "component/com/text.h"
#include "component/com/values.h"

namespace pactora::component {

// The component's file, loaded from beside the test program.
class LoadedComponent {
 public:
  LoadedComponent() : module_(LoadLibraryW(L"pactora2.dll")) {}
  ~LoadedComponent() { FreeLibrary(module_); }

  template <typename Function>
  Function* Export(const char* name) const {
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(module_, name)));
  }
  HRESULT Call(const char* name) const { return Export<HRESULT WINAPI()>(name)(); }

  template <typename Interface>
  Ref<Interface> Create(REFCLSID id) const {
    Ref<IClassFactory> factory;
    Ref<Interface> object;
    if (SUCCEEDED(Export<HRESULT WINAPI(REFCLSID, REFIID, void**)>("DllGetClassObject")(
            id, IID_IClassFactory, factory.PutVoid()))) {
      factory->CreateInstance(nullptr, __uuidof(Interface), object.PutVoid());
    }
    return object;
  }

 private:
  HMODULE module_;
};

// Closes the message boxes of its thread while it lives and writes them down.
class MessageBoxes {
 public:
  MessageBoxes();
  ~MessageBoxes();
  // Titles and texts in turn.
  static std::vector<std::string> seen;

 private:
  HHOOK hook_;
};

// A failure as callers see it.
struct Failure {
  HRESULT code = S_OK;
  std::string source;
  std::string description;

  friend bool operator==(const Failure&, const Failure&) = default;
  friend void PrintTo(const Failure& failure, std::ostream* out) {
    *out << std::hex << static_cast<unsigned long>(failure.code) << " " << failure.source << ": "
         << failure.description;
  }
};

// The failure of an early-bound call.
Failure FailureOf(HRESULT code);

// A caller's own collection.
host::Value ServeCollection(std::vector<host::Value> elements);

class ComponentTest : public testing::Test {
 protected:
  IDispatch* App() { return DispatchOf(app); }
  static IDispatch* DispatchOf(const host::Value& value) {
    return static_cast<const AutomationObject&>(*value.AsObject()).Dispatch();
  }

  // The records of the world as objects of the component, filled by name.
  host::Value Contract() { return Made(__uuidof(vv_CContractD), *world.contract); }
  host::Value Articles();
  host::Value Made(REFCLSID id, const api::Record& record);
  // NewContractDebitor by slot.
  Failure Debitor(const host::Value& contract, const host::Value& articles);
  Failure Debitor() { return Debitor(Contract(), Articles()); }

  // Runs a script, with the host as "Host" and "Note" to write results down.
  Failure Run(const std::string& script);
  std::vector<std::string> notes;

  LoadedComponent component;
  support::ApiWorld world;
  host::Value app = automation_host::ServeApp(world.host.App());
};

}  // namespace pactora::component
