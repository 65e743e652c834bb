#include "embedded/LiveProfile.h"

#include <algorithm>
#include <utility>

#include "embedded/errors.h"
#include "platform/Text.h"

namespace pactora::embedded {

// ---------------------------------------------------------------- entries

std::string LiveEntry::Name() const { return setting_.name; }

host::Value LiveEntry::Value() const {
  core_.Begin("Setting.Value");
  return setting_.value;
}

void LiveEntry::SetValue(const host::Value& value) {
  core_.Begin("Setting.SetValue");
  store::Setting changed = setting_;
  changed.value = value;
  core_.Store().WriteSetting(changed);
  setting_ = std::move(changed);
}

bool LiveEntry::ReadOnly() const { return setting_.read_only; }

bool LiveSettings::Exists(std::string_view name) {
  profile_.GetCore().Begin("Settings.Exists");
  profile_.Refresh();
  return profile_.Find(scope_, owner_, name) != nullptr;
}

host::HostSetting& LiveSettings::Item(std::string_view name) {
  profile_.GetCore().Begin("Settings.Item");
  LiveEntry* entry = profile_.Find(scope_, owner_, name);
  if (entry == nullptr) Raise(HostError::UnknownName, name);
  return *entry;
}

host::HostSetting& LiveSettings::Add(std::string_view name, const host::Value& value) {
  profile_.GetCore().Begin("Settings.Add");
  return profile_.Add(scope_, owner_, name, value);
}

void LivePersistVars::ForEach(const std::function<bool(host::HostPersistVar&)>& visit) {
  profile_.GetCore().Begin("PersistVars.ForEach");
  profile_.Refresh();
  for (const auto& entry : profile_.Entries()) {
    if (entry->Setting().scope == store::SettingScope::PersistVar && !visit(*entry)) return;
  }
}

host::HostPersistVar* LivePersistVars::Item(std::string_view name) {
  profile_.GetCore().Begin("PersistVars.Item");
  profile_.Refresh();
  return profile_.Find(store::SettingScope::PersistVar, {}, name);
}

bool LivePersistVars::Exists(std::string_view name) {
  profile_.GetCore().Begin("PersistVars.Exists");
  profile_.Refresh();
  return profile_.Find(store::SettingScope::PersistVar, {}, name) != nullptr;
}

host::HostPersistVar& LivePersistVars::Add(std::string_view name, const host::Value& value) {
  profile_.GetCore().Begin("PersistVars.Add");
  return profile_.Add(store::SettingScope::PersistVar, {}, name, value);
}

// ---------------------------------------------------------------- users

LiveUser::LiveUser(LiveProfile& profile, std::string name)
    : name_(std::move(name)),
      public_settings_(profile, store::SettingScope::PublicUser, name_),
      private_settings_(profile, store::SettingScope::PrivateUser, name_) {}

std::int32_t LiveUsers::Count() {
  profile_.GetCore().Begin("Users.Count");
  profile_.Refresh();
  return static_cast<std::int32_t>(profile_.UserCount());
}

host::HostUser& LiveUsers::Item(std::int32_t index) {
  profile_.GetCore().Begin("Users.Item");
  if (index < 0 || static_cast<std::size_t>(index) >= profile_.UserCount()) {
    platform::Raise(platform::RuntimeError::IndexOutOfRange);
  }
  return profile_.UserAt(static_cast<std::size_t>(index));
}

host::HostUser& LiveUsers::CurrentUser() {
  profile_.GetCore().Begin("Users.CurrentUser");
  return profile_.UserNamed(profile_.CurrentUserName());
}

// ---------------------------------------------------------------- profile

LiveProfile::LiveProfile(Core& core)
    : core_(core),
      db_settings_(*this, store::SettingScope::Database, {}),
      persist_vars_(*this),
      users_(*this) {
  stamp_ = core_.Store().ProfileStamp();
  Reload();
}

void LiveProfile::Refresh() {
  const std::int64_t stamp = core_.Store().ProfileStamp();
  if (stamp == stamp_) return;
  stamp_ = stamp;
  Reload();
}

void LiveProfile::Reload() {
  profile_ = core_.Store().ReadProfile();
  std::vector<std::unique_ptr<LiveEntry>> before = std::exchange(entries_, {});
  for (store::Setting& setting : profile_.settings) {
    const auto known = std::find_if(before.begin(), before.end(), [&](const auto& entry) {
      return entry != nullptr && entry->Setting().scope == setting.scope &&
             entry->Setting().owner == setting.owner && entry->Setting().name == setting.name;
    });
    if (known != before.end()) {
      (*known)->Replace(std::move(setting));
      entries_.push_back(std::move(*known));
    } else {
      entries_.push_back(std::make_unique<LiveEntry>(core_, std::move(setting)));
    }
  }
  for (auto& entry : before) {
    if (entry != nullptr) removed_entries_.push_back(std::move(entry));
  }
  profile_.settings.clear();
}

LiveSettings& LiveProfile::TableSettings(const std::string& table) {
  return table_settings_.try_emplace(table, *this, store::SettingScope::Table, table).first->second;
}

LiveEntry* LiveProfile::Find(store::SettingScope scope, std::string_view owner,
                             std::string_view name) {
  for (const auto& entry : entries_) {
    const store::Setting& setting = entry->Setting();
    if (setting.scope == scope && platform::EqualsIgnoringCase(setting.name, name) &&
        platform::EqualsIgnoringCase(setting.owner, owner)) {
      return entry.get();
    }
  }
  return nullptr;
}

LiveEntry& LiveProfile::Add(store::SettingScope scope, const std::string& owner,
                            std::string_view name, const host::Value& value) {
  if (Find(scope, owner, name) != nullptr) Raise(HostError::NameTaken, name);
  store::Setting setting{scope, owner, std::string(name), value, false};
  core_.Store().WriteSetting(setting);
  entries_.push_back(std::make_unique<LiveEntry>(core_, std::move(setting)));
  return *entries_.back();
}

LiveUser& LiveProfile::UserAt(std::size_t index) { return UserNamed(profile_.users[index]); }

LiveUser& LiveProfile::UserNamed(const std::string& name) {
  return user_objects_.try_emplace(name, *this, name).first->second;
}

}  // namespace pactora::embedded
