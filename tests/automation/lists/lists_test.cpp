// What the lists of both doors show.
#include <gmock/gmock.h>

#include <string>
#include <tuple>
#include <vector>

#include "automation/company.h"
#include "automation/lists/ListReader.h"
#include "automation/lists/details.h"
#include "store/RowView.h"

namespace pactora::lists {
namespace {

using platform::FromCivil;
using support::TwoAddresses;
using testing::ElementsAre;

// A line for each row, its cells as text.
std::vector<std::string> Lines(const List& list, platform::Date today, Codes codes,
                               store::Oid address = 0) {
  const auto store = TwoAddresses();
  std::vector<std::string> lines;
  for (const Row& row : ListReader(list, *store, today, codes, address).Rest()) {
    std::string line = row.strong ? "!" : "";
    for (const host::Value& cell : row.cells) line += host::ToText(cell) + "|";
    lines.push_back(line);
  }
  return lines;
}

TEST(Lists, RowsHaveWhatStandsAboveThemAndComeByDate) {
  const List list = ListOf(Appointments(), {"Betreff", "Datum", "Vertrag", "Adresse"});
  const platform::Date due = FromCivil(2024, 5, 1);
  const std::string late = "spät|01.05.2024 09:00:00|2|Muster|";
  EXPECT_THAT(Lines(list, due, Codes::AsStored),
              ElementsAre("früh|01.05.2024 08:00:00|5|Probe|", "!" + late, "!ohne||2|Muster|"));
  EXPECT_THAT(Lines(list, {due.days - 1}, Codes::AsStored, 1),
              ElementsAre(late, "!ohne||2|Muster|"));
  EXPECT_THAT(Lines(Addresses(), due, Codes::AsStored, 2), ElementsAre("2|1|Probe|"));
  EXPECT_THAT(Lines(Addresses(), due, Codes::AsStored, 3), ElementsAre());
}

TEST(Lists, DeadlinesBeginWithWhatWasMissedAndANoticeNamesItsSafeDay) {
  const List list = ListOf(Deadlines(), {"Frist", "Vertragnummer", "Datum", "Zugang", "Typ"});
  EXPECT_THAT(Lines(list, FromCivil(2024, 5, 1), Codes::InWords),
              ElementsAre("!Kündigung|1|01.05.2024|30.04.2024|Verbindlichkeit|",
                          "Ende|2|01.05.2024||Verbindlichkeit|",
                          "Laufzeitende|1|30.06.2024||Verbindlichkeit|"));
}

// A notice counts by the day on which it must have arrived; 30.06. is 60 days away.
TEST(Lists, DeadlinesOfSomeWeeksAreThoseOfTheCalendar) {
  const auto store = TwoAddresses();
  const platform::Date today = FromCivil(2024, 5, 1);
  for (const auto& [day, weeks, count] :
       {std::tuple(today, 8, 2u), {today, 9, 3u}, {{today.days - 8}, 1, 2u}}) {
    std::vector<std::string> keys;
    for (const Row& row : ListReader(Deadlines(), *store, day, Codes::AsStored).Rest())
      if (deadlines::IsWithin(row.act_by, day, weeks)) keys.push_back(std::to_string(row.oid));
    std::vector<std::string> expected;
    for (const auto& deadline : deadlines::ReadDeadlines(*store, day, weeks))
      expected.push_back(std::to_string(deadline.contract));
    EXPECT_THAT(keys, testing::UnorderedElementsAreArray(expected));
    EXPECT_EQ(keys.size(), count) << weeks;
  }
  const platform::Date last{platform::kLastDay};
  EXPECT_TRUE(deadlines::IsWithin(last, last, deadlines::kMostWeeks)) << "past the calendar's end";
}

// Of the first row of the table.
std::string DetailsOf(std::string_view table) {
  const auto store = support::SampleCompany();
  const store::TableId id = store->Catalog().Table(table);
  const store::Record row = workspace::AllRows(*store, id).at(0);
  std::string text;
  for (const Detail& detail : Details(table, {store->Catalog().tables[id], row}))
    text += std::string(detail.title) + " " + host::ToText(detail.value) + "|";
  return text;
}

TEST(Lists, DetailsAreSaidInWordsAndOnce) {
  EXPECT_EQ(DetailsOf("vv_Vertraege"),
            "Nummer 00000001|Bezeichnung Hotline-Abonnement|Art Forderung|Dauer unbefristet|"
            "Verantwortlich Meral|Beginn 15.03.2026|Ende unbefristet|Unterschrieben 15.03.2026|"
            "Kündigungsfrist 4 Wochen|Zahlung monatlich|Netto 130|Nächste Rechnung 15.03.2026|"
            "Setzt das Merkmal Betreuung, Hotline: werktags|");
  EXPECT_EQ(DetailsOf("vv_Vertragsstaende"),
            "Laufzeit erste|Beginn 15.03.2026|Ende unbefristet|Zahlung monatlich|Netto 130|"
            "Rechnung im voraus|Nächste Rechnung 15.03.2026|");
  EXPECT_THAT(DetailsOf("vv_Vertragspositionen"),
              testing::HasSubstr("|Anzahl 1|Einheit Pauschale|Einzelpreis 50|Netto 50|"));
}

}  // namespace
}  // namespace pactora::lists
