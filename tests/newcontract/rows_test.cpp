// The rows that each road writes, and their order. Which terms, invoices and dates
// a takeover has is its plan's, proven where it is made.

#include "newcontract/dialog_world.h"
#include "support/fault_sweep.h"

namespace pactora::newcontract {
namespace {

using testing::ElementsAre;

// What is chosen and entered for an unsigned contract.
struct Entered {
  Values type;
  Date begin;
  std::optional<std::int32_t> row = {};  // of the list, when taken over
  Date today = Day(15, 3, 2024);
  const char* discount = "0";
  bool first_term_only = false;  // the discount
};

// The dialog in a company with that type and one position of it.
struct Conclusion {
  explicit Conclusion(const Entered& entered) {
    world.clock.Set(entered.today);
    world.Add(table::vv_Definitionspositionen, Position(),
              world.Add(table::vv_Vertragsdefinitionen, entered.type));
    EXPECT_TRUE(dialog.Open());
    dialog.Pick("DTPVertragBeginn", entered.begin);
    dialog.Pick("DTPGeschlossenAm", std::nullopt);
    EXPECT_TRUE(dialog.TypeDiscount(entered.discount).Done());
    dialog.Check("chkOldContract", entered.row.has_value());
    if (entered.row) dialog.Choose("lstInvoices", *entered.row);
    dialog.form.chkRabattNurErsteLaufzeit.SetChecked(entered.first_term_only);
  }
  ~Conclusion() { EXPECT_THAT(world.screen.Problems(), testing::IsEmpty()); }

