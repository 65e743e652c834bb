// Contract files and the contracts that are made from them.
#include "automation/dataset/contract_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <ostream>
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

using support::Company;
using support::kCompany;
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
  const std::pair<std::string, const char*> cases[] = {
      {"{\"\xFC\"", "v.json: Zeile 1, Spalte 3: kein gültiges JSON (kein UTF-8)"},
      {"", "v.json: Zeile 1, Spalte 1: kein gültiges JSON (der Text endet zu früh)"},
      {"[]", "v.json, Zeile 1: ein Objekt wird erwartet"},
      {"{}", "v.json, Zeile 1: „address“ fehlt"},
      {Order("1"), "v.json, Zeile 1: address: eine Oid oder ein Objekt mit Feldern wird erwartet"},
      {Order("\"x\""),
       "v.json, Zeile 1: address: eine Oid wird erwartet, eine positive ganze Zahl "
       "als Text wie \"7\""},
      {Order(R"({"Stadt": "X"})"), "v.json, Zeile 1: address.Stadt: kein Feld von Adressen"},
      {R"({"address": "1", "contract": {}})", "v.json, Zeile 1: „articles“ fehlt"},
      {R"({"address": "1", "contract": {}, "articles": [], "x": 1})",
       "v.json, Zeile 1: unbekannter Schlüssel „x“"},
      {Order("\"1\"") + "\n{\"address\": 1",
       "v.json, Zeile 2: Spalte 14: kein gültiges JSON (der Text endet zu früh)"},
      {R"({"address": "1", "contract": {"dauer": 12}, "articles": []})",
       "v.json, Zeile 1: contract: unbekannter Schlüssel „dauer“"},
      {R"({"address": "1", "contract": {"Bezeichnung": 5}, "articles": []})",
       "v.json, Zeile 1: contract.Bezeichnung: ein Text wird erwartet"},
      {R"({"address": "1", "contract": {"VertragBeginn": "1.3.2024"}, "articles": []})",
       "v.json, Zeile 1: contract.VertragBeginn: ein Datum wird erwartet, zum Beispiel "
       "\"2024-03-15\""},
      {R"({"address": "1", "contract": {}, "articles": [{"bSonderpreisVerwenden": 1}]})",
       "v.json, Zeile 1: articles[0].bSonderpreisVerwenden: true oder false wird erwartet"},
  };
  for (const auto& [text, message] : cases) {
    const auto error = ErrorOf([&text = text] { ReadFile(text); });
    ASSERT_TRUE(error) << text;
    EXPECT_EQ(error->Description(), message);
    EXPECT_EQ(error->Number(), Number(formats::DoorError::BadInput));
  }
}

struct ContractMakerTest : testing::Test {
  // What the maker says of the order: the number and Oid, or the error.
  std::string Make(const ContractOrder& order) {
    try {
      const MadeContract made = maker.Make(order);
      return made.number + "/" + made.oid;
    } catch (const platform::Error& error) {
      return error.Description();
    }
  }

  platform::FixedClock clock{platform::FromCivil(2024, 3, 15)};
  ContractMaker maker{Company(), clock};
};

TEST_F(ContractMakerTest, GivesNumberAndOidOfTheContractAndGoesOnAfterARefusal) {
  auto orders =
      ReadFile(Order("\"1\"") + "\n" + Order("\"1\"") + "\n" + Order(R"({"Name": "Beispiel AG"})") +
               "\n" + Order("\"9\"") + "\n" + Order("\"2\""));
  orders[1].contract->Dauer = 13;
  const std::string first = Make(orders[0]);
  EXPECT_THAT(first, testing::StartsWith("00000001/"));
  EXPECT_EQ(Make(orders[1]), "Ungültige Dauer.");
  EXPECT_THAT(Make(orders[2]), testing::StartsWith("00000002/"));
  EXPECT_EQ(Make(orders[3]), "address: keine Adresse mit Oid 9");
  EXPECT_THAT(Make(orders[4]), testing::StartsWith("00000003/"));

  // Of two addresses of one name nobody knows which is meant.
  std::string twins = support::kCompany;
  const std::string other = "Beispiel AG";
  for (std::size_t at = twins.find(other); at != std::string::npos; at = twins.find(other))
    twins.replace(at, other.size(), "Muster GmbH");
  ContractMaker among_twins(StoreWith(twins), clock);
  const auto error =
      ErrorOf([&] { among_twins.Make(ReadFile(Order(R"({"Name": "Muster GmbH"})"))[0]); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Description(),
            "address: mehrere Adressen mit Name = \"Muster GmbH\"; nennen Sie die Oid");

  store::RecordStore& store = maker.Store();
  const auto contracts = store.Catalog().Table("vv_Vertraege");
  EXPECT_FALSE(store.InUnit());
  EXPECT_EQ(store.CountInParent(contracts, 1), 1);
  EXPECT_EQ(store.CountInParent(contracts, 2), 2);
}

}  // namespace
}  // namespace pactora::dataset
