// Every operation of the host on the dialog-free path fails once. Rows that were
// stored before stay as a run without failure leaves them, no other ones come,
// and the caller learns the error and the routine that it came from.

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "api_world.h"
#include "support/failing_probe.h"

namespace pactora::api {
namespace {

namespace field = schema::field;
namespace table = schema::table;
using host::Value;
using support::ApiWorld;
using support::ErrorOf;
using support::FailingProbe;
using support::Row;

constexpr std::array<std::string_view, 7> kTables = {table::vv_Vertraege,
                                                     table::vv_VertragsAktivitaeten,
                                                     table::vv_Vertragsstaende,
                                                     table::vv_Vertragspositionen,
                                                     table::Adressmerkmale,
                                                     table::KELM_Nummern,
                                                     table::Artikel};

// A contract with everything in it: two appointments, two positions, an attribute.
void Fill(ApiWorld& world) {
  world.contract->lVertragArt = 2;
  world.contract->VertragGeschlossenAm = platform::kNoDate;
  world.Article("A1");
  world.Article("A2", 1.0, 1);
  world.Goto(table::Artikel, world.hotline);
  world.host.EndUnit();
}

std::map<std::string, std::vector<Row>> AllRows(ApiWorld& world) {
  std::map<std::string, std::vector<Row>> rows;
  for (const std::string_view name : kTables) rows[std::string(name)] = world.Rows(name);
  return rows;
}

// The fields that a row gets only by a later store.
bool IsLate(const std::string& name) {
  return name == field::AlarmOID || name == field::AktValue || name == field::Value;
}

// Whether a stored row is that row of the whole run. A field of the attribute that
// could not be written is passed over.
bool IsSame(std::string_view table_name, const Row& stored, const Row& wanted) {
  return std::all_of(stored.cells.begin(), stored.cells.end(), [&](const auto& cell) {
    const auto& [name, value] = cell;
    const bool passed_over = table_name == table::Adressmerkmale && value.IsEmpty();
    return IsLate(name) || passed_over || value == wanted[name];
  });
}

// Each row of a failed run is one of the whole run, in the same order and with the
// same content, but for what is stored later.
void ExpectPartOf(const std::map<std::string, std::vector<Row>>& whole,
                  const std::map<std::string, std::vector<Row>>& part, const std::string& failed) {
  for (const auto& [name, rows] : part) {
    if (name == table::KELM_Nummern) continue;  // the counter stands at 0 or 1
    auto wanted = whole.at(name).begin();
    for (const Row& row : rows) {
      wanted = std::find_if(wanted, whole.at(name).end(),
                            [&](const Row& other) { return IsSame(name, row, other); });
      ASSERT_NE(wanted, whole.at(name).end()) << failed << ": another row in " << name;
      ++wanted;
    }
  }
}

// Which routine the failure is told to come from, by what had been stored: the
// place in the road where the run stood.
struct Reached {
  bool contract, term, all_positions, act_value, attribute;
};

Reached ReachedBy(const std::map<std::string, std::vector<Row>>& rows) {
  const auto& contracts = rows.at(std::string(table::vv_Vertraege));
  Reached reached{};
  reached.contract = !contracts.empty();
  reached.term = !rows.at(std::string(table::vv_Vertragsstaende)).empty();
  reached.all_positions = rows.at(std::string(table::vv_Vertragspositionen)).size() == 2;
  reached.act_value = reached.contract && !contracts[0][field::AktValue].IsEmpty();
  reached.attribute = !rows.at(std::string(table::Adressmerkmale)).empty();
  return reached;
}

std::set<std::string> SourcesAt(const Reached& reached) {
  if (!reached.term) {
    // Up to the contract row also the checks and the tables.
    if (!reached.contract) return {"Probe", "modAPI", "modAPI.InitTables", "modAPI.CreateVandVS"};
    return {"modAPI.CreateVandVS"};
  }
  if (!reached.all_positions)
    return {"modAPI.GetNewPositions", "modAPI.WriteNewPositions", "Probe"};
  if (!reached.act_value) return {"modAPI.WriteActValues"};
  return {"modAPI.CreateAttribute"};
}

bool IsRestoring(const std::string& failed) {
  return failed.starts_with("FindOid Artikel") || failed.starts_with("SetCursorFlag") ||
         failed.starts_with("Indexes.SetCurrent Artikel");
}

class FailuresTest : public testing::Test {
 protected:
  struct Outcome {
    bool passed_unfailed = false;
    std::string failed;
  };

