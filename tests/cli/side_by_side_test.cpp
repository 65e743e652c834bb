// People at dialogs, takeovers, contract files, exports and checks on one database at the
// same time, a process each.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <numeric>
#include <string>
#include <vector>

#include "cli/Program.h"
#include "support/store_kinds.h"

namespace pactora::cli {
namespace {

constexpr int kPeople = 8;
constexpr int kSaves = 40;     // of each person
constexpr int kEntries = 100;  // of a list and of a file, which two processes enter at once

// A store that several processes can share.
struct SharedStore {
  std::string name;
  std::function<std::string(const support::TemporaryFolder&)> address;  // empty for no server

  friend void PrintTo(const SharedStore& store, std::ostream* out) { *out << store.name; }
};

class SideBySide : public testing::TestWithParam<SharedStore> {
 protected:
  void SetUp() override {
    if (db_.empty()) GTEST_SKIP() << "no server; see tools/postgres";
    Expect(0, {"init", "--sample", db_});
  }

  void Start(const std::vector<std::string>& arguments, const std::string& input) {
    children_.push_back(std::make_unique<Child>(folder_, arguments, input));
  }
  void StartDialogs(const std::string& address) {
    std::string steps = R"({"goto": "Adressen", "oid": ")" + address + "\"}";
    for (int save = 0; save < kSaves; ++save)
      steps += R"(, {"call": "NewContract", "do": [
          {"select": "lvwBezeichnung", "text": "Wartung Server"}, {"click": "cmdOK"}]})";
    Start({"run", db_, "-"}, R"({"today": "2026-11-24", "steps": [)" + steps + "]}");
  }
  void Expect(int status, const std::vector<std::string>& arguments) {
    const Ended ended = Pactora(folder_, arguments);
    EXPECT_EQ(ended.status, status) << arguments[0] << ": " << ended.error << ended.out;
  }
  nlohmann::json Contracts() {
    return nlohmann::json::parse(Pactora(folder_, {"list", db_, "contracts", "--json"}).out);
  }

  support::TemporaryFolder folder_;
  const std::string db_ = GetParam().address(folder_);
  std::vector<std::unique_ptr<Child>> children_;
};

TEST_P(SideBySide, EverythingIsStoredOnceAndEverybodyGetsATurn) {
  const nlohmann::json before = Contracts();
  std::string list = "Schlüssel;Adresse;Vertragstyp;Vertragsbeginn\n";
  std::string orders;
  for (int line = 0; line < kEntries; ++line) {
    list += "L" + std::to_string(line) + ";9;Wartung Server;01.01.2026\n";
    orders += R"({"key": "A)" + std::to_string(line) + R"(", "address": "10", "contract": {)" +
              R"("lVertragArt": 2, "VertragBeginn": "2027-01-01", "Bezeichnung": "x",)" +
              R"("Dauer": 12, "Zahlungsperiode": 1}, "articles": [{"sArtikelID": "A0018",)" +
              R"("dblAnzahl": 1, "lPreisDauer": 12}]})" + "\n";
  }
  for (int person = 1; person <= kPeople; ++person) StartDialogs(std::to_string(person));
  for (const std::string report : {"a.csv", "b.csv"}) {
    Start({"takeover", db_, "-", "--report", folder_.File(report)}, list);
    Start({"new-contract", db_, "-"}, orders);
  }
  for (int round = 0; round < 4; ++round) {
    const std::string number = std::to_string(round);
    Expect(0, {"check", db_});
    Expect(0, {"export", db_, folder_.File(number + ".json")});
    Expect(0, {"import", folder_.File(number + ".db"), folder_.File(number + ".json")});
  }
  for (const auto& child : children_) {
    const Ended ended = child->Wait();
    EXPECT_EQ(ended.status, 0) << ended.error << ended.out;
  }
  Expect(0, {"check", db_});

  std::map<std::string, std::vector<int>> numbers;  // by address, in the order of saving
  std::vector<int> all;
  for (const nlohmann::json& contract : Contracts()) {
    if (std::ranges::count(before, contract) != 0) continue;
    all.push_back(std::stoi(contract["Vertragnummer"].get<std::string>()));
    numbers[contract["Adresse"]].push_back(all.back());
  }
  std::ranges::sort(all);
  std::vector<int> consecutive(all.size());
  std::iota(consecutive.begin(), consecutive.end(), all.front());
  EXPECT_EQ(all, consecutive);

  // While all people were saving: from the last one's first number to the first one's last.
  int begin = 0;
  int end = all.back();
  std::vector<std::vector<int>> people;
  for (auto& [address, drawn] : numbers) {
    std::ranges::sort(drawn);
    if (drawn.size() != kSaves) {
      EXPECT_EQ(drawn.size(), kEntries) << address;
      continue;
    }
    people.push_back(drawn);
    begin = std::max(begin, drawn.front());
    end = std::min(end, drawn.back());
  }
  ASSERT_EQ(people.size(), kPeople);
  std::vector<long> turns;
  for (const std::vector<int>& drawn : people)
    turns.push_back(std::ranges::count_if(drawn, [&](int n) { return begin <= n && n <= end; }));
  const long sum = std::accumulate(turns.begin(), turns.end(), 0L);
  EXPECT_THAT(turns, testing::Each(testing::Ge(sum / kPeople / 3)));
  EXPECT_GT(sum, kPeople * kSaves / 8) << "they were not at work at the same time";
}

const SharedStore kSharedStores[] = {
    {"Sqlite", [](const auto& folder) { return folder.File("firma.db"); }},
#ifdef PACTORA_HAS_POSTGRESQL
    {"Postgresql", [](const auto&) { return support::NewServerAddress(); }},
#endif
};

INSTANTIATE_TEST_SUITE_P(Stores, SideBySide, testing::ValuesIn(kSharedStores),
                         [](const auto& test) { return test.param.name; });

}  // namespace
}  // namespace pactora::cli
