#include <gmock/gmock.h>

#include "component/ComponentWorld.h"

namespace pactora::component {
namespace {

TEST_F(ComponentTest, AScriptMakesAContract) {
  EXPECT_EQ(Run(R"(
      Set contract = Test.Make("vv_CContractD")
      contract.lVertragArt = 1
      contract.VertragBeginn = DateSerial(2024, 3, 1)
      contract.VertragGeschlossenAm = DateSerial(2024, 3, 1)
      contract.Bezeichnung = "Wartungsvertrag"
      contract.Dauer = 12
      contract.Zahlungsperiode = 1
      contract.Verlaengerungsdauer = 12
      contract.VerlaengerungsZahlungsperiode = 12
      contract.dblRabatt = 10
      contract.KuendFristInWochen = 6
      Set article = Test.Make("vv_CArticle")
      article.sArtikelID = "A1"
      article.dblAnzahl = 2
      article.lPreisDauer = 12
      Set articles = CreateObject("Scripting.Dictionary")
      articles.Add 1, article
      Test.Make("CVV").NewContractDebitor Host, contract, articles)"),
            Failure{});
  const support::Row contract = world.TheOnly(schema::table::vv_Vertraege);
  EXPECT_EQ(host::ToDouble(contract["AktValue"]), 18.0);
}

}  // namespace
}  // namespace pactora::component
