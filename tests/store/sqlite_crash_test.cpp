// A process that is killed while it saves leaves whole units only.
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <random>

#include "store/SqliteFile.h"

namespace pactora::store {
namespace {

using testing::IsEmpty;

namespace field = schema::field;
namespace table = schema::table;

constexpr int kRounds = 20;
constexpr int kTerms = 3;
constexpr const char* kUnits = "units";

class SqliteCrash : public SqliteFile {
 protected:
  static std::int32_t UnitsOf(RecordStore& store) {
    return store.ReadProfile().settings.back().value.AsLong();
  }

  // One contract as a save makes it: rows, a later update of one of them, a
  // setting. The number of the unit is in all of them.
  static void SaveUnit(RecordStore& store, std::int32_t unit) {
    const TableId contracts = TableOf(store, table::vv_Vertraege);
    const Oid address =
        InsertedOid(store, table::Adressen, 0, {{field::Name, std::to_string(unit)}});
    Record contract = Row(store, table::vv_Vertraege, address);
    store.Insert(contracts, contract);
    for (int term = 0; term < kTerms; ++term) {
      // Large enough to reach several pages.
      InsertedOid(store, table::vv_Vertragsstaende, contract.oid,
                  {{field::Value, 1.0}, {field::ZahlungsperiodeStr, std::string(3000, 'x')}});
    }
    Cell(store, table::vv_Vertraege, contract, field::Dauer) = unit;
    store.Update(contracts, contract);
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

  // Kills the process some units and microseconds on. Returns how many units it
  // told of.
  static int KillAfter(const std::string& path, int units, int microseconds) {
    int ends[2];
    EXPECT_EQ(pipe(ends), 0);
    const pid_t child = fork();
    if (child == 0) {
      close(ends[0]);
      SaveForEver(path, ends[1]);
    }
    close(ends[1]);
    char byte = 0;
    int told = 0;
    while (told < units && read(ends[0], &byte, 1) == 1) ++told;
    usleep(static_cast<useconds_t>(microseconds));
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
                "Long " + std::to_string(units));
      EXPECT_EQ(store.CountInParent(terms, contract.oid), kTerms) << "unit " << units;
    }
    EXPECT_EQ(UnitsOf(store), units);
  }
};

TEST_F(SqliteCrash, AKilledProcessLeavesEveryUnitThatItToldOfAndNoHalfOne) {
  {
    const auto store = Create();
    store->WriteSetting({SettingScope::PersistVar, "", kUnits, std::int32_t{0}});
    store->Commit();
  }
  std::mt19937 random(20240315);
  std::int32_t before = 0;
  for (int round = 0; round < kRounds && !HasFailure(); ++round) {
    const int units = static_cast<int>(random() % 3);
    const int microseconds = static_cast<int>(random() % 30000);
    SCOPED_TRACE("round " + std::to_string(round) + ", killed " + std::to_string(microseconds) +
                 " microseconds after " + std::to_string(units) + " units");
    const int told = KillAfter(path_, units, microseconds);
    const auto store = Open();
    ExpectWholeUnits(*store);
    // The last commit may have been made without a word of it.
    EXPECT_GE(UnitsOf(*store), before + told);
    EXPECT_LE(UnitsOf(*store), before + told + 1);
    before = UnitsOf(*store);
  }
  EXPECT_GT(before, 0);
  EXPECT_THAT(CheckSqlite(path_), IsEmpty());
}

}  // namespace
}  // namespace pactora::store
