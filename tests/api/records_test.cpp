// The records by property name.

#include "api/ArticleCollection.h"
#include "api/vv_CArticle.h"
#include "api/vv_CContractD.h"
#include "support/contract_world.h"

namespace pactora::api {
namespace {

using host::Value;
using support::ErrorNumberOf;

// Each property in turn is set, so that two that share a member would show.
template <typename T>
void ExpectProperties(const std::string& names) {
  const T fresh;
  std::string found;
  for (const PropertyName& property : fresh.Properties()) {
    found += (found.empty() ? "" : " ") + std::string(property.name);
    T record;
    record.Set(property.name, 7);
    for (const PropertyName& other : fresh.Properties()) {
      const bool changed = record.Get(other.name) != fresh.Get(other.name);
      EXPECT_EQ(changed, other.name == property.name) << property.name << " and " << other.name;
    }
  }
  EXPECT_EQ(found, names);
}

TEST(Records, HaveTheirPropertiesInSlotOrderEachForItself) {
  ExpectProperties<vv_CContractD>(
      "lVertragArt VertragBeginn VertragGeschlossenAm Bezeichnung Dauer Zahlungsperiode "
      "Verlaengerungsdauer VerlaengerungsZahlungsperiode dblRabatt KuendFristInWochen Memo "
      "RabattNurErsteLaufzeit SetztMerkmalGruppe SetztMerkmal SetztWert Auftragsnummer");
  ExpectProperties<vv_CArticle>(
      "sArtikelID dblAnzahl lPreisDauer bSonderpreisVerwenden dblPreis sBeschreibung "
      "bUseCustomDiscount dblCustomDiscount sAuftragsnummer sGruppierung");
}

TEST(Records, ConvertWhatIsSetByNameAndOfferNothingElse) {
  struct Case {
    const char* name;
    Value fresh, given, taken;
  };
  const std::vector<Case> cases = {
      {"Dauer", 0, "12", 12},
      {"dblRabatt", 0.0, "12,5", 12.5},
      {"VertragBeginn", platform::kNoDate, 45352, platform::Date{45352.0}},
      {"Bezeichnung", "", 17, "17"},
      {"RabattNurErsteLaufzeit", false, "True", true},
  };
  vv_CContractD record;
  for (const Case& row : cases) {
    EXPECT_EQ(record.Get(row.name), row.fresh) << row.name;
    record.Set(row.name, row.given);
    EXPECT_EQ(record.Get(row.name), row.taken) << row.name;
  }
  EXPECT_EQ(ErrorNumberOf([&] { record.Set("Dauer", "zwölf"); }), 13);
  EXPECT_EQ(ErrorNumberOf([&] { record.Set("Dauer", 3e9); }), 6);
  EXPECT_EQ(record.Dauer, 12) << "what can't be taken changes nothing";
  for (const char* name : {"dauer", "sArtikelID", ""}) {
    EXPECT_EQ(ErrorNumberOf([&] { record.Get(name); }), 438) << name;
    EXPECT_EQ(ErrorNumberOf([&] { record.Set(name, 1); }), 438) << name;
  }
}

TEST(Records, ACollectionCountsFromOne) {
  ArticleCollection collection;
  const auto first = std::make_shared<vv_CArticle>();
  collection.Add(first);
  collection.Add(std::make_shared<vv_CArticle>());
  EXPECT_EQ(collection.Count(), 2);
  EXPECT_EQ(collection.Item(1), first);
  for (const std::int32_t index : {-1, 0, 3}) {
    EXPECT_EQ(ErrorNumberOf([&] { collection.Item(index); }), 9) << index;
  }
}

}  // namespace
}  // namespace pactora::api
