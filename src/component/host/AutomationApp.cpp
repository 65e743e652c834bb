#include "component/host/AutomationApp.h"

#include <utility>

#include "component/com/failures.h"
#include "component/host/AutomationDb.h"

namespace pactora::component {
namespace {

// The member of that name of a list of macros. Where the list is a property without
// arguments, it is asked for first and its member then.
Ref<IDispatch> Look(const LateBound& owner, std::wstring_view list, std::string_view name) {
  constexpr HRESULT kWrongNumberOfArguments = static_cast<HRESULT>(0x800A01C2);
  try {
    return ObjectIn(owner.Get(list, name).Get());
  } catch (const platform::Error& error) {
    if (error.Number() != DISP_E_BADPARAMCOUNT &&
        error.Number() != NumberOf(kWrongNumberOfArguments)) {
      throw;
    }
    return ObjectIn(LateBound(ObjectIn(owner.Get(list).Get())).Get(L"Item", name).Get());
  }
}

class AutomationProjectItem final : public host::HostProjectItem {
 public:
  explicit AutomationProjectItem(Ref<IDispatch> object) : object_(std::move(object)) {}
  std::shared_ptr<host::HostProcedure> Procedures(std::string_view name) override {
    auto found = Look(object_, L"Procedures", name);
    if (!found) return nullptr;
    return std::make_shared<AutomationProcedure>(LateBound(std::move(found)));
  }

 private:
  LateBound object_;
};

class AutomationProject final : public host::HostProject {
 public:
  explicit AutomationProject(Ref<IDispatch> object) : object_(std::move(object)) {}
  std::shared_ptr<host::HostProjectItem> ProjectItems(std::string_view name) override {
    auto found = Look(object_, L"ProjectItems", name);
    if (!found) return nullptr;
    return std::make_shared<AutomationProjectItem>(std::move(found));
  }

 private:
  LateBound object_;
};

}  // namespace

host::ObjectRef AutomationSelection::Current() {
  return host::ToObject(ToValue(object_->Get(L"Current").Get()));
}

void AutomationSelection::SetCurrent(const host::ObjectRef& object) {
  object_->Put(L"Current", object);
}

void AutomationProcedure::Run(host::ValueArray& args) {
  Variant array{host::Value(args)};
  object_.Call(L"Run", Variant::Reference(*array.Put()));
  args = ToValue(array.Get()).AsArray();
}

std::shared_ptr<host::HostProject> AutomationMacroHost::Projects(std::string_view name) {
  auto found = Look(*object_, L"Projects", name);
  if (!found) return nullptr;
  return std::make_shared<AutomationProject>(std::move(found));
}

AutomationApp::AutomationApp(Ref<IDispatch> object)
    : connection_(std::make_shared<Connection>()),
      object_(connection_->Bind(std::move(object), "App")),
      selection_a_(*connection_, object_, "SelectionA"),
      selection_b_(*connection_, object_, "SelectionB"),
      selection_c_(*connection_, object_, "SelectionC"),
      macro_host_(*connection_, object_) {}

std::shared_ptr<host::HostDb> AutomationApp::CurrentDb() {
  return std::make_shared<AutomationDb>(connection_,
                                        connection_->Bind(object_.Get(L"CurrentDb"), "Db"));
}

bool AutomationApp::ApplicationFlag() {
  return host::ToBoolean(ToValue(object_.Get(L"ApplicationFlag").Get()));
}

}  // namespace pactora::component