  // Runs with the nth operation failing.
  Outcome RunFailing(std::size_t nth, const std::map<std::string, std::vector<Row>>& whole) {
    ApiWorld world;
    Fill(world);
    const Value article_before = world.host.Table(table::Artikel)->Oid();
    std::string failed;
    std::optional<platform::Error> error;
    {
      FailingProbe probe(world.host, nth);
      error = ErrorOf([&] { world.Call(); });
      failed = probe.Failed();
    }
    const auto rows = AllRows(world);
    if (failed.empty()) {
      EXPECT_FALSE(error);
      return {true, {}};
    }
    const std::string what = "operation " + std::to_string(nth) + ", " + failed;
    ExpectPartOf(whole, rows, what);
    if (error) {
      ExpectRaised(*error, rows, world.screen.Messages(), what);
    } else {
      ExpectShown(world.screen.Messages(), rows, whole, what);
    }
    if (!IsRestoring(failed)) {
      EXPECT_EQ(Value(world.host.Table(table::Artikel)->Oid()), article_before) << what;
    }
    return {false, failed};
  }

  static void ExpectRaised(const platform::Error& error,
                           const std::map<std::string, std::vector<Row>>& rows,
                           const std::vector<ui::Message>& messages, const std::string& what) {
    const bool refused = error.Source() == "modAPI";
    if (refused) {
      // A failing look-up of the articles is shown, and then counts as a refusal.
      EXPECT_EQ(error.Number(), platform::ErrorNumber(0x80045001)) << what;
      ASSERT_EQ(messages.size(), 1u) << what;
      EXPECT_EQ(messages[0].title, "Fehler in modAPI.ArticlesExist") << what;
    } else if (messages.empty()) {
      // A step of the attribute that fails makes its last one fail with its own
      // error: there is no new row to store.
      const bool of_attribute = error.Source() == "modAPI.CreateAttribute";
      if (!of_attribute || error.Number() == platform::ErrorNumber(0x80049999)) {
        EXPECT_EQ(error.Number(), platform::ErrorNumber(0x80049999)) << what;
        EXPECT_EQ(error.Description(), "Probeweise gescheitert") << what;
      } else {
        EXPECT_EQ(error.Number(), embedded::Number(embedded::HostError::NoCurrentRow)) << what;
      }
    } else {
      // The alarm setting could not be read: shown, and the empty text is no number.
      ASSERT_EQ(messages.size(), 1u) << what;
      EXPECT_EQ(messages[0].title, "Fehler in modVV.ReadPersistVarSetting") << what;
      EXPECT_EQ(error.Number(), 13) << what;
      EXPECT_EQ(error.Source(), "modAPI.CreateVandVS") << what;
    }
    EXPECT_THAT(SourcesAt(ReachedBy(rows)), testing::Contains(error.Source())) << what;
  }

