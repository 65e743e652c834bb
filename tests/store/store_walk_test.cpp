// A seeded random walk over every store, compared step by step with a plain model.
// The model is right, not one of the stores.
#include <algorithm>
#include <map>
#include <optional>
#include <random>

#include "store/StoreSuite.h"

namespace pactora::store {
namespace {

namespace table = schema::table;

// Tables with and without parents, with one, several and no indexes.
constexpr std::string_view kTables[] = {
    table::Adressen, table::Adressmerkmale,        table::Artikelgruppen,
    table::Artikel,  table::MerkmalgruppeAdressen, table::MerkmallisteAdressen};

struct ModelTable {
  std::map<Oid, Record> rows;
  std::int64_t greatest = 0;  // oid or order ever given, of rows that are gone too
};
using Model = std::map<TableId, ModelTable>;

class StoreWalk : public StoreSuite {
 protected:
  void Walk(unsigned seed, int steps) {
    random_.seed(seed);
    model_.clear();
    committed_.clear();
    marked_.reset();
    for (step_ = 0; step_ < steps && !HasFailure(); ++step_) Step();
    ASSERT_FALSE(HasFailure()) << "seed " << seed << ", step " << step_;
  }

 private:
  int Below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random_); }

  std::string RandomText() {
    constexpr std::string_view kLetters[] = {"A", "B", "ä", "Z", " ", "a", {"\0", 1}};
    std::string text;
    for (int length = Below(4); length > 0; --length) text += kLetters[Below(7)];
    return text;
  }

  host::Value RandomCell(const schema::Field& field) {
    if (Below(4) == 0) return {};
    switch (field.type) {
      case schema::FieldType::Long:
        return Below(2000) - 1000;
      case schema::FieldType::Double:
        return (Below(2000) - 1000) / 7.0;
      case schema::FieldType::Date:
        return host::Date{Below(50000) / 8.0};
      case schema::FieldType::Boolean:
        return Below(2) == 0;
      default:
        return RandomText();
    }
  }

  void FillContent(TableId id, Record& record) {
    const schema::Table& description = store_->Catalog().tables[id];
    record.cells.clear();
    for (const schema::Field& field : description.fields) {
      record.cells.push_back(RandomCell(field));
    }
    record.keys.resize(description.indexes.size());
    for (std::string& key : record.keys) {
      if (Below(2) == 0) key = RandomText();
    }
  }

  // An oid of the model's table, now and then one that it has not.
  Oid RandomOid(TableId id) {
    const auto& rows = model_[id].rows;
    if (rows.empty() || Below(20) == 0) return Below(50) + 1;
    return std::next(rows.begin(), Below(static_cast<int>(rows.size())))->first;
  }

  // The version that the model has, now and then another one.
  std::int64_t RandomVersion(TableId id, Oid oid) {
    const auto& rows = model_[id].rows;
    const auto row = rows.find(oid);
    return (row == rows.end() ? 1 : row->second.version) + (Below(6) == 0 ? 1 : 0);
  }

  bool HasChildren(TableId id, Oid oid) {
    const auto& children = store_->Catalog().tables[id].children;
    return std::any_of(children.begin(), children.end(), [&](TableId child) {
      const auto& rows = model_[child].rows;
      return std::any_of(rows.begin(), rows.end(),
                         [&](const auto& row) { return row.second.parent == oid; });
    });
  }

  void Insert(TableId id) {
    const auto parent = store_->Catalog().tables[id].parent;
    Record record;
    record.parent = parent ? RandomOid(*parent) : 0;
    std::int64_t& greatest = model_[id].greatest;
    if (Below(4) == 0) record.oid = Below(3) == 0 ? RandomOid(id) : greatest + 1 + Below(3);
    if (Below(8) == 0) record.order = greatest + 1 + Below(3);
    FillContent(id, record);
    const Record given = record;
    const bool orphan = parent && !model_[*parent].rows.contains(given.parent);
    const bool taken = model_[id].rows.contains(given.oid);
    const std::int32_t error = ErrorNumberOf([&] { store_->Insert(id, record); });
    ASSERT_EQ(error != 0, orphan || taken);
    if (orphan != taken) {
      ASSERT_EQ(error, Number(taken ? StoreError::DuplicateOid : StoreError::Failed));
    }
    if (error != 0) return;
    if (given.oid == 0) {
      ASSERT_GT(record.oid, greatest);
    } else {
      ASSERT_EQ(record.oid, given.oid);
    }
    if (given.order == 0) {
      ASSERT_GT(record.order, greatest);
    } else {
      ASSERT_EQ(record.order, given.order);
    }
    ASSERT_EQ(record.version, 1);
    greatest = std::max({greatest, record.oid, record.order});
    model_[id].rows[record.oid] = record;
  }

  void Update(TableId id) {
    Record record;
    record.oid = RandomOid(id);
    const std::int64_t version = record.version = RandomVersion(id, record.oid);
    auto& rows = model_[id].rows;
    const auto row = rows.find(record.oid);
    const bool fits = row != rows.end() && row->second.version == version;
    if (fits) record = row->second;
    FillContent(id, record);
    ASSERT_EQ(store_->Update(id, record), fits);
    ASSERT_EQ(record.version, fits ? version + 1 : version);
    if (fits) row->second = record;
  }

