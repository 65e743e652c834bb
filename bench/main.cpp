// One contract with five positions through the add-on, over each store, beside
// what the same rows cost by hand, and how the cost grows with the database. The
// ratios that count are printed at the end, all from the one run.

#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "bulk.h"
#include "company.h"
#include "floors.h"
#include "schema/Catalog.h"
#include "store/memory/MemoryStore.h"
#include "store/sqlite/SqliteStore.h"

namespace pactora::bench {
namespace {

namespace fs = std::filesystem;

// A directory on the disk that the program is started on, gone afterwards.
class Directory {
 public:
  Directory() : path_(fs::current_path() / "bench-data") { fs::create_directories(path_); }
  ~Directory() { fs::remove_all(path_); }
  std::string File(const std::string& name) const { return (path_ / name).string(); }

 private:
  fs::path path_;
};

using StoreMaker = std::function<std::unique_ptr<store::RecordStore>()>;

std::unique_ptr<store::RecordStore> InMemory() {
  return store::CreateMemoryStore(schema::ContractCatalog(true), CompanyProfile());
}
std::unique_ptr<store::RecordStore> SqliteInMemory() {
  return store::CreateSqliteInMemory(schema::ContractCatalog(true), CompanyProfile());
}
std::unique_ptr<store::RecordStore> OnDisk(const std::string& path) {
  fs::remove(path);
  return store::CreateSqlite(path, schema::ContractCatalog(true), CompanyProfile());
}

void AddOn(benchmark::State& state, const StoreMaker& make, std::int64_t contracts) {
  auto store = make();
  FillCompany(*store);
  AddContracts(*store, contracts);
  Office office(std::move(store));
  for (int i = 0; i < 20; ++i) office.ConcludeContract();
  for (auto _ : state) office.ConcludeContract();
}

// The counter that tells how many contracts an iteration is.
constexpr const char* kContracts = "contracts";

void Takeover(benchmark::State& state, const StoreMaker& make, int lines) {
  TakeoverOffice office(make(), lines);
  office.TakeOver();
  for (auto _ : state) office.TakeOver();
  state.counters[kContracts] = lines;
}

void ContractFiles(benchmark::State& state, const StoreMaker& make, int contracts) {
  ContractFileOffice office(make(), contracts);
  office.WriteFile();
  office.MakeContracts();
  for (auto _ : state) {
    state.PauseTiming();
    office.WriteFile();
    state.ResumeTiming();
    office.MakeContracts();
  }
  state.counters[kContracts] = contracts;
}

void ByHand(benchmark::State& state, const std::function<std::unique_ptr<Floor>()>& make) {
  const auto floor = make();
  for (int i = 0; i < 20; ++i) floor->ConcludeContract();
  for (auto _ : state) floor->ConcludeContract();
}

void ManyByHand(benchmark::State& state, const std::function<std::unique_ptr<Floor>()>& make) {
  const auto floor = make();
  for (auto _ : state)
    for (int i = 0; i < kGroup; ++i) floor->ConcludeContract();
  state.counters[kContracts] = kGroup;
}

// Keeps the best of the repetitions: what the machine does beside only adds.
class Ratios final : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
      if (run.run_type != Run::RT_Iteration) continue;
      const std::string name = run.run_name.function_name;
      // One iteration may be many contracts.
      const auto found = run.counters.find(kContracts);
      const double contracts = found == run.counters.end() ? 1 : found->second.value;
      Keep(cpu_, name, run.GetAdjustedCPUTime() / contracts);
      Keep(wall_, name, run.GetAdjustedRealTime() / contracts);
    }
  }

  void Print() {
    std::printf("\nratio (best of the repetitions)                          measured   limit\n");
    Line("SQLite on disk / by hand, wall time", wall_, "sqlite_on_disk", "by_hand_on_disk", 1.3);
    Line("SQLite in memory / by hand, CPU", cpu_, "sqlite_in_memory", "by_hand_in_memory", 2.0);
    Line("new-contract, groups in memory / by hand, CPU", cpu_, "files", "files_by_hand", 2.5);
    Line("takeover, groups in memory / by hand, CPU", cpu_, "takeover", "takeover_by_hand", 3.0);
    Line("new-contract on disk, groups / one each, wall time", wall_, "files_on_disk",
         "files_one_each", 1 / 8.0);
    Line("takeover on disk, groups / one each, wall time", wall_, "takeover_on_disk",
         "takeover_one_each", 1 / 8.0);
    Line("memory store / bare SQLite in memory, CPU", cpu_, "memory_store", "by_hand_in_memory",
         1.0);
    Line("memory store, 300,000 / 1,000 contracts, CPU", cpu_, "memory_300000", "memory_1000", 1.5);
    Line("SQLite in memory, 300,000 / 1,000, CPU", cpu_, "sqlite_300000", "sqlite_1000", 1.5);
    Line("SQLite on disk, 300,000 / 1,000, wall time", wall_, "disk_300000", "disk_1000", 1.5);
    Line("memory store / plain structs, CPU", cpu_, "memory_store", "by_hand_structs", 0);
  }

 private:
  using Times = std::map<std::string, double>;

  static void Keep(Times& times, const std::string& name, double time) {
    const auto [place, added] = times.emplace(name, time);
    if (!added && time < place->second) place->second = time;
  }

  static void Line(const char* what, const Times& times, const char* one, const char* other,
                   double limit) {
    if (!times.contains(one) || !times.contains(other)) return;
    const double ratio = times.at(one) / times.at(other);
    std::printf("%-55s %9.3f", what, ratio);
    if (limit > 0) std::printf(" %7.3f %s", limit, ratio <= limit ? "" : "  missed");
    std::printf("\n");
  }

  Times cpu_;
  Times wall_;
};

