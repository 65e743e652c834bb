// Each call of the system fails in turn, or power is cut there, while a door saves. What was
// reported as stored is there once, what was reported as not stored is not, and what was
// reported as uncertain is there whole or not at all: the file holds exactly what it holds
// after as many things as that.
//
// PACTORA_POWER_CUTS=n cuts the power at every call, n times each with another seed.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "automation/company.h"
#include "automation/dataset/ContractJob.h"
#include "automation/dataset/dataset_export.h"
#include "automation/dataset/dataset_files.h"
#include "automation/scripts/script_run.h"
#include "automation/takeover/job.h"
#include "store/SqliteFile.h"
#include "store/errors.h"
#include "support/FailingFiles.h"
#include "support/sanitized.h"

namespace pactora {
namespace {

using store::StoreError;
using support::FailingFiles;

const platform::FixedClock kClock{platform::FromCivil(2024, 3, 15)};

// What a door says of the things it was given.
struct Told {
  std::size_t stored = 0;
  bool is_uncertain = false;  // whether more are stored
  bool is_other = false;      // an error that it showed changed what was entered then
};

// Runs the door; stored counts what it has told by then. What is uncertain must be named so.
Told Tell(const std::function<void()>& door, const std::function<std::size_t()>& stored,
          const std::string& named = {}) {
  const auto error = support::ErrorOf(door);
  const bool is_uncertain = error && error->Number() == Number(StoreError::Uncertain);
  if (is_uncertain) {
    EXPECT_THAT(error->Description(), testing::HasSubstr(named));
  }
  return {stored(), is_uncertain};
}

struct Door {
  std::string name;
  std::size_t things;                                    // that it is given at once
  std::function<void(const std::string& file)> prepare;  // makes the file
  std::function<Told(const std::string& file, std::size_t things)> act;

  friend void PrintTo(const Door& door, std::ostream* out) { *out << door.name; }
};

void Import(const std::string& file, std::string_view dataset) {
  dataset::ImportDatabase(file, formats::MemorySource("bestand", std::string(dataset)),
                          workspace::Access::Write, [](std::size_t, std::size_t) {});
}
void ImportSample(const std::string& file) { Import(file, dataset::SampleDataset()); }

Told SaveRows(const std::string& file, std::size_t) {
  bool stored = false;
  return Tell(
      [&] {
        const auto store = workspace::OpenDatabase(file, workspace::Access::Write);
        const auto save = [&] {
          store::InsertedOid(*store, schema::table::Adressen, 0, {{schema::field::Name, "neu"}});
          store->Commit();
        };
        const auto error = support::ErrorOf(save);
        stored = !error;
        if (!error) return;
        if (error->Number() == Number(StoreError::Uncertain)) {
          EXPECT_EQ(support::ErrorNumberOf(save), error->Number()) << "it goes on with the file";
        }
        store->Rollback();
        throw platform::Error(*error);
      },
      [&] { return stored ? 1 : 0; });
}

Told EnterInDialog(const std::string& file, std::size_t) {
  static const scripts::Script script =
      scripts::ReadScript(formats::Json::parse(R"({"steps": [{"goto": "Adressen", "oid": "1"},
        {"call": "NewContract", "do": [{"select": "lvwBezeichnung", "text": "Wartung Server"},
          {"click": "cmdOK"}]}]})"),
                          "dialog");
  std::ostringstream transcript;
  scripts::RunResult result;
  Told told = Tell(
      [&] {
        result = scripts::RunScript(script, workspace::OpenDatabase(file, workspace::Access::Write),
                                    kClock, transcript);
      },
      [&] { return transcript.str().find(R"("pbOK":true)") == std::string::npos ? 0 : 1; });
  told.is_uncertain =
      result.fatal_error && result.fatal_error->Number() == Number(StoreError::Uncertain);
  if (told.is_uncertain) {
    EXPECT_THAT(result.fatal_error->Description(), testing::HasSubstr("Betroffen ist Vertrag"));
  }
  told.is_other = transcript.str().find(R"("event":"message")") != std::string::npos;
  return told;
}