  void UpdateKeys(TableId id) {
    const Oid oid = RandomOid(id);
    Record record;
    FillContent(id, record);
    store_->UpdateKeys(id, oid, record.keys);
    auto& rows = model_[id].rows;
    if (rows.contains(oid)) rows[oid].keys = record.keys;
  }

  void Erase(TableId id) {
    const Oid oid = RandomOid(id);
    const std::int64_t version = RandomVersion(id, oid);
    auto& rows = model_[id].rows;
    const auto row = rows.find(oid);
    const bool fits = row != rows.end() && row->second.version == version;
    const std::int32_t expected =
        fits && HasChildren(id, oid) ? Number(StoreError::HasChildren) : 0;
    bool erased = false;
    ASSERT_EQ(ErrorNumberOf([&] { erased = store_->Erase(id, oid, version); }), expected);
    ASSERT_EQ(erased, fits && expected == 0);
    if (erased) rows.erase(row);
  }

  // The row that comes first among those that lie behind, by a place that can be
  // compared.
  template <typename Place>
  const Record* First(TableId id, const Place& behind,
                      const std::function<bool(const Record&)>& counts,
                      const std::function<Place(const Record&)>& place_of) {
    const Record* first = nullptr;
    for (const auto& [oid, row] : model_[id].rows) {
      if (!counts(row) || !(behind < place_of(row))) continue;
      if (first == nullptr || place_of(row) < place_of(*first)) first = &row;
    }
    return first;
  }

  static std::string FoundText(bool found, const Record& record) {
    return found ? TextWithKeys(record) : "none";
  }
  static std::string FoundText(const Record* row) { return row ? TextWithKeys(*row) : "none"; }

  void Look(TableId id) {
    const schema::Table& description = store_->Catalog().tables[id];
    Record record;
    const Oid oid = RandomOid(id);
    const auto& rows = model_[id].rows;
    const auto row = rows.find(oid);
    bool found = store_->Read(id, oid, record);
    ASSERT_EQ(FoundText(found, record), FoundText(row == rows.end() ? nullptr : &row->second));

    const Oid parent = description.parent ? RandomOid(*description.parent) : 0;
    const std::int64_t after =
        row == rows.end() || Below(3) == 0 ? 0 : row->second.order - Below(2);
    const auto counts = [&](const Record& other) { return other.parent == parent; };
    found = store_->NextInParent(id, parent, after, record);
    ASSERT_EQ(FoundText(found, record),
              FoundText(First<std::int64_t>(id, after, counts,
                                            [](const Record& other) { return other.order; })));
    const auto count = [&](const auto& other) { return counts(other.second); };
    ASSERT_EQ(store_->CountInParent(id, parent), std::count_if(rows.begin(), rows.end(), count));
    ASSERT_EQ(store_->Count(id), static_cast<std::int64_t>(rows.size()));

    for (IndexId index = 0; index < description.indexes.size(); ++index) {
      using Place = std::pair<std::string, std::int64_t>;
      const Place behind = {
          Below(2) == 0 || row == rows.end() ? RandomText() : row->second.keys[index], after};
      found = store_->NextByKey(id, index, behind.first, behind.second, record);
      ASSERT_EQ(FoundText(found, record),
                FoundText(First<Place>(
                    id, behind, [](const Record&) { return true; },
                    [&](const Record& other) { return Place(other.keys[index], other.order); })));
    }
  }

  void Step() {
    const TableId id = TableOf(*store_, kTables[Below(std::size(kTables))]);
    switch (const int action = Below(100); action) {
      case 0:
        store_->Commit();
        committed_ = model_;
        marked_.reset();
        break;
      case 1:
        store_->Rollback();
        model_ = committed_;
        marked_.reset();
        break;
      case 2:
        store_->SetSavepoint();
        marked_ = model_;
        break;
      case 3:
        if (!marked_) break;
        store_->RollbackToSavepoint();
        model_ = *marked_;
        break;
      default:
        if (action < 35) {
          Insert(id);
        } else if (action < 50) {
          Update(id);
        } else if (action < 55) {
          UpdateKeys(id);
        } else if (action < 70) {
          Erase(id);
        } else {
          Look(id);
        }
    }
  }

  std::mt19937 random_;
  int step_ = 0;
  Model model_;
  Model committed_;
  std::optional<Model> marked_;
};

TEST_P(StoreWalk, AgreesWithAPlainModelAtEveryStep) {
  for (unsigned seed = 1; seed <= 3 && !HasFailure(); ++seed) {
    store_ = GetParam().create(schema::ContractCatalog(true), SampleProfile());
    Walk(seed, 2000);
  }
}

INSTANTIATE_TEST_SUITE_P(Stores, StoreWalk, testing::ValuesIn(support::AllStoreKinds()),
                         support::StoreName);

}  // namespace
}  // namespace pactora::store
