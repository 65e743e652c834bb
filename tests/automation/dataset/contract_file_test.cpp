// Contract files and the contracts that are made from them.
#include "automation/dataset/contract_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "automation/company.h"
#include "automation/dataset/ContractMaker.h"
#include "automation/dataset/ContractRun.h"
#include "automation/formats/errors.h"
#include "automation/workspace/ForwardingStore.h"
#include "platform/Clock.h"
#include "platform/Error.h"
#include "store/errors.h"
#include "store/rows.h"
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
      {R"({"address": "1", "contract": {}})", "Zeile 1: „articles“ fehlt"},
      {R"({"key": 5, )" + Order("\"1\"").substr(1), "Zeile 1: key: ein Text wird erwartet"},
      {R"({"key": "", )" + Order("\"1\"").substr(1), "key: ein Schlüssel ist nicht leer"},
      {R"({"address": "1", "x": 1})", "Zeile 1: unbekannter Schlüssel „x“"},
      {Order("\"x\""), "Zeile 1: address: eine Oid wird erwartet, eine positive ganze Zahl"},
      {Order(R"({"Stadt": "X"})"), "Zeile 1: address.Stadt: kein Feld von Adressen"},
      {with(R"("dauer": 12)"), "Zeile 1: contract: unbekannter Schlüssel „dauer“"},
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
      {thirteen, "Fehler 0x80045005: Ungültige Dauer."},
      {Order(R"({"Name": "Beispiel AG"})"), "00000002/"},
      {Order("\"9\""), "address: keine Adresse mit Oid 9"},
      {Order(R"({"Name": "Muster GmbH"})"),
       "address: mehrere Adressen mit Name = \"Muster GmbH\"; nennen Sie die Oid"},
      {Order("\"2\""), "00000003/"},
  };
  const auto contracts = maker.Store().Catalog().FindTable("vv_Vertraege").value();
  for (const auto& [order, result] : cases) {
    const MadeContract made = maker.Make(ReadFile(order)[0]);
    maker.Host().EndUnit();
    store::Record row;
    EXPECT_EQ(maker.Store().Read(contracts, made.oid, row), made.outcome == bulk::Outcome::Created);
    EXPECT_EQ(made.message.empty() ? made.number + "/" : made.message, result);
  }
  EXPECT_FALSE(maker.Store().InUnit());
  EXPECT_EQ(maker.Store().CountInParent(contracts, 1), 1);
  EXPECT_EQ(maker.Store().CountInParent(contracts, 2), 2);
}

// A store whose disk is full after so many operations.
struct FullDisk : workspace::ForwardingStore {
  using ForwardingStore::ForwardingStore;
  void Insert(store::TableId table, store::Record& record) override {
    if (inserts_left-- == 0) store::Raise(store::StoreError::Full);
    ForwardingStore::Insert(table, record);
  }
  void Commit() override {
    if (commits_left-- == 0) store::Raise(store::StoreError::Full);
    ForwardingStore::Commit();
  }
  int inserts_left = 1000;
  int commits_left = 1000;
};

struct ContractRuns : testing::Test {
  // What becomes of the records: "created 00000001: message".
  std::vector<std::string> CarryOut(
      const std::string& text, const std::function<bool()>& stop_asked = [] { return false; }) {
    std::vector<std::string> lines;
    const auto take = [&](const ContractRun::Results& results) {
      EXPECT_FALSE(store->InUnit()) << "durable before it is told";
      for (const ContractResult& result : results)
        lines.push_back(std::string(bulk::Text(result.line.outcome)) + " " + result.line.number +
                        ": " + result.line.message);
    };
    const auto error = ErrorOf([&] {
      run.CarryOut({formats::MemorySource("v.json", text)}, "Auftragsnummer", stop_asked, take);
    });
    if (error) lines.push_back(error->Description());
    return lines;
  }
  static std::string Keyed(const std::string& key, const std::string& more = {}) {
    std::string order = Order("\"1\"");
    order.replace(order.find("12,"), 3, "12," + more);
    return "{\"key\": \"" + key + "\", " + order.substr(1) + "\n";
  }

  const platform::FixedClock clock{platform::FromCivil(2024, 3, 15)};
  std::unique_ptr<FullDisk> owned = std::make_unique<FullDisk>(support::Company());
  FullDisk* full_disk = owned.get();
  store::RecordStore* store = owned.get();
  ContractRun run{std::move(owned), clock, false};
};

TEST_F(ContractRuns, ARecordThatFailsHalfWayIsKeptWithItsKeyAndOneThatStoredNothingIsNot) {
  const std::string too_long =
      R"("Memo": "x", "Auftragsnummer": ")" + std::string(300, 'x') + "\",";
  std::string half = Keyed("half");
  half.replace(half.find("\"dblAnzahl\": 2"), 14, "\"dblAnzahl\": 1e308");
  EXPECT_THAT(
      CarryOut(half + Keyed("long", too_long) + Keyed("half")),
      ElementsAre("Fehler 00000001: Fehler 0x6: Überlauf; Vertrag 00000001 ist unvollständig "
                  "gespeichert, es fehlt: der Vertragswert",
                  testing::StartsWith("Fehler : Fehler 0x8004102A: "),
                  "abgelehnt : der Schlüssel gehört mit anderen Werten schon zu Vertrag "
                  "00000001"));
  EXPECT_THAT(CarryOut(half + Keyed("long")),
              ElementsAre("übersprungen 00000001: ein früherer Lauf ist daran gescheitert; Vertrag "
                          "00000001 ist unvollständig",
                          testing::StartsWith("angelegt ")));
}

TEST_F(ContractRuns, AnInterruptKeepsWhatIsFinishedAndARepetitionGoesOn) {
  int asked = 0;
  const std::string orders = Keyed("1") + Keyed("2") + Keyed("3");
  EXPECT_THAT(CarryOut(orders, [&] { return ++asked == 3; }),
              ElementsAre("angelegt 00000001: ", "angelegt 00000002: ", "abgebrochen"));
  EXPECT_THAT(
      CarryOut(orders),
      ElementsAre("übersprungen 00000001: ", "übersprungen 00000002: ", "angelegt 00000003: "));
}

// How many contracts are a group depends on the time that they take.
TEST_F(ContractRuns, AFailureOfTheDatabaseClaimsNothingOfItsGroup) {
  const std::string orders = Keyed("1") + Keyed("2") + Keyed("3");
  const auto stored = [&] { return store->Count(store->Catalog().Table("vv_Vertraege")); };
  for (const auto left : {&FullDisk::inserts_left, &FullDisk::commits_left}) {
    full_disk->*left = left == &FullDisk::commits_left ? 0 : 12;  // in the third contract
    const auto told = CarryOut(orders);
    EXPECT_THAT(told.back(), testing::HasSubstr("Speicherplatz ist erschöpft"));
    full_disk->*left = 1000;
    EXPECT_EQ(static_cast<std::size_t>(stored()), told.size() - 1);
  }
  EXPECT_THAT(CarryOut(orders), testing::SizeIs(3));
  EXPECT_EQ(stored(), 3);
}

}  // namespace
}  // namespace pactora::dataset
