// Settings and persistent variables of a host that is reached by automation.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "component/host/Connection.h"
#include "host/Settings.h"

namespace pactora::component {

class AutomationSetting final : public host::HostSetting {
 public:
  explicit AutomationSetting(LateBound object) : object_(std::move(object)) {}

  host::Value Value() const override { return ToValue(object_.Get(L"Value").Get()); }
  void SetValue(const host::Value& value) override { object_.Put(L"Value", value); }

 private:
  LateBound object_;
};

class AutomationSettings final : public host::HostSettings {
 public:
  // The store that is the property of that name. Connection and owner must outlive it.
  AutomationSettings(Connection& connection, const LateBound& owner, const char* name)
      : connection_(connection), object_(connection, owner, name) {}

  bool Exists(std::string_view name) override;
  host::HostSetting& Item(std::string_view name) override;
  host::HostSetting& Add(std::string_view name, const host::Value& value) override;

 private:
  host::HostSetting& Keep(std::string_view name, const Variant& setting);

  Connection& connection_;
  Child object_;
  std::map<std::string, AutomationSetting> entries_;  // what was handed out stays
};

class AutomationPersistVar final : public host::HostPersistVar {
 public:
  explicit AutomationPersistVar(LateBound object) : object_(std::move(object)) {}

  std::string Name() const override;
  host::Value Value() const override { return ToValue(object_.Get(L"Value").Get()); }
  void SetValue(const host::Value& value) override { object_.Put(L"Value", value); }
  bool ReadOnly() const override;

 private:
  LateBound object_;
};

class AutomationPersistVars final : public host::HostPersistVars {
 public:
  AutomationPersistVars(Connection& connection, const LateBound& owner)
      : connection_(connection), object_(connection, owner, "PersistVars") {}

  // By the collection's enumerator or, where it has none, by Count and Item from 1.
  void ForEach(const std::function<bool(host::HostPersistVar&)>& visit) override;
  host::HostPersistVar* Item(std::string_view name) override;
  bool Exists(std::string_view name) override;
  host::HostPersistVar& Add(std::string_view name, const host::Value& value) override;

 private:
  AutomationPersistVar& Keep(std::string_view name, const Variant& variable);
  Ref<IEnumVARIANT> Enumerator();

  Connection& connection_;
  Child object_;
  std::map<std::string, AutomationPersistVar> entries_;  // what was handed out stays
};

}  // namespace pactora::component
