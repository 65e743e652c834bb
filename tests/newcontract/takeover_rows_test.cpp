// Taking over a running contract: the rows that are written and their order.

#include "newcontract/dialog_world.h"
#include "support/failing_probe.h"

namespace pactora::newcontract {
namespace {

using testing::ElementsAre;

// Writes down which rows are stored, in order.
class StoreLog final : public embedded::OperationProbe {
 public:
  explicit StoreLog(embedded::Host& host) : host_(host) { host_.SetProbe(this); }
  ~StoreLog() override { host_.SetProbe(nullptr); }
  void Before(std::string_view operation, std::string_view name) override {
    if (operation != "StoreNew" && operation != "Store") return;
    log.push_back(std::string(operation) + " " + std::string(name));
  }
  std::vector<std::string> log;

 private:
  embedded::Host& host_;
};

class Takeover : public DialogTest {
 protected:
  // Opens the type with one position and picks the row of the list.
  void TakeOver(const Values& type, Date begin, std::int32_t row) {
    AddPosition(AddType(type));
    Open();
    dialog.Pick("DTPVertragBeginn", begin);
    dialog.Check("chkOldContract", true);
    dialog.Choose("lstInvoices", row);
  }
  std::vector<std::string> Terms() {
    std::vector<std::string> lines;
    for (const Row& row : world.Rows(table::vv_Vertragsstaende)) {
      EXPECT_EQ(Shown(row[field::AlteFakturierung]), "True");
      EXPECT_EQ(Shown(row[field::NaechsteRechnungStr]),
                FormatDate(row[field::NaechsteRechnung].AsDate(), "yyyyMMdd"));
      lines.push_back(Line(row, {field::LaufTyp, field::LaufzeitStartStr, field::LaufzeitEndeStr,
                                 field::ZahlungsperiodeStr, field::NaechsteRechnungStr,
                                 field::Value, field::Rabattprozent}));
    }
    return lines;
  }
  std::string ContractLine() {
    return Line(Contract(),
                {field::VertragEnde, field::KuendfristDatum, field::AktZahlungsperiode,
                 field::AktZahlungsperiodeStr, field::AktValue, field::AktNaechsteRechnungStr});
  }
};

TEST_F(Takeover, NeedsAChosenPeriod) {
  TakeOver(Quarterly(), Day(1, 1, 2023), 1);
  dialog.Choose("lstInvoices", -1);
  world.screen.ExpectMessage(Plain("Wählen Sie den Zeitraum aus, der zuletzt fakturiert wurde"));
  SaveRefused();
  EXPECT_EQ(world.Count(table::vv_Vertraege), 0u);
}

TEST_F(Takeover, WithinTheFirstTermWritesTheRenewalThatTookEffect) {
  world.module.gAppointment4AllContracts = true;
  TakeOver(Quarterly(), Day(1, 1, 2023), 1);
  world.module.gAppointment4AllContracts = true;
  dialog.Pick("DTPGeschlossenAm", std::nullopt);
  EXPECT_TRUE(dialog.TypeDiscount("10").Done());
  {
    StoreLog stores(world.host);
    Save();
    EXPECT_THAT(stores.log,
                ElementsAre("StoreNew KELM_Nummern", "Store KELM_Nummern", "StoreNew vv_Vertraege",
                            "StoreNew vv_VertragsAktivitaeten", "Store vv_Vertraege",
                            "StoreNew vv_Vertragsstaende", "StoreNew vv_Vertragspositionen",
                            "Store vv_Vertraege", "StoreNew vv_Vertragsstaende",
                            "StoreNew vv_Vertragspositionen", "Store vv_Vertragsstaende",
                            "Store vv_Vertraege", "StoreNew vv_VertragsAktivitaeten",
                            "Store vv_Vertraege"));
  }
  EXPECT_EQ(form.mlVSCount, 2);
  EXPECT_THAT(Terms(), ElementsAre("1 20230101 20231231 vierteljährlich 20230701 89,99 10",
                                   "2 20240101 20241231 halbjährlich 20240101 107,98 10"));
  EXPECT_EQ(ContractLine(), "31.12.2024 01.10.2024 3 vierteljährlich 89,99 20230701");

  const std::vector<Row> positions = world.Rows(table::vv_Vertragspositionen);
  ASSERT_EQ(positions.size(), 2u);
  for (const Row& position : positions) {
    EXPECT_EQ(
        Line(position, {field::Artikel, field::Row, field::Anzahl, field::Erloeskonto,
                        field::PreisM60, field::Preis, field::Rabattprozent, field::Positionsnummer,
                        field::Gruppierung, field::Gruppierungsposition}),
        "Wartung Server 001 2 8400 500 120 10 (leer) (leer) (leer)");
  }
  EXPECT_EQ(Line(positions[0], {field::Nettopreis, field::NettoOhneRabatt}), "27 30");
  EXPECT_EQ(Line(positions[1], {field::Nettopreis, field::NettoOhneRabatt}), "53,99 59,99");

  const std::vector<Row> appointments = world.Rows(table::vv_VertragsAktivitaeten);
  ASSERT_EQ(appointments.size(), 2u);
  EXPECT_EQ(Line(appointments[1], {field::Datum, field::Betreff}),
            "20.08.2024 09:00:00 Kündigungsfrist läuft am  01.10.2024  aus");
  EXPECT_EQ(Shown(Contract()[field::AlarmOID]), std::to_string(appointments[1].oid));
}

// A renewal that follows the last invoiced period stands with the first term's
// amount until its own sum is known; one beside an open first term with none.
TEST_F(Takeover, AFailureBeforeTheSumLeavesTheProvisionalAmount) {
  for (const auto& [row, amount] : {std::pair{3, "99,99"}, std::pair{1, "(leer)"}}) {
    support::ContractWorld other;
    other.Add(table::vv_Definitionspositionen, Position(),
              other.Add(table::vv_Vertragsdefinitionen, Quarterly()));
    Dialog second(other);
    ASSERT_TRUE(second.Open());
    second.Pick("DTPVertragBeginn", Day(1, 1, 2023));
    second.Check("chkOldContract", true);
    second.Choose("lstInvoices", row);
    support::FailingProbe probe(other.host, 2, "StoreNew", "vv_Vertragspositionen",
                                platform::Error(5, "gesperrt"));
    second.Click("cmdOK");
    EXPECT_EQ(second.form.mlVSCount, 2);
    EXPECT_EQ(Shown(other.Rows(table::vv_Vertragsstaende).at(1)[field::Value]), amount);
  }
}

TEST_F(Takeover, OfTheLastPeriodGoesOnWithTheRenewal) {
  TakeOver(Quarterly({{field::VerlaengerungsZahlungsperiode, 3}}), Day(1, 1, 2023), 3);
  StoreLog stores(world.host);
  Save();
  EXPECT_THAT(Terms(), ElementsAre("1 20230101 20231231 vierteljährlich 99991231 99,99 0",
                                   "2 20240101 20241231 vierteljährlich 20240101 60 0"));
  EXPECT_EQ(ContractLine(), "31.12.2024 01.10.2024 3 vierteljährlich 60 20240101");
  EXPECT_EQ(world.Count(table::vv_VertragsAktivitaeten), 0u);
}

TEST_F(Takeover, OfARenewalPeriodWritesEachTermBeforeIt) {
  world.clock.Set(Day(15, 3, 2026));
  TakeOver(Quarterly({{field::VerlaengerungsZahlungsperiode, 3}}), Day(1, 1, 2023), 11);
  EXPECT_EQ(form.lstInvoices.ItemText(11), "01.10.2025 - 31.12.2025");
  EXPECT_TRUE(dialog.TypeDiscount("10").Done());
  dialog.Check("chkRabattNurErsteLaufzeit", true);
  Save();
  EXPECT_EQ(form.mlVSCount, 4);
  EXPECT_THAT(Terms(), ElementsAre("1 20230101 20231231 vierteljährlich 99991231 89,99 10",
                                   "2 20240101 20241231 vierteljährlich 99991231 60 0",
                                   "2 20250101 20251231 vierteljährlich 99991231 60 0",
                                   "2 20260101 20261231 vierteljährlich 20260101 60 0"));
  EXPECT_EQ(ContractLine(), "31.12.2026 01.10.2026 3 vierteljährlich 60 20260101");
  EXPECT_EQ(Shown(Contract()[field::RabattNurErsteLaufzeit]), "True");
  const std::vector<Row> positions = world.Rows(table::vv_Vertragspositionen);
  EXPECT_EQ(Line(positions.at(0), {field::Nettopreis, field::Rabattprozent}), "27 10");
  EXPECT_EQ(Line(positions.at(3), {field::Nettopreis, field::Rabattprozent}), "30 0");
}

TEST_F(Takeover, KeepsTheInvoiceThatAnEarlierRenewalWaitsFor) {
  world.clock.Set(Day(15, 12, 2025));
  TakeOver(Quarterly({{field::VerlaengerungsZahlungsperiode, 3},
                      {field::VerlKuendigungsfristEinh, "Wochen"},
                      {field::VerlKuendigungsfrist, 6}}),
           Day(1, 1, 2023), 5);
  Save();
  EXPECT_THAT(Terms(), ElementsAre("1 20230101 20231231 vierteljährlich 99991231 99,99 0",
                                   "2 20240101 20241231 vierteljährlich 20240701 60 0",
                                   "2 20250101 20251231 vierteljährlich 20250101 60 0"));
  EXPECT_EQ(ContractLine(), "31.12.2025 20.11.2025 3 vierteljährlich 60 20240701");
}

TEST_F(Takeover, ARenewalPeriodWithoutAPriceOfItsOwnIsFree) {
  TakeOver(Quarterly({{field::VerlaengerungsZahlungsperiode, 4}}), Day(1, 1, 2023), 3);
  Save();
  EXPECT_THAT(Terms(), ElementsAre("1 20230101 20231231 vierteljährlich 99991231 99,99 0",
                                   "2 20240101 20241231 einmalig 20240101 0 0"));
  EXPECT_EQ(Line(world.Rows(table::vv_Vertragspositionen).at(1),
                 {field::Nettopreis, field::NettoOhneRabatt, field::PreisM6}),
            "0 0 59,99");
}

TEST_F(Takeover, OfATypeThatEndsWritesItsOneTerm) {
  TakeOver(Once({{field::WorkflowID, "W9"}}), Day(1, 2, 2024), 0);
  form.chkRabattNurErsteLaufzeit.SetChecked(true);
  dialog.Pick("DTPGeschlossenAm", std::nullopt);
  Save();
  EXPECT_EQ(form.mlVSCount, 1);
  EXPECT_THAT(Terms(), ElementsAre("(leer) 20240201 20240731 vierteljährlich 20240501 99,99 0"));
  EXPECT_EQ(ContractLine(), "31.07.2024 (leer) 3 vierteljährlich 99,99 20240501");
  EXPECT_EQ(Line(Contract(), {field::VerlaengerungsWorkflowID, field::RabattNurErsteLaufzeit}),
            "(leer) (leer)");
  EXPECT_EQ(Shown(world.Rows(table::vv_Vertragspositionen).at(0)[field::Positionsnummer]),
            "(leer)");
  const std::vector<Row> appointments = world.Rows(table::vv_VertragsAktivitaeten);
  ASSERT_EQ(appointments.size(), 2u);
  EXPECT_EQ(Shown(appointments[0][field::Betreff]), "Vertrag läuft am  31.07.2024  aus");
  EXPECT_EQ(Shown(Contract()[field::AlarmOID]), std::to_string(appointments[1].oid));
}

TEST_F(Takeover, OfAnUnlimitedTypeGoesOnAfterTheChosenPeriod) {
  TakeOver(Unlimited({{field::RechnungWann, 1}}), Day(1, 1, 2024), 1);
  world.module.gAppointment4AllContracts = true;
  Save();
  EXPECT_EQ(form.mlVSCount, 1);
  EXPECT_EQ(ContractLine(), "30.12.1899 (leer) 3 vierteljährlich 99,99 20241001");
  EXPECT_THAT(Terms(), ElementsAre("(leer) 20240101 18991230 vierteljährlich 20241001 99,99 0"));
  EXPECT_EQ(world.Count(table::vv_VertragsAktivitaeten), 0u);
}

TEST_F(Takeover, OfAnUnknownKindWritesNothing) {
  TakeOver(Unlimited({{field::Art, 4}}), Day(1, 1, 2024), 0);
  SaveRefused();
  EXPECT_EQ(world.Count(table::vv_Vertraege), 0u);
}

class BeyondTheCalendar : public Takeover {
 protected:
  void SaveStoresNothing() {
    world.screen.ExpectMessage(Plain(
        "Fehler &H5\r\n(" + platform::RuntimeErrorText(platform::RuntimeError::InvalidArgument) +
        ")\r\nin vv_FNewContract.cmdOK_Click"));
    SaveRefused();
    EXPECT_EQ(world.Count(table::vv_Vertraege), 0u);
    EXPECT_EQ(world.Count(table::KELM_Nummern), 0u);
  }
};

TEST_F(BeyondTheCalendar, ARenewalStoresNothing) {
  TakeOver(Quarterly({{field::Verlaengerungsdauer, 100000}}), Day(1, 1, 2023), 3);
  SaveStoresNothing();
}

TEST_F(BeyondTheCalendar, AnAlarmStoresNothing) {
  TakeOver(Once(), Day(1, 2, 2024), 0);
  world.module.gAlarmWochenEnde = 200000;
  SaveStoresNothing();
}

}  // namespace
}  // namespace pactora::newcontract
