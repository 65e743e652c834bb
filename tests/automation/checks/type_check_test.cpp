// Contract types that need care.
#include "automation/checks/type_check.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "automation/company.h"

namespace pactora::checks {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

// A type of which nothing is to be said, with some of its fields replaced.
std::vector<std::string> Findings(const std::string& fields, const std::string& position = {}) {
  const auto store = support::StoreWith(
      R"({"tables": {"Artikelgruppen": [{"ID": "G", "Artikel": [{"Id": "A1"}]}],
         "MerkmalgruppeAdressen": [{"ID": "1", "Gruppe": "Kunde", "MerkmallisteAdressen": [
           {"ID": "2", "Merkmal": "Art", "WerteMerkmalAdressen": [{"Wert": "Firma"}]},
           {"ID": "3", "Merkmal": "Seit", "WerteMerkmalAdressen": [{"Wert": "<Datum>"}]}]}],
         "KELDO_Vorgaenge": [{"ID": "W1"}],
         "vv_Vertragsdefinitionen": [{"Bezeichnung": "T", "Typ": "D", )" +
      fields + R"("vv_Definitionspositionen": [{"Artikel": "Wartung", )" + position + "}]}]}}");
  std::vector<std::string> texts;
  for (const TypeFinding& finding : CheckTypes(*store)) {
    texts.push_back((finding.hint ? "H " : "") + finding.text);
  }
  return texts;
}

TEST(TypeCheck, NamesEachFaultThatANewContractWouldInherit) {
  const std::string once =
      R"("Art": 2, "Dauer": 12, "Kuendigungsfrist": 0, "KuendigungsfristEinh": "Wochen",)";
  const std::string fits = once + R"("Zahlungsperiode": 3, )";
  const auto sets = [&](const std::string& attribute, const std::string& value) {
    return fits + R"("SetztMerkmalGruppe": "KUNDE", "SetztMerkmal": ")" + attribute +
           R"(", "SetztWert": ")" + value + "\", ";
  };
  struct Case {
    std::string fields;
    const char* finding;  // none where it is empty
    const char* article = "A1";
  };
  const Case cases[] = {
      {fits, ""},
      {sets("Art", "Firma"), ""},
      {sets("Seit", "2024-01-01"), ""},
      {once + R"("Zahlungsperiode": 5, )",
       "die Zahlungsperiode 5 passt nicht zur Vertragsdauer 12 (Monate)"},
      {fits, "der Artikel A2 „Wartung“ ist nicht mehr vorhanden", "A2"},
      {fits + R"("WorkflowID": "W2", )", "der Workflow W2 ist nicht mehr vorhanden"},
      {sets("Art", "Amt"), "das gesetzte Merkmal: der Wert „Amt“ ist nicht mehr vorhanden"},
      {sets("Ort", "x"), "das gesetzte Merkmal: das Merkmal „Ort“ ist nicht mehr vorhanden"},
  };
  for (const auto& [fields, finding, article] : cases) {
    const auto found = Findings(fields, R"("ArtikelID": ")" + std::string(article) + '"');
    EXPECT_EQ(found, *finding ? std::vector<std::string>{finding} : std::vector<std::string>{});
  }
}

TEST(TypeCheck, LooksAtTheRenewalAndHintsAtTermsThatBindAConsumerTooLong) {
  const std::string renews =
      R"("Art": 1, "Dauer": 36, "Zahlungsperiode": 12, "Kuendigungsfrist": 5,
         "KuendigungsfristEinh": "Wochen", "Verlaengerungsdauer": 12,
         "VerlaengerungsZahlungsperiode": 12, "VerlKuendigungsfrist": 5,
         "VerlKuendigungsfristEinh": "Monate", )";
  EXPECT_THAT(
      Findings(renews, R"("ArtikelID": "A1", "PreisM1": 5)"),
      ElementsAre("die Kündigungsfrist 5 steht nicht in der Liste",
                  "die Kündigungsfrist der Verlängerung 5 steht nicht in der Liste",
                  "der Preis von „Wartung“ in der Verlängerung ist 0",
                  "H Verbraucher: Vertragsdauer von 36 Monaten, erlaubt sind 24",
                  "H Verbraucher: Verlängerung um 12 Monate, erlaubt ist nur auf unbestimmte Zeit",
                  "H Verbraucher: Kündigungsfrist der Verlängerung von 5 Monaten, erlaubt ist ein "
                  "Monat",
                  "H Verbraucher: Kündigungsfrist von 5 Wochen, erlaubt ist ein Monat"));
  EXPECT_THAT(Findings(renews, R"("ArtikelID": "A1", "PreisM12": 60)"),
              Not(testing::Contains(HasSubstr("Preis"))));
}

}  // namespace
}  // namespace pactora::checks
