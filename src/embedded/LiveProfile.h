// Users, settings and persistent variables of the open database, kept in step
// with what other users write.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "embedded/Core.h"
#include "host/HostDb.h"
#include "host/Settings.h"
#include "store/Profile.h"

namespace pactora::embedded {

class LiveProfile;

// One entry: a setting of any store or a persistent variable.
class LiveEntry final : public host::HostSetting, public host::HostPersistVar {
 public:
  LiveEntry(Core& core, store::Setting setting) : core_(core), setting_(std::move(setting)) {}

  std::string Name() const override;
  host::Value Value() const override;
  void SetValue(const host::Value& value) override;
  bool ReadOnly() const override;

  const store::Setting& Setting() const { return setting_; }
  // Takes over what another user wrote.
  void Replace(store::Setting setting) { setting_ = std::move(setting); }

 private:
  Core& core_;
  store::Setting setting_;
};

// The settings of one scope and owner.
class LiveSettings final : public host::HostSettings {
 public:
  LiveSettings(LiveProfile& profile, store::SettingScope scope, std::string owner)
      : profile_(profile), scope_(scope), owner_(std::move(owner)) {}

  bool Exists(std::string_view name) override;
  host::HostSetting& Item(std::string_view name) override;
  host::HostSetting& Add(std::string_view name, const host::Value& value) override;

 private:
  LiveProfile& profile_;
  const store::SettingScope scope_;
  const std::string owner_;
};

class LivePersistVars final : public host::HostPersistVars {
 public:
  explicit LivePersistVars(LiveProfile& profile) : profile_(profile) {}

  void ForEach(const std::function<bool(host::HostPersistVar&)>& visit) override;
  host::HostPersistVar* Item(std::string_view name) override;
  bool Exists(std::string_view name) override;
  host::HostPersistVar& Add(std::string_view name, const host::Value& value) override;

 private:
  LiveProfile& profile_;
};

class LiveUser final : public host::HostUser {
 public:
  LiveUser(LiveProfile& profile, std::string name);

  std::string Name() override { return name_; }
  host::HostSettings& PublicSettings() override { return public_settings_; }
  host::HostSettings& PrivateSettings() override { return private_settings_; }

 private:
  const std::string name_;
  LiveSettings public_settings_;
  LiveSettings private_settings_;
};

class LiveUsers final : public host::HostUsers {
 public:
  explicit LiveUsers(LiveProfile& profile) : profile_(profile) {}

  std::int32_t Count() override;
  host::HostUser& Item(std::int32_t index) override;
  host::HostUser& CurrentUser() override;

 private:
  LiveProfile& profile_;
};

class LiveProfile {
 public:
  explicit LiveProfile(Core& core);

  LiveSettings& DbSettings() { return db_settings_; }
  LivePersistVars& PersistVars() { return persist_vars_; }
  LiveUsers& Users() { return users_; }
  LiveSettings& TableSettings(const std::string& table);

  const std::string& Name() const { return profile_.name; }
  const std::string& DisplayName() const { return profile_.display_name; }
  const std::vector<store::Macro>& Macros() const { return profile_.macros; }

  // Reads what another user wrote since. Entries and users handed out before stay
  // valid.
  void Refresh();
  void Reload();

  Core& GetCore() { return core_; }
  // Null when there is none.
  LiveEntry* Find(store::SettingScope scope, std::string_view owner, std::string_view name);
  // Raises NameTaken.
  LiveEntry& Add(store::SettingScope scope, const std::string& owner, std::string_view name,
                 const host::Value& value);
  const std::vector<std::unique_ptr<LiveEntry>>& Entries() const { return entries_; }

  std::size_t UserCount() const { return profile_.users.size(); }
  LiveUser& UserAt(std::size_t index);
  LiveUser& UserNamed(const std::string& name);
  const std::string& CurrentUserName() const { return profile_.current_user; }

 private:
  Core& core_;
  store::Profile profile_;  // its settings are moved into entries_
  std::int64_t stamp_ = 0;
  std::vector<std::unique_ptr<LiveEntry>> entries_;
  std::vector<std::unique_ptr<LiveEntry>> removed_entries_;
  std::map<std::string, LiveUser, std::less<>> user_objects_;
  std::map<std::string, LiveSettings, std::less<>> table_settings_;
  LiveSettings db_settings_;
  LivePersistVars persist_vars_;
  LiveUsers users_;
};

}  // namespace pactora::embedded
