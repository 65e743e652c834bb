// Office work in the main window, by mouse and keyboard where a person would.
#include "desktop/main_window/main_window.h"

#include <QCheckBox>
#include <QHeaderView>
#include <QMenu>
#include <QMenuBar>
#include <QSpinBox>
#include <QSplitter>

#include "automation/takeover/job.h"
#include "desktop/main_window/TakeoverWindow.h"
#include "support/sanitized.h"

namespace pactora::desktop {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

enum Page { kAddresses, kTypes, kDeadlines, kAppointments };

TEST_F(MainWindowTest, TheChosenAddressIsTheCurrentRowAndItsContractsAreShown) {
  EXPECT_FALSE(Action("new_contract").isEnabled());
  EXPECT_EQ(Text("address_name"), "Keine Adresse ausgewählt");
  ClickRow("addresses", "Molkerei");
  EXPECT_EQ(CurrentText(table::Adressen, field::Name), "Molkerei Rahmental eG");
  EXPECT_EQ(Text("address_name"), "Molkerei Rahmental eG");
  EXPECT_TRUE(Action("new_contract").isEnabled());

  auto& tree = *window->findChild<QTreeView*>("contracts");
  const QAbstractItemModel& contracts = *tree.model();
  const QModelIndex contract = contracts.index(0, 0);
  EXPECT_EQ(contract.data().toString(), "00000002  Wartung Server");
  EXPECT_EQ(contract.siblingAtColumn(ContractTree::Notice).data(), "20.11.2026");
  tree.expandAll();
  ASSERT_EQ(contracts.rowCount(contract), 3);
  const QModelIndex term = contracts.index(0, 0, contract);
  EXPECT_EQ(term.data(), "1. Laufzeit");
  EXPECT_EQ(contracts.index(1, 0, contract).data(), "2. Laufzeit (Verlängerung)");
  EXPECT_EQ(term.siblingAtColumn(ContractTree::Begin).data(), "01.01.2024");
  EXPECT_EQ(term.siblingAtColumn(ContractTree::NextInvoice).data(), "keine");
  // The rows of a term add up to it.
  const QModelIndex renewal = contracts.index(1, 0, contract);
  double sum = 0;
  for (int row = 0; row < contracts.rowCount(renewal); ++row) {
    const QModelIndex amount = contracts.index(row, ContractTree::Amount, renewal);
    sum += QLocale().toDouble(amount.data().toString());
  }
  EXPECT_EQ(QLocale().toString(sum, 'f', 2), renewal.siblingAtColumn(ContractTree::Amount).data());

  // A term chosen in the tree is the current row of its table, its contract with it.
  tree.setCurrentIndex(contracts.index(1, 0, contract));
  EXPECT_EQ(CurrentText(table::vv_Vertragsstaende, field::LaufTyp), "2");
  EXPECT_EQ(CurrentText(table::vv_Vertraege, field::Vertragnummer), "00000002");

  const QString words = window->findChild<QWidget*>("timeline")->accessibleDescription();
  EXPECT_EQ(words.toStdString(),
            "00000002  Wartung Server; Laufzeit 01.01.2024 – 31.12.2024; Laufzeit 01.01.2025 – "
            "31.12.2025; Laufzeit 01.01.2026 – 31.12.2026; Kündigung bis 20.11.2026; nächste "
            "Rechnung 01.04.2026");
}

TEST_F(MainWindowTest, WhatWasStoredBeforeAFailureStaysAndAllContractsOfAnAddressAreFound) {
  ClickRow("addresses", "Molkerei");
  ExpectMessage(steps, "Platte voll");
  RunSteps(steps, [&] {
    desk->Do([&] {
      const auto live = desk->Session().Host().Table(table::vv_Vertraege);
      for (int i = 0; i < 250; ++i) {
        live->GotoRec(live->NewRecordOid(0));
        live->StoreNew(host::kFlagsUsual);
      }
      throw platform::Error(7, "Platte voll");
    });
  });
  EXPECT_EQ(Count(table::vv_Vertraege), 254u);
  ContractTree tree(*desk);
  tree.SetAddress(desk->Current(table::Adressen));
  EXPECT_EQ(tree.Find(desk->Current(table::vv_Vertraege)).row(), 250);
}

TEST_F(MainWindowTest, SearchingFindsWithoutAccentsAndGoesOnByKeyboard) {
  WindowUser user = User();
  user.Click("addresses_search");
  user.Keys("OVEL zahn");
  ListPage& list = window->Addresses().List();
  ASSERT_EQ(list.Model().rowCount(), 1);
  EXPECT_EQ(Text("addresses_count"), "Adressen: 1 von 41");
  user.Key(Qt::Key_Down);
  EXPECT_EQ(CurrentText(table::Adressen, field::Name), Texts(list, 0)[0]);
  // The choice outlasts the search.
  user.Click("addresses_search");
  user.Key(Qt::Key_Escape);
  EXPECT_EQ(list.Model().rowCount(), 41);
  EXPECT_EQ(list.Table().currentIndex().data().toString().toStdString(),
            CurrentText(table::Adressen, field::Name));
}

TEST_F(MainWindowTest, ANewContractIsConcludedAndShown) {
  ClickRow("addresses", "Quendelbach");
  steps.Add("frmNewContract", AsUser([](WindowUser& user) {
              user.ClickRow("lvwBezeichnung", 1);
              user.Click("cmdOK");
            }));
  RunSteps(steps, [&] { QTest::keyClick(window.get(), Qt::Key_N, Qt::ControlModifier); });
  window->FinishReading();
  EXPECT_EQ(window->findChild<QTreeView*>("contracts")->model()->rowCount(), 1);
  EXPECT_EQ(CurrentText(table::vv_Vertraege, field::Vertragnummer), "00000004");
  const int row = window->Addresses().List().Model().Find(desk->Current(table::Adressen));
  EXPECT_THAT(Texts(window->Addresses().List(), row), ElementsAre("Bäckerei Quendelbach", "1"));

  steps.Add("frmNewContract", AsUser([](WindowUser& user) {
              user.ClickRow("lvwBezeichnung", 1);
              user.Click("ChkAutoNumber");
              user.Click("txtVertragnummer");
              user.Keys("00000004");
              user.Click("cmdOK");
            }));
  ExpectMessage(steps, "die Vertragsnummer 00000004 hat schon ein anderer Vertrag");
  RunSteps(steps, [&] { Action("new_contract").trigger(); });
}

TEST_F(MainWindowTest, AContractTypeIsMadeAndChanged) {
  ShowPage(kTypes);
  EXPECT_FALSE(Action("edit_type").isEnabled());
  const auto name_it = [&](const char* name) {
    steps.Add("frmFEditDefinitions", AsUser([name](WindowUser& user) {
                user.Retype("txtBezeichnung", name);
                user.Click("optKreditor");
                user.Click("cmdSave");
              }));
  };
  name_it("Archivierung");
  RunSteps(steps, [&] { Action("new_type").trigger(); });
  window->FinishReading();
  ClickRow("types", "Archivierung");
  EXPECT_EQ(CurrentText(table::vv_Vertragsdefinitionen, field::Bezeichnung), "Archivierung");
  ASSERT_TRUE(Action("edit_type").isEnabled());
  name_it("Archiv");
  const ListTable& types = window->Types().Table();
  const QPoint row = types.visualRect(types.currentIndex()).center();
  RunSteps(steps, [&] { QTest::mouseDClick(types.viewport(), Qt::LeftButton, {}, row); });
  window->FinishReading();
  EXPECT_EQ(window->Types().Table().currentIndex().data(), "Archiv");
  EXPECT_EQ(Count(table::vv_Vertragsdefinitionen), 9u);
}

TEST_F(MainWindowTest, DeadlinesAreThoseOfAllContractsAndLeadToThem) {
  clock.Set(platform::FromCivil(2026, 9, 9));
  ShowPage(kDeadlines);
  auto& weeks = *window->findChild<QSpinBox*>("deadlines_weeks");
  // Five weeks end on the last safe day of the first one.
  for (const auto& [limit, rows] : {std::pair(5, 1), {26, 4}, {0, 5}}) {
    weeks.setValue(limit);
    EXPECT_EQ(window->Deadlines().Model().rowCount(), rows);
  }
  EXPECT_THAT(
      Texts(window->Deadlines(), 0),
      ElementsAre("15.10.2026", "Kündigung", "14.10.2026", "", "Kaltluft Rechenzentrum GmbH",
                  "RZ-2026-17", "Stellfläche Rechenzentrum", "Verbindlichkeit", "Anna"));
  // The calendar holds what the page shows.
  const QString calendar = ToQt(folder.File("fristen.ics"));
  window->findChild<QLineEdit*>("deadlines_search")->setText("Rechenzentrum");
  ASSERT_TRUE(window->WriteCalendar(calendar));
  QFile written(calendar);
  ASSERT_TRUE(written.open(QIODevice::ReadOnly));
  EXPECT_EQ(written.readAll().count("BEGIN:VEVENT"), window->Deadlines().Model().rowCount());
  window->findChild<QLineEdit*>("deadlines_search")->clear();
  window->Deadlines().Table().Enter();
  User().Key(Qt::Key_Return);
  EXPECT_EQ(Text("address_name"), "Kaltluft Rechenzentrum GmbH");
  EXPECT_EQ(CurrentText(table::vv_Vertraege, field::Vertragnummer), "RZ-2026-17");
}

TEST_F(MainWindowTest, AppointmentsThatAreDueStandOutAndAreTicked) {
  ShowPage(kAppointments);
  ListPage& page = window->Appointments();
  const auto tick = [&] {
    page.Table().setCurrentIndex(page.Model().index(0, 0));
    Action("tick").trigger();
    window->FinishReading();
  };
  page.Table().Enter();
  EXPECT_TRUE(Action("tick").isEnabled());
  ASSERT_EQ(page.Model().rowCount(), 4);
  EXPECT_EQ(Texts(page, 0)[0], "03.09.2026");
  EXPECT_TRUE(page.Model().Row(0).strong);
  EXPECT_FALSE(page.Model().Row(1).strong);
  tick();
  EXPECT_EQ(page.Model().rowCount(), 3);
  window->findChild<QCheckBox*>("appointments_done")->click();
  ASSERT_EQ(page.Model().rowCount(), 4);
  EXPECT_EQ(Texts(page, 0)[5], "ja");
  EXPECT_FALSE(page.Model().Row(0).strong);
  page.Table().setCurrentIndex(page.Model().index(1, 0));
  tick();
  EXPECT_TRUE(page.Model().Row(0).strong) << "open again";
  // Several at once, and back.
  page.Table().selectAll();
  Action("tick").trigger();
  window->FinishReading();
  for (const bool done : {true, false}) {
    for (int row = 0; row < 4; ++row) EXPECT_EQ(page.Model().Row(row).done, done) << row;
    Action("take_back").trigger();
    window->FinishReading();
  }
  EXPECT_FALSE(Action("take_back").isEnabled());
  // The address's own list says how many are due.
  ShowPage(kAddresses);
  ClickRow("addresses", "Ölbermann");
  clock.Set(platform::FromCivil(2026, 10, 1));
  window->Addresses().ShowCurrent();
  EXPECT_EQ(window->findChild<QTabWidget*>("address_tabs")->tabText(3), "Termine (1 fällig)");
}

TEST_F(MainWindowTest, SizesAndColumnsAreKeptForEachUser) {
  const auto header = [&] { return window->findChild<QHeaderView*>("types_columns"); };
  const auto splitter = [&] { return window->findChild<QSplitter*>("address_splitter"); };
  window->resize(1100, 700);
  header()->resizeSection(2, 177);
  header()->moveSection(0, 3);
  splitter()->setSizes({300, 700});
  QApplication::processEvents();
  const QList<int> sizes = splitter()->sizes();
  window->close();
  Open();
  EXPECT_EQ(window->size(), QSize(1100, 700));
  EXPECT_EQ(header()->sectionSize(2), 177);
  EXPECT_EQ(header()->visualIndex(0), 3);
  EXPECT_EQ(splitter()->sizes(), sizes);

  WindowMemory other(settings, "jemand anders");
  MainWindow untouched(*desk, other);
  EXPECT_EQ(untouched.findChild<QHeaderView*>("types_columns")->visualIndex(0), 0);
}

TEST_F(MainWindowTest, ADatasetGoesOutAndIntoANewDatabase) {
  const QString dataset = ToQt(folder.File("firma.json"));
  ASSERT_TRUE(window->ExportTo(dataset));
  std::string opened;
  window->OpenAsked = [&](const std::string& name) { opened = name; };
  const std::string copy = folder.File("kopie.db");
  ASSERT_TRUE(window->ImportFrom(dataset, ToQt(copy)));
  EXPECT_EQ(opened, copy);
  // A database that is there is left alone, and said so.
  ExpectMessage(steps, "nicht leer");
  RunSteps(steps, [&] { EXPECT_FALSE(window->ImportFrom(dataset, ToQt(copy))); });
}

class TakeoverTest : public MainWindowTest {
 protected:
  // Writes the list: so many lines of one address.
  void Write(const std::string& address, int lines) {
    QFile file(list);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("Schlüssel;Adresse;Vertragstyp;Vertragsbeginn;ZuletztFakturiert\n");
    for (int i = 0; i < lines; ++i) {
      file.write(QByteArray::number(i) + ';' + QByteArray::fromStdString(address) +
                 ";Wartung Server;01.01.2025;01.01.2026\n");
    }
  }
  std::string Outcome(TakeoverWindow& takeover) {
    return takeover.findChild<QLabel*>("takeover_outcome")->text().toStdString();
  }