  support::ContractWorld world;
  Dialog dialog{world};
};

// The contract, then its terms, its positions and its appointments.
std::vector<std::string> Written(support::ContractWorld& world) {
  std::vector<std::string> lines;
  const auto add = [&](std::string_view name, std::initializer_list<std::string_view> fields) {
    for (std::string& line : Lines(world, name, fields)) lines.push_back(std::move(line));
  };
  add(table::vv_Vertraege,
      {field::GeschlossenAm, field::VertragEnde, field::KuendfristDatum, field::AktZahlungsperiode,
       field::AktValue, field::AktNaechsteRechnungStr, field::VerlaengerungsWorkflowID,
       field::RabattNurErsteLaufzeit});
  add(table::vv_Vertragsstaende,
      {field::LaufTyp, field::LaufzeitStartStr, field::LaufzeitEndeStr, field::ZahlungsperiodeStr,
       field::NaechsteRechnung, field::Value, field::Rabattprozent, field::RechnungWann,
       field::AlteFakturierung});
  add(table::vv_Vertragspositionen,
      {field::Artikel, field::Row, field::Erloeskonto, field::PreisM60, field::Positionsnummer,
       field::Gruppierung, field::Nettopreis, field::NettoOhneRabatt, field::Rabattprozent});
  add(table::vv_VertragsAktivitaeten, {field::Datum, field::Betreff, field::Verantwortlich});
  return lines;
}

TEST(Rows, OfEachRoadAreThese) {
  const std::string fresh = "Wartung Server 001 8400 500 1 Basis 30 30 0";
  const std::string item = "Wartung Server 001 8400 500 (leer) (leer) ";
  const std::string unsigned_yet =
      "17.03.2024 09:00:00 Vertragsabschluss ist noch nicht erfolgt? Anna";
  const Values in_arrears = {{field::RechnungWann, 1}, {field::WorkflowID, "W9"}};
  const Values quarters = {{field::VerlaengerungsZahlungsperiode, 3}};
  const Values no_price = {{field::VerlaengerungsZahlungsperiode, 4}};
  const struct {
    const char* name;
    bool all_alarms;
    Entered entered;
    std::vector<std::string> written;
  } cases[] = {
      {"new",
       true,
       {Quarterly(), Day(1, 2, 2024)},
       {"30.12.1899 31.01.2025 21.12.2024 3 99,99 20240201 (leer) (leer)",
        "(leer) 20240201 20250131 vierteljährlich 01.02.2024 99,99 0 0 (leer)", fresh,
        "09.11.2024 09:00:00 Kündigungsfrist läuft am  21.12.2024  aus Anna", unsigned_yet}},
      {"new, ending",
       false,
       {Once(in_arrears), Day(1, 2, 2024), {}, Day(15, 3, 2024), "0", true},
       {"30.12.1899 31.07.2024 (leer) 3 99,99 20240501 W9 (leer)",
        "(leer) 20240201 20240731 vierteljährlich 01.05.2024 99,99 0 1 (leer)", fresh,
        "03.07.2024 09:00:00 Vertrag läuft am  31.07.2024  aus Anna", unsigned_yet}},
      {"new, without an end",
       true,
       {Unlimited(), Day(1, 2, 2024)},
       {"30.12.1899 30.12.1899 (leer) 3 99,99 20240201 (leer) (leer)",
        "(leer) 20240201 18991230 vierteljährlich 01.02.2024 99,99 0 0 (leer)", fresh,
        unsigned_yet}},
      {"taken over within the first term, with the renewal that took effect",
       true,
       {Quarterly(), Day(1, 1, 2023), 1, Day(15, 3, 2024), "10"},
       {"30.12.1899 31.12.2024 01.10.2024 3 89,99 20230701 (leer) (leer)",
        "1 20230101 20231231 vierteljährlich 01.07.2023 89,99 10 0 True",
        "2 20240101 20241231 halbjährlich 01.01.2024 107,98 10 0 True", item + "27 30 10",
        item + "53,99 59,99 10", unsigned_yet,
        "20.08.2024 09:00:00 Kündigungsfrist läuft am  01.10.2024  aus Anna"}},
      {"taken over in a renewal, with each term before it",
       false,
       {Quarterly(quarters), Day(1, 1, 2023), 7, Day(15, 3, 2025), "10", true},
       {"30.12.1899 31.12.2025 01.10.2025 3 60 20250101 (leer) True",
        "1 20230101 20231231 vierteljährlich 31.12.9999 89,99 10 0 True",
        "2 20240101 20241231 vierteljährlich 31.12.9999 60 0 0 True",
        "2 20250101 20251231 vierteljährlich 01.01.2025 60 0 0 True", item + "27 30 10",
        item + "30 30 0", item + "30 30 0",
        "17.03.2025 09:00:00 Vertragsabschluss ist noch nicht erfolgt? Anna"}},
      {"taken over into a renewal without a price for its period",
       false,
       {Quarterly(no_price), Day(1, 1, 2023), 3},
       {"30.12.1899 31.12.2024 01.10.2024 4 0 20240101 (leer) (leer)",
        "1 20230101 20231231 vierteljährlich 31.12.9999 99,99 0 0 True",
        "2 20240101 20241231 einmalig 01.01.2024 0 0 0 True", item + "30 30 0", item + "0 0 0",
        unsigned_yet}},
      {"taken over, ending",
       false,
       {Once(in_arrears), Day(1, 1, 2024), 0, Day(15, 3, 2024), "0", true},
       {"30.12.1899 30.06.2024 (leer) 3 99,99 20240701 (leer) (leer)",
        "(leer) 20240101 20240630 vierteljährlich 01.07.2024 99,99 0 1 True", item + "30 30 0",
        "02.06.2024 09:00:00 Vertrag läuft am  30.06.2024  aus Anna", unsigned_yet}},
      {"taken over, without an end",
       true,
       {Unlimited(in_arrears), Day(1, 1, 2024), 1},
       {"30.12.1899 30.12.1899 (leer) 3 99,99 20241001 (leer) (leer)",
        "(leer) 20240101 18991230 vierteljährlich 01.10.2024 99,99 0 1 True", item + "30 30 0",
        unsigned_yet}}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    Conclusion road(c.entered);
    road.world.module.gAppointment4AllContracts = c.all_alarms;
    road.dialog.Click("cmdOK");
    EXPECT_EQ(Written(road.world), c.written);
    EXPECT_EQ(road.dialog.form.mlVSCount,
              static_cast<std::int32_t>(road.world.Count(table::vv_Vertragsstaende)));
    EXPECT_EQ(Lines(road.world, table::vv_Vertraege, {field::AlarmOID}).at(0),
              std::to_string(road.world.Rows(table::vv_VertragsAktivitaeten).back().oid));
  }
}

// Which rows were stored, in order.
std::vector<std::string> Stores(const support::OperationLog& log) {
  std::vector<std::string> stores;
  for (const std::string& operation : log.Seen())
    if (operation.starts_with("Store")) stores.push_back(operation);
  return stores;
}

TEST(Rows, OfATakeoverAreStoredInThisOrder) {
  Conclusion road({Quarterly(), Day(1, 1, 2023), 1});
  road.world.module.gAppointment4AllContracts = true;
  const support::OperationLog log(road.world.host);
  road.dialog.Click("cmdOK");
  EXPECT_THAT(
      Stores(log),
      ElementsAre("StoreNew KELM_Nummern", "Store KELM_Nummern", "StoreNew vv_Vertraege",
                  "StoreNew vv_VertragsAktivitaeten", "Store vv_Vertraege",
                  "StoreNew vv_Vertragsstaende", "StoreNew vv_Vertragspositionen",
                  "Store vv_Vertraege", "StoreNew vv_Vertragsstaende",
                  "StoreNew vv_Vertragspositionen", "Store vv_Vertragsstaende",
                  "Store vv_Vertraege", "StoreNew vv_VertragsAktivitaeten", "Store vv_Vertraege"));
}

// A renewal that follows the last invoiced period stands with the first term's
// amount until its own sum is known; one beside an open first term with none.
TEST(Rows, StandWithAProvisionalAmountAfterAFailureBeforeTheSum) {
  for (const auto& [row, amount] : {std::pair{3, "99,99"}, std::pair{1, "(leer)"}}) {
    Conclusion road({Quarterly(), Day(1, 1, 2023), row});
    support::FailingProbe probe(road.world.host, 2, "StoreNew", "vv_Vertragspositionen",
                                platform::Error(5, "gesperrt"));
    road.world.screen.ExpectMessage(Failure("5", "gesperrt"));
    road.dialog.Click("cmdOK");
    EXPECT_EQ(road.dialog.form.mlVSCount, 2);
    EXPECT_EQ(Lines(road.world, table::vv_Vertragsstaende, {field::Value}).at(1), amount);
  }
}

TEST(TakeoverRefused, StoresNothing) {
  const ui::Message beyond_the_calendar =
      Failure("5", platform::RuntimeErrorText(platform::RuntimeError::InvalidArgument));
  const struct {
    const char* name;
    Values type;
    std::int32_t row;
    std::optional<ui::Message> message;
  } cases[] = {{"no period chosen", Quarterly(), -1,
                Plain("Wählen Sie den Zeitraum aus, der zuletzt fakturiert wurde")},
               {"unknown kind", Unlimited({{field::Art, 4}}), 0, std::nullopt},
               {"renewal beyond the calendar", Quarterly({{field::Verlaengerungsdauer, 100000}}), 3,
                beyond_the_calendar}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    Conclusion road({c.type, Day(1, 1, 2023), c.row});
    if (c.message) road.world.screen.ExpectMessage(*c.message);
    road.dialog.Click("cmdOK");
    EXPECT_TRUE(road.dialog.IsOpen());
    EXPECT_EQ(road.world.Count(table::vv_Vertraege), 0u);
    EXPECT_EQ(road.world.Count(table::KELM_Nummern), 0u);
  }
}

}  // namespace
}  // namespace pactora::newcontract
