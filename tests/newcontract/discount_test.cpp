// The contract start with its invoice periods, and the discount box.

#include "newcontract/dialog_world.h"

namespace pactora::newcontract {
namespace {

using testing::ElementsAre;

constexpr char kInvalid[] = "Ungültiger Rabatt!\r\nGeben Sie einen Rabatt zwischen 0 und 99 ein!";
constexpr char kTooLarge[] = "Rabatt darf nicht größer 99% sein!";

class ContractStart : public DialogTest {
 protected:
  // The list for running contracts: enabled, visible, colour, chosen row.
  void ExpectList(bool offered) {
    EXPECT_EQ(form.lstInvoices.Enabled(), offered);
    EXPECT_EQ(form.lstInvoices.Visible(), offered);
    EXPECT_EQ(form.lstInvoices.BackColor(), offered ? 0x80000005u : 0x8000000Fu);
    EXPECT_EQ(form.lstInvoices.ListIndex(), offered ? 0 : -1);
  }
};

TEST_F(ContractStart, MovesWhatDependsOnIt) {
  AddType(Quarterly({{field::VerlaengerungsZahlungsperiode, 12}}));
  world.SetVariable("g_DateFormat", "yyyy/MM/dd");
  Open();
  dialog.Check("chkOldContract", true);
  ExpectList(/*offered=*/true);
  dialog.Pick("DTPVertragBeginn", Day(1, 3, 2023));
  EXPECT_THAT(
      dialog.Items("lstInvoices"),
      ElementsAre("2023/03/01 - 2023/05/31", "2023/06/01 - 2023/08/31", "2023/09/01 - 2023/11/30",
                  "2023/12/01 - 2024/02/29", "2024/03/01 - 2025/02/28"));
  EXPECT_FALSE(form.chkOldContract.Checked());
  ExpectList(/*offered=*/false);
  EXPECT_EQ(form.DTPGeschlossenAm.Value(), Day(1, 3, 2023));
  // A contract that is not signed yet stays so.
  dialog.Pick("DTPGeschlossenAm", std::nullopt);
  dialog.Pick("DTPVertragBeginn", Day(1, 6, 2024));
  EXPECT_TRUE(form.DTPGeschlossenAm.IsNull());
  EXPECT_EQ(form.DTPGeschlossenAm.ShownDate(), Day(1, 6, 2024));
}

TEST_F(ContractStart, BeyondTheCalendarLeavesNoPeriodOfAnotherStart) {
  AddType(Once());
  Open();
  world.screen.ExpectMessage(support::ReporterMessage("vv_FNewContract.DTPVertragBeginn_Change",
                                                      platform::RuntimeError::InvalidArgument));
  dialog.Pick("DTPVertragBeginn", Day(1, 11, 9999));
  EXPECT_EQ(form.lstInvoices.Count(), 0);
}

// Each is entered after a discount of five percent.
TEST(Discount, IsReadAndShownLikeThis) {
  enum class By { Keys, Pasting };
  enum class Colour : std::uint32_t { Black = 0x80000008, Red = 255 };
  const ui::Message invalid = Warning(kInvalid);
  const ui::Message too_large = Warning(kTooLarge);
  // One too large to be rounded is not exchanged for the one before it.
  const std::string huge = "-" + std::string(20, '9');
  const ui::Message overflow = support::ReporterMessage("vv_FNewContract.txtRabatt_Validate",
                                                        platform::RuntimeError::Overflow);
  const struct {
    By by;
    std::string entry;
    std::string text;  // in the box afterwards
    Colour colour;
    double percent = 0.0;
    std::optional<ui::Message> refused = {};
    char decimal_sign = ',';
  } cases[] = {{By::Keys, "0", "0,00", Colour::Black, 0.0},
               {By::Keys, "12.5", "12,50", Colour::Red, 12.5},
               {By::Keys, "12.5", "12.50", Colour::Red, 12.5, {}, '.'},
               {By::Keys, "-a1 0%", "10,00", Colour::Red, 10.0},
               {By::Keys, "33,335", "33,34", Colour::Red, 33.34},
               {By::Keys, "100", "100,00", Colour::Red, 100.0},
               {By::Keys, "100,01", "100,01", Colour::Black, 0.0, too_large},
               {By::Keys, "", "", Colour::Black, 0.0, invalid},
               {By::Keys, "1,2,3", "1,2,3", Colour::Red, 0.0, invalid},
               {By::Pasting, "fünf", "fünf", Colour::Red, 0.0, invalid},
               {By::Pasting, huge, huge, Colour::Red, 0.0, overflow}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.entry + " in a locale with " + c.decimal_sign);
    support::ContractWorld world;
    world.Add(table::vv_Vertragsdefinitionen, Quarterly());
    world.module.environment.locale = {c.decimal_sign};
    Dialog dialog(world);
    ASSERT_TRUE(dialog.Open());
    EXPECT_EQ(dialog.Text("txtRabatt"), std::string("0") + c.decimal_sign + "00");
    EXPECT_TRUE(dialog.TypeDiscount("5").Done());
    dialog.Paste("txtRabatt", "");
    if (c.by == By::Keys) dialog.Type("txtRabatt", c.entry);
    if (c.by == By::Pasting) dialog.Paste("txtRabatt", c.entry);
    if (c.refused) {
      world.screen.ExpectMessage(*c.refused);
      EXPECT_EQ(ui::Person(dialog.form).Click(dialog.form.cmdOK).kind,
                ui::Outcome::Kind::FocusKept);
      EXPECT_EQ(world.Count(table::vv_Vertraege), 0u);
    } else {
      // What the box shows is read again without a change.
      dialog.Leave("txtRabatt");
      EXPECT_EQ(dialog.Text("txtRabatt"), c.text);
      EXPECT_TRUE(ui::Person(dialog.form).Enter(dialog.form.txtRabatt).Done());
      dialog.Click("cmdOK");
      EXPECT_EQ(world.TheOnly(table::vv_Vertragsstaende)[field::Rabattprozent], Value(c.percent));
    }
    EXPECT_EQ(dialog.Text("txtRabatt"), c.text);
    EXPECT_EQ(dialog.form.txtRabatt.ForeColor(), static_cast<std::uint32_t>(c.colour));
    EXPECT_THAT(world.screen.Problems(), testing::IsEmpty());
  }
}

}  // namespace
}  // namespace pactora::newcontract
