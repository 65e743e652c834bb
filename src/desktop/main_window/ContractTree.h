// The contracts of one address as a tree: contracts, their terms, and the positions
// of a term. Rows are read when they are first shown.
#pragma once

#include <QAbstractItemModel>
#include <memory>
#include <vector>

#include "desktop/main_window/OpenDatabase.h"
#include "store/RecordStore.h"

namespace pactora::desktop {

class ContractTree final : public QAbstractItemModel {
 public:
  enum Level { Contract, Term, Position };
  enum Column {
    Name,
    Begin,
    End,
    Notice,
    Period,
    UnitPrice,
    Amount,
    Discount,
    NextInvoice,
    Person,
    Columns
  };

  // The database must outlive the model.
  explicit ContractTree(OpenDatabase& database, QObject* parent = nullptr);
  ~ContractTree() override;

  // Shows this address's contracts as they are now; none for 0.
  void SetAddress(store::Oid address);

  // The row of the database behind an index.
  struct Place {
    Level level = Contract;
    store::TableId table = 0;
    store::Oid oid = 0;
  };
  Place At(const QModelIndex& index) const;
  // The contract that the row belongs to. Requires: the index is valid.
  store::Oid ContractOf(const QModelIndex& index) const;
  // The contract's row; invalid when the address has no such contract.
  QModelIndex Find(store::Oid contract);

  QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
  QModelIndex parent(const QModelIndex& index) const override;
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  bool hasChildren(const QModelIndex& parent = {}) const override;
  bool canFetchMore(const QModelIndex& parent) const override;
  void fetchMore(const QModelIndex& parent) override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  struct Node {
    Node* parent = nullptr;
    int row = 0;
    int level = -1;  // of the root, whose record is the address
    store::Record record;
    std::vector<std::unique_ptr<Node>> children;
    bool complete = false;      // all children are there
    bool number_taken = false;  // another contract has the number too
  };

  Node& NodeOf(const QModelIndex& index) const;
  // Requires: the node is no position.
  store::TableId ChildTable(const Node& node) const;
  QString Text(const Node& node, Column column) const;

  OpenDatabase& database_;
  std::vector<store::TableId> tables_;  // by level
  std::unique_ptr<Node> root_;
};

}  // namespace pactora::desktop
