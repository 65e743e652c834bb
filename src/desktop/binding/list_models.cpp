#include "desktop/binding/list_models.h"

#include "desktop/text.h"
#include "platform/Locale.h"

namespace pactora::desktop {

void EntryModel::Reload() {
  beginResetModel();
  count_ = list_.Count();
  endResetModel();
}

int EntryModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : count_; }

QVariant EntryModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= list_.Count()) return {};
  if (role != Qt::DisplayRole && role != Qt::EditRole) return {};
  return ToQt(list_.ItemText(index.row()));
}

void RowModel::Reload() {
  beginResetModel();
  count_ = list_.RowCount();
  endResetModel();
}

int RowModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : count_; }

int RowModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(list_.Columns().size());
}

QVariant RowModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= list_.RowCount()) return {};
  const int row = index.row() + 1;
  switch (role) {
    case Qt::DisplayRole:
      return ToQt(list_.Text(row, index.column()));
    case Qt::ToolTipRole: {
      const std::string& tool_tip = list_.RowToolTip(row);
      return ToQt(tool_tip.empty() ? list_.Text(row, index.column()) : tool_tip);
    }
    case Qt::TextAlignmentRole:
      return Alignment(row, index.column()).toInt();
    default:
      return {};
  }
}

QVariant RowModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  if (role == Qt::DisplayRole) {
    return ToQt(list_.Columns()[static_cast<std::size_t>(section)].caption);
  }
  if (role == Qt::TextAlignmentRole && list_.RowCount() > 0) return Alignment(1, section).toInt();
  return {};
}

Qt::Alignment RowModel::Alignment(int row, int column) const {
  const std::string& text = list_.Text(row, column);
  const bool number = platform::ParseNumber(text, platform::Locale{','}).has_value() ||
                      platform::ParseNumber(text, platform::Locale{'.'}).has_value();
  return Qt::AlignVCenter | (number ? Qt::AlignRight : Qt::AlignLeft);
}

}  // namespace pactora::desktop
