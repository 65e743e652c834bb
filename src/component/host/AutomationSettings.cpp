#include "component/host/AutomationSettings.h"

#include <utility>

#include "component/com/failures.h"

namespace pactora::component {
namespace {

constexpr const char* kSetting = "Setting";
constexpr const char* kPersistVar = "PersistVar";

}  // namespace

bool AutomationSettings::Exists(std::string_view name) {
  return host::ToBoolean(ToValue(object_->Get(L"Exists", name).Get()));
}

host::HostSetting& AutomationSettings::Item(std::string_view name) {
  return Keep(name, object_->Get(L"Item", name));
}

host::HostSetting& AutomationSettings::Add(std::string_view name, const host::Value& value) {
  return Keep(name, object_->Get(L"Add", name, value));
}

host::HostSetting& AutomationSettings::Keep(std::string_view name, const Variant& setting) {
  AutomationSetting entry(connection_.Bind(setting, kSetting));
  return entries_.insert_or_assign(std::string(name), std::move(entry)).first->second;
}

std::string AutomationPersistVar::Name() const {
  return host::ToText(ToValue(object_.Get(L"Name").Get()));
}

bool AutomationPersistVar::ReadOnly() const {
  return host::ToBoolean(ToValue(object_.Get(L"ReadOnly").Get()));
}

Ref<IEnumVARIANT> AutomationPersistVars::Enumerator() {
  try {
    const Variant enumerator = object_->Get(DISPID_NEWENUM);
    if (enumerator.Get().vt == VT_UNKNOWN || enumerator.Get().vt == VT_DISPATCH)
      return Ref<IEnumVARIANT>::Query(enumerator.Get().punkVal);
  } catch (const platform::Error&) {
    // A server that has none answers as it likes; one that is lost fails below as well.
  }
  return {};
}

void AutomationPersistVars::ForEach(const std::function<bool(host::HostPersistVar&)>& visit) {
  const auto go_on = [&](const Variant& variable) {
    AutomationPersistVar entry(connection_.Bind(variable, kPersistVar));
    return visit(entry);
  };
  if (const auto enumerator = Enumerator()) {
    for (;;) {
      Variant variable;
      ULONG count = 0;
      const HRESULT code = enumerator->Next(1, variable.Put(), &count);
      Check(code);
      if (code != S_OK || !go_on(variable)) return;
    }
  }
  const std::int32_t count = host::ToLong(ToValue(object_->Get(L"Count").Get()));
  for (std::int32_t i = 1; i <= count; ++i) {
    if (!go_on(object_->Get(L"Item", i))) return;
  }
}

host::HostPersistVar* AutomationPersistVars::Item(std::string_view name) {
  const Variant variable = object_->Get(L"Item", name);
  return ObjectIn(variable.Get()) ? &Keep(name, variable) : nullptr;
}

bool AutomationPersistVars::Exists(std::string_view name) {
  return host::ToBoolean(ToValue(object_->Get(L"Exists", name).Get()));
}

host::HostPersistVar& AutomationPersistVars::Add(std::string_view name, const host::Value& value) {
  return Keep(name, object_->Get(L"Add", name, value, host::Value(nullptr), Variant::Missing()));
}

AutomationPersistVar& AutomationPersistVars::Keep(std::string_view name, const Variant& variable) {
  AutomationPersistVar entry(connection_.Bind(variable, kPersistVar));
  return entries_.insert_or_assign(std::string(name), std::move(entry)).first->second;
}

}  // namespace pactora::component
