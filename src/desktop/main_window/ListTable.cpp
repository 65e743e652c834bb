#include "desktop/main_window/ListTable.h"

#include <QFocusEvent>
#include <QHeaderView>
#include <QStyle>
#include <algorithm>

namespace pactora::desktop {
namespace {

constexpr int kAir = 8;  // pixels above and below a row's text together

}  // namespace

ListTable::ListTable(ListModel& model, const QString& name, QWidget* parent)
    : QTableView(parent), rows_(model) {
  setObjectName(name);
  setModel(&model);
  setSelectionMode(QAbstractItemView::SingleSelection);
  setSelectionBehavior(QAbstractItemView::SelectRows);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setTabKeyNavigation(false);
  setAlternatingRowColors(true);
  setShowGrid(false);
  setWordWrap(false);
  setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  setContextMenuPolicy(Qt::ActionsContextMenu);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kAir);
  QHeaderView& header = *horizontalHeader();
  header.setObjectName(name + QStringLiteral("_columns"));
  header.setContextMenuPolicy(Qt::PreventContextMenu);  // the menu is that of a row
  header.setSectionsMovable(true);
  header.setHighlightSections(false);
  header.setStretchLastSection(true);
  const int character = fontMetrics().horizontalAdvance(u'n');
  for (std::size_t i = 0; i < model.Columns().size(); ++i) {
    const int column = static_cast<int>(i);
    // The title and the arrow of the order at least.
    const int least =
        header.sectionSizeHint(column) + style()->pixelMetric(QStyle::PM_HeaderMarkSize);
    header.resizeSection(column, std::max(least, character * model.Columns()[i].width + 2 * kAir));
  }
  connect(&model, &QAbstractItemModel::modelReset, this, [this] { Restore(false); });
}

void ListTable::ShowChoice(std::optional<std::int64_t> key) {
  key_ = key;
  Restore(true);
}

void ListTable::Restore(bool scroll) {
  const int row = key_ ? rows_.Find(*key_) : -1;
  showing_ = true;
  if (row < 0) {
    selectionModel()->clear();
  } else {
    selectionModel()->setCurrentIndex(
        rows_.index(row, 0), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    if (scroll) scrollTo(rows_.index(row, 0));
  }
  showing_ = false;
}

void ListTable::Enter() { setFocus(Qt::TabFocusReason); }

// Coming by keyboard, a person has a row at once; Qt would make it current, but not chosen.
void ListTable::focusInEvent(QFocusEvent* event) {
  const bool by_mouse = event->reason() == Qt::MouseFocusReason;
  if (!by_mouse && !selectionModel()->hasSelection() && rows_.rowCount() > 0)
    setCurrentIndex(currentIndex().isValid() ? currentIndex() : rows_.index(0, 0));
  QTableView::focusInEvent(event);
}

void ListTable::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  if (showing_ || !current.isValid()) return;
  const ListRow& row = rows_.Row(current.row());
  if (key_ == row.key) return;
  key_ = row.key;
  if (Chosen) Chosen(row);
}

void ListTable::OpenBy(QAction& action) {
  action.setShortcuts({Qt::Key_Return, Qt::Key_Enter});
  action.setShortcutContext(Qt::WidgetShortcut);
  addAction(&action);
  connect(this, &QTableView::doubleClicked, &action, &QAction::trigger);
}

const ListRow* ListTable::Current() const {
  return currentIndex().isValid() ? &rows_.Row(currentIndex().row()) : nullptr;
}

}  // namespace pactora::desktop
