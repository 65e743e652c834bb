// Deadlines of contracts and contract types that need care.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "automation/dataset_head.h"
#include "automation/dataset_import.h"
#include "automation/deadlines.h"
#include "automation/type_check.h"
#include "schema/Catalog.h"
#include "store/memory/MemoryStore.h"

namespace pactora::automation {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

std::unique_ptr<store::RecordStore> Store(const std::string& tables) {
  const TextSource source =
      MemorySource("firma.json",
                   R"({"database": {"name": "F", "displayName": "F"}, "users": [{"name": "Anna"}],)"
                   R"( "tables": {)" +
                       tables + "}}");
  auto store = store::CreateMemoryStore(schema::ContractCatalog(true), DefaultProfile("F"));
  ImportDataset(*store, source, SurveyDataset(source), "F");
  return store;
}

std::unique_ptr<store::RecordStore> Contracts() {
  return Store(R"("Adressen": [{"@oid": "1", "Name": "Muster", "vv_Vertraege": [
    {"@oid": "7", "Vertragnummer": "1", "Art": 1, "KuendfristDatum": "2024-05-01", "VertragEnde": "2024-06-30"},
    {"@oid": "8", "Vertragnummer": "2", "VertragEnde": "2024-05-01", "Bezeichnung": "x"},
    {"@oid": "9", "Vertragnummer": "3", "VertragEnde": 0},
    {"@oid": "10", "Vertragnummer": "4", "VertragEnde": "2024-04-30"}]}])");
}

TEST(Deadlines, AreThoseFromTodayOnByDateAndANoticeNamesItsSafeDay) {
  const auto store = Contracts();
  const auto texts = [&](std::optional<std::int32_t> weeks) {
    std::vector<std::string> lines;
    for (const Deadline& d : ReadDeadlines(*store, platform::FromCivil(2024, 5, 1), weeks)) {
      lines.push_back(
          Text(d.kind) + " " + d.number + " " +
          platform::FormatDate(d.date, platform::kIsoPattern) + " " +
          (d.safe_receipt ? platform::FormatDate(*d.safe_receipt, platform::kIsoPattern) : "-"));
    }
    return lines;
  };
  EXPECT_THAT(texts({}), ElementsAre("Kündigung 1 2024-05-01 2024-04-30", "Ende 2 2024-05-01 -",
                                     "Laufzeitende 1 2024-06-30 -"));
  EXPECT_EQ(texts(8).size(), 2u);
  EXPECT_EQ(texts(9).size(), 3u) << "30.06. is 60 days away";
  // A notice counts by the day on which it must have arrived.
  const auto week_before = platform::FromCivil(2024, 4, 23);
  EXPECT_EQ(ReadDeadlines(*store, week_before, 1).size(), 2u);
  EXPECT_EQ(ReadDeadlines(*store, platform::Date{platform::kLastDay - 1.0}, kMostWeeks).size(), 0u);
}

TEST(Deadlines, StandInACalendarOnTheSafeDay) {
  if (!HasCalendars()) GTEST_SKIP() << "built without calendars";
  const auto store = Contracts();
  const platform::Date today = platform::FromCivil(2024, 5, 1);
  const std::string text = CalendarText(ReadDeadlines(*store, today, 1), "F", today);
  EXPECT_THAT(text, HasSubstr("UID:F-7-kuendigung@pactora\r\nDTSTAMP:20240501T000000Z\r\n"
                              "DTSTART;VALUE=DATE:20240430\r\nDTEND;VALUE=DATE:20240501\r\n"));
  EXPECT_THAT(text, HasSubstr("UID:F-8-ende@pactora"));
  EXPECT_THAT(text, Not(HasSubstr("F-7-ende")));
  EXPECT_THAT(CalendarText({}, "F", today), HasSubstr("BEGIN:VTIMEZONE\r\nTZID:UTC\r\n"));
}

