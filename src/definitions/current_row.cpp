#include "definitions/current_row.h"

#include "platform/Error.h"

namespace pactora::definitions {

std::shared_ptr<host::HostTable> OpenTable(shell::Module& module, std::string_view name) {
  if (!module.gDb) platform::Raise(platform::RuntimeError::ObjectNotSet);
  return module.gDb->Tables().Item(name);
}

void ShowAllRows(host::HostTable& table, std::int32_t flags) {
  table.FilterOff(host::kTrue, flags);
  table.FilterOff2(host::kTrue, flags);
}

host::HostTable& Held(const std::shared_ptr<host::HostTable>& table) {
  if (!table) platform::Raise(platform::RuntimeError::ObjectNotSet);
  return *table;
}

host::Value ReadField(host::HostTable& table, std::string_view field) {
  return table.Fields().Item(field).Value();
}

std::string ReadText(host::HostTable& table, std::string_view field) {
  return host::ToText(ReadField(table, field));
}

std::int32_t ReadLong(host::HostTable& table, std::string_view field) {
  return host::ToLong(ReadField(table, field));
}

double ReadDouble(host::HostTable& table, std::string_view field) {
  return host::ToDouble(ReadField(table, field));
}

void WriteField(host::HostTable& table, std::string_view field, const host::Value& value) {
  table.Fields().Item(field).SetValue(value);
}

void BeginNewRow(host::HostTable& table) { table.GotoRec(table.NewRecordOid(host::kFlagsNone)); }

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
