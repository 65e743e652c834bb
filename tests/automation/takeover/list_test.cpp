// What a takeover list may hold, how its faults are named, and what failures of the
// store do to its lines.
#include "automation/takeover/list.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "automation/company.h"
#include "automation/formats/csv.h"
#include "automation/takeover/run.h"
#include "automation/workspace/ForwardingStore.h"
#include "platform/Clock.h"
#include "platform/Error.h"
#include "support/contract_world.h"

namespace pactora::takeover {
namespace {

Line OneLine(const std::string& column, const std::string& cell) {
  const List list = ReadList(
      "Adresse;Vertragstyp;Vertragsbeginn;" + column + "\nA;T;01.02.2024;" + cell, "liste.csv");
  return list.lines.at(0);
}

TEST(TakeoverList, NumbersAreTakenInTheGermanFormAloneAndNeverGuessed) {
  const std::pair<const char*, double> numbers[] = {{"12", 12},
                                                    {"12,5", 12.5},
                                                    {"1.234,56", 1234.56},
                                                    {"1234,56", 1234.56},
                                                    {"12.345.678,9", 12345678.9}};
  for (const auto& [cell, number] : numbers) {
    EXPECT_EQ(OneLine("Rabatt", cell).refusal, "") << cell;
    EXPECT_EQ(OneLine("Rabatt", cell).discount, number) << cell;
  }
  for (const char* cell :
       {"1.5", "1,234.56", "1.234", "1.23,4", "1234.567,8", "12,", ",5", "zwölf", "1 000"})
    EXPECT_TRUE(OneLine("Rabatt", cell).refusal.starts_with("Spalte Rabatt: „")) << cell;
}

TEST(TakeoverList, DatesAndBooleansHaveTheirForms) {
  for (const char* date : {"15.03.2024", "2024-03-15"}) {
    EXPECT_EQ(OneLine("GeschlossenAm", date).closed_on, platform::FromCivil(2024, 3, 15)) << date;
  }
  for (const char* date : {"31.02.2024", "15/03/2024", "15.3.24", "heute", "30.12.1899"}) {
    EXPECT_TRUE(OneLine("GeschlossenAm", date).refusal.starts_with("Spalte GeschlossenAm: "))
        << date;
  }
  for (const char* yes : {"ja", "WAHR", "1"})
    EXPECT_EQ(OneLine("Fremdfakturierung", yes).no_booking, true);
  for (const char* no : {"nein", "Falsch", "0"}) {
    EXPECT_EQ(OneLine("Fremdfakturierung", no).no_booking, false);
  }
  EXPECT_NE(OneLine("Fremdfakturierung", "x").refusal, "");
  EXPECT_EQ(OneLine("Fremdfakturierung", "").no_booking, std::nullopt);
}

TEST(TakeoverList, TheKeyIsTheCallersOrTheLine) {
  EXPECT_EQ(OneLine("Schlüssel", "K-7").key, "K-7");
  for (const char* cell : {"5", "\"5\"", " 5 ;;", "5\r\n"}) {
    EXPECT_EQ(OneLine("GeschlossenAm", cell).key, "A;T;01.02.2024;;;5") << cell;
  }
  EXPECT_EQ(OneLine("ZuletztFakturiert", "\"5;6\"").key, "A;T;01.02.2024;\"5;6\"");
  EXPECT_EQ(OneLine("Rabatt;GeschlossenAm", "5;6").key, OneLine("GeschlossenAm;Rabatt", "6;5").key);
  EXPECT_EQ(OneLine("Bearbeitungshinweis", "\"a\r\nb\"").key,
            OneLine("Bearbeitungshinweis", "\"a\nb\"").key);
  EXPECT_NE(OneLine("Rabatt", "5").key, OneLine("GeschlossenAm", "5").key);
}

TEST(TakeoverList, QuotesMarksAndCommasAreUnderstood) {
  const List list = ReadList(
      "\xEF\xBB\xBFsep=,\r\nVertragstyp,Adresse,Vertragsbeginn,Bearbeitungshinweis\r\n"
      "\"T, \"\"neu\"\"\",A,2024-01-31,\"zwei\nZeilen\"\r\n\r\n T2 ,B,01.01.2024,\r\n",
      "liste.csv");
  ASSERT_EQ(list.lines.size(), 2u);
  EXPECT_EQ(list.lines[0].type, "T, \"neu\"");
  EXPECT_EQ(list.lines[0].memo, "zwei\nZeilen");
  EXPECT_EQ(list.lines[1].type, "T2");
  EXPECT_EQ(list.lines[1].line, 6u);
}

TEST(TakeoverList, AListThatIsNoneIsNamedWithItsPlace) {
  const std::string header = "Adresse;Vertragstyp;Vertragsbeginn";
  const std::pair<std::string, const char*> cases[] = {
      {"", "liste.csv: die Liste ist leer"},
      {header + ";Preis", "liste.csv, Zeile 1: unbekannte Spalte „Preis“; es gibt Adresse, "},
      {"Adresse;;Vertragstyp;Vertragsbeginn", "liste.csv, Zeile 1: unbekannte Spalte „“; "},
      {"Adresse;Vertragstyp", "liste.csv, Zeile 1: die Spalte „Vertragsbeginn“ fehlt"},
      {header + ";Adresse", "liste.csv, Zeile 1: die Spalte „Adresse“ steht zweimal da"},
      {header + "\na;\"b", "liste.csv, Zeile 2: das Anführungszeichen ist nicht geschlossen"},
      {header + "\na;\xFF",
       "liste.csv, Zeile 2: kein UTF-8; speichern Sie die Datei als „CSV UTF-8“"},
  };
  for (const auto& [text, fault] : cases) {
    try {
      ReadList(text, "liste.csv");
      ADD_FAILURE() << fault;
    } catch (const platform::Error& error) {
      EXPECT_TRUE(error.Description().starts_with(fault)) << error.Description();
    }
  }
}

TEST(TakeoverList, TextBehindAClosingQuoteRefusesItsLineAlone) {
  const List list = ReadList(
      "Adresse;Vertragstyp;Vertragsbeginn;Bearbeitungshinweis\n\"Müller\" GmbH;T;01.01.2024\n"
      "\"Müller\" \t;T;01.01.2024;\"x\"\r\na;T;01.01.2024;\"ä\nö\";\"ü\"!;\"\"?\n",
      "liste.csv");
  ASSERT_EQ(list.lines.size(), 3u);
  EXPECT_EQ(list.lines[0].refusal,
            "Zeile 2, Spalte 10: hinter dem schließenden Anführungszeichen steht noch Text");
  EXPECT_EQ(list.lines[0].text, "\"Müller\" GmbH;T;01.01.2024");
  EXPECT_NE(list.lines[0].key, list.lines[1].key);
  EXPECT_EQ(list.lines[1].refusal, "");
  EXPECT_EQ(list.lines[1].address, "Müller");
  EXPECT_TRUE(list.lines[2].refusal.starts_with("Zeile 5, Spalte 7: ")) << list.lines[2].refusal;
}

TEST(TakeoverList, ALineWithTooFewOrTooManyValuesIsRefusedAlone) {
  const List list =
      ReadList("Adresse;Vertragstyp;Vertragsbeginn;;\na\nb;T;01.01.2024;x\nc;T;01.01.2024;;;\n",
               "liste.csv");
  ASSERT_EQ(list.lines.size(), 3u);
  EXPECT_EQ(list.lines[0].refusal, "Spalte Vertragstyp: der Wert fehlt");
  EXPECT_EQ(list.lines[1].refusal, "mehr Werte als Spalten");
  EXPECT_EQ(list.lines[2].refusal, "") << "empty cells at the end say nothing";
}

struct FailingStore final : workspace::ForwardingStore {
  explicit FailingStore(store::StoreError error)
      : ForwardingStore(support::SampleCompany()), error_(error) {}
  void Insert(store::TableId, store::Record&) override { store::Raise(error_); }

 private:
  store::StoreError error_;
};

TEST(TakeoverRun, AnErrorThatTheDialogShowsFailsItsLineOrStopsTheRun) {
  const List list = ReadList(
      "Adresse;Vertragstyp;Vertragsbeginn\n1;Wartung Server;01.01.2024\n"
      "1;Wartung Server;01.02.2024\n1;Wartung Server;gestern\n",
      "liste.csv");
  const platform::FixedClock clock(platform::FromCivil(2024, 3, 15));
  const auto run = [&](store::StoreError error) {
    Report report;
    return takeover::Run(std::make_unique<FailingStore>(error), clock)
        .CarryOut(list, report, "", [] {});
  };
  const Run::Count count = run(store::StoreError::Failed);
  EXPECT_EQ(count.failed, 2u);
  EXPECT_EQ(count.refused, 1u);
  const auto stopped = support::ErrorOf([&] { run(store::StoreError::Locked); });
  ASSERT_TRUE(stopped);
  EXPECT_EQ(stopped->Number(), Number(store::StoreError::Locked));
}

}  // namespace
}  // namespace pactora::takeover
