// The contract start with its invoice periods, and the discount box.

#include "newcontract/dialog_world.h"

namespace pactora::newcontract {
namespace {

constexpr char kInvalid[] = "Ungültiger Rabatt!\r\nGeben Sie einen Rabatt zwischen 0 und 99 ein!";
constexpr char kTooLarge[] = "Rabatt darf nicht größer 99% sein!";

class ContractStart : public DialogTest {};

TEST_F(ContractStart, FillsTheListInTheUsersPattern) {
  AddType(Quarterly({{field::VerlaengerungsZahlungsperiode, 12}}));
  world.SetVariable("g_DateFormat", "yyyy/MM/dd");
  Open();
  dialog.Pick("DTPVertragBeginn", Day(1, 3, 2023));
  ASSERT_EQ(form.lstInvoices.Count(), 5);
  EXPECT_EQ(form.lstInvoices.ItemText(0), "2023/03/01 - 2023/05/31");
  EXPECT_EQ(form.lstInvoices.ItemText(4), "2024/03/01 - 2025/02/28");
}

TEST_F(ContractStart, TakesTheUserBackToANewContract) {
  AddType(Quarterly());
  Open();
  dialog.Check("chkOldContract", true);
  EXPECT_TRUE(form.lstInvoices.Enabled());
  EXPECT_TRUE(form.lstInvoices.Visible());
  EXPECT_EQ(form.lstInvoices.BackColor(), 0x80000005u);
  EXPECT_EQ(form.lstInvoices.ListIndex(), 0);
  dialog.Pick("DTPVertragBeginn", Day(1, 3, 2023));
  EXPECT_FALSE(form.chkOldContract.Checked());
  EXPECT_FALSE(form.lstInvoices.Enabled());
  EXPECT_FALSE(form.lstInvoices.Visible());
  EXPECT_EQ(form.lstInvoices.BackColor(), 0x8000000Fu);
  EXPECT_EQ(form.lstInvoices.ListIndex(), -1);
}

TEST_F(ContractStart, MovesTheDayOfSignatureUnlessThereIsNone) {
  AddType(Quarterly());
  Open();
  dialog.Pick("DTPVertragBeginn", Day(1, 5, 2024));
  EXPECT_EQ(form.DTPGeschlossenAm.Value(), Day(1, 5, 2024));
  dialog.Pick("DTPGeschlossenAm", std::nullopt);
  dialog.Pick("DTPVertragBeginn", Day(1, 6, 2024));
  EXPECT_TRUE(form.DTPGeschlossenAm.IsNull());
  EXPECT_EQ(form.DTPGeschlossenAm.ShownDate(), Day(1, 6, 2024));
}

TEST_F(ContractStart, BeyondTheCalendarLeavesNoPeriodOfAnotherStart) {
  AddType(Once());
  Open();
  dialog.Check("chkOldContract", true);
  world.screen.ExpectMessage(support::ReporterMessage(
      "vv_FNewContract.DTPVertragBeginn_Change",
      "Fehler &H5 in Pactora2\r\n" + embedded::CreateErrorTexts()->Text(5)));
  dialog.Pick("DTPVertragBeginn", Day(1, 11, 9999));
  EXPECT_EQ(form.lstInvoices.Count(), 0);
}

TEST_F(ContractStart, OfATypeWithoutAPeriodListsNothing) {
  AddType(Unlimited({{field::Zahlungsperiode, 0}}));
  Open();
  dialog.Pick("DTPVertragBeginn", Day(1, 1, 2020));
  dialog.Check("chkOldContract", true);
  EXPECT_EQ(form.lstInvoices.Count(), 0);
  world.screen.ExpectMessage(Plain("Wählen Sie den Zeitraum aus, der zuletzt fakturiert wurde"));
  SaveRefused();
  EXPECT_EQ(world.Count(table::vv_Vertraege), 0u);
}

TEST(Discount, IsReadAndShownLikeThis) {
  struct {
    const char* keys;
    const char* text;     // what the box holds afterwards
    const char* message;  // null: the discount is taken
    double percent;
  } const cases[] = {{"0", "0,00", nullptr, 0.0},          {"12,5", "12,50", nullptr, 12.5},
                     {"12.5", "12,50", nullptr, 12.5},     {"-a1 0%", "10,00", nullptr, 10.0},
                     {"33,335", "33,34", nullptr, 33.34},  {"100", "100,00", nullptr, 100.0},
                     {"100,01", "100,01", kTooLarge, 0.0}, {"", "", kInvalid, 0.0},
                     {"1,2,3", "1,2,3", kInvalid, 0.0},    {",", ",", kInvalid, 0.0}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.keys);
    support::ContractWorld world;
    world.Add(table::vv_Vertragsdefinitionen, Quarterly());
    Dialog dialog(world);
    ASSERT_TRUE(dialog.Open());
    if (c.message) world.screen.ExpectMessage(Warning(c.message));
    const ui::Outcome outcome = dialog.TypeDiscount(c.keys);
    EXPECT_EQ(outcome.Done(), !c.message);
    EXPECT_EQ(dialog.form.txtRabatt.Text(), c.text);
    EXPECT_THAT(world.screen.Problems(), testing::IsEmpty());
    if (c.message) continue;
    EXPECT_EQ(dialog.form.txtRabatt.ForeColor(), c.percent != 0.0 ? 255u : 0x80000008u);
    dialog.Click("cmdOK");
    EXPECT_EQ(world.Rows(table::vv_Vertragsstaende).at(0)[field::Rabattprozent], Value(c.percent));
  }
}

using DiscountBox = DialogTest;

TEST_F(DiscountBox, TakesPastedNegativesAndKeepsItsColourOnNonsense) {
  AddType(Quarterly());
  Open();
  dialog.Paste("txtRabatt", "-5");
  dialog.Leave("txtRabatt");
  EXPECT_EQ(form.txtRabatt.Text(), "-5,00");
  EXPECT_EQ(form.txtRabatt.ForeColor(), 255u);
  world.screen.ExpectMessage(Warning(kInvalid));
  dialog.Paste("txtRabatt", "fünf");
  dialog.CannotLeave("txtRabatt");
  EXPECT_EQ(form.txtRabatt.ForeColor(), 255u) << "nonsense leaves the colour";
  world.screen.ExpectMessage(Warning(kTooLarge));
  dialog.Paste("txtRabatt", "101");
  dialog.CannotLeave("txtRabatt");
  EXPECT_EQ(form.txtRabatt.ForeColor(), 0x80000008u);
  // A refused box cannot be left by OK either.
  world.screen.ExpectMessage(Warning(kTooLarge));
  EXPECT_EQ(ui::Person(form).Click(form.cmdOK).kind, ui::Outcome::Kind::FocusKept);
  EXPECT_EQ(world.Count(table::vv_Vertraege), 0u);
}

// One too large to be rounded is not exchanged for the one before it.
TEST_F(DiscountBox, IsNotLeftWithWhatCannotBeRounded) {
  AddType(Quarterly());
  Open();
  EXPECT_TRUE(dialog.TypeDiscount("5").Done());
  const std::string huge = "-" + std::string(20, '9');
  dialog.Paste("txtRabatt", huge);
  world.screen.ExpectMessage(support::ReporterMessage("vv_FNewContract.txtRabatt_Validate",
                                                      "Fehler &H6 in Pactora2\r\nÜberlauf"));
  EXPECT_EQ(ui::Person(form).Click(form.cmdOK).kind, ui::Outcome::Kind::FocusKept);
  EXPECT_EQ(form.txtRabatt.Text(), huge);
  EXPECT_EQ(world.Count(table::vv_Vertraege), 0u);
}

TEST_F(DiscountBox, ReadsWhatItShowsInALocaleWithAPoint) {
  AddType(Quarterly());
  world.module.environment.locale = {'.'};
  Open();
  EXPECT_EQ(form.txtRabatt.Text(), "0.00");
  EXPECT_TRUE(dialog.TypeDiscount("12.5").Done());
  EXPECT_EQ(form.txtRabatt.Text(), "12.50");
  EXPECT_TRUE(ui::Person(form).Enter(form.txtRabatt).Done());
  dialog.Leave("txtRabatt");
  EXPECT_EQ(form.txtRabatt.Text(), "12.50");
}

}  // namespace
}  // namespace pactora::newcontract
