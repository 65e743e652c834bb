// Each operation of the host fails in turn while OK saves: what was stored stays,
// a message says what happened, the dialog stays open, and a second OK writes a
// complete new contract. A discount for the first term alone has ended with the
// first renewal that was begun, for the second OK too.

#include "definitions/vv_CPosition.h"
#include "newcontract/dialog_world.h"
#include "support/fault_sweep.h"

namespace pactora::newcontract {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::SizeIs;
using testing::StartsWith;

struct SaveCase {
  const char* name;
  Values type;
  Date begin;
  Date today;
  std::int32_t row = -1;  // of the list, for a takeover
  bool from_memory = false;
  bool renews = false;  // renewals are written

  friend std::ostream& operator<<(std::ostream& out, const SaveCase& c) { return out << c.name; }
};

// The contract stored last with all below it, but for Oids and numbers.
std::vector<std::string> LastContract(support::ContractWorld& world) {
  std::vector<std::string> lines;
  const std::function<void(std::string_view, const Row&)> add = [&](std::string_view name,
                                                                    Row row) {
    row.cells[std::string(field::Vertragnummer)] = row.cells[std::string(field::AlarmOID)] = {};
    lines.push_back(std::string(name) + ": " + All(row));
    for (const auto& [child, parent] :
         {std::pair{table::vv_Vertragsstaende, table::vv_Vertraege},
          std::pair{table::vv_Vertragspositionen, table::vv_Vertragsstaende},
          std::pair{table::vv_VertragsAktivitaeten, table::vv_Vertraege}}) {
      if (parent != name) continue;
      for (const Row& below : world.Rows(child)) {
        if (below.parent == row.oid) add(child, below);
      }
    }
  };
  add(table::vv_Vertraege, world.Rows(table::vv_Vertraege).back());
  return lines;
}

std::size_t CountAll(support::ContractWorld& world) {
  std::size_t rows = 0;
  for (const std::string_view name :
       {table::vv_Vertraege, table::vv_Vertragsstaende, table::vv_Vertragspositionen,
        table::vv_VertragsAktivitaeten, table::Adressmerkmale}) {
    rows += world.Count(name);
  }
  return rows;
}

class SaveFailures : public testing::TestWithParam<SaveCase> {
 protected:
  static void Prepare(support::ContractWorld& world, Dialog& dialog, const char* discount = "10") {
    const SaveCase& c = GetParam();
    world.clock.Set(c.today);
    const store::Oid type = world.Add(
        table::vv_Vertragsdefinitionen,
        With(c.type, {{field::SetztMerkmal, "Wartung"}, {field::ErfordertMerkmal, "Kunde"}}));
    world.Add(table::vv_Definitionspositionen, Position(), type);
    world.Add(table::vv_Definitionspositionen, Position({{field::ArtikelID, "weg"}}), type);
    world.Add(table::Adressmerkmale, {{field::Merkmal, "Kunde"}, {field::Wert, ""}}, world.address);
    ASSERT_TRUE(dialog.Open());
    world.module.gAppointment4AllContracts = true;
    if (c.from_memory) Remember(world, dialog.form);
    if (dialog.form.txtVertragnummer.Enabled()) dialog.Paste("txtVertragnummer", "K1");
    dialog.Pick("DTPVertragBeginn", c.begin);
    dialog.Pick("DTPGeschlossenAm", std::nullopt);
    EXPECT_TRUE(dialog.TypeDiscount(discount).Done());
    if (c.row >= 0) {
      dialog.Check("chkOldContract", true);
      dialog.Choose("lstInvoices", c.row);
      dialog.form.chkRabattNurErsteLaufzeit.SetChecked(true);
    }
  }

