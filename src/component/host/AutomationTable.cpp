#include "component/host/AutomationTable.h"

#include <utility>

namespace pactora::component {
namespace {

bool BooleanOf(const Variant& variant) { return host::ToBoolean(ToValue(variant.Get())); }
std::string TextOf(const Variant& variant) { return host::ToText(ToValue(variant.Get())); }
std::int32_t LongOf(const Variant& variant) { return host::ToLong(ToValue(variant.Get())); }

}  // namespace

LateBound AutomationField::Fetch() const { return fields_.Fetch(name_); }

host::Value AutomationField::Value() const { return ToValue(Fetch().Get(L"Value").Get()); }

void AutomationField::SetValue(const host::Value& value) {
  if (!value.IsEmpty()) Fetch().Put(L"Value", value);
}

std::string AutomationField::Name() const { return TextOf(Fetch().Get(L"Name")); }

std::int32_t AutomationField::Size() const { return LongOf(Fetch().Get(L"Size")); }

host::HostFields& AutomationField::Parent() { return fields_; }

host::HostField& AutomationFields::Item(std::string_view name) {
  const auto known = fields_.find(name);
  if (known != fields_.end()) return known->second;
  return fields_.try_emplace(std::string(name), *this, std::string(name)).first->second;
}

bool AutomationFields::Exists(std::string_view name) {
  return BooleanOf(Object().Get(L"Exists", name));
}

LateBound AutomationFields::Fetch(std::string_view name) {
  return connection_.Bind(Object().Get(L"Item", name), "Field");
}

const LateBound& AutomationFields::Object() {
  if (moves_ != connection_.Moves()) object_.Forget();
  moves_ = connection_.Moves();
  return *object_;
}

std::string AutomationIndex::Name() const { return TextOf(object_.Get(L"Name")); }

void AutomationIndexes::Select(std::string_view name, std::int32_t flags) {
  connection_.Moved();
  object_->Call(L"Select", name, flags);
}

void AutomationIndexes::SelectNone(std::int32_t flags) {
  connection_.Moved();
  object_->Call(L"SelectNone", flags);
}

std::shared_ptr<host::HostIndex> AutomationIndexes::Current() {
  auto index = ObjectIn(object_->Get(L"Current").Get());
  if (!index) return nullptr;
  return std::make_shared<AutomationIndex>(connection_.Bind(std::move(index), "Index"));
}

void AutomationIndexes::SetCurrent(const std::shared_ptr<host::HostIndex>& index) {
  connection_.Moved();
  const auto own = std::dynamic_pointer_cast<AutomationIndex>(index);
  if (!own) platform::Raise(platform::RuntimeError::TypeMismatch);
  object_->Put(L"Current", std::make_shared<AutomationObject>(Ref<IDispatch>(own->Object())));
}

AutomationTable::AutomationTable(ConnectionRef connection, LateBound object)
    : connection_(std::move(connection)),
      object_(std::move(object)),
      fields_(*connection_, object_, *this),
      indexes_(*connection_, object_),
      settings_(*connection_, object_, "Settings") {}

template <typename... Args>
void AutomationTable::Move(std::wstring_view name, const Args&... args) {
  connection_->Moved();
  object_.Call(name, args...);
}

template <typename... Args>
bool AutomationTable::Find(std::wstring_view name, const Args&... args) {
  connection_->Moved();
  return BooleanOf(object_.Get(name, args...));
}

bool AutomationTable::Flag(std::wstring_view name) const { return BooleanOf(object_.Get(name)); }

std::string AutomationTable::Name() const { return TextOf(object_.Get(L"Name")); }

bool AutomationTable::Eof() { return Flag(L"EOF"); }

std::shared_ptr<host::HostTable> AutomationTable::ParentTable() {
  return std::make_shared<AutomationTable>(connection_,
                                           connection_->Bind(object_.Get(L"ParentTable"), "Table"));
}

void AutomationTable::LinkChildren() { Move(L"LinkChildren"); }

void AutomationTable::MoveFirst(std::int32_t flags) { Move(L"MoveFirst", flags); }

void AutomationTable::MoveNext(std::int32_t count, std::int32_t flags) {
  Move(L"MoveNext", count, flags);
}

bool AutomationTable::SeekKey(const host::Value& key, std::int32_t flags) {
  return Find(L"SeekKey", key, flags);
}

bool AutomationTable::SeekNear(const host::Value& key, std::int32_t flags) {
  return Find(L"SeekNear", key, flags);
}

bool AutomationTable::FindOid(std::string_view oid, std::int32_t flags) {
  return Find(L"FindOid", oid, flags);
}

void AutomationTable::GotoOid(std::string_view oid) { Move(L"GotoOid", oid); }

std::string AutomationTable::Oid() { return TextOf(object_.Get(L"Oid")); }

std::int32_t AutomationTable::ScopeCount() { return LongOf(object_.Get(L"ScopeCount")); }

host::Value AutomationTable::NewRecordOid(std::int32_t flags) {
  return std::make_shared<OpaqueValue>(object_.Get(L"NewRecordOid", flags));
}

void AutomationTable::GotoRec(const host::Value& position) { Move(L"GotoRec", position); }

void AutomationTable::BeginEdit() { object_.Call(L"BeginEdit"); }

void AutomationTable::Store(std::int32_t flags) { object_.Call(L"Store", flags); }

void AutomationTable::StoreNew(std::int32_t flags) { object_.Call(L"StoreNew", flags); }

void AutomationTable::DeleteRec(std::int32_t flags) { Move(L"DeleteRec", flags); }

void AutomationTable::FilterOff(std::int32_t all, std::int32_t flags) {
  Move(L"FilterOff", all, flags);
}

void AutomationTable::FilterOff2(std::int32_t all, std::int32_t flags) {
  Move(L"FilterOff2", all, flags);
}

bool AutomationTable::CursorFlagA() { return Flag(L"CursorFlagA"); }

void AutomationTable::SetCursorFlagA(bool flag) { object_.Put(L"CursorFlagA", flag); }

bool AutomationTable::CursorFlagB() { return Flag(L"CursorFlagB"); }

void AutomationTable::SetCursorFlagB(bool flag) { object_.Put(L"CursorFlagB", flag); }

}  // namespace pactora::component
