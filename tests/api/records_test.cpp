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
  const struct {
    const char* name;
    Value given, taken;
  } cases[] = {{"Dauer", "12", 12},
               {"dblRabatt", "12,5", 12.5},
               {"VertragBeginn", 45352, platform::Date{45352.0}},
               {"Bezeichnung", 17, "17"},
               {"RabattNurErsteLaufzeit", "True", true}};
  vv_CContractD record;
  for (const auto& [name, given, taken] : cases) {
    record.Set(name, given);
    EXPECT_EQ(record.Get(name), taken) << name;
  }
  EXPECT_EQ(ErrorNumberOf([&] { record.Set("Dauer", "zwölf"); }), 13);
  EXPECT_EQ(record.Dauer, 12) << "what can't be taken changes nothing";
  EXPECT_EQ(ErrorNumberOf([&] { record.Get("dauer"); }), 438);
  EXPECT_EQ(ErrorNumberOf([&] { record.Set("sArtikelID", 1); }), 438);
}

}  // namespace
}  // namespace pactora::api
