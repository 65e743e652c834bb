// The records by property name.

#include <gtest/gtest.h>

#include "api/ArticleCollection.h"
#include "api/vv_CArticle.h"
#include "api/vv_CContractD.h"
#include "support/contract_world.h"

namespace pactora::api {
namespace {

using support::ErrorOf;

std::string Slots(const Record& record) {
  static constexpr std::array<const char*, 5> kTypes = {"Long", "Double", "Date", "Text",
                                                        "Boolean"};
  std::string text;
  for (const PropertyName& property : record.Properties()) {
    text +=
        std::string(property.name) + ":" + kTypes.at(static_cast<std::size_t>(property.type)) + " ";
  }
  return text;
}

TEST(Records, ListTheirPropertiesInSlotOrder) {
  EXPECT_EQ(Slots(vv_CContractD()),
            "lVertragArt:Long VertragBeginn:Date VertragGeschlossenAm:Date Bezeichnung:Text "
            "Dauer:Long Zahlungsperiode:Long Verlaengerungsdauer:Long "
            "VerlaengerungsZahlungsperiode:Long dblRabatt:Double KuendFristInWochen:Long "
            "Memo:Text RabattNurErsteLaufzeit:Boolean SetztMerkmalGruppe:Text SetztMerkmal:Text "
            "SetztWert:Text Auftragsnummer:Text ");
  EXPECT_EQ(Slots(vv_CArticle()),
            "sArtikelID:Text dblAnzahl:Double lPreisDauer:Long bSonderpreisVerwenden:Boolean "
            "dblPreis:Double sBeschreibung:Text bUseCustomDiscount:Boolean "
            "dblCustomDiscount:Double sAuftragsnummer:Text sGruppierung:Text ");
}

// Each property in turn, so that two that share a member would show.
template <typename T>
void ExpectEachPropertyForItself() {
  const T fresh;
  for (const PropertyName& property : fresh.Properties()) {
    T record;
    const host::Value value = property.type == PropertyType::Text      ? host::Value("7")
                              : property.type == PropertyType::Boolean ? host::Value(true)
                                                                       : host::Value(7.0);
    record.Set(property.name, value);
    for (const PropertyName& other : fresh.Properties()) {
      const bool changed = record.Get(other.name) != fresh.Get(other.name);
      EXPECT_EQ(changed, other.name == property.name) << property.name << " and " << other.name;
    }
  }
}

TEST(Records, KeepEachPropertyForItself) {
  ExpectEachPropertyForItself<vv_CContractD>();
  ExpectEachPropertyForItself<vv_CArticle>();
}

TEST(Records, ANewOneHoldsZeroAndNothing) {
  const vv_CContractD record;
  EXPECT_EQ(record.Get("Dauer"), host::Value(0));
  EXPECT_EQ(record.Get("dblRabatt"), host::Value(0.0));
  EXPECT_EQ(record.Get("VertragBeginn"), host::Value(platform::kNoDate));
  EXPECT_EQ(record.Get("Memo"), host::Value(""));
  EXPECT_EQ(record.Get("RabattNurErsteLaufzeit"), host::Value(false));
}

TEST(Records, ConvertWhatIsSetByName) {
  vv_CContractD record;
  record.Set("Dauer", "12");
  record.Set("dblRabatt", "12,5");
  record.Set("VertragBeginn", 45352);
  record.Set("Bezeichnung", 17);
  record.Set("RabattNurErsteLaufzeit", "True");
  EXPECT_EQ(record.Dauer, 12);
  EXPECT_EQ(record.dblRabatt, 12.5);
  EXPECT_EQ(record.VertragBeginn.days, 45352.0);
  EXPECT_EQ(record.Bezeichnung, "17");
  EXPECT_TRUE(record.RabattNurErsteLaufzeit);
  EXPECT_EQ(ErrorOf([&] { record.Set("Dauer", "zwölf"); })->Number(), 13);
  EXPECT_EQ(ErrorOf([&] { record.Set("Dauer", 3e9); })->Number(), 6);
  EXPECT_EQ(record.Dauer, 12) << "what can't be taken changes nothing";
}

TEST(Records, OfferTheirOwnPropertiesAlone) {
  vv_CContractD contract;
  for (const char* name : {"dauer", "sArtikelID", ""}) {
    EXPECT_EQ(ErrorOf([&] { contract.Get(name); })->Number(), 438) << name;
    EXPECT_EQ(ErrorOf([&] { contract.Set(name, 1); })->Number(), 438) << name;
  }
}

TEST(Records, ACollectionCountsFromOne) {
  ArticleCollection collection;
  EXPECT_EQ(collection.Count(), 0);
  const auto first = std::make_shared<vv_CArticle>();
  collection.Add(first);
  collection.Add(std::make_shared<vv_CArticle>());
  EXPECT_EQ(collection.Count(), 2);
  EXPECT_EQ(collection.Item(1), first);
  for (const std::int32_t index : {-1, 0, 3}) {
    EXPECT_EQ(ErrorOf([&] { collection.Item(index); })->Number(), 9) << index;
  }
}

}  // namespace
}  // namespace pactora::api
