// Seeded random walks over live tables, compared step by step with a plain model
// that knows nothing of stores: lists of rows, walked from end to end.

#include <algorithm>
#include <map>
#include <optional>
#include <random>
#include <set>

#include "embedded/Host.h"
#include "embedded/LiveTable.h"
#include "platform/Text.h"
#include "support/store_kinds.h"

namespace pactora::embedded {
namespace {

using Text = std::string;

// Three tables in a chain, each with a name and a mark, and found by name; the
// grandchildren also by their parent's name and their own.
constexpr std::size_t kTables = 3;
const std::array<Text, kTables> kNames = {"Opa", "Vater", "Kind"};

schema::Catalog FamilyCatalog() {
  schema::Catalog catalog;
  for (std::size_t t = 0; t < kTables; ++t) {
    schema::Table table;
    table.name = kNames[t];
    table.fields = {{"Name", schema::FieldType::Text, 20}, {"Zahl", schema::FieldType::Long, 0}};
    table.indexes = {{"Name", {{0, false}}}};
    if (t > 0) {
      table.parent = t - 1;
      catalog.tables[t - 1].children = {t};
      table.indexes.push_back({"VaterName", {{0, true}, {0, false}}});
    }
    catalog.tables.push_back(table);
  }
  return catalog;
}

struct ModelRow {
  std::size_t parent = 0;  // position in the parent's rows
  std::optional<Text> name;
  std::optional<int> number;
  bool erased = false;
};

struct ModelTable {
  std::vector<ModelRow> rows;          // in record order
  std::optional<std::size_t> current;  // a stored row
  bool is_new = false;                 // the current row is new and unsaved
  ModelRow image;                      // the current row with pending values
  int index = -1;
  bool hides_even = false;  // the filter
};

// The rules, as simply as they can be said.
class Model {
 public:
  std::array<ModelTable, kTables> tables;
  std::map<std::pair<std::size_t, std::size_t>, Text> oids;

  Text Key(std::size_t t, std::size_t row, int index) const {
    const ModelRow& r = tables[t].rows[row];
    const Text own = platform::UpperCase(r.name.value_or(""));
    if (index == 0) return own;
    return platform::UpperCase(tables[t - 1].rows[r.parent].name.value_or("")) + own;
  }

  // The rows that the cursor runs over, in its order.
  std::vector<std::size_t> Scope(std::size_t t) const {
    const ModelTable& table = tables[t];
    std::vector<std::size_t> scope;
    for (std::size_t row = 0; row < table.rows.size(); ++row) {
      const ModelRow& r = table.rows[row];
      if (r.erased || (table.hides_even && r.number.value_or(1) % 2 == 0)) continue;
      if (table.index < 0 && t > 0 && tables[t - 1].current != r.parent) continue;
      scope.push_back(row);
    }
    if (table.index >= 0) {
      std::stable_sort(scope.begin(), scope.end(), [&](std::size_t a, std::size_t b) {
        return Key(t, a, table.index) < Key(t, b, table.index);
      });
    }
    return scope;
  }

  bool HasRow(std::size_t t) const { return tables[t].current.has_value() || tables[t].is_new; }

  void Drop(std::size_t t) {
    tables[t].current.reset();
    tables[t].is_new = false;
  }

  void Follow(std::size_t t, std::size_t row) {
    if (tables[t].current == row) return;
    Drop(t);
    tables[t].current = row;
    tables[t].image = tables[t].rows[row];
    if (t > 0) Follow(t - 1, tables[t].rows[row].parent);
  }

  void Take(std::size_t t, std::optional<std::size_t> row) {
    Drop(t);
    if (row) Follow(t, *row);
    Settle();
  }

  // A row outside its table's scope is no longer current.
  void Settle() {
    for (std::size_t t = 1; t < kTables; ++t) {
      if (tables[t].index < 0 && HasRow(t) && tables[t - 1].current != tables[t].image.parent) {
        Drop(t);
      }
    }
  }

  std::optional<std::size_t> After(std::size_t t, std::size_t row) const {
    // The place of the current row counts even if a filter hides it.
    const ModelTable& table = tables[t];
    for (const std::size_t candidate : Scope(t)) {
      const bool behind = table.index < 0 ? candidate > row
                                          : std::pair(Key(t, candidate, table.index), candidate) >
                                                std::pair(Key(t, row, table.index), row);
      if (behind) return candidate;
    }
    return std::nullopt;
  }

  Text Describe(std::size_t t) const {
    const ModelTable& table = tables[t];
    Text text = kNames[t] + ": " + std::to_string(Scope(t).size()) + " ";
    if (!HasRow(t)) return text + "EOF";
    text += table.is_new ? "neu" : oids.at({t, *table.current});
    text += " " + table.image.name.value_or("-") + " " +
            (table.image.number ? std::to_string(*table.image.number) : "-");
    if (table.index >= 0 && !table.is_new) text += " " + Key(t, *table.current, table.index);
    return text;
  }
};

class Walk {
 public:
  Walk(Host& host, unsigned seed) : host_(host), random_(seed) {
    for (const Text& name : kNames) live_.push_back(host.Table(name));
  }

