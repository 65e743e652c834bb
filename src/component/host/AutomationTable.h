// A live table of a host that is reached by automation, its fields and indexes.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "component/host/AutomationSettings.h"
#include "component/host/Connection.h"
#include "host/HostTable.h"

namespace pactora::component {

class AutomationFields;
class AutomationTable;

// Fetches the host's field at each access: what an older field shows after a move is
// the host's affair.
class AutomationField final : public host::HostField {
 public:
  AutomationField(AutomationFields& fields, std::string name)
      : fields_(fields), name_(std::move(name)) {}

  host::Value Value() const override;
  void SetValue(const host::Value& value) override;
  std::string Name() const override;
  std::int32_t Size() const override;
  host::HostFields& Parent() override;

 private:
  LateBound Fetch() const;

  AutomationFields& fields_;
  const std::string name_;
};

// The host's collection is fetched anew after each move of whatever table.
class AutomationFields final : public host::HostFields {
 public:
  AutomationFields(Connection& connection, const LateBound& table_object, host::HostTable& table)
      : connection_(connection), object_(connection, table_object, "Fields"), table_(table) {}

  // An unknown name raises its error at the first access.
  host::HostField& Item(std::string_view name) override;
  bool Exists(std::string_view name) override;
  host::HostTable& Parent() override { return table_; }

  LateBound Fetch(std::string_view name);

 private:
  const LateBound& Object();

  Connection& connection_;
  Child object_;
  unsigned moves_ = 0;
  host::HostTable& table_;
  std::map<std::string, AutomationField, std::less<>> fields_;
};

class AutomationIndex final : public host::HostIndex {
 public:
  explicit AutomationIndex(LateBound object) : object_(std::move(object)) {}

  std::string Name() const override;
  host::Value KeyValue() override { return ToValue(object_.Get(L"KeyValue").Get()); }
  IDispatch* Object() const { return object_.Object(); }

 private:
  LateBound object_;
};

class AutomationIndexes final : public host::HostIndexes {
 public:
  AutomationIndexes(Connection& connection, const LateBound& table_object)
      : connection_(connection), object_(connection, table_object, "Indexes") {}

  void Select(std::string_view name, std::int32_t flags) override;
  void SelectNone(std::int32_t flags) override;
  std::shared_ptr<host::HostIndex> Current() override;
  void SetCurrent(const std::shared_ptr<host::HostIndex>& index) override;

 private:
  Connection& connection_;
  Child object_;
};

class AutomationTable final : public host::HostTable {
 public:
  AutomationTable(ConnectionRef connection, LateBound object);

  std::string Name() const override;
  host::HostFields& Fields() override { return fields_; }
  host::HostIndexes& Indexes() override { return indexes_; }
  host::HostSettings& Settings() override { return settings_; }

  bool Eof() override;
  std::shared_ptr<host::HostTable> ParentTable() override;
  void LinkChildren() override;

  void MoveFirst(std::int32_t flags) override;
  void MoveNext(std::int32_t count, std::int32_t flags) override;
  bool SeekKey(const host::Value& key, std::int32_t flags) override;
  bool SeekNear(const host::Value& key, std::int32_t flags) override;
  bool FindOid(std::string_view oid, std::int32_t flags) override;
  void GotoOid(std::string_view oid) override;
  std::string Oid() override;
  std::int32_t ScopeCount() override;

  // The position is the host's own variant, which GotoRec hands back.
  host::Value NewRecordOid(std::int32_t flags) override;
  void GotoRec(const host::Value& position) override;
  void BeginEdit() override;
  void Store(std::int32_t flags) override;
  void StoreNew(std::int32_t flags) override;
  void DeleteRec(std::int32_t flags) override;

  void FilterOff(std::int32_t all, std::int32_t flags) override;
  void FilterOff2(std::int32_t all, std::int32_t flags) override;

  bool CursorFlagA() override;
  void SetCursorFlagA(bool flag) override;
  bool CursorFlagB() override;
  void SetCursorFlagB(bool flag) override;

 private:
  // A call that can change current rows.
  template <typename... Args>
  void Move(std::wstring_view name, const Args&... args);
  template <typename... Args>
  bool Find(std::wstring_view name, const Args&... args);
  bool Flag(std::wstring_view name) const;

  ConnectionRef connection_;
  LateBound object_;
  AutomationFields fields_;
  AutomationIndexes indexes_;
  AutomationSettings settings_;
};

}  // namespace pactora::component
