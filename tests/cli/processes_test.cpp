// Processes that die, and those that are interrupted.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <nlohmann/json.hpp>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "cli/ProgramTest.h"
#include "store/sqlite/Connection.h"

namespace pactora::cli {
namespace {

using nlohmann::json;
using testing::HasSubstr;

std::string Orders(int count) {
  const std::string order =
      R"({"address": "1", "contract": {"lVertragArt": 2, "VertragBeginn": "2027-01-01",)"
      R"( "Dauer": 12, "Zahlungsperiode": 1, "Bezeichnung": "x"}, "articles":)"
      R"( [{"sArtikelID": "A1", "dblAnzahl": 1, "lPreisDauer": 12},)"
      R"( {"sArtikelID": "A1", "dblAnzahl": 2, "lPreisDauer": 1}]})"
      "\n";
  std::string orders;
  for (int i = 0; i < count; ++i) orders += order;
  return orders;
}

// Likewise with the keys "K0", "K1", …
std::string Keyed(int count) {
  std::string orders;
  for (int i = 0; i < count; ++i)
    orders += R"({"key": "K)" + std::to_string(i) + R"(", )" + Orders(1).substr(1);
  return orders;
}

class Processes : public ProgramTest {
 protected:
  std::set<std::string> Numbers() {
    std::set<std::string> numbers;
    for (const json& contract : List("contracts"))
      EXPECT_TRUE(numbers.insert(contract["Vertragnummer"]).second) << contract;
    return numbers;
  }
  void ExpectSound() {
    const Ended checked = Run({"check", db});
    EXPECT_EQ(checked.status, 0) << checked.out << checked.error;
  }
};

// The numbers of the contracts that the program says it has made.
std::set<std::string> Announced(const std::string& out) {
  std::set<std::string> numbers;
  std::istringstream lines(out);
  for (std::string line; std::getline(lines, line) && !lines.eof();)
    numbers.insert(json::parse(line)["Vertragnummer"].get<std::string>());
  return numbers;
}

void WaitForFirstContract(const Child& child) {
  while (child.Out().find('\n') == std::string::npos)
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
}

TEST_F(Processes, ThatAreKilledAndRepeatedMakeEachKeyedContractOnce) {
  const std::string orders = Keyed(2000);
  const std::vector<std::string> call = {"new-contract", db,         "-",
                                         "--json",       "--report", folder.File("bericht.csv")};
  std::mt19937 random(20240315);  // of the moments at which they are killed
  std::set<std::string> announced;
  int killed = 0;
  for (int round = 0; round < 8; ++round) {
    Child child(folder, call, orders);
    std::this_thread::sleep_for(
        std::chrono::milliseconds(std::uniform_int_distribution(5, 250)(random)));
    child.Signal(SIGKILL);
    const Ended ended = child.Wait();
    killed += ended.status == -SIGKILL;
    announced.merge(Announced(ended.out));
    ExpectSound();
    EXPECT_THAT(Numbers(), testing::IsSupersetOf(announced)) << "said to be stored, and is not";
  }
  EXPECT_GT(killed, 0);
  const Ended last = Run(call, orders);
  EXPECT_EQ(last.status, 0) << last.error;
  EXPECT_EQ(Announced(last.out), Numbers());
  EXPECT_EQ(Numbers().size(), 2000u);
  const std::string report = Contents(folder.File("bericht.csv"));
  EXPECT_EQ(std::count(report.begin(), report.end(), '\n'), 2001);
  EXPECT_EQ(Run({"new-contract", db, "-"}, Orders(1)).status, 0);
  EXPECT_EQ(Numbers().size(), 2001u) << "the counter is ahead";
}

TEST_F(Processes, ThatAreInterruptedEndBetweenTwoContracts) {
  Child child(folder, {"new-contract", db, "-", "--json"}, Orders(2000));
  WaitForFirstContract(child);
  child.Signal(SIGINT);
  const Ended ended = child.Wait();
  EXPECT_EQ(ended.status, 130);
  EXPECT_THAT(ended.error, HasSubstr("von 2000 angelegt"));
  EXPECT_EQ(Announced(ended.out), Numbers());
  ExpectSound();
}

TEST_F(Processes, ThatWaitForTheirInputAreInterruptedAndDoNothing) {
  const std::string pipe = folder.File("rohr");
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  const int end = ::open(pipe.c_str(), O_RDWR);
  const std::string orders = Orders(1);
  ASSERT_EQ(::write(end, orders.data(), orders.size()), static_cast<ssize_t>(orders.size()));
  Child child(folder, {"new-contract", db, "-"}, {}, pipe);
  const auto moment = [] { std::this_thread::sleep_for(std::chrono::milliseconds(20)); };
  for (int unread = 1; unread > 0; moment()) ASSERT_EQ(::ioctl(end, FIONREAD, &unread), 0);
  child.Signal(SIGINT);
  const Ended ended = child.Wait();
  ::close(end);
  EXPECT_EQ(ended.status, 130);
  EXPECT_EQ(ended.error, "pactora: abgebrochen\n");
  EXPECT_TRUE(Numbers().empty());
}

TEST_F(Processes, ThatWaitForALockAreInterrupted) {
  store::sqlite::Connection other(db, store::sqlite::Access::ReadWrite, std::chrono::seconds(20));
  other.Run("BEGIN EXCLUSIVE");
  const auto begin = std::chrono::steady_clock::now();
  Child listing(folder, {"list", db, "contracts"});
  Child making(folder, {"new-contract", db, "-"}, Orders(2));
  std::this_thread::sleep_for(std::chrono::seconds(1));
  for (Child* child : {&listing, &making}) {
    child->Signal(SIGINT);
    const Ended ended = child->Wait();
    EXPECT_EQ(ended.status, 130) << ended.error;
    EXPECT_EQ(ended.error, "pactora: abgebrochen\n");
  }
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(10));
}

}  // namespace
}  // namespace pactora::cli