Told TakeOver(const std::string& file, std::size_t lines) {
  std::string list = "Schlüssel;Adresse;Vertragstyp;Vertragsbeginn\n";
  for (std::size_t key = 0; key < lines; ++key)
    list += std::to_string(key) + ";1;Wartung Server;01.01.2024\n";
  store::WriteBytes(file + ".liste.csv", list);
  takeover::Job job({file, file + ".liste.csv", file + ".bericht.csv"});
  return Tell(
      [&] { job.CarryOut(kClock, [] {}); },
      [&] {
        return static_cast<std::size_t>(std::ranges::count_if(
            job.Lines(), [](const bulk::ReportLine& line) { return !IsRejected(line.outcome); }));
      },
      "Betroffen ");
}

Told MakeContracts(const std::string& file, std::size_t contracts) {
  std::string record = support::kRecord;
  std::erase(record, '\n');
  std::string orders;
  for (std::size_t key = 0; key < contracts; ++key)
    orders += R"({"address": "1", "key": ")" + std::to_string(key) + "\", " + record + "}\n";
  store::WriteBytes(file + ".json", orders);
  dataset::ContractJob job({file, {file + ".json"}, "", "", false});
  const auto all = [] { return false; };
  return Tell(
      [&] {
        job.CarryOut(
            kClock, all, [](const auto&) {}, [](auto&) {});
      },
      [&] { return job.Count().created + job.Count().skipped; }, "Betroffen ");
}

Told ImportCompany(const std::string& file, std::size_t) {
  bool stored = false;
  return Tell([&] { Import(file, support::kCompany), stored = true; }, [&] { return stored; });
}

Told Migrate(const std::string& file, std::size_t) {
  bool migrated = false;
  store::OpenOptions options;
  options.on_migrated = [&] { migrated = true; };
  return Tell([&] { store::OpenSqlite(file, options); }, [&] { return migrated; });
}

std::vector<Door> Doors() {
  return {
      {"Store", 1, ImportSample, SaveRows},
      {"Dialog", 1, ImportSample, EnterInDialog},
      {"Takeover", 5, ImportSample, TakeOver},
      {"Contracts", 5, [](const std::string& file) { Import(file, support::kCompany); },
       MakeContracts},
      {"ImportIntoEmpty", 1, [](const std::string& file) { Import(file, "{\"tables\": {}}"); },
       ImportCompany},
      {"ImportIntoNew", 1, [](const std::string&) {}, ImportCompany},
      {"Migration", 1,
       [](const std::string& file) {
         ImportSample(file);
         store::MakeVersion1(file);
       },
       Migrate},
  };
}

struct Way {
  std::string name;
  FailingFiles::Fault fault;

  friend void PrintTo(const Way& way, std::ostream* out) { *out << way.name; }
};

std::vector<Way> Ways() {
  using F = FailingFiles;
  std::vector<Way> ways = {{"FullDisk", {F::kWrite, false, true}},
                           {"DiskFullFromThereOn", {F::kWrite, true, true}},
                           {"LostSync", {F::kSync, false, false, true}},
                           {"PowerCut", {F::kChanges, true, false, true}}};
  const std::pair<const char*, F::Call> calls[] = {
      {"Open", F::kOpen}, {"Lock", F::kLock},         {"Write", F::kWrite},
      {"Sync", F::kSync}, {"Truncate", F::kTruncate}, {"Delete", F::kDelete}};
  for (const auto& [name, call] : calls) {
    ways.push_back({name, {call, false}});
    ways.push_back({name + std::string("FromThereOn"), {call, true}});
  }
  return ways;
}

