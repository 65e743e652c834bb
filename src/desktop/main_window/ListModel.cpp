#include "desktop/main_window/ListModel.h"

#include <QFont>
#include <algorithm>
#include <iterator>
#include <numeric>
#include <utility>

#include "desktop/main_window/search_key.h"

namespace pactora::desktop {
namespace {

constexpr QChar kBetweenCells = u'\x1f';  // no word goes from one cell to the next

// A search for "7" means a name or a number of a contract, not an amount.
bool IsSearched(CellKind kind) { return kind == CellKind::Text || kind == CellKind::Date; }

}  // namespace

ListModel::ListModel(std::vector<ListColumn> columns, QObject* parent)
    : QAbstractTableModel(parent), columns_(std::move(columns)) {}

void ListModel::Clear() {
  beginResetModel();
  rows_.clear();
  ordered_.clear();
  shown_.clear();
  endResetModel();
}

void ListModel::MakeSearchKey(Kept& kept) const {
  kept.search_key.clear();
  for (std::size_t i = 0; i < columns_.size() && i < kept.row.cells.size(); ++i) {
    if (!IsSearched(columns_[i].kind)) continue;
    kept.search_key += SearchKey(CellText(columns_[i].kind, kept.row.cells[i]));
    kept.search_key += kBetweenCells;
  }
}

void ListModel::Add(std::vector<ListRow> rows) {
  for (ListRow& row : rows) {
    rows_.push_back({std::move(row), {}});
    MakeSearchKey(rows_.back());
  }
}

void ListModel::Publish() {
  beginResetModel();
  const std::size_t first = ordered_.size();
  ordered_.resize(rows_.size());
  std::iota(ordered_.begin() + static_cast<std::ptrdiff_t>(first), ordered_.end(),
            static_cast<int>(first));
  Order(first);
  Select();
  endResetModel();
}

void ListModel::Order(std::size_t first) {
  if (sort_column_ < 0) return;
  const auto column = static_cast<std::size_t>(sort_column_);
  const bool by_text = SortsByText(columns_[column].kind);
  // The keys of all rows once, not at each comparison.
  std::vector<QString> texts(by_text ? rows_.size() : 0);
  std::vector<double> numbers(by_text ? 0 : rows_.size());
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    const host::Value& value = rows_[i].row.cells[column];
    if (by_text)
      texts[i] =
          column == 0 ? rows_[i].search_key : SearchKey(CellText(columns_[column].kind, value));
    else
      numbers[i] = SortNumber(value);
  }
  const auto before = [&](int a, int b) {
    if (sort_order_ == Qt::DescendingOrder) std::swap(a, b);
    const auto one = static_cast<std::size_t>(a);
    const auto other = static_cast<std::size_t>(b);
    return by_text ? texts[one] < texts[other] : numbers[one] < numbers[other];
  };
  const auto middle = ordered_.begin() + static_cast<std::ptrdiff_t>(first);
  std::stable_sort(middle, ordered_.end(), before);
  std::inplace_merge(ordered_.begin(), middle, ordered_.end(), before);
}

void ListModel::Select() {
  shown_.clear();
  std::ranges::copy_if(ordered_, std::back_inserter(shown_), [this](int position) {
    const Kept& kept = rows_[static_cast<std::size_t>(position)];
    if (condition_ && !condition_(kept.row)) return false;
    return std::ranges::all_of(words_,
                               [&](const QString& word) { return kept.search_key.contains(word); });
  });
}

void ListModel::SetWords(const QString& words) {
  std::vector<QString> keys;
  for (const QString& word : SearchKey(words).split(u' ', Qt::SkipEmptyParts)) {
    keys.push_back(word);
  }
  if (keys == words_) return;
  beginResetModel();
  words_ = std::move(keys);
  Select();
  endResetModel();
}

void ListModel::SetCondition(std::function<bool(const ListRow& row)> condition) {
  beginResetModel();
  condition_ = std::move(condition);
  Select();
  endResetModel();
}

const ListRow& ListModel::Row(int row) const {
  return rows_[static_cast<std::size_t>(shown_[static_cast<std::size_t>(row)])].row;
}

int ListModel::Find(std::int64_t key) const {
  const auto found = std::ranges::find_if(shown_, [&](int position) {
    return rows_[static_cast<std::size_t>(position)].row.key == key;
  });
  return found == shown_.end() ? -1 : static_cast<int>(found - shown_.begin());
}

void ListModel::Change(std::int64_t key, std::vector<host::Value> cells) {
  const auto found = std::ranges::find_if(rows_, [&](const Kept& k) { return k.row.key == key; });
  if (found == rows_.end()) return;
  found->row.cells = std::move(cells);
  MakeSearchKey(*found);
  const int row = Find(key);
  if (row >= 0) emit dataChanged(index(row, 0), index(row, columnCount() - 1));
}

int ListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}

int ListModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant ListModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const ListRow& row = Row(index.row());
  const auto column = static_cast<std::size_t>(index.column());
  const CellKind kind = columns_[column].kind;
  switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
      return CellText(kind, row.cells[column]);
    case Qt::TextAlignmentRole:
      return static_cast<int>(CellAlignment(kind));
    case Qt::FontRole:
      if (row.strong) {
        QFont font;
        font.setBold(true);
        return font;
      }
      return {};
    default:
      return {};
  }
}

QVariant ListModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  const ListColumn& column = columns_[static_cast<std::size_t>(section)];
  if (role == Qt::DisplayRole) return column.title;
  if (role == Qt::TextAlignmentRole) return static_cast<int>(CellAlignment(column.kind));
  return {};
}

void ListModel::sort(int column, Qt::SortOrder order) {
  beginResetModel();
  sort_column_ = column;
  sort_order_ = order;
  std::ranges::sort(ordered_);  // rows that are equal stay as they were added
  Order(0);
  Select();
  endResetModel();
}

}  // namespace pactora::desktop