benchmark::internal::Benchmark* Add(const char* name, std::function<void(benchmark::State&)> run) {
  return benchmark::RegisterBenchmark(name, std::move(run))
      ->Unit(benchmark::kMicrosecond)
      ->Repetitions(3);
}

void Register(const Directory& directory) {
  const std::string filled = directory.File("filled.db");
  FillCompany(*OnDisk(filled));
  const auto add = [](const char* name, StoreMaker make, std::int64_t contracts) {
    Add(name, [=](benchmark::State& state) { AddOn(state, make, contracts); });
  };
  const auto on_disk = [&](const char* name) {
    return [path = directory.File(std::string(name) + ".db")] { return OnDisk(path); };
  };
  add("memory_store", InMemory, 0);
  Add("by_hand_structs", [](benchmark::State& state) { ByHand(state, MemoryFloor); });
  add("sqlite_in_memory", SqliteInMemory, 0);
  Add("by_hand_in_memory", [=](benchmark::State& state) {
    ByHand(state, [=] { return SqliteFloor(filled, Place::InMemory); });
  });
  add("sqlite_on_disk", on_disk("addon"), 0);
  Add("by_hand_on_disk", [=](benchmark::State& state) {
    ByHand(state, [=] { return SqliteFloor(filled, Place::OnDisk); });
  });
  const auto many = [&](const std::string& name, const auto& bulk, int contracts,
                        const StoreMaker& make) {
    Add(name.c_str(), [=](benchmark::State& state) { bulk(state, make, contracts); });
  };
  many("files", ContractFiles, kGroup, SqliteInMemory);
  many("files_on_disk", ContractFiles, kGroup, on_disk("files"));
  many("files_one_each", ContractFiles, 1, on_disk("file"));
  many("takeover", Takeover, kGroup, SqliteInMemory);
  many("takeover_on_disk", Takeover, kGroup, on_disk("takeovers"));
  many("takeover_one_each", Takeover, 1, on_disk("takeover"));
  const std::string sample = directory.File("sample.db");
  FillSample(*OnDisk(sample));
  Add("files_by_hand", [=](benchmark::State& state) {
    ManyByHand(state, [=] { return SqliteBulkFloor(filled, Place::InMemory); });
  });
  Add("takeover_by_hand", [=](benchmark::State& state) {
    ManyByHand(state, [=] { return SqliteTakeoverFloor(sample, Place::InMemory); });
  });
  for (const auto& [suffix, contracts] : {std::pair("1000", 1000), std::pair("300000", 300000)}) {
    add((std::string("memory_") + suffix).c_str(), InMemory, contracts);
    add((std::string("sqlite_") + suffix).c_str(), SqliteInMemory, contracts);
    add((std::string("disk_") + suffix).c_str(), on_disk(suffix), contracts);
  }
}

}  // namespace
}  // namespace pactora::bench

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  const pactora::bench::Directory directory;
  pactora::bench::Register(directory);
  pactora::bench::Ratios ratios;
  benchmark::RunSpecifiedBenchmarks(&ratios);
  ratios.Print();
  return 0;
}
