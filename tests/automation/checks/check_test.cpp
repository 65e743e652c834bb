// The check of a database: it is silent on what the add-on wrote and names what is
// broken.
#include "automation/checks/check.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
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

// A database with two contracts, and ways to damage the first past the add-on.
class Damaged {
 public:
  Damaged() : maker_(Company(), clock_) {
    dataset::ForEachContract(
        formats::MemorySource("v", std::string(R"({"address": "1", )") + kRecord + "}"),
        [this](const dataset::ContractOrder& order) {
          maker_.Make(order);
          maker_.Make(order);
          maker_.Host().EndUnit();
        });
  }

  store::RecordStore& Store() { return maker_.Store(); }
  store::TableId Id(const char* table) { return Store().Catalog().FindTable(table).value(); }
  std::vector<store::Record> All(const char* table) {
    return workspace::AllRows(Store(), Id(table));
  }
  std::string AppointmentOfTheOther() {
    return std::to_string(All("vv_VertragsAktivitaeten").at(1).oid);
  }

  void Set(const char* table, const char* field, host::Value value) {
    store::Record record = All(table).at(0);
    record.cells[Store().Catalog().tables[Id(table)].FindField(field).value()] = std::move(value);
    record.keys = store::MakeKeys(Store().Catalog(), Id(table), record.cells, nullptr);
    ASSERT_TRUE(Store().Update(Id(table), record));
  }
  void Erase(const char* table) {
    const store::Record record = All(table).at(0);
    ASSERT_TRUE(Store().Erase(Id(table), record.oid, record.version));
  }
  void Expect(const char* finding) {
    EXPECT_THAT(Findings(Store()), ElementsAre(HasSubstr(finding)));
  }

 private:
  platform::FixedClock clock_{platform::FromCivil(2024, 3, 15)};
  dataset::ContractMaker maker_;
};

TEST(Check, NamesEachValueThatDoesNotFit) {
  struct Case {
    const char* table;
    const char* field;
    host::Value value;
    const char* finding;
  };
  const Case cases[] = {
      {"vv_Vertraege", "AktValue", {}, "ein leeres Feld AktValue"},
      {"vv_Vertraege", "Vertragnummer", {}, "keine Nummer"},
      {"vv_Vertragsstaende", "LaufzeitEndeStr", "20250227", "LaufzeitEndeStr"},
      {"vv_Vertraege", "ArtStr", "verlängerbar", "ArtStr „verlängerbar“"},
      {"vv_Vertraege", "AlarmOID", "x", "AlarmOID „x“ ist kein Termin dieses Vertrags"},
      {"vv_Vertraege", "AlarmOID", Damaged().AppointmentOfTheOther(), "kein Termin dieses"},
      {"vv_Vertraege", "VertragsDefinitionID", "T9", "VertragsDefinitionID „T9“ gibt es nicht"},
      {"vv_Vertragspositionen", "ArtikelID", "A9", "ArtikelID „A9“ gibt es nicht"},
      {"KELM_Nummern", "Nummer", "00000000", "steht auf „00000000“, vergeben ist schon 00000002"},
      {"Artikel", "Nettopreis", "x", "Artikel, Oid"},
      {"vv_Vertraege", "VertragEnde", platform::Date{2958466.0}, "VertragEnde: das Datum liegt"},
      {"vv_Vertraege", "AktValue", std::numeric_limits<double>::quiet_NaN(),
       "AktValue: keine endliche Zahl"},
      // A typed number counts where a counter could have given it.
      {"vv_Vertraege", "Vertragnummer", "00000000000000004711", "vergeben ist schon"},
  };
  for (const auto& [table, field, value, finding] : cases) {
    Damaged database;
    database.Set(table, field, value);
    database.Expect(finding);
  }
}

TEST(Check, NamesRowsThatAreMissingOrTooMany) {
  const std::pair<std::vector<const char*>, const char*> cases[] = {
      {{"vv_Vertragspositionen", "vv_Vertragsstaende"}, "keinen Vertragsstand"},
      {{"vv_Vertragspositionen"}, "keine Positionen"},
      {{"vv_VertragsAktivitaeten"}, "ist kein Termin dieses Vertrags"},
      {{"KELM_Nummern"}, "steht auf „“"}};
  for (const auto& [tables, finding] : cases) {
    Damaged database;
    for (const char* table : tables) database.Erase(table);
    database.Expect(finding);
  }
  Damaged twins;
  store::Record twin;
  twin.cells = {"g1", host::Value()};
  store::InsertRow(twins.Store(), twins.Id("Artikelgruppen"), twin, nullptr);
  twins.Expect("dieselbe ID wie Oid");
  Damaged key;
  key.Store().UpdateKeys(key.Id("Artikelgruppen"), key.All("Artikelgruppen").at(0).oid, {"X"});
  key.Expect("falscher Schlüssel im Index ID");
}

TEST(Check, HintsAtWhatIsUnusualButNoFault) {
  const auto hints = [](store::RecordStore& store) {
    std::vector<std::string> texts;
    const auto add = [&](const std::string& text) { texts.push_back(text); };
    CheckNumbers(store, add);
    CheckDerived(store, add);
    return texts;
  };
  EXPECT_THAT(hints(Damaged().Store()), IsEmpty());
  EXPECT_THAT(hints(*SampleCompany()), IsEmpty());
  struct Case {
    const char* table;
    const char* field;
    host::Value value;
    const char* hint;
  };
  const platform::Date day = platform::FromCivil(2030, 1, 31);
  const Case cases[] = {
      {"vv_Vertraege", "Vertragnummer", "00000002", "Vertragnummer: „00000002“ hat auch Oid"},
      {"vv_Vertraege", "VertragEnde", day, "VertragEnde abweichend, „31.01.2030“ statt „"},
      {"vv_Vertragsstaende", "Value", 1.0, "Value abweichend, „1.00“ statt „"},
      {"vv_Vertragspositionen", "Row", "007", "Row abweichend, „007“ statt „001 bis 001“"},
  };
  for (const auto& [table, field, value, hint] : cases) {
    Damaged database;
    database.Set(table, field, value);
    EXPECT_THAT(hints(database.Store()), ElementsAre(HasSubstr(hint)));
    EXPECT_THAT(Findings(database.Store()), IsEmpty());
  }
  // A contract that renews has a notice date as well.
  const auto sample = SampleCompany();
  const store::TableId contracts = sample->Catalog().Table("vv_Vertraege");
  const std::size_t notice =
      sample->Catalog().tables[contracts].FindField("KuendfristDatum").value();
  for (store::Record& contract : workspace::AllRows(*sample, contracts))
    if (!contract.cells[notice].IsEmpty()) {
      contract.cells[notice] = day;
      ASSERT_TRUE(sample->Update(contracts, contract));
      break;
    }
  EXPECT_THAT(hints(*sample), ElementsAre(HasSubstr("KuendfristDatum abweichend, „31.01.2030“")));
}

TEST(Check, IsSilentOnWhatIsSoundAndOnATypedNumberThatNoCounterGives) {
  EXPECT_THAT(Findings(*SampleCompany()), IsEmpty());
  Damaged database;
  EXPECT_THAT(Findings(database.Store()), IsEmpty());
  for (const char* number : {"2024-4711", "4711"}) {
    database.Set("vv_Vertraege", "Vertragnummer", number);
    EXPECT_THAT(Findings(database.Store()), IsEmpty()) << number;
  }
}

}  // namespace
}  // namespace pactora::checks
