// Key-value stores and persistent variables of the host.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "host/Value.h"

namespace pactora::host {

// One entry of a HostSettings store; lives as long as its database.
class HostSetting {
 public:
  virtual ~HostSetting() = default;
  virtual host::Value Value() const = 0;
  virtual void SetValue(const host::Value& value) = 0;
};

// A store of entries by name; names are compared without regard to case.
class HostSettings {
 public:
  virtual ~HostSettings() = default;
  virtual bool Exists(std::string_view name) = 0;
  // Raises an error when there is no entry of that name.
  virtual HostSetting& Item(std::string_view name) = 0;
  // Creates the entry; raises an error when the name is taken.
  virtual HostSetting& Add(std::string_view name, const host::Value& value) = 0;
};

// A named variable of the database. The value of a lookup list is an array of
// texts.
class HostPersistVar {
 public:
  virtual ~HostPersistVar() = default;
  virtual std::string Name() const = 0;
  virtual host::Value Value() const = 0;
  virtual void SetValue(const host::Value& value) = 0;
  virtual bool ReadOnly() const = 0;
};

class HostPersistVars {
 public:
  virtual ~HostPersistVars() = default;
  // Calls visit for each variable from first to last until it returns false.
  virtual void ForEach(const std::function<bool(HostPersistVar&)>& visit) = 0;
  // Null when there is no variable of that name.
  virtual HostPersistVar* Item(std::string_view name) = 0;
  virtual bool Exists(std::string_view name) = 0;
  virtual HostPersistVar& Add(std::string_view name, const host::Value& value) = 0;
};

}  // namespace pactora::host
