// The embedded host's application object and its macro environment.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "embedded/Core.h"
#include "host/HostApp.h"

namespace pactora::embedded {

class LiveSelection final : public host::HostSelection {
 public:
  explicit LiveSelection(Core& core) : core_(core) {}

  host::ObjectRef Current() override;
  void SetCurrent(const host::ObjectRef& object) override;

 private:
  Core& core_;
  host::ObjectRef current_;
};

// The macros that the database lists, reached by project, module and name.
class LiveMacroHost final : public host::HostMacroHost {
 public:
  explicit LiveMacroHost(Core& core) : core_(core) {}

  std::shared_ptr<host::HostProject> Projects(std::string_view name) override;

 private:
  Core& core_;
};

class LiveApp final : public host::HostApp {
 public:
  explicit LiveApp(Core& core);

  std::shared_ptr<host::HostDb> CurrentDb() override;
  bool ApplicationFlag() override;
  void SetApplicationFlag(bool flag) override;
  host::HostSelection& SelectionA() override { return selection_a_; }
  host::HostSelection& SelectionB() override { return selection_b_; }
  host::HostSelection& SelectionC() override { return selection_c_; }
  void ActivateSelectionC(const host::ObjectRef& object) override;
  host::HostMacroHost& MacroHost() override;

 private:
  Core& core_;
  bool flag_ = false;
  LiveSelection selection_a_;
  LiveSelection selection_b_;
  LiveSelection selection_c_;
  LiveMacroHost macros_;
};

}  // namespace pactora::embedded
