// Contract files and the contracts that are made from them.
#include "automation/dataset/contract_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "automation/company.h"
#include "automation/dataset/ContractMaker.h"
#include "automation/formats/errors.h"
#include "platform/Clock.h"
#include "platform/Error.h"
#include "support/contract_world.h"

namespace pactora::dataset {
namespace {

using support::kRecord;
using support::StoreWith;

using support::ErrorOf;
using testing::ElementsAre;

std::vector<ContractOrder> ReadFile(const std::string& text) {
  std::vector<ContractOrder> orders;
  ForEachContract(formats::MemorySource("v.json", text),
                  [&](ContractOrder order) { orders.push_back(std::move(order)); });
  return orders;
}

std::string Order(const std::string& address) {
  std::string text = "{\"address\": " + address + ", " + kRecord + "}";
  for (char& c : text)
    if (c == '\n') c = ' ';
  return text;
}

TEST(ContractFile, HoldsOneObjectOrOneALine) {
  EXPECT_EQ(ReadFile("\n" + Order("\"1\"") + "\n\n" + Order("\"2\"")).size(), 2u);
  EXPECT_EQ(ReadFile("\n{\n\"address\": \"1\",\n" + std::string(kRecord) + "\n}\n").size(), 1u);
  const auto orders = ReadFile(Order("\"2\"") + "\n" + Order(R"({"Name": "Muster GmbH"})"));
  EXPECT_EQ(orders[0].source, "v.json, Zeile 1");
  EXPECT_EQ(orders[0].address.oid, 2);
  EXPECT_EQ(orders[1].source, "v.json, Zeile 2");
  EXPECT_EQ(Describe(orders[1].address), "Name = \"Muster GmbH\"");
  EXPECT_EQ(orders[1].contract->Dauer, 12);
  EXPECT_EQ(orders[1].contract->VertragBeginn, platform::FromCivil(2024, 3, 1));
  EXPECT_EQ(orders[1].contract->Memo, "") << "left out";
  EXPECT_EQ(orders[1].articles->Count(), 1);
  std::string whole = Order("\"1\"");
  whole.replace(whole.find("12,"), 2, "13.0");
  EXPECT_EQ(ReadFile(whole).at(0).contract->Dauer, 13);
}

TEST(ContractFile, FaultsNameTheirPlace) {
  const auto with = [](const char* contract, const char* articles = "") {
    return R"({"address": "1", "contract": {)" + std::string(contract) + R"(}, "articles": [)" +
           articles + "]}";
  };
  const std::pair<std::string, const char*> cases[] = {
      {"", "Spalte 1: kein gültiges JSON (der Text endet zu früh)"},
      {Order("\"1\"") + "\n{\"address\": 1",
       "v.json, Zeile 2: Spalte 14: kein gültiges JSON (der Text endet zu früh)"},
      {"[]", "Zeile 1: ein Objekt wird erwartet"},
      {"{}", "Zeile 1: „address“ fehlt"},
      {R"({"address": "1", "contract": {}})", "Zeile 1: „articles“ fehlt"},
      {R"({"address": "1", "x": 1})", "Zeile 1: unbekannter Schlüssel „x“"},
      {Order("1"), "Zeile 1: address: eine Oid oder ein Objekt mit Feldern wird erwartet"},
      {Order("\"x\""), "Zeile 1: address: eine Oid wird erwartet, eine positive ganze Zahl"},
      {Order(R"({"Stadt": "X"})"), "Zeile 1: address.Stadt: kein Feld von Adressen"},
      {with(R"("dauer": 12)"), "Zeile 1: contract: unbekannter Schlüssel „dauer“"},
      {with(R"("Bezeichnung": 5)"), "Zeile 1: contract.Bezeichnung: ein Text wird erwartet"},
      {with(R"("VertragBeginn": "1.3.2024")"), "contract.VertragBeginn: ein Datum wird erwartet"},
      {with(R"("Dauer": "12")"), "contract.Dauer: eine ganze Zahl wird erwartet"},
      {with("", R"({}, {"dblAnzahl": "2"})"), "articles[1].dblAnzahl: eine Zahl wird erwartet"},
      {with("", R"({"bSonderpreisVerwenden": 1})"),
       "articles[0].bSonderpreisVerwenden: true oder false wird erwartet"},
  };
  for (const auto& [text, message] : cases) {
    const auto error = ErrorOf([&text = text] { ReadFile(text); });
    ASSERT_TRUE(error) << text;
    EXPECT_THAT(error->Description(),
                testing::AllOf(testing::StartsWith("v.json"), testing::HasSubstr(message)));
    EXPECT_EQ(error->Number(), Number(formats::DoorError::BadInput));
  }
}

TEST(ContractMaker, GivesNumberAndOidOfTheContractAndGoesOnAfterARefusal) {
  const platform::FixedClock clock(platform::FromCivil(2024, 3, 15));
  // Of two addresses of one name nobody knows which is meant.
  ContractMaker maker(StoreWith(R"({
      "database": {"name": "FIRMA"}, "users": [{"name": "Anna"}], "tables": {
        "Adressen": [{"@oid": "1", "Name": "Muster GmbH"}, {"@oid": "2", "Name": "Beispiel AG"},
                     {"@oid": "3", "Name": "Muster GmbH"}],
        "Artikelgruppen": [{"ID": "G1", "Artikel": [{"Id": "A1", "Nettopreis": 120}]}],
        "KELM_Mandanten": [{"TessarinName": "FIRMA"}]}})"),
                      clock);
  std::string thirteen = Order("\"1\"");
  thirteen.replace(thirteen.find("12,"), 2, "13");
  const std::pair<std::string, const char*> cases[] = {
      {Order("\"1\""), "00000001/"},
      {thirteen, "Ungültige Dauer."},
      {Order(R"({"Name": "Beispiel AG"})"), "00000002/"},
      {Order("\"9\""), "address: keine Adresse mit Oid 9"},
      {Order(R"({"Name": "Muster GmbH"})"),
       "address: mehrere Adressen mit Name = \"Muster GmbH\"; nennen Sie die Oid"},
      {Order("\"2\""), "00000003/"},
  };
  const auto contracts = maker.Store().Catalog().FindTable("vv_Vertraege").value();
  for (const auto& [order, result] : cases) {
    std::string made;
    const auto error = ErrorOf([&, &text = order] {
      const MadeContract contract = maker.Make(ReadFile(text)[0]);
      store::Record row;
      EXPECT_TRUE(maker.Store().Read(contracts, store::ParseOid(contract.oid).value(), row));
      made = contract.number + "/";
    });
    EXPECT_EQ(error ? error->Description() : made, result);
  }
  EXPECT_FALSE(maker.Store().InUnit());
  EXPECT_EQ(maker.Store().CountInParent(contracts, 1), 1);
  EXPECT_EQ(maker.Store().CountInParent(contracts, 2), 2);
}

}  // namespace
}  // namespace pactora::dataset
