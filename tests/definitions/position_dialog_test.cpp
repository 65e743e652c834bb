// The dialog for one position, on its own.
#include "definitions/frmFEditDefPositions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "definition_world.h"

namespace pactora::definitions {
namespace {

using testing::ElementsAre;

class PositionDialogTest : public DefinitionTest {
 protected:
  PositionDialogTest() {
    dialog = std::make_unique<frmFEditDefPositions>(world.module);
    dialog->txtArtikel.SetText("Wartung");
    dialog->txtAnzahl.SetText("1,00");
    dialog->txtNettopreis.SetText("1200,00");
  }

  void Show(const Acts& acts) {
    ExpectPosition(acts);
    dialog->Show(world.screen);
  }
  std::vector<std::string> Prices() {
    std::vector<std::string> prices;
    for (std::size_t i = 0; i < schema::kPeriods.size(); ++i) {
      prices.push_back(dialog->PriceBox(i).Text());
    }
    return prices;
  }
  std::vector<std::string> BoldLabels() {
    std::vector<std::string> names;
    for (const ui::Control* control : dialog->Controls()) {
      const auto* label = dynamic_cast<const ui::Label*>(control);
      if (label != nullptr && label->Bold()) names.push_back(label->Name());
    }
    return names;
  }
  void ExpectInputError(const std::string& name) {
    Expect("Ungültige Eingabe in " + name + " !", kInformation, "Bitte ändern ...");
  }