  // Without an error for the caller the failure was an alarm's or one of taking
  // over the records.
  static void ExpectShown(const std::vector<ui::Message>& messages,
                          const std::map<std::string, std::vector<Row>>& rows,
                          const std::map<std::string, std::vector<Row>>& whole,
                          const std::string& what) {
    // The attribute is the last step: a field of it may be missing in the row.
    ASSERT_EQ(messages.size(), 1u) << what;
    if (messages[0].title == "Fehler in CVV.NewContractDebitor") {
      EXPECT_TRUE(rows.at(std::string(table::vv_Vertraege)).empty()) << what;
      return;
    }
    EXPECT_THAT(messages[0].text,
                testing::AnyOf("Fehler &H80049999\r\n(Probeweise gescheitert)\r\nin "
                               "modVV.CreateCancellationAlarm",
                               "Fehler &H80049999\r\n(Probeweise gescheitert)\r\nin "
                               "modVV.CreateOpenAlarm"))
        << what;
    for (const std::string_view name :
         {table::vv_Vertragsstaende, table::vv_Vertragspositionen, table::Adressmerkmale}) {
      EXPECT_EQ(rows.at(std::string(name)).size(), whole.at(std::string(name)).size()) << what;
    }
  }
};

TEST_F(FailuresTest, OfEachOperationInTurnLeaveWhatWasStoredAndReachTheCaller) {
  ApiWorld untouched;
  Fill(untouched);
  untouched.Call();
  const auto whole = AllRows(untouched);
  ASSERT_EQ(untouched.Counts(), (std::vector<std::size_t>{1, 2, 1, 2, 1}));

  std::set<std::string> failed;
  std::size_t nth = 1;
  for (;; ++nth) {
    ASSERT_LT(nth, 2000u) << "the call never passes";
    const Outcome outcome = RunFailing(nth, whole);
    if (outcome.passed_unfailed) break;
    failed.insert(outcome.failed);
  }
  // The sweep went through all of it.
  for (const char* operation :
       {"StoreNew vv_Vertraege", "Store vv_Vertraege", "StoreNew vv_VertragsAktivitaeten",
        "StoreNew vv_Vertragsstaende", "Store vv_Vertragsstaende", "StoreNew vv_Vertragspositionen",
        "StoreNew Adressmerkmale", "StoreNew KELM_Nummern", "Store KELM_Nummern", "SeekKey Artikel",
        "SetValue vv_Vertragspositionen"}) {
    EXPECT_TRUE(failed.contains(operation)) << operation;
  }
}

class Failures : public support::ApiTest {
 protected:
  static platform::Error HostError(std::uint32_t number) {
    return platform::Error(platform::ErrorNumber(number), "Abgelehnt", "Tessarin");
  }
};

TEST_F(Failures, AnAttributeThatTheHostAnswersThisWayCountsAsSet) {
  world.Article();
  FailingProbe probe(world.host, 1, "StoreNew", std::string(table::Adressmerkmale),
                     HostError(0x80041096));
  EXPECT_FALSE(ErrorOf([&] { world.Call(); }));
  EXPECT_TRUE(probe.HasFailed());
  EXPECT_EQ(world.Counts(), (std::vector<std::size_t>{1, 0, 1, 1, 0}));
}

TEST_F(Failures, AnyOtherAnswerIsRaisedAndTheContractStays) {
  world.Article();
  FailingProbe probe(world.host, 1, "StoreNew", std::string(table::Adressmerkmale),
                     HostError(0x80041097));
  const auto error = ErrorOf([&] { world.Call(); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Number(), platform::ErrorNumber(0x80041097));
  EXPECT_EQ(error->Description(), "Abgelehnt");
  EXPECT_EQ(error->Source(), "modAPI.CreateAttribute");
  EXPECT_EQ(world.Counts(), (std::vector<std::size_t>{1, 0, 1, 1, 0}));
  EXPECT_EQ(world.Rows(table::vv_Vertraege)[0][field::AktValue], Value(18.0));
}

TEST_F(Failures, AFailingFieldOfTheAttributeIsPassedOverAndRaisedAtTheEnd) {
  world.Article();
  FailingProbe probe(world.host, 2, "SetValue", std::string(table::Adressmerkmale),
                     HostError(0x80041097));
  const auto error = ErrorOf([&] { world.Call(); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Source(), "modAPI.CreateAttribute");
  const auto attributes = world.Rows(table::Adressmerkmale);
  ASSERT_EQ(attributes.size(), 1u) << "the row was stored without the field";
  EXPECT_TRUE(attributes[0][field::Merkmal].IsEmpty());
  EXPECT_EQ(attributes[0][field::Wert], Value("A"));
}

TEST_F(Failures, ATextThatIsTooLongStoresNothing) {
  world.Article();
  world.contract->Bezeichnung = std::string(256, 'x');
  const auto error = ErrorOf([&] { world.Call(); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Source(), "modAPI.CreateVandVS");
  EXPECT_EQ(world.Counts(), std::vector<std::size_t>(5, 0));
  world.contract->Bezeichnung = "kurz";
  world.Call();
  EXPECT_EQ(world.Counts(), (std::vector<std::size_t>{1, 0, 1, 1, 1}))
      << "the row left unstored does no harm to the next call";
}

TEST_F(Failures, ARepeatedCallGetsANewNumber) {
  world.Article();
  {
    FailingProbe probe(world.host, 1, "StoreNew", std::string(table::vv_Vertraege),
                       HostError(0x80041097));
    EXPECT_TRUE(ErrorOf([&] { world.Call(); }));
  }
  world.Call();
  const auto contracts = world.Rows(table::vv_Vertraege);
  ASSERT_EQ(contracts.size(), 1u);
  EXPECT_EQ(contracts[0][field::Vertragnummer], Value("00000002"));
}

TEST_F(Failures, AnApplicationWithoutADatabaseIsRaisedAsItIs) {
  FailingProbe probe(world.host, 1, "CurrentDb", "", HostError(0x80041010));
  const auto error = ErrorOf([&] { world.Call(); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Source(), "Tessarin");
  EXPECT_EQ(ErrorOf([&] {
              world.entry.NewContractDebitor(nullptr, world.contract, world.articles);
            })->Number(),
            91);
}

}  // namespace
}  // namespace pactora::api
