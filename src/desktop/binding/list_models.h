// The entries of a list and the rows of a list view as models for Qt's views. They read
// from the control whenever a row is shown and copy nothing, also for long lists.
#pragma once

#include <QAbstractTableModel>

#include "ui/ListControl.h"
#include "ui/ListView.h"

namespace pactora::desktop {

class EntryModel final : public QAbstractListModel {
 public:
  EntryModel(const ui::ListControl& list, QObject* parent)
      : QAbstractListModel(parent), list_(list) {}

  // The list changed.
  void Reload();

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  const ui::ListControl& list_;
  int count_ = 0;  // as the views know it
};

class RowModel final : public QAbstractTableModel {
 public:
  RowModel(const ui::ListView& list, QObject* parent) : QAbstractTableModel(parent), list_(list) {}

  void Reload();

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  // Numbers stand at the right.
  Qt::Alignment Alignment(int row, int column) const;

  const ui::ListView& list_;
  int count_ = 0;
};

}  // namespace pactora::desktop
