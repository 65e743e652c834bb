// Takeover lists: every good line once, every faulty one with its reason.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "automation/formats/csv.h"
#include "cli/Program.h"

namespace pactora::cli {
namespace {

using formats::CsvRow;
using testing::HasSubstr;

constexpr char kHeader[] =
    "Schlüssel;Adresse;Vertragstyp;Vertragsbeginn;ZuletztFakturiert;Rabatt\n";

struct Takeover : testing::Test {
  Takeover() { EXPECT_EQ(Pactora(folder, {"init", "--sample", db}).status, 0); }

  std::vector<std::string> Call(const std::vector<std::string>& more = {}) const {
    std::vector<std::string> call = {"takeover", db,        list,        "--report",
                                     report,     "--today", "2026-03-15"};
    call.insert(call.end(), more.begin(), more.end());
    return call;
  }
  std::size_t CountContracts() {
    return nlohmann::json::parse(Pactora(folder, {"list", db, "contracts", "--json"}).out).size();
  }
  std::vector<CsvRow> Report() const { return formats::ReadCsv(Contents(report), ';'); }

  support::TemporaryFolder folder;
  const std::string db = folder.File("firma.db");
  const std::string list = folder.File("liste.csv");
  const std::string report = folder.File("bericht.csv");
  const std::string rejected = report + ".abgelehnt.csv";
};

TEST_F(Takeover, ReportsEachLineWithItsOutcomeAndKeepsTheRefusedOnesToBeMended) {
  Write(list, std::string(kHeader) +
                  "K1;Bäckerei Quendelbach;Wartung Server;01.01.2023;01.10.2025;10\n"
                  "K2;Niemand;Wartung Server;01.01.2023;;\n"
                  "K3;1;Wartung Schiff;01.01.2023;;\n"
                  "K4;1;Wartung Server;01.01.2023;02.01.2023;\n"
                  "K5;1;Wartung Server;01.01.2023;;101\n"
                  "K6;1;Wartung Server;01.01.2023;;1.5\n"
                  "K7;1;Stellfläche Rechenzentrum;01.01.2023;;\n"
                  "K1;Bäckerei Quendelbach;Wartung Server;01.01.2023;01.10.2025;\"10\";\n"
                  "K2;1;Wartung Server;01.01.2023;;\n"
                  "K1;1;Wartung Server;01.01.2023;;\n");
  const std::size_t before = CountContracts();
  const Ended rehearsed = Pactora(folder, Call({"--dry-run"}));
  EXPECT_EQ(rehearsed.status, 3) << rehearsed.error;
  EXPECT_EQ(CountContracts(), before);

  const std::string nowhere = folder.File("fehlt/bericht.csv");
  EXPECT_EQ(Pactora(folder, {"takeover", db, list, "--report", nowhere, "--dry-run"}).status, 1);
  const nlohmann::json shown =
      nlohmann::json::parse(Pactora(folder, Call({"--dry-run", "--json"})).out);

  const Ended ended = Pactora(folder, Call({"--json"}));
  EXPECT_EQ(ended.status, 3) << ended.error;
  EXPECT_EQ(nlohmann::json::parse(ended.out), shown);
  EXPECT_EQ(shown["tables"]["vv_Vertraege"].size(), 1u);
  EXPECT_EQ(shown["lines"][0]["Ergebnis"], "angelegt");
  EXPECT_EQ(rehearsed.out, Contents(report));
  const std::vector<CsvRow> rows = Report();
  ASSERT_EQ(rows.size(), 11u);
  const auto row = [&](std::size_t i) { return rows[i].cells[2] + ": " + rows[i].cells[5]; };
  EXPECT_EQ(row(1), "angelegt: ");
  EXPECT_EQ(row(2), "abgelehnt: Spalte Adresse: „Niemand“ gibt es nicht");
  EXPECT_EQ(row(3),
            "abgelehnt: Spalte Vertragstyp: kein freigegebener Vertragstyp „Wartung Schiff“");
  EXPECT_EQ(row(4),
            "abgelehnt: Spalte ZuletztFakturiert: kein Zeitraum beginnt am 02.01.2023, aber am "
            "01.01.2023 und am 01.04.2023");
  EXPECT_EQ(row(5), "abgelehnt: Spalte Rabatt: Rabatt darf nicht größer 99% sein!");
  EXPECT_THAT(row(6), HasSubstr("Spalte Rabatt: „1.5“ ist keine Zahl"));
  EXPECT_THAT(row(7), HasSubstr("abgelehnt: Das für diesen Vertrag erforderliche Adressmerkmal"));
  EXPECT_EQ(row(8), "übersprungen: dasselbe steht in Zeile 2");
  EXPECT_EQ(row(9), "abgelehnt: der Schlüssel steht schon in Zeile 3");
  EXPECT_EQ(row(10), "abgelehnt: der Schlüssel steht schon in Zeile 2");
  EXPECT_EQ(CountContracts(), before + 1);
  EXPECT_EQ(formats::ReadCsv(Contents(rejected), ';').size(), 9u);
  EXPECT_THAT(Contents(rejected), HasSubstr("K5;1;Wartung Server;01.01.2023;;101\n"));

  // The corrected line alone is entered when the list is run again.
  std::string mended = Contents(list);
  mended.replace(mended.find(";;101"), 5, ";;100");
  Write(list, mended);
  EXPECT_EQ(Pactora(folder, Call()).status, 3);
  EXPECT_EQ(CountContracts(), before + 2);
  EXPECT_EQ(Report()[1].cells[2], "übersprungen");
  EXPECT_EQ(Report()[10].cells[2], "abgelehnt") << "as in the first run";
  EXPECT_EQ(Report()[5].cells[2], "angelegt");
}

TEST_F(Takeover, NoCorrectionOfTheRefusedLinesIsReplaced) {
  Write(list, std::string(kHeader) + "K1;1;Wartung Server;31.02.2023;;\n");
  for (const char* date : {"01.02.2023", "02.02.2023", "03.02.2023"}) {
    ASSERT_EQ(Pactora(folder, Call()).status, 1);
    Write(rejected, std::string(kHeader) + "K1;1;Wartung Server;" + date + ";;\n");
  }
  const Ended last = Pactora(folder, Call());
  ASSERT_EQ(last.status, 1);
  EXPECT_THAT(last.error, HasSubstr("steht jetzt in " + rejected + "~3\n"));
  EXPECT_THAT(Contents(rejected + "~"), HasSubstr("01.02.2023"));
  EXPECT_THAT(Contents(rejected + "~2"), HasSubstr("02.02.2023"));
  EXPECT_THAT(Contents(rejected + "~3"), HasSubstr("03.02.2023"));
}

TEST_F(Takeover, TheRefusedLinesAreMendedInTheirPlaceAndRunAgain) {
  const std::string good = "1;Wartung Server;01.01.2023;101;\r\n";
  const std::string header =
      "\xEF\xBB\xBF"
      "Adresse;Vertragstyp;Vertragsbeginn;Rabatt;Vertragsnummer\r\n";
  Write(list, header + "1;Wartung Server;01.01.2023;5;\r\n" + good +
                  "1;Wartung Server;01.01.2023;6;123456789012345678901\r\n");
  const std::size_t before = CountContracts();
  EXPECT_THAT(Pactora(folder, Call()).error, HasSubstr("Abgelehnte Zeilen stehen in " + rejected));
  EXPECT_EQ(Report()[3].cells[5], "Spalte Vertragsnummer: höchstens 20 Zeichen");
  std::string mended = Contents(rejected);
  ASSERT_EQ(mended, header + good + "1;Wartung Server;01.01.2023;6;123456789012345678901\r\n");
  mended.replace(mended.find("101"), 3, "100");
  Write(rejected, mended);
  const std::vector<std::string> again = {"takeover", db, rejected, "--report", report};
  EXPECT_EQ(Pactora(folder, again).status, 3);
  EXPECT_EQ(CountContracts(), before + 2);
  EXPECT_EQ(formats::ReadCsv(Contents(rejected), ';').size(), 2u);
  Write(rejected, header);
  EXPECT_EQ(Pactora(folder, again).status, 0);
  EXPECT_FALSE(std::filesystem::exists(rejected));
  EXPECT_EQ(CountContracts(), before + 2);
}

TEST_F(Takeover, ALineOfADoubledKeyStaysRefusedWhereverItIsRunAgain) {
  const std::string one = "K1;1;Wartung Server;01.01.2023;;\n";
  const std::string other = "K1;2;Wartung Server;01.01.2023;;\n";
  Write(list, kHeader + one + other);
  const std::size_t before = CountContracts();
  const std::string whole = Contents(list);
  ASSERT_EQ(Pactora(folder, Call()).status, 3);
  for (int round = 0; round < 2; ++round) {
    for (const std::string& again : {rejected, list}) {
      Write(list, whole);
      const Ended ended = Pactora(folder, {"takeover", db, again, "--report", report});
      EXPECT_EQ(ended.status, again == list ? 3 : 1) << ended.error;
      EXPECT_THAT(Contents(report), HasSubstr("K1;abgelehnt;;"));
      EXPECT_EQ(Contents(rejected), kHeader + other);
    }
    // The one that was entered is known from it where it stands alone.
    Write(list, kHeader + one);
    EXPECT_EQ(Pactora(folder, Call({"--dry-run"})).status, 0);
  }
  EXPECT_EQ(CountContracts(), before + 1);
  std::string mended = Contents(rejected);
  mended.replace(mended.find("K1"), 2, "K2");
  Write(rejected, mended);
  EXPECT_EQ(Pactora(folder, {"takeover", db, rejected, "--report", report}).status, 0);
  EXPECT_EQ(CountContracts(), before + 2);
}

TEST_F(Takeover, WhatAShiftedLineHasInTheColumnOfItsKeyIsNoKey) {
  const std::string header = "Adresse,Vertragstyp,Vertragsbeginn,Rabatt,Schlüssel\n";
  Write(list, header + "3,Wartung Server,01.02.2024,10,5\n");
  ASSERT_EQ(Pactora(folder, Call()).status, 0);
  Write(list, header + "4,Wartung Server,01.03.2024,2,5,6\n4,Wartung Server,01.04.2024,2,5,7\n");
  EXPECT_EQ(Pactora(folder, Call()).status, 1);
  for (const std::size_t i : {1u, 2u}) EXPECT_EQ(Report()[i].cells[5], "mehr Werte als Spalten");
  EXPECT_EQ(formats::ReadCsv(Contents(rejected), ',').size(), 3u);
}

TEST_F(Takeover, ANumberThatAnotherContractHasOrWillGetIsTold) {
  Write(list,
        "Adresse;Vertragstyp;Vertragsbeginn;Vertragsnummer\n"
        "1;Wartung Server;01.02.2024;00000002\n1;Wartung Server;01.03.2024;A-1\n"
        "1;Wartung Server;01.04.2024;A-1\n1;Wartung Server;01.05.2024;00000005\n");
  EXPECT_EQ(Pactora(folder, Call()).status, 0);
  const char* const told[] = {"00000002 hat schon ein anderer Vertrag", "",
                              "A-1 hat schon ein anderer Vertrag",
                              "00000005 liegt vor dem Zähler („00000003“)"};
  for (std::size_t i = 0; i < std::size(told); ++i)
    EXPECT_THAT(Report()[i + 1].cells[5], HasSubstr(told[i]));
}

TEST_F(Takeover, TheDatabaseKnowsWhatWasEnteredWhateverTheReportSays) {
  const std::string good = "K1;1;Wartung Server;01.01.2023;;\n";
  Write(list, kHeader + good + "K2;1;Wartung Server;01.01.2023;;101\n");
  const std::size_t before = CountContracts();
  ASSERT_EQ(Pactora(folder, Call()).status, 3);
  const std::string first_list = Contents(list);
  Write(list, std::string(kHeader) + "K2;1;Wartung Server;01.01.2023;;10\n");
  const Ended rehearsed = Pactora(folder, Call({"--dry-run"}));
  ASSERT_EQ(Pactora(folder, Call()).status, 0);
  EXPECT_EQ(Contents(report), rehearsed.out);
  EXPECT_FALSE(std::filesystem::exists(rejected));
  EXPECT_THAT(Contents(rejected + "~"), HasSubstr(";;101")) << "somebody may have corrected it";

  // The first list again: its second line is not what was entered under that key.
  const std::string header = "Zeile;Schlüssel;Ergebnis;Vertragsnummer;Liste;Meldung\n";
  Write(list, first_list);
  const std::string edited =
      "\xEF\xBB\xBFZeile,Schlüssel,Ergebnis,Vertragsnummer,Liste,Meldung\r\n";
  for (const std::string& text : {std::string(), header, edited}) {
    Write(report, text);
    const Ended again = Pactora(folder, Call());
    EXPECT_EQ(again.status, 3) << again.error;
    EXPECT_EQ(Contents(report),
              header +
                  "2;K1;übersprungen;00000004;liste.csv;\n"
                  "3;K2;abgelehnt;;liste.csv;der Schlüssel gehört mit anderen Werten schon zu "
                  "Vertrag 00000005\n");
  }
  EXPECT_EQ(CountContracts(), before + 2);
  const nlohmann::json keys = nlohmann::json::parse(
      Pactora(folder, {"export", db, "-"}).out)["tables"]["Vertragsschluessel"];
  EXPECT_EQ(keys.size(), 2u);
  EXPECT_EQ(keys[1]["Vertragnummer"], "00000005");
}

TEST_F(Takeover, FilesOfAnotherKindAreNamedAndLeftAlone) {
  Write(list, std::string(kHeader) + "K1;1;Wartung Server;01.01.2023;;\nK2;;;;;\n");
  std::filesystem::copy(db, folder.File("d.abgelehnt.csv"));
  Write(folder.File("zettel"), "Einkaufszettel\n");
  std::filesystem::create_directory(folder.File("ordner"));
  struct Case {
    std::string database, list, report, fault;
  };
  for (const Case& c :
       {Case{db, list, "-", "der Bericht muss eine Datei sein"},
        {db, list, folder.File("ordner"), "der Bericht muss eine gewöhnliche Datei sein"},
        {db, list, folder.File("zettel"), "kein Bericht, die Datei wird nicht ersetzt"},
        {db, list, list, "das ist die Liste selbst"},
        {db, list, db, "das ist die Datenbank selbst"},
        {folder.File("d.abgelehnt.csv"), list, folder.File("d"), "das ist die Datenbank selbst"}}) {
    const auto contents = [&] {
      std::string all;
      for (const std::string& file : {c.database, c.list, c.report, c.report + ".abgelehnt.csv"})
        if (!std::filesystem::is_directory(file)) all += Contents(file);
      return all;
    };
    const std::string before = contents();
    const Ended ended = Pactora(folder, {"takeover", c.database, c.list, "--report", c.report});
    EXPECT_EQ(ended.status, 2) << c.fault;
    EXPECT_THAT(ended.error, HasSubstr(c.fault));
    EXPECT_TRUE(contents() == before) << c.fault;
  }
}

}  // namespace
}  // namespace pactora::cli
