// The application object of a host that is reached by automation.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "component/host/Connection.h"
#include "host/HostApp.h"

namespace pactora::component {

class AutomationSelection final : public host::HostSelection {
 public:
  AutomationSelection(Connection& connection, const LateBound& app, const char* name)
      : object_(connection, app, name) {}

  host::ObjectRef Current() override;
  void SetCurrent(const host::ObjectRef& object) override;

 private:
  Child object_;
};

// A macro gets its values as one array by reference and may change them.
class AutomationProcedure final : public host::HostProcedure {
 public:
  explicit AutomationProcedure(LateBound object) : object_(std::move(object)) {}
  void Run(host::ValueArray& args) override;

 private:
  LateBound object_;
};

class AutomationMacroHost final : public host::HostMacroHost {
 public:
  AutomationMacroHost(Connection& connection, const LateBound& app)
      : object_(connection, app, "MacroHost") {}
  std::shared_ptr<host::HostProject> Projects(std::string_view name) override;

 private:
  Child object_;
};

class AutomationApp final : public host::HostApp {
 public:
  // Raises error 91 for a null object.
  explicit AutomationApp(Ref<IDispatch> object);
  AutomationApp(const AutomationApp&) = delete;
  AutomationApp& operator=(const AutomationApp&) = delete;

  std::shared_ptr<host::HostDb> CurrentDb() override;
  bool ApplicationFlag() override;
  void SetApplicationFlag(bool flag) override { object_.Put(L"ApplicationFlag", flag); }
  host::HostSelection& SelectionA() override { return selection_a_; }
  host::HostSelection& SelectionB() override { return selection_b_; }
  host::HostSelection& SelectionC() override { return selection_c_; }
  void ActivateSelectionC(const host::ObjectRef& object) override {
    object_.Call(L"ActivateSelectionC", host::Value(object));
  }
  host::HostMacroHost& MacroHost() override { return macro_host_; }

 private:
  ConnectionRef connection_;
  LateBound object_;
  AutomationSelection selection_a_;
  AutomationSelection selection_b_;
  AutomationSelection selection_c_;
  AutomationMacroHost macro_host_;
};

// Texts for error numbers by the host's own class, or the system's where that cannot be
// made.
std::shared_ptr<host::HostErrorTexts> CreateHostErrorTexts();

// The host's own global application object. Raises what making it raises.
std::shared_ptr<host::HostApp> GlobalHostApp();

}  // namespace pactora::component
