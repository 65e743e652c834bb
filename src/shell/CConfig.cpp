#include "shell/CConfig.h"

#include <optional>

#include "platform/Text.h"
#include "schema/names.h"
#include "shell/handlers.h"
#include "shell/leading_number.h"

namespace pactora::shell {

namespace {

constexpr std::size_t kKeyLength = 30;

std::string_view Key(std::string_view setting) {
  return platform::FirstCharacters(setting, kKeyLength);
}

bool SameText(const host::Value& a, std::string_view b) {
  return platform::EqualsIgnoringCase(host::ToText(a), b);
}

std::optional<std::string> Find(host::HostSettings& store, std::string_view key) {
  if (!store.Exists(key)) return std::nullopt;
  return host::ToText(store.Item(key).Value());
}

void Write(host::HostSettings& store, std::string_view key, std::string_view value) {
  if (!store.Exists(key)) {
    store.Add(key, value);
    return;
  }
  host::HostSetting& entry = store.Item(key);
  if (!SameText(entry.Value(), value)) entry.SetValue(value);
}

template <typename Body>
auto Raising(std::string_view procedure, Body&& body) {
  return RaisingAgain(module_name::CConfig, procedure, std::forward<Body>(body));
}

}  // namespace

host::HostDb& CConfig::Db() const {
  if (!mDb) platform::Raise(platform::RuntimeError::ObjectNotSet);
  return *mDb;
}

bool CConfig::CBoolean(const host::Value& vValue) {
  const std::string text = host::ToText(vValue);
  if (LeadingNumber(text) == -1.0) return true;
  const std::string lower = platform::LowerCase(text);
  return lower == "t" || lower == "true" || lower == "w" || lower == "wahr";
}

std::string CConfig::ReadPrivateSetting(std::string_view psSetting, std::string_view psDefault) {
  const std::string_view key = Key(psSetting);
  std::optional<std::string> found;
  if (!IgnoringErrors(nullptr,
                      [&] { found = Find(Db().Users().CurrentUser().PrivateSettings(), key); })) {
    return {};
  }
  if (found) return *found;
  if (!psDefault.empty()) {
    IgnoringErrors(nullptr, [&] { WritePrivateSetting(key, psDefault); });
  }
  return std::string(psDefault);
}

void CConfig::WritePrivateSetting(std::string_view psSetting, std::string_view psValue) {
  Raising("WritePrivateSetting",
          [&] { Write(Db().Users().CurrentUser().PrivateSettings(), Key(psSetting), psValue); });
}

std::string CConfig::ReadPublicSetting(std::string_view psSetting, std::string_view psDefault) {
  return Raising("ReadPublicSetting", [&] {
    const std::string_view key = Key(psSetting);
    if (auto found = Find(Db().Users().CurrentUser().PublicSettings(), key)) return *found;
    if (!psDefault.empty()) WritePublicSetting(key, psDefault);
    return std::string(psDefault);
  });
}

void CConfig::WritePublicSetting(std::string_view psSetting, std::string_view psValue) {
  Raising("WritePublicSetting",
          [&] { Write(Db().Users().CurrentUser().PublicSettings(), Key(psSetting), psValue); });
}

std::string CConfig::ReadDatabaseSetting(std::string_view psSetting, std::string_view psDefault) {
  return Raising("ReadDatabaseSetting", [&] {
    const std::string_view key = Key(psSetting);
    if (auto found = Find(Db().DbSettings(), key)) return *found;
    if (!psDefault.empty()) WriteDatabaseSetting(key, psDefault);
    return std::string(psDefault);
  });
}

void CConfig::WriteDatabaseSetting(std::string_view psSetting, std::string_view psValue) {
  Raising("WriteDatabaseSetting", [&] {
    if (mbSchreibenErlaubt) Write(Db().DbSettings(), Key(psSetting), psValue);
  });
}

std::string CConfig::ReadPersistVarSetting(std::string_view psSetting, std::string_view psDefault) {
  return Raising("ReadPersistVarSetting", [&] {
    const std::string_view key = Key(psSetting);
    host::HostPersistVars& variables = Db().Formulas().PersistVars();
    if (variables.Exists(key)) {
      host::HostPersistVar* variable = variables.Item(key);
      if (variable == nullptr) platform::Raise(platform::RuntimeError::ObjectNotSet);
      return host::ToText(variable->Value());
    }
    if (!psDefault.empty()) WritePersistVarSetting(key, psDefault);
    return std::string(psDefault);
  });
}

void CConfig::WritePersistVarSetting(std::string_view psSetting, const host::Value& psValue) {
  Raising("WritePersistVarSetting", [&] {
    const std::string_view key = Key(psSetting);
    host::HostPersistVars& variables = Db().Formulas().PersistVars();
    if (!variables.Exists(key)) {
      variables.Add(key, psValue);
      return;
    }
    host::HostPersistVar* variable = variables.Item(key);
    if (variable == nullptr) platform::Raise(platform::RuntimeError::ObjectNotSet);
    if (variable->ReadOnly() && !mbSchreibenErlaubt) return;
    if (!SameText(variable->Value(), host::ToText(psValue))) variable->SetValue(psValue);
  });
}

std::string CConfig::ReadTableSetting(const std::shared_ptr<host::HostTable>& pTable,
                                      std::string_view psSetting, std::string_view psDefault) {
  const std::string_view key = Key(psSetting);
  std::optional<std::string> found;
  const bool looked_up = IgnoringErrors(nullptr, [&] {
    if (!pTable) platform::Raise(platform::RuntimeError::ObjectNotSet);
    found = Find(pTable->Settings(), key);
  });
  if (!looked_up) return {};
  if (found) return *found;
  if (!psDefault.empty()) {
    IgnoringErrors(nullptr, [&] { WriteTableSetting(pTable, key, psDefault); });
  }
  return std::string(psDefault);
}

void CConfig::WriteTableSetting(const std::shared_ptr<host::HostTable>& pTable,
                                std::string_view psSetting, std::string_view psValue) {
  Raising("WriteTableSetting", [&] {
    if (mbSchreibenErlaubt) Write(pTable->Settings(), Key(psSetting), psValue);
  });
}

bool ReadAppointment4AllContracts(Module& module) {
  return host::ToBoolean(CConfig(module).ReadDatabaseSetting(
      schema::setting::CreateAppointment4AllContracts, "false"));
}

std::string CConfig::ReadSetting(std::string_view psSetting, std::string_view psDefault) {
  const std::shared_ptr<host::HostApp> app = module_.environment.global_host_app();
  if (!app) platform::Raise(platform::RuntimeError::ObjectNotSet);
  const std::shared_ptr<host::HostDb> db = app->CurrentDb();
  if (auto found = Find(db->Users().CurrentUser().PrivateSettings(), psSetting)) return *found;
  if (auto found = Find(db->DbSettings(), psSetting)) return *found;
  return std::string(psDefault);
}

}  // namespace pactora::shell
