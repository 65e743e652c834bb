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

store::Oid ContractWithMostTerms(Desk& desk) {
  store::Oid best = 0;
  std::int64_t most = 0;
  const store::TableId terms = desk.Table(table::vv_Vertragsstaende);
  workspace::ForEachRow(desk.Store(), desk.Table(table::vv_Vertraege),
                        [&](const store::Record& record) {
                          const std::int64_t count = desk.Store().CountInParent(terms, record.oid);
                          if (count > most) best = record.oid;
                          most = std::max(most, count);
                          return true;
                        });
  return best;
}

}  // namespace

void MakeMainWindowPictures(Desk& desk, const QString& takeover_list, Pictures& pictures) {
  const QTemporaryDir folder;
  QSettings settings(folder.filePath(QStringLiteral("windows.ini")), QSettings::IniFormat);
  WindowMemory memory(settings, QStringLiteral("pictures"));
  desk.GoTo(table::vv_Vertraege, ContractWithMostTerms(desk));
  MainWindow window(desk, memory);
  window.resize(1400, 860);
  window.show();
  window.FinishReading();
  QApplication::processEvents();
  window.Addresses().Addresses().Reveal(desk.Current(table::Adressen));
  if (auto* tree = window.findChild<QTreeView*>(QStringLiteral("contracts"))) tree->expandAll();
  pictures.TakeAsItIs(window, "main");

  window.findChild<QTabWidget*>(QStringLiteral("pages"))->setCurrentWidget(&window.Deadlines());
  // Far enough ahead for the list to be full.
  window.findChild<QSpinBox*>(QStringLiteral("deadlines_weeks"))->setValue(80);
  window.FinishReading();
  pictures.TakeAsItIs(window, "deadlines");

  TakeoverWindow takeover(desk.Database(), desk.Clock(), &window);
  takeover.SetList(takeover_list);
  takeover.findChild<QAbstractButton*>(QStringLiteral("takeover_rehearsal"))->setChecked(true);
  takeover.show();
  takeover.Start();
  pictures.TakeAsItIs(takeover, "takeover");
}

}  // namespace pactora::desktop
