#include "store/memory/MemoryStore.h"

#include <algorithm>
#include <map>
#include <memory>
#include <set>
#include <unordered_map>
#include <utility>

#include "platform/Text.h"
#include "store/errors.h"
#include "store/row_numbers.h"

namespace pactora::store {
namespace {

// A place in the order of an index.
struct KeyPlace {
  std::string_view key;
  std::int64_t order;
};

// Orders rows by their key in one index, then by record order.
struct KeyLess {
  using is_transparent = void;
  IndexId index;

  static bool Less(const KeyPlace& a, const KeyPlace& b) {
    const int compared = a.key.compare(b.key);
    return compared != 0 ? compared < 0 : a.order < b.order;
  }
  KeyPlace PlaceOf(const Record* record) const { return {record->keys[index], record->order}; }
  bool operator()(const Record* a, const Record* b) const { return Less(PlaceOf(a), PlaceOf(b)); }
  bool operator()(const KeyPlace& a, const Record* b) const { return Less(a, PlaceOf(b)); }
  bool operator()(const Record* a, const KeyPlace& b) const { return Less(PlaceOf(a), b); }
};

using RowsByKey = std::set<const Record*, KeyLess>;

// The rows of one parent, ascending in record order; new rows mostly go last.
using Siblings = std::vector<std::pair<std::int64_t, const Record*>>;

Siblings::const_iterator Behind(const Siblings& rows, std::int64_t order) {
  return std::upper_bound(rows.begin(), rows.end(), order,
                          [](std::int64_t value, const auto& row) { return value < row.first; });
}

// A parent and the values of its unique fields.
using UniqueKey = std::pair<Oid, std::string>;

struct TableRows {
  std::unordered_map<Oid, std::unique_ptr<Record>> by_oid;
  std::unordered_map<Oid, Siblings> by_parent;
  std::vector<RowsByKey> by_key;
  std::map<UniqueKey, Oid> by_unique_fields;  // empty for a table that has none
};

// What a write of the open unit replaced; null for a row that was inserted.
struct Undo {
  TableId table;
  Oid oid;
  std::unique_ptr<Record> before;
};

class MemoryStore final : public RecordStore {
 public:
  MemoryStore(schema::Catalog catalog, Profile profile)
      : catalog_(std::move(catalog)),
        tables_(catalog_.tables.size()),
        profile_(std::make_shared<const Profile>(std::move(profile))) {
    for (TableId table = 0; table < tables_.size(); ++table) {
      for (IndexId index = 0; index < catalog_.tables[table].indexes.size(); ++index) {
        tables_[table].by_key.emplace_back(KeyLess{index});
      }
    }
  }

  const schema::Catalog& Catalog() const override { return catalog_; }

  bool Read(TableId table, Oid oid, Record& record) override {
    const Record* row = Find(table, oid);
    if (row == nullptr) return false;
    record = *row;
    return true;
  }

  bool NextInParent(TableId table, Oid parent, std::int64_t after, Record& record) override {
    const auto found = tables_[table].by_parent.find(parent);
    if (found == tables_[table].by_parent.end()) return false;
    const auto next = Behind(found->second, after);
    if (next == found->second.end()) return false;
    record = *next->second;
    return true;
  }

  bool NextByKey(TableId table, IndexId index, std::string_view key, std::int64_t after,
                 Record& record) override {
    const RowsByKey& rows = tables_[table].by_key[index];
    const auto next = rows.upper_bound(KeyPlace{key, after});
    if (next == rows.end()) return false;
    record = **next;
    return true;
  }

  std::int64_t CountInParent(TableId table, Oid parent) override {
    const auto found = tables_[table].by_parent.find(parent);
    return found == tables_[table].by_parent.end()
               ? 0
               : static_cast<std::int64_t>(found->second.size());
  }

  std::int64_t Count(TableId table) override {
    return static_cast<std::int64_t>(tables_[table].by_oid.size());
  }

  void Insert(TableId table, Record& record) override {
    EnterUnit();
    const auto parent_table = catalog_.tables[table].parent;
    if (parent_table && Find(*parent_table, record.parent) == nullptr) {
      Raise(StoreError::Failed, "der übergeordnete Datensatz fehlt");
    }
    if (record.oid != 0 && Find(table, record.oid) != nullptr) Raise(StoreError::DuplicateOid);
    CheckUnique(table, record);
    const RowNumbers numbers = NumbersFor(record, last_number_);
    last_number_ = numbers.last;
    record.oid = numbers.oid;
    record.order = numbers.order;
    record.version = 1;
    Remember(table, record.oid, nullptr);
    Link(table, std::make_unique<Record>(record));
  }

  bool Update(TableId table, Record& record) override {
    EnterUnit();
    const Record* row = Find(table, record.oid);
    if (row == nullptr || row->version != record.version) return false;
    CheckUnique(table, record);
    auto changed = std::make_unique<Record>(record);
    changed->parent = row->parent;
    changed->order = row->order;
    ++changed->version;
    Replace(table, std::move(changed));
    ++record.version;
    return true;
  }

  void UpdateKeys(TableId table, Oid oid, const std::vector<std::string>& keys) override {
    EnterUnit();
    const Record* row = Find(table, oid);
    if (row == nullptr) return;
    auto changed = std::make_unique<Record>(*row);
    changed->keys = keys;
    Replace(table, std::move(changed));
  }

  bool Erase(TableId table, Oid oid, std::int64_t version) override {
    EnterUnit();
    const Record* row = Find(table, oid);
    if (row == nullptr || row->version != version) return false;
    for (const std::size_t child : catalog_.tables[table].children) {
      if (CountInParent(child, oid) != 0) Raise(StoreError::HasChildren);
    }
    Remember(table, oid, Unlink(table, oid));
    return true;
  }

