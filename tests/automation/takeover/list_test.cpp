// What a takeover list may hold, how its faults are named, and what failures of the
// store do to its lines.
#include "automation/takeover/list.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "automation/company.h"
#include "automation/formats/csv.h"
#include "automation/takeover/run.h"
#include "automation/workspace/ForwardingStore.h"
#include "platform/Clock.h"
#include "schema/names.h"
#include "store/errors.h"
#include "support/error_of.h"

namespace pactora::takeover {
namespace {

using support::ErrorOf;
using testing::StartsWith;

Line OneLine(const std::string& column, const std::string& cell) {
  const List list = ReadList(
      "Adresse;Vertragstyp;Vertragsbeginn;" + column + "\nA;T;01.02.2024;" + cell, "liste.csv");
  return list.lines.at(0);
}

TEST(TakeoverList, ValuesAreTakenInTheirFormsAloneAndNeverGuessed) {
  const std::pair<const char*, double> numbers[] = {{"12", 12},
                                                    {"12,5", 12.5},
                                                    {"1.234,56", 1234.56},
                                                    {"1234,56", 1234.56},
                                                    {"12.345.678,9", 12345678.9}};
  for (const auto& [cell, number] : numbers) EXPECT_EQ(OneLine("Rabatt", cell).discount, number);
  for (const char* date : {"15.03.2024", "2024-03-15"})
    EXPECT_EQ(OneLine("GeschlossenAm", date).closed_on, platform::FromCivil(2024, 3, 15)) << date;
  const std::pair<const char*, std::optional<bool>> booleans[] = {
      {"ja", true},      {"WAHR", true}, {"1", true},       {"nein", false},
      {"Falsch", false}, {"0", false},   {"", std::nullopt}};
  for (const auto& [cell, value] : booleans)
    EXPECT_EQ(OneLine("Fremdfakturierung", cell).no_booking, value) << cell;

  const std::pair<std::string, std::vector<const char*>> refused[] = {
      {"Rabatt",
       {"1.5", "1,234.56", "1.234", "1.23,4", "1234.567,8", "12,", ",5", "zwölf", "1 000"}},
      {"GeschlossenAm", {"31.02.2024", "15/03/2024", "15.3.24", "heute", "30.12.1899"}},
      {"Fremdfakturierung", {"x"}}};
  for (const auto& [column, cells] : refused)
    for (const char* cell : cells)
      EXPECT_THAT(OneLine(column, cell).refusal, StartsWith("Spalte " + column + ": „")) << cell;
}

TEST(TakeoverList, TheKeyIsTheCallersOrTheLine) {
  const Line example = ReadList(Template(), "vorlage.csv").lines.at(0);
  EXPECT_EQ(example.key + example.refusal, "A-1");
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
    const auto error = ErrorOf([&text = text] { ReadList(text, "liste.csv"); });
    ASSERT_TRUE(error) << fault;
    EXPECT_THAT(error->Description(), StartsWith(fault));
  }
}

TEST(TakeoverList, ALineThatIsUnclearIsRefusedAlone) {
  const List list = ReadList(
      "Adresse;Vertragstyp;Vertragsbeginn;Bearbeitungshinweis;;\n\"Müller\" GmbH;T;01.01.2024\n"
      "\"Müller\" \t;T;01.01.2024;\"x\"\r\na;T;01.01.2024;\"ä\nö\";\"ü\"!;\"\"?\n"
      "a\nb;T;01.01.2024;;x\nc;T;01.01.2024;;;;\n",
      "liste.csv");
  const char* const refusals[] = {
      "Zeile 2, Spalte 10: hinter dem schließenden Anführungszeichen steht noch Text",
      "",
      "Zeile 5, Spalte 7: hinter dem schließenden Anführungszeichen steht noch Text",
      "Spalte Vertragstyp: der Wert fehlt",
      "mehr Werte als Spalten",
      ""};
  ASSERT_EQ(list.lines.size(), std::size(refusals));
  for (std::size_t i = 0; i < std::size(refusals); ++i)
    EXPECT_EQ(list.lines[i].refusal, refusals[i]) << list.lines[i].text;
  EXPECT_EQ(list.lines[0].text, "\"Müller\" GmbH;T;01.01.2024");
  EXPECT_NE(list.lines[0].key, list.lines[1].key);
  EXPECT_EQ(list.lines[1].address, "Müller");
}

// Fails when a contract's positions are stored: the contract and its term are there by then.
struct FailingStore final : workspace::ForwardingStore {
  FailingStore(std::unique_ptr<store::RecordStore> store, store::StoreError error)
      : ForwardingStore(std::move(store)), error_(error) {}
  void Insert(store::TableId table, store::Record& record) override {
    if (table == Catalog().Table(schema::table::vv_Vertragspositionen))
      store::Raise(error_, "warum");
    ForwardingStore::Insert(table, record);
  }

 private:
  store::StoreError error_;
};

TEST(TakeoverRun, AnErrorThatTheDialogShowsFailsItsLineWholeOrStopsTheRun) {
  const List list = ReadList(
      "Adresse;Vertragstyp;Vertragsbeginn\n1;Wartung Server;01.01.2024\n"
      "1;Wartung Server;01.02.2024\n1;Wartung Server;gestern\n",
      "liste.csv");
  const platform::FixedClock clock(platform::FromCivil(2024, 3, 15));
  std::vector<bulk::ReportLine> lines;
  const auto run = [&](store::StoreError error) {
    auto company = support::SampleCompany();
    store::RecordStore& store = *company;
    const auto contracts = [&] {
      return store.Count(store.Catalog().Table(schema::table::vv_Vertraege));
    };
    const std::int64_t before = contracts();
    takeover::Run carried_out(std::make_unique<FailingStore>(std::move(company), error), clock,
                              "liste.csv", false);
    const std::optional<platform::Error> stopped =
        ErrorOf([&] { carried_out.CarryOut(list, lines, [] {}); });
    EXPECT_EQ(contracts(), before);
    EXPECT_EQ(store.Count(store.Catalog().Table(schema::table::Vertragsschluessel)), 0);
    return stopped;
  };
  EXPECT_FALSE(run(store::StoreError::Failed));
  using bulk::Outcome;
  const Outcome outcomes[] = {Outcome::Failed, Outcome::Failed, Outcome::Refused};
  ASSERT_EQ(lines.size(), std::size(outcomes));
  for (std::size_t i = 0; i < lines.size(); ++i) EXPECT_EQ(lines[i].outcome, outcomes[i]);
  const auto stopped = run(store::StoreError::Locked);
  ASSERT_TRUE(stopped);
  EXPECT_EQ(stopped->Number(), Number(store::StoreError::Locked));
  EXPECT_THAT(stopped->Description(), testing::HasSubstr("(warum)"));
}

}  // namespace
}  // namespace pactora::takeover