// A type of which nothing is to be said, with some of its fields replaced.
std::vector<std::string> Findings(const std::string& fields, const std::string& position = {}) {
  const auto store = Store(
      R"("Artikelgruppen": [{"ID": "G", "Artikel": [{"Id": "A1"}]}],
         "MerkmalgruppeAdressen": [{"ID": "1", "Gruppe": "Kunde", "MerkmallisteAdressen": [
           {"ID": "2", "Merkmal": "Art", "WerteMerkmalAdressen": [{"Wert": "Firma"}]},
           {"ID": "3", "Merkmal": "Seit", "WerteMerkmalAdressen": [{"Wert": "<Datum>"}]}]}],
         "KELDO_Vorgaenge": [{"ID": "W1"}],
         "vv_Vertragsdefinitionen": [{"Bezeichnung": "T", "Typ": "D", )" +
      fields + R"("vv_Definitionspositionen": [{"Artikel": "Wartung", )" + position + "}]}]");
  std::vector<std::string> texts;
  for (const TypeFinding& finding : CheckTypes(*store)) {
    texts.push_back((finding.hint ? "H " : "") + finding.text);
  }
  return texts;
}

TEST(TypeCheck, NamesEachFaultThatANewContractWouldInherit) {
  const std::string once =
      R"("Art": 2, "Dauer": 12, "Kuendigungsfrist": 0, "KuendigungsfristEinh": "Wochen", )";
  const std::string article = R"("ArtikelID": "A1")";
  const std::string fits = R"("Zahlungsperiode": 3, )";
  EXPECT_THAT(Findings(once + fits, article), ElementsAre());
  EXPECT_THAT(Findings(once + R"("Zahlungsperiode": 5, )", article),
              ElementsAre("die Zahlungsperiode 5 passt nicht zur Dauer 12 (Monate)"));
  EXPECT_THAT(Findings(once + R"("Zahlungsperiode": 0, )", article),
              ElementsAre("die Zahlungsperiode 0 passt nicht zur Dauer 12 (Monate)"));
  EXPECT_THAT(Findings(once + fits, R"("ArtikelID": "A2")"),
              ElementsAre("der Artikel A2 \"Wartung\" ist nicht mehr vorhanden"));
  EXPECT_THAT(Findings(once + fits + R"("WorkflowID": "W2", )", article),
              ElementsAre("der Workflow W2 ist nicht mehr vorhanden"));
  const auto sets = [](const std::string& attribute, const std::string& value) {
    return R"("SetztMerkmalGruppe": "KUNDE", "SetztMerkmal": ")" + attribute +
           R"(", "SetztWert": ")" + value + "\", ";
  };
  EXPECT_THAT(Findings(once + fits + sets("Art", "Firma"), article), ElementsAre());
  EXPECT_THAT(Findings(once + fits + sets("Seit", "2024-01-01"), article), ElementsAre());
  EXPECT_THAT(Findings(once + fits + sets("Art", "Amt"), article),
              ElementsAre("das gesetzte Merkmal: der Wert \"Amt\" ist nicht mehr vorhanden"));
  EXPECT_THAT(Findings(once + fits + sets("Ort", "x"), article),
              ElementsAre("das gesetzte Merkmal: das Merkmal \"Ort\" ist nicht mehr vorhanden"));
}

TEST(TypeCheck, LooksAtTheRenewalAndHintsAtTermsThatBindAConsumerTooLong) {
  const std::string renews =
      R"("Art": 1, "Dauer": 36, "Zahlungsperiode": 12, "Kuendigungsfrist": 5,
         "KuendigungsfristEinh": "Wochen", "Verlaengerungsdauer": 12,
         "VerlaengerungsZahlungsperiode": 12, "VerlKuendigungsfrist": 1,
         "VerlKuendigungsfristEinh": "Monate", )";
  EXPECT_THAT(
      Findings(renews, R"("ArtikelID": "A1", "PreisM1": 5)"),
      ElementsAre("die Kündigungsfrist 5 steht nicht in der Liste",
                  "der Preis von \"Wartung\" in der Verlängerung ist 0",
                  "H Verbraucher: Dauer von 36 Monaten, erlaubt sind 24",
                  "H Verbraucher: Verlängerung um 12 Monate, erlaubt ist nur auf unbestimmte Zeit",
                  "H Verbraucher: Kündigungsfrist von 5 Wochen, erlaubt ist ein Monat"));
  EXPECT_THAT(Findings(renews, R"("ArtikelID": "A1", "PreisM12": 60)"),
              Not(testing::Contains(HasSubstr("Preis"))));
}

}  // namespace
}  // namespace pactora::automation
