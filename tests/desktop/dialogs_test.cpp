// Whole pieces of work done with keyboard and mouse.
#include <QLabel>

#include "desktop/office.h"

namespace pactora::desktop {
namespace {

using support::Day;
using support::DialogUser;

class DialogsByEvents : public testing::Test {
 protected:
  // The next thing that a person does, once the dialog is the topmost window.
  void In(const char* dialog, const std::function<void(WindowUser& user)>& acts) {
    steps.Add(QString::fromUtf8(dialog), [acts](QWidget& window) {
      WindowUser user(window);
      acts(user);
    });
  }
  void TearDown() override {
    EXPECT_TRUE(steps.Problems().isEmpty()) << steps.Problems().join('\n').toStdString();
    EXPECT_THAT(rehearsal.world.screen.Problems(), testing::IsEmpty());
    EXPECT_EQ(office.saved, rehearsal.saved);
    EXPECT_EQ(office.status_rows, rehearsal.status_rows);
    EXPECT_EQ(Written(office.world), Written(rehearsal.world));
  }

  Office office;
  Rehearsal rehearsal;
  WindowSteps steps;
};

TEST_F(DialogsByEvents, ACompleteContract) {
  In("frmNewContract", [](WindowUser& user) {
    user.ClickRow("lvwBezeichnung", 2);  // the list is in the order of the names
    user.ClickRow("lvwBezeichnung", 1);
    user.Click("ChkAutoNumber");
    user.Retype("txtVertragnummer", "2024-007");
    user.Retype("DTPVertragBeginn", "1.4.24");
    user.Retype("cboVerantwortlich", "Clara");
    user.GoTo("txtRabatt");
    user.Key(Qt::Key_A, Qt::ControlModifier);
    user.Keys("12");
    user.TypeCharacter('.', Qt::KeypadModifier);
    user.Keys("5x");
    user.Click("chkRabattNurErsteLaufzeit");
    EXPECT_EQ(user.Text("txtRabatt"), "12,50");
    EXPECT_EQ(user.Get("txtRabatt").accessibleDescription().toStdString(), "rot hervorgehoben");
    user.GoTo("txtMemo");
    user.Keys("Zeile 1");
    user.Key(Qt::Key_Return);
    user.Keys("Zeile 2");
    user.Key(Qt::Key_Tab);
    user.Key(Qt::Key_Return);
  });
  steps.Run([this] { office.NewContract(); });

  rehearsal.Expect("frmNewContract", [](DialogUser& user) {
    user.Choose("lvwBezeichnung", "Wartung");
    user.Click("ChkAutoNumber");
    user.Type("txtVertragnummer", "2024-007");
    user.Pick("DTPVertragBeginn", Day(1, 4, 2024));
    user.Paste("cboVerantwortlich", "Clara");
    user.Retype("txtRabatt", "12.5");
    user.Click("chkRabattNurErsteLaufzeit");
    user.Type("txtMemo", "Zeile 1\nZeile 2");
    user.Click("cmdOK");
  });
  rehearsal.NewContract();
  EXPECT_TRUE(office.saved);
  EXPECT_EQ(office.world.Count(table::vv_Vertraege), 1u);
}

TEST_F(DialogsByEvents, ATakeoverOfARunningContract) {
  In("frmNewContract", [](WindowUser& user) {
    user.ClickRow("lvwBezeichnung", 1);
    user.Retype("DTPVertragBeginn", "01012023");
    user.Click("chkOldContract");
    ASSERT_TRUE(user.Get("lstInvoices").isVisible());
    user.ClickRow("lstInvoices", 3);
    user.Click("cmdOK");
  });
  steps.Run([this] { office.NewContract(); });

  rehearsal.Expect("frmNewContract", [](DialogUser& user) {
    user.Choose("lvwBezeichnung", "Wartung");
    user.Pick("DTPVertragBeginn", Day(1, 1, 2023));
    user.Click("chkOldContract");
    user.ChooseRow("lstInvoices", 4);
    user.Click("cmdOK");
  });
  rehearsal.NewContract();
  EXPECT_EQ(office.status_rows, 2);
}

TEST_F(DialogsByEvents, AContractType) {
  In("frmFEditDefinitions", [](WindowUser& user) {
    user.Retype("txtBezeichnung", "Rundum-Sorglos");
    user.ChooseEntry("cboStatus", "freigegeben");
    user.Retype("txtDauer", "24");
    user.ChooseEntry("cboZahlungsperiode", "jährlich");
    user.ChooseEntry("cboRechnungWann", "nachträglich");
    user.Click("chkNoBooking");
    user.ChooseEntry("cboKuendFrist", "3");
    user.ChooseEntry("cboKuendEinh", "Monate");
    user.ChooseEntry("cboRequiGroup", "Kunde");
    user.ChooseEntry("cboPutGroup", "Kunde");
    user.ChooseEntry("cboPutAttribute", "Kunde seit");
    EXPECT_TRUE(user.Get("DTPPutValue").isVisible());
    user.Retype("DTPPutValue", "24.12.24");
    user.ChooseEntry("cboWorkflow", "Verlängern");
    user.ClickRow("lvwArtikel", 0);
    user.Click("cmdAddPos");
    user.GoTo("cmdSave");
    user.Key(Qt::Key_Return);
  });
  In("frmFEditDefPositions", [](WindowUser& user) {
    user.Retype("txtNettopreis", "12*30,5");
    user.Retype("txtAnzahl", "2");
    user.Key(Qt::Key_Tab);
    EXPECT_EQ(user.Text("txtGesamt"), "366,00");
    user.Key(Qt::Key_Return);
  });
  steps.Run([this] { office.NewType(); });

  rehearsal.Expect("frmFEditDefinitions", [this](DialogUser& user) {
    user.Paste("txtBezeichnung", "Rundum-Sorglos");
    user.Choose("cboStatus", "freigegeben");
    user.Paste("txtDauer", "24");
    user.Choose("cboZahlungsperiode", "jährlich");
    user.Choose("cboRechnungWann", "nachträglich");
    user.Click("chkNoBooking");
    user.Choose("cboKuendFrist", "3");
    user.Choose("cboKuendEinh", "Monate");
    user.Choose("cboRequiGroup", "Kunde");
    user.Choose("cboPutGroup", "Kunde");
    user.Choose("cboPutAttribute", "Kunde seit");
    user.Pick("DTPPutValue", Day(24, 12, 2024));
    user.Choose("cboWorkflow", "Verlängern");
    user.ChooseRow("lvwArtikel", 1);
    rehearsal.Expect("frmFEditDefPositions", [](DialogUser& position) {
      position.Retype("txtNettopreis", "12*30,5");
      position.Retype("txtAnzahl", "2");
      position.Click("cmdOk");
    });
    user.Click("cmdAddPos");
    user.Click("cmdSave");
  });
  rehearsal.NewType();
  EXPECT_EQ(office.world.Count(table::vv_Vertragsdefinitionen), 4u);
  EXPECT_EQ(office.world.Count(table::vv_Definitionspositionen), 4u);
}

TEST_F(DialogsByEvents, AMessageOverADialogIsAnsweredAndTheWorkGoesOn) {
  In("frmFEditDefinitions", [](WindowUser& user) {
    user.Keys("Leer");
    user.Key(Qt::Key_Return);
    EXPECT_TRUE(user.Window().isVisible());
    user.Key(Qt::Key_Escape);
  });
  In("message", [](WindowUser& user) {
    EXPECT_EQ(user.Window().windowTitle(), "Vertrag ohne Rechnungslegung?");
    user.Key(Qt::Key_Escape);
  });
  steps.Run([this] { office.NewType(); });
}

TEST_F(DialogsByEvents, TheAccessKeyOfALabelGoesToItsBox) {
  In("frmNewContract", [](WindowUser& user) {
    EXPECT_TRUE(QTest::qWaitForWindowActive(&user.Window()));
    for (const auto& [label, box] : {std::pair{"lblRabatt", "txtRabatt"},
                                     {"lblVertragBeginn", "DTPVertragBeginn"},
                                     {"lblVerantwortlich", "cboVerantwortlich"},
                                     {"lblMemo", "txtMemo"}}) {
      const QString text = user.Get<QLabel>(label).text();
      const QChar key = text[text.indexOf('&') + 1].toUpper();
      user.Key(static_cast<Qt::Key>(key.unicode()), Qt::AltModifier);
      EXPECT_EQ(user.Focus(), box);
    }
    user.Key(Qt::Key_Escape);
  });
  steps.Run([this] { office.NewContract(); });
}

TEST_F(DialogsByEvents, ThreeDialogsOnTopOfEachOther) {
  In("frmNewContract", [](WindowUser& user) {
    user.ClickRow("lvwBezeichnung", 1);
    user.Click("cmdDetails");
    EXPECT_TRUE(user.Get("lblDirty").isVisible());
    user.Click("cmdOK");
  });
  In("frmFEditDefinitions", [](WindowUser& user) {
    EXPECT_FALSE(user.Get("Frame3").isEnabled());
    user.ClickRow("lvwPositionen", 0);
    user.Click("cmdEditPos");
    user.Click("cmdSave");
  });
  In("frmFEditDefPositions", [](WindowUser& user) {
    user.Retype("txtAnzahl", "5");
    user.Click("cmdOk");
  });
  steps.Run([this] { office.NewContract(); });

  rehearsal.Expect("frmNewContract", [this](DialogUser& user) {
    user.Choose("lvwBezeichnung", "Wartung");
    rehearsal.Expect("frmFEditDefinitions", [this](DialogUser& type) {
      type.ChooseRow("lvwPositionen", 1);
      rehearsal.Expect("frmFEditDefPositions", [](DialogUser& position) {
        position.Retype("txtAnzahl", "5");
        position.Click("cmdOk");
      });
      type.Click("cmdEditPos");
      type.Click("cmdSave");
    });
    user.Click("cmdDetails");
    user.Click("cmdOK");
  });
  rehearsal.NewContract();
  EXPECT_TRUE(office.saved);
}

}  // namespace
}  // namespace pactora::desktop