  void LockForUpdate() override { EnterUnit(); }
  bool InUnit() const override { return in_unit_; }

  void Commit() override { EndUnit(); }

  void Rollback() override {
    if (in_unit_) UndoTo(begin_);
    EndUnit();
  }

  void SetSavepoint() override {
    EnterUnit();
    savepoint_ = {undos_.size(), last_number_, profile_};
  }

  void RollbackToSavepoint() override { UndoTo(savepoint_); }

  Profile ReadProfile() override { return *profile_; }

  void WriteProfile(const Profile& profile) override {
    EnterUnit();
    profile_ = std::make_shared<const Profile>(profile);
  }

  void WriteSetting(const Setting& setting) override {
    Profile profile = *profile_;
    const auto known = std::ranges::find_if(profile.settings, [&](const Setting& other) {
      return other.scope == setting.scope &&
             platform::EqualsIgnoringCase(other.owner, setting.owner) &&
             platform::EqualsIgnoringCase(other.name, setting.name);
    });
    if (known == profile.settings.end())
      profile.settings.push_back(setting);
    else
      *known = setting;
    WriteProfile(profile);
  }

  // Nobody else writes here.
  std::int64_t ProfileStamp() override { return 0; }

 private:
  const Record* Find(TableId table, Oid oid) const {
    const auto found = tables_[table].by_oid.find(oid);
    return found == tables_[table].by_oid.end() ? nullptr : found->second.get();
  }

  UniqueKey UniqueKeyOf(TableId table, const Record& record) const {
    UniqueKey key{record.parent, {}};
    for (const std::size_t field : catalog_.tables[table].unique_fields) {
      const host::Value& cell = record.cells[field];
      key.second += cell.IsEmpty() ? "-" : "=" + host::ToText(cell);
      key.second += '\0';
    }
    return key;
  }

  void CheckUnique(TableId table, const Record& record) const {
    if (catalog_.tables[table].unique_fields.empty()) return;
    const auto& known = tables_[table].by_unique_fields;
    const auto found = known.find(UniqueKeyOf(table, record));
    if (found != known.end() && found->second != record.oid) Raise(StoreError::DuplicateKey);
  }

  void AddKeys(TableId table, const Record& row) {
    TableRows& rows = tables_[table];
    for (RowsByKey& by_key : rows.by_key) by_key.insert(&row);
    if (!catalog_.tables[table].unique_fields.empty())
      rows.by_unique_fields[UniqueKeyOf(table, row)] = row.oid;
  }

  void RemoveKeys(TableId table, const Record& row) {
    TableRows& rows = tables_[table];
    for (RowsByKey& by_key : rows.by_key) by_key.erase(&row);
    if (!catalog_.tables[table].unique_fields.empty())
      rows.by_unique_fields.erase(UniqueKeyOf(table, row));
  }

  void Link(TableId table, std::unique_ptr<Record> record) {
    TableRows& rows = tables_[table];
    const Record* row = record.get();
    Siblings& siblings = rows.by_parent[row->parent];
    siblings.insert(Behind(siblings, row->order), {row->order, row});
    AddKeys(table, *row);
    rows.by_oid[row->oid] = std::move(record);
  }

  std::unique_ptr<Record> Unlink(TableId table, Oid oid) {
    TableRows& rows = tables_[table];
    const auto found = rows.by_oid.find(oid);
    std::unique_ptr<Record> record = std::move(found->second);
    rows.by_oid.erase(found);
    RemoveKeys(table, *record);
    Siblings& siblings = rows.by_parent[record->parent];
    siblings.erase(std::prev(Behind(siblings, record->order)));
    return record;
  }

  void Replace(TableId table, std::unique_ptr<Record> changed) {
    TableRows& rows = tables_[table];
    std::unique_ptr<Record>& place = rows.by_oid[changed->oid];
    Siblings& siblings = rows.by_parent[changed->parent];
    RemoveKeys(table, *place);
    std::swap(place, changed);
    const auto behind = Behind(siblings, place->order) - siblings.cbegin();
    siblings[static_cast<std::size_t>(behind - 1)].second = place.get();
    AddKeys(table, *place);
    Remember(table, place->oid, std::move(changed));
  }

  // A moment of the unit that the store can go back to.
  struct Moment {
    std::size_t undos = 0;
    std::int64_t last_number = 0;
    std::shared_ptr<const Profile> profile;
  };

  // Before the first write of a unit.
  void EnterUnit() {
    if (!std::exchange(in_unit_, true)) begin_ = {0, last_number_, profile_};
  }

  void Remember(TableId table, Oid oid, std::unique_ptr<Record> before) {
    undos_.push_back({table, oid, std::move(before)});
  }

  void UndoTo(const Moment& moment) {
    for (; undos_.size() > moment.undos; undos_.pop_back()) {
      Undo& undo = undos_.back();
      if (Find(undo.table, undo.oid) != nullptr) Unlink(undo.table, undo.oid);
      if (undo.before != nullptr) Link(undo.table, std::move(undo.before));
    }
    last_number_ = moment.last_number;
    profile_ = moment.profile;
  }

  void EndUnit() {
    undos_.clear();
    in_unit_ = false;
  }

  schema::Catalog catalog_;
  std::vector<TableRows> tables_;
  std::shared_ptr<const Profile> profile_;
  std::int64_t last_number_ = 0;  // the last oid or order given out

  bool in_unit_ = false;
  std::vector<Undo> undos_;
  Moment begin_;      // of the unit
  Moment savepoint_;  // the last one marked in it
};

}  // namespace

std::unique_ptr<RecordStore> CreateMemoryStore(schema::Catalog catalog, Profile profile) {
  return std::make_unique<MemoryStore>(std::move(catalog), std::move(profile));
}

}  // namespace pactora::store
