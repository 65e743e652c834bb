#include <gmock/gmock.h>

#include "component/ComponentWorld.h"
#include "support/row_text.h"

namespace pactora::component {
namespace {

// The records of the component and a dictionary as the collection.
constexpr const char kRecords[] = R"(
      Set contract = Test.Make("vv_CContractD")
      contract.lVertragArt = 1
      contract.VertragBeginn = DateSerial(2024, 3, 1)
      contract.VertragGeschlossenAm = DateSerial(2024, 3, 1)
      contract.Bezeichnung = "Größerer Vertrag"
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
      Set entry = Test.Make("CVV")
)";

TEST_F(ComponentTest, AScriptMakesAContract) {
  EXPECT_EQ(Run(std::string(kRecords) + "entry.NewContractDebitor Host, contract, articles"),
            Failure{});
  const support::Row contract = world.TheOnly(schema::table::vv_Vertraege);
  EXPECT_EQ(host::ToDouble(contract["AktValue"]), 18.0);
  EXPECT_EQ(host::ToText(contract["Bezeichnung"]), "Größerer Vertrag");
  EXPECT_EQ(host::ToText(contract["VertragEnde"]), "28.02.2025");
}

// Neither has to be one of the component's: names and the articles' class count.
TEST_F(ComponentTest, AScriptHandsInObjectsOfItsOwnClasses) {
  EXPECT_EQ(Run(std::string(kRecords) + R"(
      Class OwnContract
        Public lVertragArt : Public VertragBeginn : Public VertragGeschlossenAm
        Public Bezeichnung : Public Dauer : Public Zahlungsperiode
        Public Verlaengerungsdauer : Public VerlaengerungsZahlungsperiode : Public dblRabatt
        Public KuendFristInWochen : Public Memo : Public RabattNurErsteLaufzeit
        Public SetztMerkmalGruppe : Public SetztMerkmal : Public SetztWert
        Public Property Get Auftragsnummer
          Auftragsnummer = 4711
        End Property
      End Class
      Class OwnCollection
        Public Only
        Public Property Get Count
          Count = 2
        End Property
        Public Function Item(number)
          Set Item = Only
        End Function
      End Class
      Set own = New OwnContract
      own.lVertragArt = contract.lVertragArt + 1
      own.VertragBeginn = contract.VertragBeginn
      own.Dauer = "12"
      own.Zahlungsperiode = 0.6
      own.RabattNurErsteLaufzeit = 1
      Set collection = New OwnCollection
      amount = 3
      article.dblAnzahl = amount
      Set collection.Only = article
      entry.NewContractDebitor Host, own, collection)"),
            Failure{});
  const support::Row contract = world.TheOnly(schema::table::vv_Vertraege);
  EXPECT_EQ(support::Line(contract, {"ArtStr", "Zahlungsperiode", "RabattNurErsteLaufzeit",
                                     "Auftragsnummer", "AktValue"}),
            "einmalig 1 True 4711 60");
}

TEST_F(ComponentTest, AScriptSeesErrorsAndResults) {
  const MessageBoxes boxes;
  EXPECT_EQ(Run(std::string(kRecords) + R"(
      On Error Resume Next
      contract.Dauer = 13
      entry.NewContractDebitor Host, contract, articles
      Test.Note Hex(Err.Number) & " " & Err.Source & " " & Err.Description
      Err.Clear
      entry.NewContractDebitor Nothing, contract, articles
      Test.Note Err.Number & " " & Err.Description
      Err.Clear
      saved = True
      rows = "7"
      show = True
      entry.NewContract Host, saved, rows, show
      Test.Note Err.Number & TypeName(saved) & saved & TypeName(rows) & rows & show
      article.dblAnzahl = "viel"
      Test.Note Err.Number
      Err.Clear
      entry.NewContract Host, saved
      Test.Note Err.Number)"),
            Failure{});
  EXPECT_THAT(notes, testing::ElementsAre("80045005 modAPI Ungültige Dauer.",
                                          "91 Objektvariable nicht festgelegt",
                                          "0BooleanFalseLong0True", "13", "450"));
}

}  // namespace
}  // namespace pactora::component
