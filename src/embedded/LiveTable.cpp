#include "embedded/LiveTable.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "embedded/LiveFields.h"
#include "embedded/LiveIndexes.h"
#include "embedded/LiveProfile.h"
#include "embedded/errors.h"
#include "store/rows.h"

namespace pactora::embedded {

LiveTable::LiveTable(Core& core, store::TableId table)
    : core_(core), table_(table), schema_(core.Catalog().tables[table]) {
  row_.cells.resize(schema_.fields.size());
  if (schema_.parent) {
    parent_ = &core.TableAt(*schema_.parent);
    parent_->children_.push_back(this);
  }
  for (const schema::Index& index : schema_.indexes) {
    keys_need_parent_ |= std::any_of(index.parts.begin(), index.parts.end(),
                                     [](const schema::KeyPart& part) { return part.of_parent; });
  }
  fields_ = std::make_unique<LiveFields>(*this);
  indexes_ = std::make_unique<LiveIndexes>(*this);
}

LiveTable::~LiveTable() = default;

host::HostFields& LiveTable::Fields() { return *fields_; }
host::HostIndexes& LiveTable::Indexes() { return *indexes_; }

host::HostSettings& LiveTable::Settings() {
  Begin("Settings");
  return core_.Profile().TableSettings(schema_.name);
}

// ---------------------------------------------------------------- current row

store::Oid LiveTable::StoredOid() const {
  return state_ == State::Stored || state_ == State::Known ? row_.oid : 0;
}

std::optional<store::Oid> LiveTable::ScopeParent() const {
  if (parent_ == nullptr) return 0;
  const store::Oid parent = parent_->StoredOid();
  return parent == 0 ? std::nullopt : std::optional(parent);
}

bool LiveTable::Load() {
  if (state_ != State::Known) return state_ != State::None;
  if (!core_.Store().Read(table_, row_.oid, next_)) {
    MoveToEof();
    return false;
  }
  std::swap(row_, next_);
  state_ = State::Stored;
  return true;
}

bool LiveTable::Eof() {
  Begin("EOF");
  return !Load();
}

const std::vector<host::Value>& LiveTable::Cells() {
  if (!Load()) Raise(HostError::NoCurrentRow, schema_.name);
  return row_.cells;
}

void LiveTable::WriteCell(std::size_t field, const host::Value& value) {
  if (!Load()) Raise(HostError::NoCurrentRow, schema_.name);
  row_.cells[field] = store::ConvertToField(schema_.fields[field], value);
  pending_ = true;
}

const std::string* LiveTable::CurrentKey(store::IndexId index) {
  if (!Load() || state_ != State::Stored) return nullptr;
  return &row_.keys[index];
}

std::string LiveTable::Oid() {
  Begin("Oid");
  const store::Oid oid = StoredOid();
  return oid == 0 ? std::string() : std::to_string(oid);
}

void LiveTable::Forget() {
  state_ = State::None;
  pending_ = false;
}

// ---------------------------------------------------------------- moving

void LiveTable::TellChildren() {
  for (LiveTable* child : children_) child->ParentMoved();
}

// With an index selected the cursor runs across all parents and keeps its row.
void LiveTable::ParentMoved() {
  if (state_ == State::None || index_) return;
  if (row_.parent == parent_->StoredOid()) return;
  Forget();
  TellChildren();
}

void LiveTable::MoveToEof() {
  if (state_ == State::None) return;
  Forget();
  TellChildren();
}

void LiveTable::TakeNext() {
  const bool moved = StoredOid() != next_.oid;
  if (parent_ != nullptr) FollowParent(next_.parent);
  std::swap(row_, next_);
  state_ = State::Stored;
  pending_ = false;
  if (moved) TellChildren();
}

// The rows of this table stay where they are: the caller is about to set one.
void LiveTable::FollowParent(store::Oid parent) {
  if (parent_->StoredOid() == parent) return;
  parent_->Follow(parent);
}

void LiveTable::Follow(store::Oid oid) {
  row_.oid = oid;
  state_ = State::Known;
  pending_ = false;
  if (parent_ != nullptr) {
    if (!Load()) return;
    FollowParent(row_.parent);
  }
  TellChildren();
}

bool LiveTable::Shows(const store::Record& record) const {
  return std::all_of(filters_.begin(), filters_.end(),
                     [&](const auto& shows) { return !shows || shows(record); });
}

bool LiveTable::ReadNext(std::string_view key, std::int64_t order) {
  store::RecordStore& rows = core_.Store();
  if (index_) {
    bool found = rows.NextByKey(table_, *index_, key, order, next_);
    while (found && !Shows(next_)) {
      const std::string hidden_key = next_.keys[*index_];
      found = rows.NextByKey(table_, *index_, hidden_key, next_.order, next_);
    }
    return found;
  }
  const auto parent = ScopeParent();
  if (!parent) return false;
  bool found = rows.NextInParent(table_, *parent, order, next_);
  while (found && !Shows(next_)) found = rows.NextInParent(table_, *parent, next_.order, next_);
  return found;
}

void LiveTable::MoveFirst(std::int32_t) {
  Begin("MoveFirst");
  if (ReadNext({}, 0)) {
    TakeNext();
  } else {
    MoveToEof();
  }
}

void LiveTable::MoveNext(std::int32_t, std::int32_t) {
  Begin("MoveNext");
  if (!Load()) return;
  const bool found =
      state_ == State::Stored &&
      ReadNext(index_ ? std::string_view(row_.keys[*index_]) : std::string_view(), row_.order);
  if (found) {
    TakeNext();
  } else {
    MoveToEof();
  }
}

bool LiveTable::Seek(const host::Value& key, bool exact) {
  if (!index_) Raise(HostError::NoIndexSelected, schema_.name);
  if (schema_.counter) core_.Store().LockForUpdate();
  const std::string wanted = store::FoldKey(host::ToText(key));
  const bool found = ReadNext(wanted, 0) && (!exact || next_.keys[*index_] == wanted);
  if (found) {
    TakeNext();
  } else {
    MoveToEof();
  }
  return found;
}

bool LiveTable::SeekKey(const host::Value& key, std::int32_t) {
  Begin("SeekKey");
  return Seek(key, true);
}

bool LiveTable::SeekNear(const host::Value& key, std::int32_t) {
  Begin("SeekNear");
  return Seek(key, false);
}

bool LiveTable::Find(std::string_view oid) {
  const auto wanted = store::ParseOid(oid);
  if (!wanted || !core_.Store().Read(table_, *wanted, next_)) return false;
  TakeNext();
  return true;
}

bool LiveTable::FindOid(std::string_view oid, std::int32_t) {
  Begin("FindOid");
  return Find(oid);
}

void LiveTable::GotoOid(std::string_view oid) {
  Begin("GotoOid");
  if (!Find(oid)) Raise(HostError::RowNotFound, schema_.name);
}

std::shared_ptr<host::HostTable> LiveTable::ParentTable() {
  Begin("ParentTable");
  if (parent_ == nullptr) Raise(HostError::NoParentTable, schema_.name);
  if (Load()) FollowParent(row_.parent);
  return core_.Handle<host::HostTable>(*parent_);
}

void LiveTable::LinkChildren() {
  // Child tables of this host always follow at once.
  Begin("LinkChildren");
}

std::int32_t LiveTable::ScopeCount() {
  Begin("ScopeCount");
  std::int64_t count = 0;
  if (filters_[0] || filters_[1]) {
    bool found = ReadNext({}, 0);
    while (found) {
      ++count;
      const std::string key = index_ ? next_.keys[*index_] : std::string();
      found = ReadNext(key, next_.order);
    }
  } else if (index_) {
    count = core_.Store().Count(table_);
  } else if (const auto parent = ScopeParent()) {
    count = core_.Store().CountInParent(table_, *parent);
  }
  return static_cast<std::int32_t>(
      std::min<std::int64_t>(count, std::numeric_limits<std::int32_t>::max()));
}

void LiveTable::SelectIndex(std::optional<store::IndexId> index) {
  index_ = index;
  if (!index_ && state_ != State::None && parent_ != nullptr) {
    if (Load()) ParentMoved();
  }
}

// ---------------------------------------------------------------- writing

host::Value LiveTable::NewRecordOid(std::int32_t) try {
  Begin("NewRecordOid");
  const auto parent = ScopeParent();
  if (!parent) Raise(HostError::NoParentRow, parent_->Schema().name);
  return host::ValueArray{static_cast<std::int32_t>(table_), static_cast<double>(*parent)};
} catch (...) {
  MoveToEof();
  throw;
}

void LiveTable::GotoRec(const host::Value& position) try {
  Begin("GotoRec");
  if (position.GetKind() != host::Kind::Array || position.AsArray().size() != 2 ||
      host::ToLong(position.AsArray()[0]) != static_cast<std::int32_t>(table_)) {
    Raise(HostError::InvalidPosition, schema_.name);
  }
  const auto parent = static_cast<store::Oid>(host::ToDouble(position.AsArray()[1]));
  const bool had_row = StoredOid() != 0;
  if (parent_ != nullptr) FollowParent(parent);
  state_ = State::New;
  pending_ = false;
  row_.oid = row_.order = row_.version = 0;
  row_.parent = parent;
  row_.cells.assign(schema_.fields.size(), host::Value());
  if (had_row) TellChildren();
} catch (...) {
  MoveToEof();
  throw;
}

void LiveTable::BeginEdit() {
  Begin("BeginEdit");
  if (!Load()) Raise(HostError::NoCurrentRow, schema_.name);
}

const std::vector<host::Value>* LiveTable::ParentCells(store::Record& parent) {
  if (!keys_need_parent_) return nullptr;
  if (!core_.Store().Read(*schema_.parent, row_.parent, parent)) {
    Raise(HostError::NoParentRow, parent_->Schema().name);
  }
  return &parent.cells;
}

void LiveTable::Store(std::int32_t) {
  Begin("Store");
  if (!Load()) Raise(HostError::NoCurrentRow, schema_.name);
  if (state_ == State::New) Raise(HostError::RowNotStored, schema_.name);
  if (!pending_) return;
  store::Record parent;
  if (!store::UpdateRow(core_.Store(), table_, row_, ParentCells(parent))) {
    Raise(HostError::RowChanged, schema_.name);
  }
  pending_ = false;
  for (LiveTable* child : children_) child->RefreshKeys(row_.oid);
}

// The parent's row was stored, and with it perhaps the keys that hold a part of it.
void LiveTable::RefreshKeys(store::Oid parent) {
  if (!keys_need_parent_ || StoredOid() == 0 || row_.parent != parent) return;
  if (core_.Store().Read(table_, row_.oid, next_)) row_.keys = next_.keys;
}

void LiveTable::StoreNew(std::int32_t) {
  Begin("StoreNew");
  if (state_ == State::None) Raise(HostError::NoCurrentRow, schema_.name);
  if (state_ != State::New) Raise(HostError::RowAlreadyStored, schema_.name);
  store::Record parent;
  try {
    store::InsertRow(core_.Store(), table_, row_, ParentCells(parent));
  } catch (...) {
    row_.oid = row_.order = row_.version = 0;
    throw;
  }
  state_ = State::Stored;
  pending_ = false;
}

void LiveTable::DeleteRec(std::int32_t) {
  Begin("DeleteRec");
  if (!Load()) Raise(HostError::NoCurrentRow, schema_.name);
  if (state_ == State::Stored && !core_.Store().Erase(table_, row_.oid, row_.version)) {
    Raise(HostError::RowChanged, schema_.name);
  }
  MoveToEof();
}

// ---------------------------------------------------------------- the rest

void LiveTable::SetFilter(FilterKind kind, std::function<bool(const store::Record&)> shows) {
  filters_[static_cast<std::size_t>(kind)] = std::move(shows);
}

void LiveTable::FilterOff(std::int32_t, std::int32_t) {
  Begin("FilterOff");
  filters_[static_cast<std::size_t>(FilterKind::First)] = nullptr;
}

void LiveTable::FilterOff2(std::int32_t, std::int32_t) {
  Begin("FilterOff2");
  filters_[static_cast<std::size_t>(FilterKind::Second)] = nullptr;
}

bool LiveTable::CursorFlagA() {
  Begin("CursorFlagA");
  return cursor_flag_a_;
}

void LiveTable::SetCursorFlagA(bool flag) {
  Begin("SetCursorFlagA");
  cursor_flag_a_ = flag;
}

bool LiveTable::CursorFlagB() {
  Begin("CursorFlagB");
  return cursor_flag_b_;
}

void LiveTable::SetCursorFlagB(bool flag) {
  Begin("SetCursorFlagB");
  cursor_flag_b_ = flag;
}

}  // namespace pactora::embedded
