#include "definitions/tables.h"

#include "platform/Error.h"

namespace pactora::definitions {

std::shared_ptr<host::HostTable> OpenTable(shell::Module& module, std::string_view name) {
  if (!module.gDb) platform::Raise(platform::RuntimeError::ObjectNotSet);
  return module.gDb->Tables().Item(name);
}

host::HostTable& Held(const std::shared_ptr<host::HostTable>& table) {
  if (!table) platform::Raise(platform::RuntimeError::ObjectNotSet);
  return *table;
}

std::vector<std::string> LookupList(shell::Module& module, std::string_view name) {
  std::vector<std::string> texts;
  if (!module.gDb) platform::Raise(platform::RuntimeError::ObjectNotSet);
  host::HostPersistVar* variable = module.gDb->Formulas().PersistVars().Item(name);
  if (variable == nullptr) return texts;
  const host::Value value = variable->Value();
  if (value.GetKind() != host::Kind::Array) {
    platform::Raise(platform::RuntimeError::TypeMismatch);
  }
  for (const host::Value& element : value.AsArray()) texts.push_back(host::ToText(element));
  return texts;
}

}  // namespace pactora::definitions
