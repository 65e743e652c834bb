// Takeover lists and what the database knows of them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "automation/company.h"
#include "automation/dataset/dataset_files.h"
#include "automation/formats/errors.h"
#include "automation/takeover/job.h"
#include "schema/names.h"
#include "support/TemporaryFolder.h"
#include "support/contract_world.h"

namespace pactora::takeover {
namespace {

struct TakeoverJobs : testing::Test {
  TakeoverJobs() {
    Import(db, std::string(dataset::SampleDataset()));
    WriteList(0, kLines);
  }

  static void Import(const std::string& file, const std::string& dataset) {
    dataset::ImportDatabase(file, formats::MemorySource("sample", dataset),
                            workspace::Access::Write, [](std::size_t, std::size_t) {});
  }

  // Lines with the keys from first to before end.
  void WriteList(int first, int end) const {
    std::ofstream out(folder.File("liste.csv"));
    out << "Schlüssel;Adresse;Vertragstyp;Vertragsbeginn\n";
    for (int key = first; key < end; ++key) out << key << ";1;Wartung Server;01.01.2024\n";
  }

  void Run(const std::string& report, const std::function<void()>& after_line) {
    Job({db, folder.File("liste.csv"), folder.File(report)}).CarryOut(clock, after_line);
  }
  // What a run on that database says of each line.
  std::vector<std::string> Messages(const std::string& database) {
    Job job({database, folder.File("liste.csv"), database + ".csv"});
    job.CarryOut(clock, [] {});
    std::vector<std::string> messages;
    for (const bulk::ReportLine& line : job.Lines()) messages.push_back(line.message);
    return messages;
  }
  // The sample with another text in the place of the last such text.
  static std::string Sample(const std::string& text, const std::string& other) {
    std::string dataset(dataset::SampleDataset());
    return dataset.replace(dataset.rfind(text), text.size(), other);
  }
  static std::string Contents(const std::string& file) {
    std::ifstream in(file);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  std::int64_t CountContracts() const {
    const auto store = workspace::OpenDatabase(db, workspace::Access::Read);
    return store->Count(store->Catalog().Table(schema::table::vv_Vertraege));
  }

  static constexpr int kLines = 5;
  const platform::FixedClock clock{platform::FromCivil(2024, 3, 15)};
  support::TemporaryFolder folder;
  const std::string db = folder.File("firma.db");
};

TEST_F(TakeoverJobs, TwoRunsAtATimeEnterEachLineOnce) {
  const std::int64_t before = CountContracts();
  bool is_first = true;
  Run("a.csv", [&] {
    if (std::exchange(is_first, false)) Run("b.csv", [] {});
  });
  EXPECT_EQ(CountContracts(), before + kLines);
}

// Reports of releases that had no table of keys, and the setting that they kept contracts
// in while a run was under way.
TEST_F(TakeoverJobs, AnEarlierReleaseIsBelievedAsFarAsItsContractsAreThere) {
  const std::int64_t before = CountContracts();
  const std::string report = folder.File("a.csv");
  std::ofstream(report) << "Zeile;Schlüssel;Ergebnis;Vertragsnummer;Meldung\n"
                        << "2;0;angelegt;00000001;\n3;1;abgelehnt;;weil\n"
                        << "4;2;übersprungen;77777777;\n5;3;ange";
  {
    const auto store = workspace::OpenDatabase(db, workspace::Access::Write);
    store->WriteSetting({store::SettingScope::Database, "", "Uebernahmelisten",
                         "x.csv;4;00000002\nx.csv;0;00000002\n"});
    store->Commit();
  }
  Run("a.csv", [] {});
  EXPECT_EQ(CountContracts(), before + 3);
  EXPECT_THAT(Contents(report), testing::HasSubstr("2;0;übersprungen;00000001;liste.csv;\n"));
  EXPECT_THAT(Contents(report), testing::HasSubstr("6;4;übersprungen;00000002;;\n"));
  Run("a.csv", [] {});
  EXPECT_EQ(CountContracts(), before + 3);
  // Another list that is numbered alike.
  std::ofstream(folder.File("liste.csv"))
      << "Schlüssel;Adresse;Vertragstyp;Vertragsbeginn\n0;2;Wartung Server;01.01.2024\n";
  Run("b.csv", [] {});
  EXPECT_THAT(Contents(folder.File("b.csv")), testing::HasSubstr("2;0;abgelehnt;;liste.csv;der"));
}

TEST_F(TakeoverJobs, AnAddressOrTypeIsNotGuessed) {
  const std::string other = folder.File("namen.db");
  Import(other, R"({"tables": {"Adressen": [{"@oid": "1", "Name": "Muster"},
    {"@oid": "2", "Name": "Muster"}, {"@oid": "3", "Name": "4"}, {"@oid": "4", "Name": "x"},
    {"@oid": "5", "Name": "5"}]}})");
  const std::string twins = folder.File("zwillinge.db");
  Import(twins, Sample("\"Stellfläche Rechenzentrum\"", "\"Wartung Server\""));
  EXPECT_THAT(Messages(twins),
              testing::Each("Spalte Vertragstyp: „Wartung Server“ gibt es mehrmals"));
  std::ofstream out(folder.File("liste.csv"));
  out << "Adresse;Vertragstyp;Vertragsbeginn\n";
  for (const char* address : {"x", "1", "5", "Muster", "4", "9"})
    out << address << ";T;01.01.2024\n";
  out.close();
  const auto found = testing::Not(testing::HasSubstr("Adresse"));
  EXPECT_THAT(
      Messages(other),
      testing::ElementsAre(
          found, found, found, "Spalte Adresse: „Muster“ gibt es mehrmals; nennen Sie die Oid",
          "Spalte Adresse: „4“ ist der Name einer Adresse und die Oid einer anderen",
          "Spalte Adresse: „9“ gibt es nicht"));
}

// 01.01.2124 is not taken for 01.01.2024 where the user's pattern shows both as "24".
TEST_F(TakeoverJobs, APeriodIsKnownByItsWholeDate) {
  std::ofstream(folder.File("liste.csv"))
      << "Adresse;Vertragstyp;Vertragsbeginn;ZuletztFakturiert\n"
      << "1;Wartung Server;01.01.2024;01.01.2024\n1;Wartung Server;01.01.2024;01.01.2124\n";
  for (const std::string pattern : {"dd.mm.yyyy", "d. M. yyyy", "dd.MM.yy", "MM.yyyy"}) {
    const std::string other = folder.File(pattern + ".db");
    Import(other, Sample("dd.MM.yyyy", pattern));
    const bool whole = pattern.ends_with("yyyy") && pattern.starts_with("d");
    EXPECT_EQ(Messages(other).at(0).empty(), whole) << pattern;
    EXPECT_FALSE(Messages(other).at(1).empty()) << pattern;
  }
}

}  // namespace
}  // namespace pactora::takeover
