// The rows of a list in memory: sorted by any column, filtered by words while they
// are typed, and filled bit by bit. A list of 100,000 rows is filtered in a few
// milliseconds.
#pragma once

#include <QAbstractTableModel>
#include <QString>
#include <functional>
#include <vector>

#include "automation/lists/lists.h"
#include "desktop/main_window/cells.h"
#include "host/Value.h"

namespace pactora::desktop {

struct ListColumn {
  QString title;
  CellKind kind = CellKind::Text;
  int width = 10;  // characters, until the user chooses another
};

using ListRow = lists::Row;

class ListModel final : public QAbstractTableModel {
 public:
  explicit ListModel(std::vector<ListColumn> columns, QObject* parent = nullptr);

  const std::vector<ListColumn>& Columns() const { return columns_; }

  // Removes all rows.
  void Clear();
  // Adds rows; they are shown with the next Publish.
  void Add(std::vector<ListRow> rows);
  // Shows all rows that were added. The model is reset.
  void Publish();
  std::size_t Waiting() const { return rows_.size() - ordered_.size(); }

  // Shows the rows whose texts and dates contain all of these words, anywhere, without
  // regard to case and accents.
  void SetWords(const QString& words);
  // Shows the rows for which this is true; null for all.
  void SetCondition(std::function<bool(const ListRow& row)> condition);

  std::size_t All() const { return rows_.size(); }
  // Requires: row is one of the shown ones.
  const ListRow& Row(int row) const;
  // Where the row of that key is shown; -1 for nowhere.
  int Find(std::int64_t key) const;
  // Replaces the cells of the row with that key, if there is one.
  void Change(std::int64_t key, std::vector<host::Value> cells);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  void sort(int column, Qt::SortOrder order) override;

 private:
  struct Kept {
    ListRow row;
    QString search_key;  // of the texts and dates of all cells
  };

  void MakeSearchKey(Kept& kept) const;
  // The rows from ordered_[first] on come in order, and behind them all together.
  void Order(std::size_t first);
  void Select();

  std::vector<ListColumn> columns_;
  std::vector<Kept> rows_;      // as they were added
  std::vector<int> ordered_;    // positions in rows_
  std::vector<int> shown_;      // those of ordered_ that are shown
  std::vector<QString> words_;  // as search keys
  std::function<bool(const ListRow& row)> condition_;
  int sort_column_ = -1;  // none: as they were added
  Qt::SortOrder sort_order_ = Qt::AscendingOrder;
};

}  // namespace pactora::desktop
