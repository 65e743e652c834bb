// The open database of a host that is reached by automation.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "component/host/AutomationSettings.h"
#include "component/host/Connection.h"
#include "host/HostDb.h"

namespace pactora::component {

class AutomationTables final : public host::HostTables, public host::HostDbInfo {
 public:
  AutomationTables(ConnectionRef connection, const LateBound& database)
      : connection_(std::move(connection)), object_(*connection_, database, "Tables") {}

  std::shared_ptr<host::HostTable> Item(std::string_view name) override;
  host::HostDbInfo& Database() override { return *this; }

  std::string Name() override;
  std::string DisplayName(std::int32_t flags) override;

 private:
  LateBound Info();

  ConnectionRef connection_;
  Child object_;
};

class AutomationUser final : public host::HostUser {
 public:
  AutomationUser(Connection& connection, LateBound object)
      : object_(std::move(object)),
        public_settings_(connection, object_, "PublicSettings"),
        private_settings_(connection, object_, "PrivateSettings") {}
  AutomationUser(const AutomationUser&) = delete;
  AutomationUser& operator=(const AutomationUser&) = delete;

  std::string Name() override;
  host::HostSettings& PublicSettings() override { return public_settings_; }
  host::HostSettings& PrivateSettings() override { return private_settings_; }

 private:
  LateBound object_;
  AutomationSettings public_settings_;
  AutomationSettings private_settings_;
};

class AutomationUsers final : public host::HostUsers {
 public:
  AutomationUsers(Connection& connection, const LateBound& database)
      : connection_(connection), object_(connection, database, "Users") {}

  std::int32_t Count() override;
  host::HostUser& Item(std::int32_t index) override;
  host::HostUser& CurrentUser() override;

 private:
  host::HostUser& Keep(std::int32_t index, const Variant& user);

  Connection& connection_;
  Child object_;
  std::map<std::int32_t, AutomationUser> users_;  // the current user is -1
};

class AutomationFormula final : public host::HostFormula {
 public:
  explicit AutomationFormula(LateBound object) : object_(std::move(object)) {}
  host::Value Eval(std::int32_t flags) override {
    return ToValue(object_.Get(L"Eval", flags).Get());
  }

 private:
  LateBound object_;
};

class AutomationFormulas final : public host::HostFormulas {
 public:
  AutomationFormulas(Connection& connection, const LateBound& database)
      : connection_(connection), object_(connection, database, "Formulas") {}

  std::shared_ptr<host::HostFormula> Compile(std::string_view text, std::int32_t flags) override;
  host::HostPersistVars& PersistVars() override;

 private:
  Connection& connection_;
  Child object_;
  std::optional<AutomationPersistVars> persist_vars_;
};

class AutomationDb final : public host::HostDb {
 public:
  AutomationDb(const ConnectionRef& connection, LateBound object)
      : object_(std::move(object)),
        tables_(connection, object_),
        users_(*connection, object_),
        formulas_(*connection, object_),
        settings_(*connection, object_, "DbSettings") {}
  AutomationDb(const AutomationDb&) = delete;
  AutomationDb& operator=(const AutomationDb&) = delete;

  host::HostTables& Tables() override { return tables_; }
  host::HostUsers& Users() override { return users_; }
  host::HostFormulas& Formulas() override { return formulas_; }
  host::HostSettings& DbSettings() override { return settings_; }

 private:
  LateBound object_;
  AutomationTables tables_;
  AutomationUsers users_;
  AutomationFormulas formulas_;
  AutomationSettings settings_;
};

}  // namespace pactora::component
