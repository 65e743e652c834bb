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
}  // namespace pactora::checks