  std::unique_ptr<frmFEditDefPositions> dialog;
};

TEST_F(PositionDialogTest, ThePaymentPeriodChoosesTheActivePrice) {
  struct Case {
    std::int32_t period;
    std::string label;  // empty: a period that cannot be served
    std::string total;
  };
  const std::vector<Case> cases = {{1, "lblPreisM1", "100,00"},
                                   {3, "lblPreisM3", "300,00"},
                                   {6, "lblPreisM6", "600,00"},
                                   {12, "lblPreisM12", "1200,00"},
                                   {24, "lblPreisM24", "2400,00"},
                                   {36, "lblPreisM36", "3600,00"},
                                   {48, "lblPreisM48", "4800,00"},
                                   {60, "lblPreisM60", "6000,00"},
                                   {2, "lblNettopreis", "1200,00"},
                                   {11, "lblNettopreis", "1200,00"},
                                   {13, "", ""},
                                   {0, "", ""},
                                   {-1, "", ""}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.period);
    dialog = std::make_unique<frmFEditDefPositions>(world.module);
    dialog->txtNettopreis.SetText("1200,00");
    dialog->txtAnzahl.SetText("1,00");
    EXPECT_EQ(dialog->InitNew(12, c.period, "Periode"), !c.label.empty());
    EXPECT_EQ(dialog->txtGesamt.Text(), c.total);
    if (c.label.empty()) {
      EXPECT_THAT(BoldLabels(), ElementsAre());
    } else {
      EXPECT_THAT(BoldLabels(), ElementsAre(c.label));
      EXPECT_EQ(dialog->lblPeriod.Caption(), "Periode");
    }
  }
}

TEST_F(PositionDialogTest, AnEditedPositionKeepsItsPricesUntilTheNetPriceIsLeft) {
  for (std::size_t i = 0; i < schema::kPeriods.size(); ++i) dialog->PriceBox(i).SetText("7,00");
  dialog->txtAnzahl.SetText("3,00");
  ASSERT_TRUE(dialog->InitEdit(24, 12, "jährlich"));
  EXPECT_EQ(dialog->txtGesamt.Text(), "21,00");
  Show([&](DialogUser& user) {
    EXPECT_EQ(user.Text("lblDuration"), "Gesamtlaufzeit: 24 Monate");
    EXPECT_THAT(user.Items("cboEinheit"), ElementsAre("Stück", "Stunde"));
    user.Retype("txtPreisM3", "8");
    user.Leave("txtPreisM3");
    EXPECT_EQ(user.Text("txtPreisM3"), "8,00");
    EXPECT_EQ(user.Text("txtGesamt"), "21,00");
    user.Retype("txtPreisM12", "9.5");
    user.Leave("txtPreisM12");
    EXPECT_EQ(user.Text("txtGesamt"), "28,50");
    user.Leave("txtNettopreis");
    EXPECT_THAT(Prices(), ElementsAre("50,00", "150,00", "300,00", "600,00", "1200,00", "1800,00",
                                      "2400,00", "3000,00"));
    EXPECT_EQ(user.Text("txtGesamt"), "1800,00");
  });
  EXPECT_FALSE(dialog->mbOK);
}

TEST_F(PositionDialogTest, BoxesTakeOnlyTheirKeys) {
  ASSERT_TRUE(dialog->InitNew(12, 1, "monatlich"));
  Show([&](DialogUser& user) {
    user.Retype("txtAnzahl", "-1.5*x ü/8");
    EXPECT_EQ(user.Text("txtAnzahl"), "-1,58");
    user.Retype("txtNettopreis", "-12*3.0a");
    EXPECT_EQ(user.Text("txtNettopreis"), "12*3,0");
    user.Retype("txtPreisM60", "-1*2,3\b4");
    EXPECT_EQ(user.Text("txtPreisM60"), "12,4");
    EXPECT_EQ(user.Text("txtNettopreis"), "36,00");
    EXPECT_TRUE(user.Get<ui::TextBox>("txtGesamt").ReadOnly());
  });
}

TEST_F(PositionDialogTest, RefusedTextsKeepTheFocusAndTheOldValues) {
  ASSERT_TRUE(dialog->InitNew(12, 1, "monatlich"));
  Show([&](DialogUser& user) {
    for (const char* text : {"", "2*", "*", "1,2,3", "1e3"}) {
      user.Paste("txtNettopreis", text);
      ExpectInputError("Nettopreis");
      user.CannotLeave("txtNettopreis");
      EXPECT_EQ(user.Text("txtNettopreis"), text);
      EXPECT_EQ(user.Text("txtPreisM1"), "100,00");
    }
    user.Retype("txtNettopreis", "12*30");
    user.Leave("txtNettopreis");
    EXPECT_EQ(user.Text("txtNettopreis"), "360,00");
    EXPECT_EQ(user.Text("txtPreisM1"), "30,00");
    for (const char* text : {"", "-", ",", "2*3"}) {
      user.Paste("txtPreisM12", text);
      ExpectInputError("PreisM12");
      user.CannotLeave("txtPreisM12");
      EXPECT_EQ(user.Text("txtGesamt"), "30,00");
    }
    user.Paste("txtPreisM12", "1");
    user.Paste("txtAnzahl", "");
    ExpectInputError("Anzahl");
    user.CannotLeave("txtAnzahl");
    user.Retype("txtAnzahl", "-2");
    user.Leave("txtAnzahl");
    EXPECT_EQ(user.Text("txtGesamt"), "-60,00");
  });
}

TEST_F(PositionDialogTest, AmountsOutOfRangeAreReportedAndNotTaken) {
  ASSERT_TRUE(dialog->InitNew(12, 1, "monatlich"));
  Show([&](DialogUser& user) {
    user.Paste("txtNettopreis", "99999999*99999999");
    ExpectError("frmFEditDefPositions.txtNettopreis_Validate", platform::RuntimeError::Overflow);
    user.CannotLeave("txtNettopreis");
    EXPECT_EQ(user.Text("txtPreisM1"), "100,00");
    user.Paste("txtNettopreis", "1200");
    user.Paste("txtAnzahl", "9999999999999999");
    ExpectError("frmFEditDefPositions.txtAnzahl_Validate", platform::RuntimeError::Overflow);
    user.CannotLeave("txtAnzahl");
    EXPECT_EQ(user.Text("txtGesamt"), "100,00");
  });
}

TEST_F(PositionDialogTest, WithoutATermThereAreNoUnitPrices) {
  EXPECT_EQ(support::ErrorOf([&] { dialog->InitNew(0, 1, "monatlich"); })->Number(),
            static_cast<std::int32_t>(platform::RuntimeError::DivisionByZero));
  for (std::size_t i = 0; i < schema::kPeriods.size(); ++i) dialog->PriceBox(i).SetText("7,00");
  ASSERT_TRUE(dialog->InitEdit(0, 1, "monatlich"));
  Show([&](DialogUser& user) {
    user.Retype("txtNettopreis", "12");
    ExpectError("frmFEditDefPositions.txtNettopreis_Validate",
                platform::RuntimeError::DivisionByZero);
    user.Click("cmdOk");
  });
  EXPECT_TRUE(dialog->mbOK);
  EXPECT_EQ(dialog->msActPrice, "7,00");
}

TEST_F(PositionDialogTest, TextAndQuantityMustBeThere) {
  ASSERT_TRUE(dialog->InitNew(7, 7, "einmalig"));
  Show([&](DialogUser& user) {
    user.Paste("txtArtikel", "");
    Expect("Eingabe für Artikel/Position fehlt", kInformation, "Bitte eingeben ...");
    user.Click("cmdOk");
    EXPECT_TRUE(user.HasFocus("txtArtikel"));
    user.Type("txtArtikel", "Neu");
    user.Retype("txtAnzahl", "0,004");
    Expect("Anzahl darf nicht 0 sein", kInformation, "Bitte ändern ...");
    user.Click("cmdOk");
    EXPECT_TRUE(user.IsOpen());
    user.Retype("txtAnzahl", "2");
    user.Click("cmdOk");
    EXPECT_FALSE(user.IsOpen());
  });
  EXPECT_TRUE(dialog->mbOK);
  EXPECT_EQ(dialog->msActPrice, "1200,00");
  EXPECT_EQ(dialog->mdblActPrice, 1200.0);
  EXPECT_EQ(dialog->txtGesamt.Text(), "2400,00");
}

}  // namespace
}  // namespace pactora::definitions