  const QString list = ToQt(folder.File("bestand.csv"));
};

TEST_F(TakeoverTest, AListIsTakenOverStoppedAndGoneOnWith) {
  // More than share a unit of work.
  constexpr int kLines = support::kSanitized ? 60 : 600;
  Write("Gasthof Zum Stillen Kranich", kLines);
  steps.Add("takeover", [&](QWidget& widget) {
    auto& takeover = dynamic_cast<TakeoverWindow&>(widget);
    WindowUser user(takeover);
    EXPECT_FALSE(user.Get("takeover_start").isEnabled());
    takeover.SetList(list);
    EXPECT_EQ(user.Text("takeover_report"), (list + ".bericht.csv").toStdString());

    user.Click("takeover_rehearsal");
    user.Click("takeover_start");
    EXPECT_THAT(Outcome(takeover), HasSubstr(std::to_string(kLines) + " angelegt, 0 abgelehnt"));
    EXPECT_FALSE(takeover.Changed());
    EXPECT_EQ(Count(table::vv_Vertraege), 4u);
    user.Click("takeover_rehearsal");

    // Asked to stop while it runs.
    QTimer::singleShot(0, &takeover, [&] { takeover.Stop(); });
    user.Click("takeover_start");
    EXPECT_THAT(Outcome(takeover), HasSubstr("Angehalten nach"));
    EXPECT_LT(Count(table::vv_Vertraege), kLines + 4u);
    user.Click("takeover_start");
    EXPECT_THAT(Outcome(takeover), HasSubstr("0 abgelehnt"));
    EXPECT_EQ(Count(table::vv_Vertraege), kLines + 4u);
    EXPECT_EQ(user.Get<QTableView>("takeover_lines").model()->rowCount(), kLines);
    EXPECT_TRUE(takeover.Changed());
    takeover.close();
  });
  RunSteps(steps, [&] { Action("takeover_list").trigger(); });
  window->FinishReading();
  ClickRow("addresses", "Kranich");
  EXPECT_EQ(window->findChild<QTreeView*>("contracts")->model()->rowCount(), kLines);
}

TEST_F(TakeoverTest, RefusedLinesSayWhyAndALineThatIsNoListIsSaid) {
  Write("Niemand", 1);
  steps.Add("takeover", [&](QWidget& widget) {
    auto& takeover = dynamic_cast<TakeoverWindow&>(widget);
    WindowUser user(takeover);
    takeover.SetList(list);
    user.Click("takeover_start");
    EXPECT_THAT(Outcome(takeover), HasSubstr("1 abgelehnt"));
    EXPECT_THAT(Outcome(takeover), HasSubstr("bestand.csv.bericht.csv.abgelehnt.csv"));
    EXPECT_THAT(
        user.Get<QTableView>("takeover_lines").model()->index(0, 3).data().toString().toStdString(),
        HasSubstr("„Niemand“ gibt es nicht"));
    QFile(list).resize(10);
    user.Click("takeover_start");
    EXPECT_TRUE(user.Get("takeover_start").isEnabled());
    takeover.close();
  });
  ExpectMessage(steps, "bestand.csv");
  RunSteps(steps, [&] { Action("takeover_list").trigger(); });
}

// Each menu's letters, and what a screen reader needs.
TEST_F(MainWindowTest, EverythingHasALetterOrANameOfItsOwn) {
  QList<QWidget*> menus{window->menuBar()};
  for (QMenu* menu : window->findChildren<QMenu*>()) menus.push_back(menu);
  EXPECT_GE(menus.size(), 6);
  for (const QWidget* menu : menus) {
    QString letters;
    for (const QAction* action : menu->actions()) {
      const auto mark = action->text().indexOf('&');
      if (action->isSeparator() || mark < 0) continue;
      const QChar letter = action->text()[mark + 1].toLower();
      EXPECT_FALSE(letters.contains(letter)) << action->text().toStdString();
      letters += letter;
    }
  }
  for (const QWidget* widget : window->findChildren<QWidget*>()) {
    const bool input =
        qobject_cast<const QLineEdit*>(widget) || (qobject_cast<const QAbstractItemView*>(widget) &&
                                                   !qobject_cast<const QHeaderView*>(widget));
    if (!input || widget->objectName().startsWith("qt_")) continue;
    EXPECT_FALSE(widget->accessibleName().isEmpty()) << widget->objectName().toStdString();
  }
}

}  // namespace
}  // namespace pactora::desktop