  void Step() {
    const std::size_t t = Pick(kTables);
    ModelTable& table = model_.tables[t];
    host::HostTable& live = *live_[t];
    switch (Pick(17)) {
      case 0:
        log_ = "MoveFirst";
        live.MoveFirst(256);
        model_.Take(t, First(model_.Scope(t)));
        break;
      case 1:
      case 2: {
        log_ = "MoveNext";
        live.MoveNext(1, 256);
        if (model_.HasRow(t)) {
          model_.Take(t, table.current ? model_.After(t, *table.current) : std::nullopt);
        }
        break;
      }
      case 3:
      case 4:
        SeekStep(t);
        break;
      case 5: {
        log_ = "FindOid";
        const Text oid = std::to_string(1 + Pick(60));
        std::optional<std::size_t> wanted;
        for (std::size_t row = 0; row < table.rows.size(); ++row) {
          if (!table.rows[row].erased && model_.oids.at({t, row}) == oid) wanted = row;
        }
        ASSERT_EQ(live.FindOid(oid, 256), wanted.has_value());
        if (wanted) model_.Take(t, wanted);
        break;
      }
      case 6: {
        log_ = "Select";
        const int index = static_cast<int>(Pick(t == 0 ? 1 : 2));
        live.Indexes().Select(index == 0 ? "NAME" : "vatername", 256);
        table.index = index;
        break;
      }
      case 7:
        log_ = "SelectNone";
        live.Indexes().SelectNone(256);
        table.index = -1;
        model_.Settle();
        break;
      case 8:
      case 9:
        NewRowStep(t);
        break;
      case 10: {
        log_ = "write";
        if (!model_.HasRow(t)) break;
        const Text name = RandomName();
        live.Fields().Item("name").SetValue(name);
        table.image.name = name;
        if (Pick(2) == 0) WriteNumber(t);
        break;
      }
      case 11:
        StoreStep(t);
        break;
      case 12:
        EraseStep(t);
        break;
      case 13:
        log_ = "ParentTable";
        if (t == 0) break;
        ASSERT_EQ(live.ParentTable()->Name(), kNames[t - 1]);
        if (model_.HasRow(t)) {
          model_.Follow(t - 1, table.image.parent);
          model_.Settle();
        }
        break;
      case 14:
        EndUnitStep();
        break;
      case 15:
        log_ = "FilterOff";
        live.FilterOff(-1, 256);
        live.FilterOff2(-1, 256);
        table.hides_even = false;
        break;
      default:
        log_ = "SetFilter";
        if (Pick(3) != 0) break;
        dynamic_cast<LiveTable&>(live).SetFilter(
            Pick(2) == 0 ? FilterKind::First : FilterKind::Second, [](const store::Record& record) {
              return record.cells[1].IsEmpty() || record.cells[1].AsLong() % 2 != 0;
            });
        table.hides_even = true;
    }
    log_ += " on " + kNames[t];
  }

  void Compare() const {
    for (std::size_t t = 0; t < kTables; ++t) {
      ASSERT_EQ(Describe(t), model_.Describe(t)) << "after " << log_;
    }
  }

  const std::set<Text>& Seen() const { return seen_; }

 private:
  std::size_t Pick(std::size_t count) {
    return std::uniform_int_distribution<std::size_t>(0, count - 1)(random_);
  }

  Text RandomName() {
    static const std::vector<Text> kSome = {"",  "a",  "A",   "ä",  "Ä",  "b",
                                            "ß", "aa", "Aäb", "ba", "é1", "z9"};
    return kSome[Pick(kSome.size())];
  }

  static std::optional<std::size_t> First(const std::vector<std::size_t>& rows) {
    return rows.empty() ? std::nullopt : std::optional(rows.front());
  }

  void WriteNumber(std::size_t t) {
    const int number = static_cast<int>(Pick(100));
    live_[t]->Fields().Item("Zahl").SetValue(number);
    model_.tables[t].image.number = number;
  }

  void SeekStep(std::size_t t) {
    log_ = "Seek";
    const int index = model_.tables[t].index;
    if (index < 0) {
      ASSERT_THROW(live_[t]->SeekKey("a", 256), platform::Error);
      return;
    }
    const bool exact = Pick(2) == 0;
    const Text key = RandomName() + (index == 1 ? RandomName() : "");
    const Text folded = platform::UpperCase(key);
    std::optional<std::size_t> found;
    for (const std::size_t row : model_.Scope(t)) {
      const Text row_key = model_.Key(t, row, index);
      if (exact ? row_key == folded : row_key >= folded) {
        found = row;
        break;
      }
    }
    ASSERT_EQ(exact ? live_[t]->SeekKey(key, 256) : live_[t]->SeekNear(key, 256),
              found.has_value());
    model_.Take(t, found);
    if (found) seen_.insert("found");
  }

