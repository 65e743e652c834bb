// The check of a database: it is silent on what the add-on wrote and names what is
// broken.
#include "automation/checks/check.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
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

// A database with two contracts, and ways to damage the first past the add-on.
class Damaged {
 public:
  Damaged() : maker_(Company(), clock_) {
    dataset::ForEachContract(
        formats::MemorySource("v", std::string(R"({"address": "1", )") + kRecord + "}"),
        [this](const dataset::ContractOrder& order) {
          maker_.Make(order);
          maker_.Make(order);
        });
  }

  store::RecordStore& Store() { return maker_.Store(); }
  store::TableId Id(const char* table) { return Store().Catalog().FindTable(table).value(); }
  store::Record First(const char* table) { return workspace::AllRows(Store(), Id(table)).at(0); }
  std::string LastOid(const char* table) {
    return std::to_string(workspace::AllRows(Store(), Id(table)).back().oid);
  }

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

TEST(Check, NamesEachDamage) {
  struct Damage {
    std::function<void(Damaged&)> inflict;
    const char* finding;
  };
  const Damage cases[] = {
      {[](Damaged& d) {
         d.Erase("vv_Vertragspositionen");
         d.Erase("vv_Vertragsstaende");
       },
       "keinen Vertragsstand"},
      {[](Damaged& d) { d.Erase("vv_Vertragspositionen"); }, "keine Positionen"},
      {[](Damaged& d) { d.Set("vv_Vertragsstaende", "Value", {}); }, "leeres Feld Value"},
      {[](Damaged& d) { d.Set("vv_Vertraege", "AktValue", {}); }, "ein leeres Feld AktValue"},
      {[](Damaged& d) { d.Set("vv_Vertraege", "Vertragnummer", {}); }, "keine Nummer"},
      {[](Damaged& d) { d.Set("vv_Vertragsstaende", "LaufzeitEndeStr", "20250227"); },
       "LaufzeitEndeStr"},
      {[](Damaged& d) { d.Set("vv_Vertraege", "ArtStr", "verlängerbar"); },
       "ArtStr „verlängerbar“"},
      {[](Damaged& d) { d.Set("vv_Vertraege", "Typ", "X"); }, "den Typ „X“"},
      {[](Damaged& d) { d.Erase("vv_VertragsAktivitaeten"); }, "ist kein Termin dieses Vertrags"},
      {[](Damaged& d) { d.Set("vv_Vertraege", "AlarmOID", d.LastOid("vv_VertragsAktivitaeten")); },
       "ist kein Termin dieses Vertrags"},
      {[](Damaged& d) { d.Set("vv_Vertraege", "VertragsDefinitionID", "T9"); },
       "VertragsDefinitionID „T9“ gibt es nicht"},
      {[](Damaged& d) { d.Set("vv_Vertragspositionen", "ArtikelID", "A9"); },
       "ArtikelID „A9“ gibt es nicht"},
      {[](Damaged& d) { d.Set("KELM_Nummern", "Nummer", "00000000"); },
       "steht auf „00000000“, vergeben ist schon 00000002"},
      {[](Damaged& d) { d.Erase("KELM_Nummern"); }, "steht auf „“"},
      {[](Damaged& d) {
         d.Store().UpdateKeys(d.Id("Artikelgruppen"), d.First("Artikelgruppen").oid, {"X"});
       },
       "falscher Schlüssel im Index ID"},
      {[](Damaged& d) { d.Set("Artikel", "Nettopreis", "x"); }, "Artikel, Oid"},
      {[](Damaged& d) {
         store::Record twin;
         twin.cells = {"g1", host::Value()};
         store::InsertRow(d.Store(), d.Id("Artikelgruppen"), twin, nullptr);
       },
       "dieselbe ID wie Oid"},
      // A typed number counts where a counter could have given it.
      {[](Damaged& d) { d.Set("vv_Vertraege", "Vertragnummer", "00000000000000004711"); },
       "vergeben ist schon"},
  };
  for (const auto& [inflict, finding] : cases) {
    Damaged database;
    inflict(database);
    EXPECT_THAT(Findings(database.Store()), ElementsAre(HasSubstr(finding)));
  }
}

TEST(Check, ATypedNumberThatNoCounterGivesIsLeftAlone) {
  Damaged database;
  EXPECT_THAT(Findings(database.Store()), IsEmpty());
  database.Set("vv_Vertraege", "Vertragnummer", "2024-4711");
  EXPECT_THAT(Findings(database.Store()), IsEmpty());
  database.Set("vv_Vertraege", "Vertragnummer", "4711");
  EXPECT_THAT(Findings(database.Store()), IsEmpty());
}

}  // namespace
}  // namespace pactora::checks