class SystemCalls : public testing::TestWithParam<std::tuple<Door, Way>> {
 protected:
  void Restore() const {
    std::filesystem::remove(file_ + "-journal");
    if (before_)
      store::WriteBytes(file_, *before_);
    else
      std::filesystem::remove(file_);
  }
  // All that the file holds, once it is found sound.
  const std::string& Content() {
    // A file that was found sound before is not read again.
    const bool is_whole = !std::filesystem::exists(file_ + "-journal");
    if (const auto known = contents_.find(store::BytesOf(file_));
        is_whole && known != contents_.end())
      return known->second;
    std::ostringstream content;
    if (before_ || std::filesystem::exists(file_)) {
      const store::SqliteCheck check = store::CheckSqlite(file_);
      EXPECT_EQ(check.faults, std::vector<std::string>());
      constexpr std::size_t kVersion = 60;  // where a file has the version of its structure
      content << store::BytesOf(file_).substr(kVersion, 4);
      if (check.store) dataset::ExportDataset(*check.store, content, [] {});
    }
    return contents_[store::BytesOf(file_)] = content.str();
  }
  // After no thing, one, two …
  std::vector<std::string> Contents() {
    door_.prepare(file_);
    if (std::filesystem::exists(file_)) before_ = store::BytesOf(file_);
    std::vector<std::string> contents = {Content()};
    while (contents.size() <= door_.things) {
      Restore();
      EXPECT_EQ(door_.act(file_, contents.size()).stored, contents.size());
      contents.push_back(Content());
    }
    return contents;
  }

  const Door door_ = std::get<0>(GetParam());
  const FailingFiles::Fault fault_ = std::get<1>(GetParam()).fault;
  support::TemporaryFolder folder_;
  const std::string file_ = folder_.File("firma.db");
  std::optional<std::string> before_;
  std::map<std::string, std::string> contents_;  // of the file's bytes
};

TEST_P(SystemCalls, ThatFailAreReportedAsWhatTheyCame) {
  const std::vector<std::string> contents = Contents();
  const char* const cuts = std::getenv("PACTORA_POWER_CUTS");
  const bool is_long = cuts != nullptr && fault_.cuts_power;
  const unsigned seeds = is_long ? static_cast<unsigned>(std::atoi(cuts)) : 1;
  const std::size_t step = support::kSanitized ? 20 : fault_.cuts_power && !is_long ? 5 : 1;
  FailingFiles files;
  std::set<std::string> repeated;  // bytes of files on which the door was tried again
  int points = 0;
  for (unsigned seed = 0; seed < seeds; ++seed) {
    bool failed = true;
    for (std::size_t nth = 1; failed && !HasFailure(); nth += step, ++points) {
      SCOPED_TRACE("call " + std::to_string(nth) + ", seed " + std::to_string(seed));
      Restore();
      files.Fail(fault_, nth, seed * 100000 + static_cast<unsigned>(nth));
      const Told told = door_.act(file_, door_.things);
      failed = files.Stop();
      const std::string content = Content();
      const auto found = std::ranges::find(contents, content);
      if (found == contents.end() && told.is_other && told.stored == 1) continue;
      ASSERT_NE(found, contents.end()) << "half of something: " << content;
      const auto stored = static_cast<std::size_t>(found - contents.begin());
      if (told.is_uncertain) {
        EXPECT_TRUE(before_) << "a new file is removed where its making fails";
        EXPECT_GE(stored, told.stored);
      } else {
        EXPECT_EQ(stored, told.stored);
      }
      if (stored == door_.things) continue;
      EXPECT_TRUE(failed);
      if (!repeated.insert(store::BytesOf(file_)).second) continue;
      EXPECT_EQ(door_.act(file_, door_.things).stored, door_.things);
      EXPECT_EQ(Content(), contents.back());
    }
  }
  RecordProperty("points", points);
}

INSTANTIATE_TEST_SUITE_P(Doors, SystemCalls,
                         testing::Combine(testing::ValuesIn(Doors()), testing::ValuesIn(Ways())),
                         [](const auto& test) {
                           return std::get<0>(test.param).name + std::get<1>(test.param).name;
                         });

}  // namespace
}  // namespace pactora
