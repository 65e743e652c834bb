#include "desktop/main_window/MainWindow.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QFileInfo>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>
#include <vector>

#include "automation/dataset/dataset_files.h"
#include "automation/deadlines/deadlines.h"
#include "automation/workspace/contract_numbers.h"
#include "automation/workspace/database.h"
#include "desktop/MessageBox.h"
#include "desktop/main_window/ProgressDialog.h"
#include "desktop/main_window/TakeoverWindow.h"
#include "desktop/main_window/ask_file.h"
#include "desktop/text.h"
#include "schema/names.h"

namespace pactora::desktop {
namespace {

namespace table = schema::table;
}  // namespace

MainWindow::MainWindow(OpenDatabase& database, WindowMemory& memory)
    : database_(database),
      memory_(memory),
      read_only_(database.Store().IsReadOnly()),
      addresses_(database),
      types_(database),
      deadlines_(database),
      appointments_(database) {
  setObjectName(QStringLiteral("main"));
  setWindowTitle(QStringLiteral("%1%2 – Pactora")
                     .arg(ToQt(database.Store().ReadProfile().name),
                          read_only_ ? QStringLiteral(" (schreibgeschützt)") : QString()));
  database_.Screen().SetMainWindow(this);
  MakeActions();
  MakePages();
  pages_.setObjectName(QStringLiteral("pages"));
  pages_.setDocumentMode(true);
  setCentralWidget(&pages_);
  connect(&pages_, &QTabWidget::currentChanged, this, [this] { ReloadPage(); });

  const QString file = ToQt(database.Name());
  auto* where = new QLabel(QStringLiteral("Benutzer: %1   Datenbank: %2")
                               .arg(ToQt(database.UserName()), QFileInfo(file).fileName()));
  where->setTextFormat(Qt::PlainText);
  where->setToolTip(file);
  statusBar()->addPermanentWidget(where);

  // Wide enough for the columns of every list, where the screen is.
  const QSize wanted(fontMetrics().horizontalAdvance(u'n') * 175, fontMetrics().height() * 58);
  resize(wanted.boundedTo(RoomFor(*this)));
  memory_.Restore(*this);
  Reload();
  addresses_.List().Search();
}

MainWindow::~MainWindow() {
  database_.Screen().SetMainWindow(nullptr);
  pages_.disconnect(this);  // the pages go one by one
}

QAction* MainWindow::Add(QMenu& menu, const char* name, const QString& text,
                         const QKeySequence& keys, void (MainWindow::*act)()) {
  QAction* action = menu.addAction(text);
  action->setObjectName(QString::fromUtf8(name));
  action->setShortcut(keys);
  connect(action, &QAction::triggered, this, act);
  return action;
}

void MainWindow::MakeActions() {
  QMenu& file = *menuBar()->addMenu(QStringLiteral("&Datei"));
  Add(file, "open", QStringLiteral("Ö&ffnen …"), QKeySequence::Open, &MainWindow::AskOpen);
  recent_ = file.addMenu(QStringLiteral("&Zuletzt geöffnet"));
  Add(file, "close", QStringLiteral("S&chließen"), QKeySequence::Close, &MainWindow::AskClose);
  file.addSeparator();
  QAction* take_in =
      Add(file, "import", QStringLiteral("&Importieren …"), {}, &MainWindow::AskImport);
  QAction* give_out =
      Add(file, "export", QStringLiteral("&Exportieren …"), {}, &MainWindow::AskExport);
  file.addSeparator();
  Add(file, "quit", QStringLiteral("&Beenden"), QKeySequence::Quit, &MainWindow::Quit);

  QMenu& contracts = *menuBar()->addMenu(QStringLiteral("&Verträge"));
  new_contract_ = Add(contracts, "new_contract", QStringLiteral("&Neuer Vertrag …"),
                      QKeySequence::New, &MainWindow::NewContract);
  takeover_ = Add(contracts, "takeover_list", QStringLiteral("&Übernahmeliste …"), {},
                  &MainWindow::AskTakeover);
  Add(contracts, "calendar", QStringLiteral("Fristen als &Kalenderdatei …"), {},
      &MainWindow::AskCalendar)
      ->setEnabled(deadlines::HasCalendars());
  tick_ = Add(contracts, "tick", QStringLiteral("Termin &erledigt"),
              QKeySequence(Qt::CTRL | Qt::Key_E), &MainWindow::TickAppointment);
  take_back_ = Add(contracts, "take_back", QStringLiteral("Erledigen &zurücknehmen"),
                   QKeySequence::Undo, &MainWindow::TakeBackTick);

  QMenu& types = *menuBar()->addMenu(QStringLiteral("Vertrags&typen"));
  new_type_ = Add(types, "new_type", QStringLiteral("&Neuer Vertragstyp …"),
                  QKeySequence(Qt::CTRL | Qt::Key_T), &MainWindow::NewType);
  edit_type_ =
      Add(types, "edit_type", QStringLiteral("Vertragstyp &ändern …"), {}, &MainWindow::EditType);

  QMenu& view = *menuBar()->addMenu(QStringLiteral("&Ansicht"));
  Add(view, "search", QStringLiteral("&Suchen"), QKeySequence::Find, &MainWindow::SearchPage);
  Add(view, "reload", QStringLiteral("&Aktualisieren"), QKeySequence::Refresh, &MainWindow::Reload);
  MakeLookMenu(view);

  QMenu& help = *menuBar()->addMenu(QStringLiteral("&Hilfe"));
  Add(help, "about", QStringLiteral("Ü&ber Pactora"), {}, &MainWindow::TellAbout);

  QToolBar& bar = *addToolBar(QStringLiteral("Werkzeuge"));
  bar.setObjectName(QStringLiteral("tools"));
  bar.setMovable(false);
  bar.addActions({new_contract_, takeover_});
  bar.addSeparator();
  bar.addAction(new_type_);
  bar.addSeparator();
  bar.addActions({take_in, give_out});
}

void MainWindow::MakeLookMenu(QMenu& menu) {
  QMenu& looks = *menu.addMenu(QStringLiteral("&Darstellung"));
  auto* group = new QActionGroup(this);
  const auto add = [&](const QString& text, Theme theme) {
    QAction* action = looks.addAction(text);
    action->setCheckable(true);
    action->setChecked(memory_.Look() == theme);
    group->addAction(action);
    connect(action, &QAction::triggered, this, [this, theme] {
      memory_.KeepLook(theme);
      UseTheme(theme);
    });
  };
  add(QStringLiteral("wie das &System"), Theme::System);
  add(QStringLiteral("&hell"), Theme::Light);
  add(QStringLiteral("&dunkel"), Theme::Dark);
}

void MainWindow::MakePages() {
  const char* const titles[] = {"Adressen", "Vertragstypen", "Fristen", "Termine"};
  const std::vector<Page*> pages = Pages();
  for (std::size_t i = 0; i < pages.size(); ++i) {
    pages_.addTab(pages[i], QString::fromUtf8(titles[i]));
    pages[i]->ChoiceChanged = [this] { ShowChoice(); };
    pages[i]->ContractAsked = [this](store::Oid contract) { ShowContract(contract); };
  }
  auto* calendar = findChild<QAction*>(QStringLiteral("calendar"));
  addresses_.AddRowAction(*new_contract_);
  types_.Table().OpenBy(*edit_type_);
  types_.Table().addAction(new_type_);
  types_.AddTool(*new_type_);
  types_.AddTool(*edit_type_);
  deadlines_.Table().addAction(calendar);
  deadlines_.AddTool(*calendar);
  appointments_.Table().addActions({tick_, take_back_});
  appointments_.AddTool(*tick_);
}

Page& MainWindow::PageShown() const { return dynamic_cast<Page&>(*pages_.currentWidget()); }

void MainWindow::Reload() {
  stale_ = Pages();
  ReloadPage();
}

void MainWindow::ReloadPage() {
  Page& page = PageShown();
  // The add-on may have made other rows current meanwhile.
  std::erase(stale_, &page) > 0 ? page.Reload() : page.ShowCurrent();
  ShowChoice();
}

void MainWindow::FinishReading() {
  for (Page* page : Pages()) page->List().Finish();
}

void MainWindow::ShowWork() {
  stale_ = {&types_, &deadlines_, &appointments_};
  types_.ShowCurrent();
  ReloadPage();
}

void MainWindow::Say(const QString& text) {
  constexpr int kAWhile = 10'000;  // milliseconds
  statusBar()->showMessage(text, kAWhile);
}

void MainWindow::ShowChoice() {
  database_.Read([this] {
    // Whatever writes is offered here.
    const auto offer = [this](QAction* action, bool possible) {
      action->setEnabled(possible && !read_only_);
    };
    offer(new_contract_, database_.Current(table::Adressen) != 0);
    offer(takeover_, true);
    offer(new_type_, true);
    offer(edit_type_, database_.Current(table::vv_Vertragsdefinitionen) != 0);
    offer(tick_, &PageShown() == &appointments_ && appointments_.HasChoice());
    offer(take_back_, appointments_.CanTakeBack());
  });
}

void MainWindow::ShowContract(store::Oid contract) {
  database_.Do([&] { database_.GoTo(table::vv_Vertraege, contract); });
  pages_.setCurrentWidget(&addresses_);
  database_.Read([this] { addresses_.List().Reveal(database_.Current(table::Adressen)); });
}

void MainWindow::NewContract() {
  bool saved = false;
  std::int32_t terms = 0;
  bool show_definition = false;
  const bool done = database_.Do([&] {
    database_.Session().Entry().NewContract(database_.Session().App(), saved, terms,
                                            show_definition);
  });
  if (done && saved) {
    Say(QStringLiteral("Vertrag angelegt"));
    pages_.setCurrentWidget(&addresses_);
    std::string hint;
    database_.Read([&] {
      hint = workspace::NumberHint(database_.Store(), database_.Current(table::vv_Vertraege));
    });
    if (!hint.empty()) database_.Tell("Hinweis: " + hint);
  }
  ShowWork();
}

void MainWindow::NewType() {
  database_.Do([this] {
    database_.Session().Entry().EditContractDefinition(database_.Session().App(), true);
  });
  pages_.setCurrentWidget(&types_);
  ShowWork();
}

void MainWindow::EditType() {
  if (!edit_type_->isEnabled()) return;
  database_.Do([this] {
    database_.Session().Entry().EditContractDefinition(database_.Session().App(), false);
  });
  ShowWork();
}

void MainWindow::TickAppointment() {
  if (!appointments_.HasChoice()) return;
  const int changed = appointments_.Tick();
  ShowWork();
  Say((changed == 1 ? QStringLiteral("Ein Termin geändert")
                    : QStringLiteral("%1 Termine geändert").arg(changed)) +
      QStringLiteral(", %1 nimmt es zurück")
          .arg(take_back_->shortcut().toString(QKeySequence::NativeText)));
}

void MainWindow::TakeBackTick() {
  appointments_.TakeBack();
  ShowWork();
}

bool MainWindow::TakesDataset() { return !read_only_ && workspace::IsEmpty(database_.Store()); }

bool MainWindow::ImportFrom(const QString& file, const QString& new_database) {
  const bool here = TakesDataset();
  const std::string database = here ? database_.Name() : FromQt(new_database);
  const bool done = database_.Do([&] {
    ProgressDialog progress(QStringLiteral("Der Datenbestand wird eingelesen"), this);
    dataset::ImportDatabase(database, formats::FileSource(FromQt(file)), workspace::Access::Write,
                            progress.Reporter());
  });
  if (done && OpenAsked) OpenAsked(database);
  return done;
}

bool MainWindow::ExportTo(const QString& file) {
  const bool done = database_.Do([&] {
    workspace::RequireNoDatabase(database_.Name(), FromQt(file));
    ProgressDialog progress(QStringLiteral("Der Datenbestand wird geschrieben"), this);
    dataset::ExportDatabase(database_.Name(), FromQt(file), progress.Reporter());
  });
  if (done) Say(QStringLiteral("Geschrieben: ") + file);
  return done;
}

bool MainWindow::WriteCalendar(const QString& file) {
  const bool done = database_.Do([&] {
    const platform::Date today = database_.Clock().Today();
    const auto shown = deadlines_.ShownKeys();
    auto deadlines = deadlines::ReadDeadlines(database_.Store(), today, std::nullopt);
    std::erase_if(deadlines, [&](const deadlines::Deadline& deadline) {
      return !shown.contains(deadlines::KeyOf(deadline));
    });
    deadlines::WriteCalendar(deadlines, database_.Name(), database_.Store(), today, FromQt(file));
  });
  if (done) Say(QStringLiteral("Geschrieben: ") + file);
  return done;
}

void MainWindow::AskClose() {
  if (CloseAsked) CloseAsked();
}

void MainWindow::AskOpen() {
  const QString file = AskDatabase(this);
  if (!file.isEmpty() && OpenAsked) OpenAsked(FromQt(file));
}

void MainWindow::AskImport() {
  const QString file = AskDataset(this);
  if (file.isEmpty()) return;
  QString database;
  if (!TakesDataset()) {
    database = AskNewDatabase(this, QStringLiteral("In welche neue Datenbank?"));
    if (database.isEmpty()) return;
  }
  ImportFrom(file, database);
}

void MainWindow::AskExport() {
  const QFileInfo database(ToQt(database_.Name()));
  const QString file =
      AskNewFile(this, {QStringLiteral("Datenbestand exportieren"),
                        database.baseName() + QStringLiteral(".json"),
                        QStringLiteral("Datenbestände (*.json)"), QStringLiteral("json")});
  if (!file.isEmpty()) ExportTo(file);
}

void MainWindow::AskCalendar() {
  pages_.setCurrentWidget(&deadlines_);  // what it shows is what is written
  const QString file =
      AskNewFile(this, {QStringLiteral("Fristen als Kalenderdatei"), QStringLiteral("Fristen.ics"),
                        QStringLiteral("Kalender (*.ics)"), QStringLiteral("ics")});
  if (!file.isEmpty()) WriteCalendar(file);
}

void MainWindow::AskTakeover() {
  TakeoverWindow window(database_.Name(), database_.Clock(), this);
  window.exec();
  if (!window.Changed()) return;
  // Rows that were read before are out of date now.
  Reload();
}

void MainWindow::SearchPage() { PageShown().List().Search(); }

void MainWindow::TellAbout() {
  ShowMessageBox({std::string("Pactora ") + PACTORA_VERSION +
                      "\r\nVerträge zu den Adressen und Artikeln einer Tessarin-Datenbank",
                  ui::style::kInformation, "Über Pactora"},
                 this);
}

void MainWindow::Quit() { close(); }

void MainWindow::closeEvent(QCloseEvent* event) {
  memory_.Keep(*this);
  event->accept();
}

}  // namespace pactora::desktop
