#include "component/host/AutomationDb.h"

#include <utility>

#include "component/host/AutomationTable.h"

namespace pactora::component {
namespace {

constexpr std::int32_t kCurrentUser = -1;

}  // namespace

// The collection first, then its member: a name behind Tables itself works with some
// servers only.
std::shared_ptr<host::HostTable> AutomationTables::Item(std::string_view name) {
  return std::make_shared<AutomationTable>(connection_,
                                           connection_->Bind(object_->Get(L"Item", name), "Table"));
}

LateBound AutomationTables::Info() {
  return connection_->Bind(object_->Get(L"Database"), "Database");
}

std::string AutomationTables::Name() { return host::ToText(ToValue(Info().Get(L"Name").Get())); }

std::string AutomationTables::DisplayName(std::int32_t flags) {
  return host::ToText(ToValue(Info().Get(L"DisplayName", flags).Get()));
}

std::string AutomationUser::Name() { return host::ToText(ToValue(object_.Get(L"Name").Get())); }

std::int32_t AutomationUsers::Count() {
  return host::ToLong(ToValue(object_->Get(L"Count").Get()));
}

host::HostUser& AutomationUsers::Item(std::int32_t index) {
  return Keep(index, object_->Get(L"Item", index));
}

host::HostUser& AutomationUsers::CurrentUser() {
  return Keep(kCurrentUser, object_->Get(L"CurrentUser"));
}

// What was handed out under the number stays valid as long as the number stands for the
// same user, which is as long as the database is open.
host::HostUser& AutomationUsers::Keep(std::int32_t index, const Variant& user) {
  return users_.try_emplace(index, connection_, connection_.Bind(user, "User")).first->second;
}

std::shared_ptr<host::HostFormula> AutomationFormulas::Compile(std::string_view text,
                                                               std::int32_t flags) {
  return std::make_shared<AutomationFormula>(
      connection_.Bind(object_->Get(L"Compile", text, flags), "Formula"));
}

host::HostPersistVars& AutomationFormulas::PersistVars() {
  if (!persist_vars_) persist_vars_.emplace(connection_, *object_);
  return *persist_vars_;
}

}  // namespace pactora::component