  void NewRowStep(std::size_t t) {
    log_ = "new row";
    if (t > 0 && !model_.tables[t - 1].current) {
      ASSERT_THROW(live_[t]->NewRecordOid(0), platform::Error);
      model_.Take(t, std::nullopt);
      return;
    }
    if (Pick(9) == 0) {
      ASSERT_THROW(live_[t]->GotoRec("keine Stelle"), platform::Error);
      model_.Take(t, std::nullopt);
      return;
    }
    live_[t]->GotoRec(live_[t]->NewRecordOid(0));
    model_.Drop(t);
    ModelTable& table = model_.tables[t];
    table.is_new = true;
    table.image = {};
    if (t > 0) table.image.parent = *model_.tables[t - 1].current;
    model_.Settle();
    if (Pick(5) != 0) {
      const Text name = RandomName();
      live_[t]->Fields().Item("Name").SetValue(name);
      table.image.name = name;
    }
    if (Pick(2) == 0) WriteNumber(t);
    if (Pick(5) != 0) StoreStep(t);
  }

  void StoreStep(std::size_t t) {
    log_ = "store";
    ModelTable& table = model_.tables[t];
    if (!model_.HasRow(t)) {
      ASSERT_THROW(live_[t]->Store(256), platform::Error);
      ASSERT_THROW(live_[t]->StoreNew(256), platform::Error);
    } else if (table.is_new) {
      ASSERT_THROW(live_[t]->Store(256), platform::Error);
      live_[t]->StoreNew(256);
      table.rows.push_back(table.image);
      table.is_new = false;
      table.current = table.rows.size() - 1;
      model_.oids[{t, *table.current}] = live_[t]->Oid();
      seen_.insert("stored");
    } else {
      ASSERT_THROW(live_[t]->StoreNew(256), platform::Error);
      live_[t]->Store(256);
      table.rows[*table.current] = table.image;
    }
  }

  void EraseStep(std::size_t t) {
    log_ = "DeleteRec";
    ModelTable& table = model_.tables[t];
    bool has_children = false;
    if (t + 1 < kTables && table.current) {
      for (const ModelRow& row : model_.tables[t + 1].rows) {
        has_children |= !row.erased && row.parent == *table.current;
      }
    }
    if (!model_.HasRow(t) || has_children) {
      ASSERT_THROW(live_[t]->DeleteRec(0), platform::Error);
      return;
    }
    live_[t]->DeleteRec(0);
    if (table.current) table.rows[*table.current].erased = true;
    model_.Take(t, std::nullopt);
    seen_.insert("deleted");
  }

  void EndUnitStep() {
    if (Pick(4) != 0) {
      log_ = "EndUnit";
      host_.EndUnit();
      committed_ = model_;
      return;
    }
    log_ = "DropUnit";
    host_.DropUnit();
    for (std::size_t t = 0; t < kTables; ++t) {
      model_.tables[t].rows = committed_.tables[t].rows;
      model_.Drop(t);
    }
    model_.oids = committed_.oids;
  }

  Text Describe(std::size_t t) const {
    host::HostTable& live = *live_[t];
    Text text = kNames[t] + ": " + std::to_string(live.ScopeCount()) + " ";
    if (live.Eof()) return text + "EOF";
    const Text oid = live.Oid();
    text += oid.empty() ? "neu" : oid;
    const host::Value name = live.Fields().Item("Name").Value();
    const host::Value number = live.Fields().Item("zahl").Value();
    text += " " + (name.IsEmpty() ? Text("-") : name.AsText()) + " " +
            (number.IsEmpty() ? Text("-") : std::to_string(number.AsLong()));
    const auto index = live.Indexes().Current();
    if (index != nullptr && !oid.empty()) text += " " + host::ToText(index->KeyValue());
    return text;
  }

  Host& host_;
  std::mt19937 random_;
  Model model_;
  Model committed_;
  std::vector<std::shared_ptr<host::HostTable>> live_;
  Text log_;
  std::set<Text> seen_;
};

class RandomWalk : public support::StoreTest {};

TEST_P(RandomWalk, AgreesWithThePlainModelAtEveryStep) {
  for (unsigned seed = 1; seed <= 12; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Host host(GetParam().create(FamilyCatalog(), {}));
    Walk walk(host, seed);
    for (int step = 0; step < 1200; ++step) {
      SCOPED_TRACE("step " + std::to_string(step));
      walk.Step();
      walk.Compare();
      if (testing::Test::HasFatalFailure()) return;
    }
    EXPECT_EQ(walk.Seen().size(), 3u) << "the walk reached too little";
  }
}

INSTANTIATE_TEST_SUITE_P(Stores, RandomWalk, testing::ValuesIn(support::StoreKinds()),
                         support::StoreName);

}  // namespace
}  // namespace pactora::embedded
