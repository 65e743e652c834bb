#include "embedded/LiveApp.h"

#include <algorithm>
#include <utility>

#include "embedded/LiveDb.h"
#include "embedded/LiveProfile.h"
#include "embedded/errors.h"
#include "platform/Text.h"

namespace pactora::embedded {
namespace {

// Whether the path has the given parts first, names compared without case.
bool BeginsWith(std::string_view path, std::string_view parts) {
  const std::size_t length = platform::Length(parts);
  if (!platform::EqualsIgnoringCase(platform::FirstCharacters(path, length), parts)) return false;
  return platform::Length(path) == length ||
         path[platform::FirstCharacters(path, length).size()] == '/';
}

class LiveProcedure final : public host::HostProcedure {
 public:
  LiveProcedure(std::shared_ptr<Core> core, store::Macro macro)
      : core_(std::move(core)), macro_(std::move(macro)) {}

  void Run(host::ValueArray& args) override {
    core_->Begin("Run");
    if (core_->macro_listener) core_->macro_listener(macro_.path, args);
    if (macro_.fails) throw platform::Error(macro_.number, macro_.description, "Tessarin");
  }

 private:
  std::shared_ptr<Core> core_;
  store::Macro macro_;
};

class LiveProjectItem final : public host::HostProjectItem {
 public:
  LiveProjectItem(std::shared_ptr<Core> core, std::string path)
      : core_(std::move(core)), path_(std::move(path)) {}

  std::shared_ptr<host::HostProcedure> Procedures(std::string_view name) override {
    core_->Begin("Procedures");
    const std::string wanted = path_ + "/" + std::string(name);
    for (const store::Macro& macro : core_->Profile().Macros()) {
      if (platform::EqualsIgnoringCase(macro.path, wanted)) {
        return std::make_shared<LiveProcedure>(core_, macro);
      }
    }
    return nullptr;
  }

 private:
  std::shared_ptr<Core> core_;
  std::string path_;
};

bool HasMacrosUnder(Core& core, const std::string& path) {
  const auto& macros = core.Profile().Macros();
  return std::any_of(macros.begin(), macros.end(),
                     [&](const store::Macro& macro) { return BeginsWith(macro.path, path); });
}

class LiveProject final : public host::HostProject {
 public:
  LiveProject(std::shared_ptr<Core> core, std::string path)
      : core_(std::move(core)), path_(std::move(path)) {}

  std::shared_ptr<host::HostProjectItem> ProjectItems(std::string_view name) override {
    core_->Begin("ProjectItems");
    std::string path = path_ + "/" + std::string(name);
    if (!HasMacrosUnder(*core_, path)) return nullptr;
    return std::make_shared<LiveProjectItem>(core_, std::move(path));
  }

 private:
  std::shared_ptr<Core> core_;
  std::string path_;
};

}  // namespace

host::ObjectRef LiveSelection::Current() {
  core_.Begin("Selection.Current");
  return current_;
}

void LiveSelection::SetCurrent(const host::ObjectRef& object) {
  core_.Begin("Selection.SetCurrent");
  current_ = object;
}

std::shared_ptr<host::HostProject> LiveMacroHost::Projects(std::string_view name) {
  core_.Begin("Projects");
  std::string path(name);
  if (!HasMacrosUnder(core_, path)) return nullptr;
  return std::make_shared<LiveProject>(core_.shared_from_this(), std::move(path));
}

LiveApp::LiveApp(Core& core)
    : core_(core), selection_a_(core), selection_b_(core), selection_c_(core), macros_(core) {}

std::shared_ptr<host::HostDb> LiveApp::CurrentDb() {
  core_.Begin("CurrentDb");
  return core_.Handle<host::HostDb>(core_.Db());
}

bool LiveApp::ApplicationFlag() {
  core_.Begin("ApplicationFlag");
  return flag_;
}

void LiveApp::SetApplicationFlag(bool flag) {
  core_.Begin("SetApplicationFlag");
  flag_ = flag;
}

void LiveApp::ActivateSelectionC(const host::ObjectRef& object) {
  core_.Begin("ActivateSelectionC");
  selection_c_.SetCurrent(object);
}

host::HostMacroHost& LiveApp::MacroHost() {
  core_.Begin("MacroHost");
  return macros_;
}

}  // namespace pactora::embedded
