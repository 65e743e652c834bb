#include "desktop/main_window/ListTable.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <utility>

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
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kAir);
  QHeaderView& header = *horizontalHeader();
  header.setObjectName(name + QStringLiteral("_columns"));
  header.setSectionsMovable(true);
  header.setHighlightSections(false);
  header.setStretchLastSection(true);
  const int character = fontMetrics().horizontalAdvance(u'n');
  for (std::size_t i = 0; i < model.Columns().size(); ++i) {
    header.resizeSection(static_cast<int>(i), character * model.Columns()[i].width + 2 * kAir);
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

void ListTable::Enter() {
  setFocus(Qt::TabFocusReason);
  if (!currentIndex().isValid() && rows_.rowCount() > 0) setCurrentIndex(rows_.index(0, 0));
}

void ListTable::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  if (showing_ || !current.isValid()) return;
  const ListRow& row = rows_.Row(current.row());
  if (key_ == row.key) return;
  key_ = row.key;
  if (Chosen) Chosen(row);
}

void ListTable::Open() {
  if (Opened && currentIndex().isValid()) Opened(rows_.Row(currentIndex().row()));
}

void ListTable::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    Open();
    return;
  }
  QTableView::keyPressEvent(event);
}

void ListTable::mouseDoubleClickEvent(QMouseEvent* event) {
  QTableView::mouseDoubleClickEvent(event);
  if (event->button() == Qt::LeftButton && indexAt(event->position().toPoint()).isValid()) Open();
}

}  // namespace pactora::desktop
