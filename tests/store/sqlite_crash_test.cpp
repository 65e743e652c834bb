// A process that is killed while it saves leaves whole units only.
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <random>
#include <thread>

#include "store/SqliteFile.h"

namespace pactora::store {
namespace {

using testing::IsEmpty;

namespace field = schema::field;
namespace table = schema::table;

constexpr int kRounds = 20;
constexpr int kTerms = 3;
constexpr int kArticles = 200;  // a page each
constexpr const char* kUnits = "units";

class SqliteCrash : public SqliteFile {
 protected:
  static std::int32_t UnitsOf(RecordStore& store) {
    return store.ReadProfile().settings.back().value.AsLong();
  }

  static void Prepare(RecordStore& store) {
    const Oid group = InsertedOid(store, table::Artikelgruppen, 0, {}, {"G"});
    for (int article = 0; article < kArticles; ++article) {
      InsertedOid(store, table::Artikel, group,
                  {{field::Beschreibung, std::string(3000, 'x')}, {field::Erloeskonto, 0}}, {"A"});
    }
    store.WriteSetting({SettingScope::PersistVar, "", kUnits, std::int32_t{0}});
    store.Commit();
  }

  // One contract as a save makes it, and so many other rows changed that it takes
  // a while to write them all. The number of the unit is in everything.
  static void SaveUnit(RecordStore& store, std::int32_t unit) {
    const TableId contracts = TableOf(store, table::vv_Vertraege);
    const TableId articles = TableOf(store, table::Artikel);
    const Oid address =
        InsertedOid(store, table::Adressen, 0, {{field::Name, std::to_string(unit)}});
    Record contract = Row(store, table::vv_Vertraege, address);
    store.Insert(contracts, contract);
    for (int term = 0; term < kTerms; ++term) {
      InsertedOid(store, table::vv_Vertragsstaende, contract.oid, {{field::Value, 1.0}});
    }
    Cell(store, table::vv_Vertraege, contract, field::Dauer) = unit;
    store.Update(contracts, contract);
    Record article;
    while (store.NextByKey(articles, 0, "A", article.order, article)) {
      Cell(store, table::Artikel, article, field::Erloeskonto) = unit;
      store.Update(articles, article);
    }
    store.WriteSetting({SettingScope::PersistVar, "", kUnits, unit});
    store.Commit();
  }

  // Saves until it is killed, telling of each unit that is committed.
  [[noreturn]] static void SaveForEver(const std::string& path, int pipe) {
    const auto store = OpenSqlite(path);
    for (std::int32_t unit = UnitsOf(*store) + 1;; ++unit) {
      SaveUnit(*store, unit);
      if (write(pipe, "x", 1) != 1) _exit(1);
    }
  }

  // When a process is killed: after so many units, then, where asked for, at the
  // next write into the database file itself, and then so much later.
  struct Moment {
    int units;
    bool in_write;
    std::chrono::microseconds later;
  };

  void WaitForWrite() const {
    const auto before = std::filesystem::last_write_time(path_);
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    while (std::filesystem::last_write_time(path_) == before &&
           std::chrono::steady_clock::now() < deadline) {
    }
  }

  // Returns how many units the process reported before it was killed.
  int Kill(const Moment& moment) const {
    int ends[2];
    EXPECT_EQ(pipe(ends), 0);
    const pid_t child = fork();
    if (child == 0) {
      close(ends[0]);
      SaveForEver(path_, ends[1]);
    }
    close(ends[1]);
    char byte = 0;
    int told = 0;
    while (told < moment.units && read(ends[0], &byte, 1) == 1) ++told;
    if (moment.in_write) WaitForWrite();
    std::this_thread::sleep_for(moment.later);
    kill(child, SIGKILL);
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status)) << "the process ended by itself";
    while (read(ends[0], &byte, 1) == 1) ++told;
    close(ends[0]);
    return told;
  }

  static void ExpectWholeUnits(RecordStore& store) {
    const TableId addresses = TableOf(store, table::Adressen);
    const TableId contracts = TableOf(store, table::vv_Vertraege);
    const TableId terms = TableOf(store, table::vv_Vertragsstaende);
    Record address;
    std::int32_t units = 0;
    while (store.NextInParent(addresses, 0, address.order, address)) {
      ++units;
      EXPECT_EQ(Cell(store, table::Adressen, address, field::Name).AsText(), std::to_string(units));
      Record contract;
      ASSERT_TRUE(store.NextInParent(contracts, address.oid, 0, contract)) << "unit " << units;
      EXPECT_EQ(Text(Cell(store, table::vv_Vertraege, contract, field::Dauer)),
                Text(host::Value(units)));
      EXPECT_EQ(store.CountInParent(terms, contract.oid), kTerms) << "unit " << units;
    }
    EXPECT_EQ(UnitsOf(store), units);
    const TableId articles = TableOf(store, table::Artikel);
    Record article;
    while (store.NextByKey(articles, 0, "A", article.order, article)) {
      ASSERT_EQ(Text(Cell(store, table::Artikel, article, field::Erloeskonto)),
                Text(host::Value(units)));
    }
  }
};

TEST_F(SqliteCrash, AKilledProcessLeavesEveryUnitThatItToldOfAndNoHalfOne) {
  Prepare(*Create());
  std::mt19937 random(20240315);
  std::int32_t before = 0;
  for (int round = 0; round < kRounds && !HasFailure(); ++round) {
    const bool in_write = round % 2 == 0;
    const Moment moment = {static_cast<int>(random() % 3), in_write,
                           std::chrono::microseconds(random() % (in_write ? 300 : 30000))};
    SCOPED_TRACE("round " + std::to_string(round) + ", killed after " +
                 std::to_string(moment.units) + " units" + (in_write ? ", in a write, " : ", ") +
                 std::to_string(moment.later.count()) + " microseconds later");
    const int told = Kill(moment);
    const auto store = Open();
    ExpectWholeUnits(*store);
    // The last commit may have been made without a word of it.
    EXPECT_GE(UnitsOf(*store), before + told);
    EXPECT_LE(UnitsOf(*store), before + told + 1);
    before = UnitsOf(*store);
  }
  EXPECT_GT(before, 0);
  EXPECT_THAT(CheckSqlite(path_).faults, IsEmpty());
}

}  // namespace
}  // namespace pactora::store