  static void Remember(support::ContractWorld& world, frmNewContract& form) {
    definitions::vv_CDefinition& type = HoldChange(world, form);
    type.Dauer = type.Verlaengerungsdauer = 12;
    type.Zahlungsperiode = type.VerlaengerungsZahlungsperiode = 3;
    type.SetztMerkmal = "Wartung";
    auto position = std::make_shared<definitions::vv_CPosition>();
    position->ArtikelID = "A1";
    world.module.gPositions = std::make_shared<shell::PositionCollection>(2, position);
    form.InitAgain();
  }
};

TEST_P(SaveFailures, LeaveTheDialogOpenForACompleteSecondSave) {
  std::vector<std::string> complete;
  std::vector<std::string> without_discount;
  for (const char* discount : {"0", "10"}) {
    support::ContractWorld world;
    Dialog dialog(world);
    Prepare(world, dialog, discount);
    dialog.Click("cmdOK");
    EXPECT_TRUE(dialog.form.mbOK);
    without_discount = std::exchange(complete, LastContract(world));
  }
  bool ended = false;  // the discount
  for (support::FaultSweep sweep(support::FaultSweep::kSparse); sweep.Next();) {
    support::ContractWorld world;
    Dialog dialog(world);
    Prepare(world, dialog);
    EXPECT_FALSE(sweep.Run(world.host, [&] { dialog.Click("cmdOK"); }));
    if (!sweep.Fails()) {
      EXPECT_GT(sweep.Operations(), 100u);
      EXPECT_EQ(LastContract(world), complete);
      continue;
    }
    ASSERT_THAT(world.screen.Messages(), SizeIs(1));
    const ui::Message message = world.screen.Messages()[0];
    EXPECT_THAT(message.text, StartsWith("Fehler &H80049999\r\n(Probeweise gescheitert)\r\nin "));
    EXPECT_EQ(message.style, 0);
    EXPECT_EQ(message.title, "Pactora");
    if (dialog.form.mbOK) {
      // Only an appointment may be missing.
      EXPECT_THAT(message.text, HasSubstr("in modVV.Create"));
      continue;
    }
    if (!GetParam().from_memory || message.text.find("SaveFromMemory") == std::string::npos) {
      EXPECT_THAT(message.text, EndsWith("in vv_FNewContract.cmdOK_Click"));
    }
    EXPECT_TRUE(dialog.form.Visible());
    const std::size_t stored = CountAll(world);
    dialog.Click("cmdOK");
    ASSERT_TRUE(dialog.form.mbOK);
    ASSERT_THAT(world.screen.Messages(), SizeIs(1));
    const std::vector<std::string> second = LastContract(world);
    ended = ended || second != complete;
    ASSERT_EQ(second, ended ? without_discount : complete);
    // The contract with all below it, and its attribute, beside what was there.
    ASSERT_EQ(CountAll(world), stored + complete.size() + 1);
  }
  EXPECT_EQ(ended, GetParam().renews);
}

INSTANTIATE_TEST_SUITE_P(
    Roads, SaveFailures,
    testing::Values(
        SaveCase{"NewRenewing", Quarterly(), Day(1, 4, 2024), Day(15, 3, 2024)},
        SaveCase{"NewOnce", Once(), Day(1, 4, 2024), Day(15, 3, 2024)},
        SaveCase{"NewUnlimited", Unlimited(), Day(1, 4, 2024), Day(15, 3, 2024)},
        SaveCase{"NewLiability", Once({{field::Typ, "K"}}), Day(1, 4, 2024), Day(15, 3, 2024)},
        SaveCase{"NewFromMemory", Quarterly(), Day(1, 4, 2024), Day(15, 3, 2024), -1, true},
        SaveCase{"TakeoverWithinFirstTerm", Quarterly(), Day(1, 1, 2023), Day(15, 3, 2024), 1,
                 false, true},
        SaveCase{"TakeoverOfThreeTerms", Quarterly(), Day(1, 1, 2023), Day(15, 3, 2025), 5, false,
                 true},
        SaveCase{"TakeoverOnce", Once(), Day(1, 2, 2024), Day(15, 3, 2024), 0},
        SaveCase{"TakeoverUnlimited", Unlimited(), Day(1, 1, 2024), Day(15, 3, 2024), 0},
        SaveCase{"TakeoverFromMemory", Quarterly(), Day(1, 1, 2023), Day(15, 3, 2024), 3, true,
                 true}),
    [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace pactora::newcontract
