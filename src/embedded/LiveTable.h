// The cursor engine: one live table over the record store. The rules it keeps
// stand in host/HostTable.h.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "embedded/Core.h"
#include "host/HostTable.h"
#include "schema/Catalog.h"
#include "store/RecordStore.h"

namespace pactora::embedded {

enum class FilterKind { First, Second };  // switched off by FilterOff and FilterOff2

class LiveField;
class LiveFields;
class LiveIndexes;

class LiveTable final : public host::HostTable {
 public:
  LiveTable(Core& core, store::TableId table);
  ~LiveTable() override;

  std::string Name() const override { return schema_.name; }
  host::HostFields& Fields() override;
  host::HostIndexes& Indexes() override;
  host::HostSettings& Settings() override;

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

  // For the table's own parts (fields, indexes) and the host.
  Core& GetCore() { return core_; }
  const schema::Table& Schema() const { return schema_; }
  void Begin(OperationName operation) { core_.Begin(operation, schema_.name); }
  // Hides the rows for which shows returns false until the filter is switched off.
  void SetFilter(FilterKind kind, std::function<bool(const store::Record&)> shows);
  // The current row's cells; raises NoCurrentRow when there is none.
  const std::vector<host::Value>& Cells();
  void WriteCell(std::size_t field, const host::Value& value);
  std::optional<store::IndexId> SelectedIndex() const { return index_; }
  void SelectIndex(std::optional<store::IndexId> index);
  // The stored key of the current row; null when there is none.
  const std::string* CurrentKey(store::IndexId index);
  // Leaves the table without a current row, without telling anyone.
  void Forget();

 private:
  enum class State {
    None,    // no current row
    Stored,  // row_ is the current row, its cells with the pending values
    Known,   // as Stored, but only row_.oid is read so far
    New,     // row_ is a new row that is not stored yet
  };

  // The Oid of the current row, 0 when there is none or it is not stored.
  store::Oid StoredOid() const;
  // The parent whose rows are the scope without an index; nullopt when the parent
  // table has no stored current row.
  std::optional<store::Oid> ScopeParent() const;
  // Reads a Known row. Returns false when it is gone.
  bool Load();
  bool Shows(const store::Record& record) const;
  // Reads the row behind (key, order) in the selected index, or behind order in
  // the scope, that no filter hides, into next_.
  bool ReadNext(std::string_view key, std::int64_t order);
  // Makes next_ the current row; the parents follow.
  void TakeNext();
  void MoveToEof();
  // Makes the row of that Oid current without reading it, the parents following.
  void Follow(store::Oid oid);
  // Requires: the row of that Oid is current in a child table.
  void FollowParent(store::Oid parent);
  void TellChildren();
  void ParentMoved();
  void RefreshKeys(store::Oid parent);
  bool Seek(const host::Value& key, bool exact);
  bool Find(std::string_view oid);
  const std::vector<host::Value>* ParentCells(store::Record& parent);

  Core& core_;
  const store::TableId table_;
  const schema::Table& schema_;
  LiveTable* parent_ = nullptr;
  std::vector<LiveTable*> children_;
  bool keys_need_parent_ = false;

  State state_ = State::None;
  store::Record row_;
  store::Record next_;    // where the store reads into
  bool pending_ = false;  // row_ has values that are not stored
  std::optional<store::IndexId> index_;
  std::array<std::function<bool(const store::Record&)>, 2> filters_;
  bool cursor_flag_a_ = false;
  bool cursor_flag_b_ = false;

  std::unique_ptr<LiveFields> fields_;
  std::unique_ptr<LiveIndexes> indexes_;
};

}  // namespace pactora::embedded
