// A seeded random walk over every store, compared step by step with a plain model.
// The model is right, not one of the stores.
#include <algorithm>
#include <map>
#include <random>

#include "store/StoreSuite.h"

namespace pactora::store {
namespace {

namespace table = schema::table;

// Tables with and without parents, with one, several and no indexes.
constexpr std::string_view kTables[] = {
    table::Adressen, table::Adressmerkmale,        table::Artikelgruppen,
    table::Artikel,  table::MerkmalgruppeAdressen, table::MerkmallisteAdressen};

using Model = std::map<TableId, std::map<Oid, Record>>;

class StoreWalk : public StoreSuite {
 protected:
  void Walk(unsigned seed, int steps) {
    random_.seed(seed);
    model_.clear();
    committed_.clear();
    for (step_ = 0; step_ < steps && !HasFailure(); ++step_) Step();
    ASSERT_FALSE(HasFailure()) << "seed " << seed << ", step " << step_;
  }

 private:
  int Below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random_); }

  std::string RandomText() {
    constexpr std::string_view kLetters[] = {"A", "B", "ä", "Z", " ", "a"};
    std::string text;
    for (int length = Below(4); length > 0; --length) text += kLetters[Below(6)];
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
    const auto& rows = model_[id];
    if (rows.empty() || Below(20) == 0) return Below(50) + 1;
    return std::next(rows.begin(), Below(static_cast<int>(rows.size())))->first;
  }

  // The version that the model has, now and then another one.
  std::int64_t RandomVersion(TableId id, Oid oid) {
    const auto row = model_[id].find(oid);
    return (row == model_[id].end() ? 1 : row->second.version) + (Below(6) == 0 ? 1 : 0);
  }

  bool HasChildren(TableId id, Oid oid) {
    const auto& children = store_->Catalog().tables[id].children;
    return std::any_of(children.begin(), children.end(), [&](TableId child) {
      return std::any_of(model_[child].begin(), model_[child].end(),
                         [&](const auto& row) { return row.second.parent == oid; });
    });
  }

  std::int64_t Greatest(TableId id) {
    std::int64_t greatest = 0;
    for (const auto& [oid, row] : model_[id]) greatest = std::max({greatest, oid, row.order});
    return greatest;
  }

  void Insert(TableId id) {
    const auto parent = store_->Catalog().tables[id].parent;
    Record record;
    record.parent = parent ? RandomOid(*parent) : 0;
    if (Below(4) == 0) record.oid = Below(3) == 0 ? RandomOid(id) : Greatest(id) + 1 + Below(3);
    FillContent(id, record);
    const Record given = record;
    const std::int64_t greatest = Greatest(id);
    const bool orphan = parent && !model_[*parent].contains(given.parent);
    const bool taken = model_[id].contains(given.oid);
    const std::int32_t error = ErrorOf([&] { store_->Insert(id, record); });
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
    ASSERT_GT(record.order, greatest);
    ASSERT_EQ(record.version, 1);
    model_[id][record.oid] = record;
  }

  void Update(TableId id) {
    Record record;
    record.oid = RandomOid(id);
    record.version = RandomVersion(id, record.oid);
    const auto row = model_[id].find(record.oid);
    const bool fits = row != model_[id].end() && row->second.version == record.version;
    if (fits) record = row->second;
    FillContent(id, record);
    ASSERT_EQ(store_->Update(id, record), fits);
    if (!fits) return;
    ASSERT_EQ(record.version, row->second.version + 1);
    row->second = record;
  }

  void UpdateKeys(TableId id) {
    const Oid oid = RandomOid(id);
    Record record;
    FillContent(id, record);
    store_->UpdateKeys(id, oid, record.keys);
    if (model_[id].contains(oid)) model_[id][oid].keys = record.keys;
  }

  void Erase(TableId id) {
    const Oid oid = RandomOid(id);
    const std::int64_t version = RandomVersion(id, oid);
    const auto row = model_[id].find(oid);
    const bool fits = row != model_[id].end() && row->second.version == version;
    const std::int32_t expected =
        fits && HasChildren(id, oid) ? Number(StoreError::HasChildren) : 0;
    bool erased = false;
    ASSERT_EQ(ErrorOf([&] { erased = store_->Erase(id, oid, version); }), expected);
    ASSERT_EQ(erased, fits && expected == 0);
    if (erased) model_[id].erase(row);
  }

  // The row that comes first among those that lie behind, by a place that can be
  // compared.
  template <typename Place>
  const Record* First(TableId id, const Place& behind,
                      const std::function<bool(const Record&)>& counts,
                      const std::function<Place(const Record&)>& place_of) {
    const Record* first = nullptr;
    for (const auto& [oid, row] : model_[id]) {
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
    const auto row = model_[id].find(oid);
    bool found = store_->Read(id, oid, record);
    ASSERT_EQ(FoundText(found, record),
              FoundText(row == model_[id].end() ? nullptr : &row->second));

    const Oid parent = description.parent ? RandomOid(*description.parent) : 0;
    const std::int64_t after =
        row == model_[id].end() || Below(3) == 0 ? 0 : row->second.order - Below(2);
    const auto counts = [&](const Record& other) { return other.parent == parent; };
    found = store_->NextInParent(id, parent, after, record);
    ASSERT_EQ(FoundText(found, record),
              FoundText(First<std::int64_t>(id, after, counts,
                                            [](const Record& other) { return other.order; })));
    const auto count = [&](const auto& other) { return counts(other.second); };
    ASSERT_EQ(store_->CountInParent(id, parent),
              std::count_if(model_[id].begin(), model_[id].end(), count));
    ASSERT_EQ(store_->Count(id), static_cast<std::int64_t>(model_[id].size()));

    for (IndexId index = 0; index < description.indexes.size(); ++index) {
      using Place = std::pair<std::string, std::int64_t>;
      const Place behind = {
          Below(2) == 0 || row == model_[id].end() ? RandomText() : row->second.keys[index], after};
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
        break;
      case 1:
        store_->Rollback();
        model_ = committed_;
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
};

TEST_P(StoreWalk, AgreesWithAPlainModelAtEveryStep) {
  for (unsigned seed = 1; seed <= 3 && !HasFailure(); ++seed) {
    store_ = GetParam().create(schema::ContractCatalog(true), SampleProfile());
    Walk(seed, 2000);
  }
}

INSTANTIATE_TEST_SUITE_P(Stores, StoreWalk, testing::ValuesIn(support::StoreKindsWithDisk()),
                         support::StoreName);

}  // namespace
}  // namespace pactora::store
