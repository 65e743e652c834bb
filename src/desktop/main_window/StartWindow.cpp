#include "desktop/main_window/StartWindow.h"

#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/binding/ChoosingView.h"
#include "desktop/main_window/ProgressDialog.h"
#include "desktop/main_window/ask_file.h"
#include "desktop/main_window/failures.h"
#include "desktop/text.h"

namespace pactora::desktop {
namespace {

enum Column { NameColumn, FolderColumn };

constexpr int kNameWidth = 24;  // characters
constexpr int kWidth = 92;

}  // namespace

StartWindow::StartWindow(RecentDatabases& recent) : recent_(recent) {
  setObjectName(QStringLiteral("start"));
  setWindowTitle(QStringLiteral("Pactora"));

  auto* ways = new QVBoxLayout;
  AddWay(*ways, "start_other", QStringLiteral("&Andere Datenbank …"),
         QStringLiteral("Öffnet eine Datenbank, die nicht in der Liste steht"),
         &StartWindow::AskOpen);
  AddWay(*ways, "start_new", QStringLiteral("&Neue Datenbank …"),
         QStringLiteral("Legt eine leere Datenbank an"), &StartWindow::AskNew);
  AddWay(*ways, "start_sample", QStringLiteral("&Beispieldatenbank …"),
         QStringLiteral("Legt eine Datenbank mit erfundenen Adressen, Artikeln und Verträgen an"),
         &StartWindow::AskSample);
  AddWay(*ways, "start_import", QStringLiteral("&Importieren …"),
         QStringLiteral("Liest einen Datenbestand in eine neue Datenbank"),
         &StartWindow::AskImport);
  ways->addStretch(1);
  AddWay(*ways, "start_quit", QStringLiteral("Been&den"), {}, &StartWindow::reject);

  auto* all = new QHBoxLayout(this);
  all->addWidget(MakeRecent(), 1);
  all->addLayout(ways);
  const QSize wanted(fontMetrics().horizontalAdvance(u'n') * kWidth, sizeHint().height());
  resize(wanted.boundedTo(screen()->availableSize()));
}

QWidget* StartWindow::MakeRecent() {
  list_.setObjectName(QStringLiteral("start_recent"));
  list_.setColumnCount(2);
  list_.setHeaderLabels({QStringLiteral("Datenbank"), QStringLiteral("Ordner")});
  list_.header()->resizeSection(NameColumn, fontMetrics().horizontalAdvance(u'n') * kNameWidth);
  list_.setRootIsDecorated(false);
  list_.setUniformRowHeights(true);
  list_.setItemDelegate(new RoomyDelegate(&list_));
  list_.setAllColumnsShowFocus(true);
  list_.setTextElideMode(Qt::ElideMiddle);
  list_.setAccessibleName(QStringLiteral("Zuletzt geöffnete Datenbanken"));
  auto* label = new QLabel(QStringLiteral("&Zuletzt geöffnete Datenbanken"));
  label->setBuddy(&list_);

  open_.setObjectName(QStringLiteral("start_open"));
  open_.setText(QStringLiteral("Ö&ffnen"));
  open_.setDefault(true);
  remove_.setObjectName(QStringLiteral("start_remove"));
  remove_.setText(QStringLiteral("Aus der &Liste nehmen"));
  remove_.setToolTip(QStringLiteral("Die Datenbank selbst bleibt (Entf)"));
  remove_.setAutoDefault(false);
  connect(&open_, &QPushButton::clicked, this, &StartWindow::OpenChosen);
  connect(&remove_, &QPushButton::clicked, this, &StartWindow::RemoveChosen);
  connect(&list_, &QTreeWidget::itemDoubleClicked, this, &StartWindow::OpenChosen);
  connect(new QShortcut(QKeySequence::Delete, &list_, {}, {}, Qt::WidgetShortcut),
          &QShortcut::activated, this, &StartWindow::RemoveChosen);

  auto* buttons = new QHBoxLayout;
  buttons->addWidget(&open_);
  buttons->addWidget(&remove_);
  buttons->addStretch(1);
  auto* recent = new QWidget;
  auto* all = new QVBoxLayout(recent);
  all->setContentsMargins(0, 0, 0, 0);
  all->addWidget(label);
  all->addWidget(&list_, 1);
  all->addLayout(buttons);
  return recent;
}

void StartWindow::AddWay(QBoxLayout& ways, const char* name, const QString& text,
                         const QString& tip, void (StartWindow::*act)()) {
  auto* button = new QPushButton(text);
  button->setObjectName(QString::fromUtf8(name));
  button->setToolTip(tip);
  button->setAutoDefault(false);
  connect(button, &QPushButton::clicked, this, act);
  ways.addWidget(button);
}

void StartWindow::showEvent(QShowEvent* event) {
  ShowRecent(0);
  QDialog::showEvent(event);
}

void StartWindow::ShowRecent(int chosen) {
  list_.clear();
  for (const QString& database : recent_.All()) {
    const QFileInfo file(database);
    const bool is_there = file.exists();
    auto* item = new QTreeWidgetItem(
        &list_, {is_there ? file.fileName() : file.fileName() + QStringLiteral(" (fehlt)"),
                 QDir::toNativeSeparators(file.path())});
    item->setData(NameColumn, Qt::UserRole, database);
    item->setToolTip(FolderColumn, QDir::toNativeSeparators(database));
    if (is_there) continue;
    for (const Column column : {NameColumn, FolderColumn})
      item->setForeground(column, palette().brush(QPalette::Disabled, QPalette::Text));
  }
  const int count = list_.topLevelItemCount();
  list_.setCurrentItem(list_.topLevelItem(std::min(chosen, count - 1)));
  const bool any = count > 0;
  open_.setEnabled(any);
  remove_.setEnabled(any);
  if (any)
    list_.setFocus();
  else
    findChild<QPushButton*>(QStringLiteral("start_other"))->setFocus();
}

QString StartWindow::Chosen() const {
  const QTreeWidgetItem* item = list_.currentItem();
  return item ? item->data(NameColumn, Qt::UserRole).toString() : QString();
}

QString StartWindow::Folder() const {
  const QStringList recent = recent_.All();
  return recent.isEmpty() ? QString() : QFileInfo(recent.constFirst()).path();
}

QString StartWindow::InFolder(const char* file) const {
  const QString folder = Folder();
  return (folder.isEmpty() ? folder : folder + u'/') + QString::fromUtf8(file);
}

void StartWindow::OpenChosen() {
  if (const QString database = Chosen(); !database.isEmpty()) OpenAsked(FromQt(database));
}

void StartWindow::RemoveChosen() {
  const int row = list_.indexOfTopLevelItem(list_.currentItem());
  recent_.Remove(Chosen());
  ShowRecent(row);
}

void StartWindow::AskOpen() {
  const QString database = AskDatabase(this, Folder());
  if (!database.isEmpty()) OpenAsked(FromQt(database));
}

void StartWindow::AskNew() {
  const QString database =
      AskNewDatabase(this, QStringLiteral("Neue Datenbank"), InFolder("firma.db"));
  if (!database.isEmpty()) Make(database, dataset::Content::None);
}

void StartWindow::AskSample() {
  const QString database =
      AskNewDatabase(this, QStringLiteral("Beispieldatenbank"), InFolder("beispiel.db"));
  if (!database.isEmpty()) Make(database, dataset::Content::Sample);
}

void StartWindow::AskImport() {
  const QString file = AskDataset(this, Folder());
  if (file.isEmpty()) return;
  const QFileInfo read(file);
  const QString database =
      AskNewDatabase(this, QStringLiteral("In welche neue Datenbank?"),
                     read.dir().filePath(read.completeBaseName() + QStringLiteral(".db")));
  if (!database.isEmpty()) ImportFrom(file, database);
}

void StartWindow::Make(const QString& database, dataset::Content content) {
  MakeBy(QStringLiteral("Die Datenbank wird angelegt"), database,
         [&](const dataset::Progress& progress) {
           dataset::InitDatabase(FromQt(database), content, workspace::Access::Write, progress);
         });
}

void StartWindow::ImportFrom(const QString& file, const QString& database) {
  MakeBy(QStringLiteral("Der Datenbestand wird eingelesen"), database,
         [&](const dataset::Progress& progress) {
           dataset::ImportDatabase(FromQt(database), formats::FileSource(FromQt(file)),
                                   workspace::Access::Write, progress);
         });
}

void StartWindow::MakeBy(const QString& title, const QString& database,
                         const std::function<void(const dataset::Progress& progress)>& make) {
  const auto failed = ErrorOf([&] {
    ProgressDialog progress(title, this);
    make(progress.Reporter());
  });
  if (failed)
    ShowFailure(*failed, this);
  else
    OpenAsked(FromQt(database));
}

}  // namespace pactora::desktop
