// The check of a database: it is silent on what the add-on wrote and names what is
// broken.
#include "automation/checks/check.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "automation/company.h"
#include "automation/dataset/ContractMaker.h"
#include "automation/dataset/sample/sample.h"
#include "automation/workspace/row_walk.h"
#include "platform/Clock.h"
#include "store/rows.h"

namespace pactora::checks {
namespace {

using support::Company;
using support::kRecord;
using support::SampleCompany;

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::vector<std::string> Findings(store::RecordStore& store) {
  std::vector<std::string> findings;
  CheckDatabase(store, [&findings](const std::string& text) { findings.push_back(text); });
  return findings;
}

TEST(Check, TheSampleIsSound) { EXPECT_THAT(Findings(*SampleCompany()), IsEmpty()); }

// A database with one contract, and ways to damage it past the add-on.
class Damaged {
 public:
  Damaged() : maker_(Company(), clock_) {
    dataset::ForEachContract(
        formats::MemorySource("v", std::string(R"({"address": "1", )") + kRecord + "}"),
        [this](const dataset::ContractOrder& order) { maker_.Make(order); });
  }

  store::RecordStore& Store() { return maker_.Store(); }
  store::TableId Id(const char* table) { return Store().Catalog().Table(table); }
  store::Record First(const char* table) { return workspace::AllRows(Store(), Id(table)).at(0); }

  void Set(const char* table, const char* field, host::Value value) {
    store::Record record = First(table);
    record.cells[Store().Catalog().tables[Id(table)].FindField(field).value()] = std::move(value);
    record.keys = store::MakeKeys(Store().Catalog(), Id(table), record.cells, nullptr);
    ASSERT_TRUE(Store().Update(Id(table), record));
  }
  void Erase(const char* table) {
    const store::Record record = First(table);
    ASSERT_TRUE(Store().Erase(Id(table), record.oid, record.version));
  }

 private:
  platform::FixedClock clock_{platform::FromCivil(2024, 3, 15)};
  dataset::ContractMaker maker_;
};

struct Damage {
  const char* name;
  std::function<void(Damaged&)> inflict;
  const char* finding;

  friend void PrintTo(const Damage& damage, std::ostream* out) { *out << damage.name; }
};

class DamagedDatabase : public testing::TestWithParam<Damage> {};

TEST_P(DamagedDatabase, IsNamed) {
  Damaged database;
  ASSERT_THAT(Findings(database.Store()), IsEmpty());
  GetParam().inflict(database);
  EXPECT_THAT(Findings(database.Store()), ElementsAre(HasSubstr(GetParam().finding)));
}

INSTANTIATE_TEST_SUITE_P(
    Damages, DamagedDatabase,
    testing::ValuesIn(std::vector<Damage>{
        {"NoTerm",
         [](Damaged& d) {
           d.Erase("vv_Vertragspositionen");
           d.Erase("vv_Vertragsstaende");
         },
         "keinen Vertragsstand"},
        {"NoPosition", [](Damaged& d) { d.Erase("vv_Vertragspositionen"); }, "keine Positionen"},
        {"NoValue", [](Damaged& d) { d.Set("vv_Vertragsstaende", "Value", {}); },
         "leeres Feld Value"},
        {"NoActualValue", [](Damaged& d) { d.Set("vv_Vertraege", "AktValue", {}); },
         "ein leeres Feld AktValue"},
        {"NoNumber", [](Damaged& d) { d.Set("vv_Vertraege", "Vertragnummer", {}); },
         "keine Nummer"},
        {"DateText", [](Damaged& d) { d.Set("vv_Vertragsstaende", "LaufzeitEndeStr", "20250227"); },
         "LaufzeitEndeStr"},
        {"KindText", [](Damaged& d) { d.Set("vv_Vertraege", "ArtStr", "verlängerbar"); },
         "ArtStr „verlängerbar“"},
        {"Side", [](Damaged& d) { d.Set("vv_Vertraege", "Typ", "X"); }, "den Typ „X“"},
        {"NoAlarm", [](Damaged& d) { d.Erase("vv_VertragsAktivitaeten"); },
         "ist kein Termin dieses Vertrags"},
        {"UnknownType", [](Damaged& d) { d.Set("vv_Vertraege", "VertragsDefinitionID", "T9"); },
         "VertragsDefinitionID „T9“ gibt es nicht"},
        {"UnknownArticle", [](Damaged& d) { d.Set("vv_Vertragspositionen", "ArtikelID", "A9"); },
         "ArtikelID „A9“ gibt es nicht"},
        {"CounterBehind", [](Damaged& d) { d.Set("KELM_Nummern", "Nummer", "00000000"); },
         "steht auf „00000000“, vergeben ist schon 00000001"},
        {"CounterGone", [](Damaged& d) { d.Erase("KELM_Nummern"); }, "steht auf „“"},
        {"WrongKey",
         [](Damaged& d) {
           d.Store().UpdateKeys(d.Id("Artikelgruppen"), d.First("Artikelgruppen").oid, {"X"});
         },
         "falscher Schlüssel im Index ID"},
        {"WrongType", [](Damaged& d) { d.Set("Artikel", "Nettopreis", "x"); }, "Artikel, Oid"},
    }),
    [](const auto& tested) { return tested.param.name; });

TEST(Check, TwoRowsOfOneIdAreNamed) {
  const auto store = Company();
  const auto groups = store->Catalog().Table("Artikelgruppen");
  store::Record group;
  group.cells = {"g1", host::Value()};
  store::InsertRow(*store, groups, group, nullptr);
  EXPECT_THAT(Findings(*store), ElementsAre(HasSubstr("dieselbe ID wie Oid")));
}

TEST(Check, ATypedNumberThatNoCounterGivesIsLeftAlone) {
  Damaged database;
  database.Set("vv_Vertraege", "Vertragnummer", "2024-4711");
  EXPECT_THAT(Findings(database.Store()), IsEmpty());
  database.Set("vv_Vertraege", "Vertragnummer", "4711");
  EXPECT_THAT(Findings(database.Store()), IsEmpty());
  database.Set("vv_Vertraege", "Vertragnummer", "00000000000000004711");
  EXPECT_THAT(Findings(database.Store()), ElementsAre(HasSubstr("vergeben ist schon")));
}

}  // namespace
}  // namespace pactora::checks
