// The application object, root of the host's object model, its macro
// environment and its error texts.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "host/HostDb.h"
#include "host/Value.h"

namespace pactora::host {

// One of the three holders of the application's current objects.
class HostSelection {
 public:
  virtual ~HostSelection() = default;
  virtual ObjectRef Current() = 0;
  virtual void SetCurrent(const ObjectRef& object) = 0;
};

class HostProcedure {
 public:
  virtual ~HostProcedure() = default;
  // Runs the macro. The macro may change the arguments.
  virtual void Run(ValueArray& args) = 0;
};

// The macro environment. Projects, modules and procedures are plain name
// look-ups that give null when the name is missing.
class HostProjectItem {
 public:
  virtual ~HostProjectItem() = default;
  virtual std::shared_ptr<HostProcedure> Procedures(std::string_view name) = 0;
};

class HostProject {
 public:
  virtual ~HostProject() = default;
  virtual std::shared_ptr<HostProjectItem> ProjectItems(std::string_view name) = 0;
};

class HostMacroHost {
 public:
  virtual ~HostMacroHost() = default;
  virtual std::shared_ptr<HostProject> Projects(std::string_view name) = 0;
};

class HostApp : public Object {
 public:
  // The database that is open in the host; raises an error when there is none.
  virtual std::shared_ptr<HostDb> CurrentDb() = 0;
  // A state of the application that is only copied away and put back.
  virtual bool ApplicationFlag() = 0;
  virtual void SetApplicationFlag(bool flag) = 0;
  virtual HostSelection& SelectionA() = 0;
  virtual HostSelection& SelectionB() = 0;
  virtual HostSelection& SelectionC() = 0;
  // Makes an object that SelectionC().Current() gave current again.
  virtual void ActivateSelectionC(const ObjectRef& object) = 0;
  virtual HostMacroHost& MacroHost() = 0;
};

// The host's texts for error numbers.
class HostErrorTexts {
 public:
  virtual ~HostErrorTexts() = default;
  // A text that describes the number; for an unknown number what the host says.
  virtual std::string Text(std::int32_t number) = 0;
};

}  // namespace pactora::host
