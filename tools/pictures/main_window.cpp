#include "pictures/main_window.h"

#include <QAbstractButton>
#include <QApplication>
#include <QSpinBox>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTreeView>

#include "automation/workspace/row_walk.h"
#include "desktop/main_window/MainWindow.h"
#include "desktop/main_window/TakeoverWindow.h"
#include "desktop/main_window/WindowMemory.h"
#include "schema/names.h"

namespace pactora::desktop {
namespace {

namespace table = schema::table;

store::Oid ContractWithMostTerms(OpenDatabase& database) {
  store::Oid best = 0;
  std::int64_t most = 0;
  const store::TableId terms = database.Table(table::vv_Vertragsstaende);
  workspace::ForEachRow(
      database.Store(), database.Table(table::vv_Vertraege), [&](const store::Record& record) {
        const std::int64_t count = database.Store().CountInParent(terms, record.oid);
        if (count > most) best = record.oid;
        most = std::max(most, count);
        return true;
      });
  return best;
}

}  // namespace

void MakeMainWindowPictures(OpenDatabase& database, const QString& takeover_list,
                            Pictures& pictures) {
  const QTemporaryDir folder;
  QSettings settings(folder.filePath(QStringLiteral("windows.ini")), QSettings::IniFormat);
  WindowMemory memory(settings, QStringLiteral("pictures"));
  database.GoTo(table::vv_Vertraege, ContractWithMostTerms(database));
  MainWindow window(database, memory);
  window.resize(1400, 860);
  window.show();
  window.FinishReading();
  QApplication::processEvents();
  window.Addresses().List().Reveal(database.Current(table::Adressen));
  if (auto* tree = window.findChild<QTreeView*>(QStringLiteral("contracts"))) tree->expandAll();
  pictures.TakeAsItIs(window, "main");

  window.findChild<QTabWidget*>(QStringLiteral("pages"))->setCurrentWidget(&window.Deadlines());
  // Far enough ahead for the list to be full.
  window.findChild<QSpinBox*>(QStringLiteral("deadlines_weeks"))->setValue(80);
  window.FinishReading();
  pictures.TakeAsItIs(window, "deadlines");

  TakeoverWindow takeover(database.Name(), database.Clock(), &window);
  takeover.SetList(takeover_list);
  takeover.findChild<QAbstractButton*>(QStringLiteral("takeover_rehearsal"))->setChecked(true);
  takeover.show();
  takeover.Start();
  pictures.TakeAsItIs(takeover, "takeover");
}

}  // namespace pactora::desktop
