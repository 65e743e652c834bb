// The dialog for one position, on its own.
#include "definitions/frmFEditDefPositions.h"

#include "definition_world.h"

namespace pactora::definitions {
namespace {

class PositionDialogTest : public DefinitionTest {
 protected:
  PositionDialogTest() { Create(); }

  void Create() {
    dialog = std::make_unique<frmFEditDefPositions>(world.module);
    dialog->txtArtikel.SetText("Wartung");
    dialog->txtAnzahl.SetText("1,00");
    dialog->txtNettopreis.SetText("1200,00");
    for (std::size_t i = 0; i < schema::kPeriods.size(); ++i) dialog->PriceBox(i).SetText("7,00");
  }
  std::string BoldLabels() {
    std::string names;
    for (const ui::Control* control : dialog->Controls()) {
      const auto* label = dynamic_cast<const ui::Label*>(control);
      if (label != nullptr && label->Bold()) names += label->Name() + " ";
    }
    return names;
  }

  std::unique_ptr<frmFEditDefPositions> dialog;
};

TEST_F(PositionDialogTest, ThePaymentPeriodChoosesTheActivePrice) {
  const std::vector<std::pair<std::int32_t, std::string>> served = {{1, "lblPreisM1 100,00"},
                                                                    {6, "lblPreisM6 600,00"},
                                                                    {60, "lblPreisM60 6000,00"},
                                                                    {11, "lblNettopreis 1200,00"}};
  for (const auto& [period, label_and_total] : served) {
    Create();
    EXPECT_TRUE(dialog->InitNew(12, period, "Periode")) << period;
    EXPECT_EQ(BoldLabels() + dialog->txtGesamt.Text(), label_and_total);
    EXPECT_EQ(dialog->lblPeriod.Caption(), "Periode");
  }
  for (const std::int32_t period : {13, 0, -1}) {
    Create();
    EXPECT_FALSE(dialog->InitNew(12, period, "Periode")) << period;
    EXPECT_EQ(BoldLabels() + dialog->txtGesamt.Text(), "");
  }
}

TEST_F(PositionDialogTest, BoxesTakeOnlyTheirKeys) {
  ASSERT_TRUE(dialog->InitNew(12, 1, "monatlich"));
  Show(*dialog, [&](DialogUser& user) {
    user.Retype("txtAnzahl", "-1.5*x ü/8");
    user.Retype("txtNettopreis", "-12*3.0a");
    user.Shows({{"txtAnzahl", "-1,58"}, {"txtNettopreis", "12*3,0"}});
    user.Retype("txtPreisM60", "-1*2,3\b4");
    user.Shows({{"txtPreisM60", "12,4"}, {"txtNettopreis", "36,00"}});
    EXPECT_TRUE(user.Get<ui::TextBox>("txtGesamt").ReadOnly());
  });
}

TEST_F(PositionDialogTest, RefusedTextsKeepTheFocusAndTheOldValues) {
  struct Case {
    std::string name;
    std::vector<std::string> refused;
    std::string taken;
  };
  const std::vector<Case> cases = {{"Nettopreis", {"", "2*", "*", "1,2,3", "1e3"}, "1200"},
                                   {"PreisM12", {"", "-", ",", "2*3"}, "1"},
                                   {"Anzahl", {""}, "1"}};
  ASSERT_TRUE(dialog->InitNew(12, 1, "monatlich"));
  Show(*dialog, [&](DialogUser& user) {
    const auto refuse = [&](const std::string& box, const std::string& text) {
      user.Paste(box, text);
      user.CannotLeave(box);
      user.Shows({{"txtPreisM1", "100,00"}, {"txtGesamt", "100,00"}});
    };
    for (const Case& c : cases) {
      for (const std::string& text : c.refused) {
        ExpectInputError(c.name);
        refuse("txt" + c.name, text);
        user.Shows({{"txt" + c.name, text}});
      }
      user.Paste("txt" + c.name, c.taken);
    }
    ExpectError("frmFEditDefPositions.txtNettopreis_Validate", platform::RuntimeError::Overflow);
    refuse("txtNettopreis", "99999999*99999999");
    user.Paste("txtNettopreis", "1200");
    ExpectError("frmFEditDefPositions.txtAnzahl_Validate", platform::RuntimeError::Overflow);
    refuse("txtAnzahl", "9999999999999999");
    user.Retype("txtAnzahl", "-2");
    user.Retype("txtNettopreis", "12*30");
    user.Leave("txtNettopreis");
    user.Shows({{"txtNettopreis", "360,00"}, {"txtPreisM1", "30,00"}, {"txtGesamt", "-60,00"}});
  });
}

TEST_F(PositionDialogTest, TextAndQuantityMustBeThere) {
  ASSERT_TRUE(dialog->InitNew(7, 7, "einmalig"));
  Show(*dialog, [&](DialogUser& user) {
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
    user.Shows({{"txtGesamt", "2400,00"}});
  });
  EXPECT_TRUE(dialog->mbOK);
  EXPECT_EQ(dialog->msActPrice, "1200,00");
  EXPECT_EQ(dialog->mdblActPrice, 1200.0);
}

}  // namespace
}  // namespace pactora::definitions
