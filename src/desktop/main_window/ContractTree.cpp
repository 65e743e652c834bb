#include "desktop/main_window/ContractTree.h"

#include <QFont>
#include <array>
#include <utility>

#include "automation/lists/details.h"
#include "automation/workspace/contract_numbers.h"
#include "desktop/main_window/cells.h"
#include "desktop/text.h"
#include "schema/names.h"

namespace pactora::desktop {
namespace {

namespace field = schema::field;
namespace table = schema::table;

constexpr int kRowsAtOnce = 200;

struct ColumnFields {
  const char* title;
  CellKind kind;
  // The field by level; empty for none.
  std::string_view fields[3];
};

constexpr std::array<ColumnFields, ContractTree::Columns> kColumns = {{
    {"Vertrag, Laufzeit, Position", CellKind::Text, {}},
    {"Beginn", CellKind::Date, {field::VertragBeginn, field::LaufzeitStart, {}}},
    {"Ende", CellKind::Date, {field::VertragEnde, field::LaufzeitEnde, {}}},
    {"Kündigung bis", CellKind::Date, {field::KuendfristDatum, {}, {}}},
    {"Zahlung", CellKind::Text, {field::AktZahlungsperiodeStr, field::ZahlungsperiodeStr, {}}},
    {"Einzelpreis", CellKind::Money, {{}, {}, field::Nettopreis}},
    {"Netto", CellKind::Money, {field::AktValue, field::Value, {}}},
    {"Rabatt", CellKind::Percent, {{}, field::Rabattprozent, field::Rabattprozent}},
    {"Nächste Rechnung", CellKind::Date, {field::AktNaechsteRechnung, field::NaechsteRechnung, {}}},
    {"Verantwortlich", CellKind::Text, {field::Verantwortlich, {}, {}}},
}};

QString Joined(const QString& first, const QString& between, const QString& second) {
  if (first.isEmpty() || second.isEmpty()) return first + second;
  return first + between + second;
}

}  // namespace

ContractTree::ContractTree(OpenDatabase& database, QObject* parent)
    : QAbstractItemModel(parent),
      database_(database),
      tables_{database.Table(table::vv_Vertraege), database.Table(table::vv_Vertragsstaende),
              database.Table(table::vv_Vertragspositionen)} {
  root_ = std::make_unique<Node>();
  root_->complete = true;
}

ContractTree::~ContractTree() = default;

void ContractTree::SetAddress(store::Oid address) {
  beginResetModel();
  root_ = std::make_unique<Node>();
  root_->record.oid = address;
  root_->complete = address == 0;
  endResetModel();
  if (!root_->complete) fetchMore({});
}

ContractTree::Node& ContractTree::NodeOf(const QModelIndex& index) const {
  return index.isValid() ? *static_cast<Node*>(index.internalPointer()) : *root_;
}

store::TableId ContractTree::ChildTable(const Node& node) const {
  const int level = node.level + 1;
  return tables_[static_cast<std::size_t>(level)];
}

ContractTree::Place ContractTree::At(const QModelIndex& index) const {
  const Node& node = NodeOf(index);
  return {static_cast<Level>(node.level), tables_[static_cast<std::size_t>(node.level)],
          node.record.oid};
}

store::Oid ContractTree::ContractOf(const QModelIndex& index) const {
  const Node* node = &NodeOf(index);
  while (node->level > Contract) node = node->parent;
  return node->record.oid;
}

QModelIndex ContractTree::Find(store::Oid contract) {
  for (int row = 0;; ++row) {
    if (row == rowCount()) {
      if (!canFetchMore({})) return {};
      fetchMore({});
      if (row == rowCount()) return {};
    }
    const QModelIndex found = index(row, 0);
    if (At(found).oid == contract) return found;
  }
}

QModelIndex ContractTree::index(int row, int column, const QModelIndex& parent) const {
  if (!hasIndex(row, column, parent)) return {};
  return createIndex(row, column, NodeOf(parent).children[static_cast<std::size_t>(row)].get());
}

QModelIndex ContractTree::parent(const QModelIndex& index) const {
  if (!index.isValid()) return {};
  Node* parent = NodeOf(index).parent;
  if (parent == root_.get()) return {};
  return createIndex(parent->row, 0, parent);
}

int ContractTree::rowCount(const QModelIndex& parent) const {
  return parent.column() > 0 ? 0 : static_cast<int>(NodeOf(parent).children.size());
}

int ContractTree::columnCount(const QModelIndex&) const { return Columns; }

bool ContractTree::hasChildren(const QModelIndex& parent) const {
  const Node& node = NodeOf(parent);
  if (!node.children.empty()) return true;
  if (node.complete || node.level == Position) return false;
  bool any = false;
  database_.Read(
      [&] { any = database_.Store().CountInParent(ChildTable(node), node.record.oid) > 0; });
  return any;
}

bool ContractTree::canFetchMore(const QModelIndex& parent) const {
  const Node& node = NodeOf(parent);
  return !node.complete && node.level < Position;
}

void ContractTree::fetchMore(const QModelIndex& parent) {
  Node& node = NodeOf(parent);
  std::vector<std::unique_ptr<Node>> read;
  std::int64_t after = node.children.empty() ? 0 : node.children.back()->record.order;
  const store::TableId table = ChildTable(node);
  const auto rows = [&] { return static_cast<int>(node.children.size() + read.size()); };
  node.complete = !database_.Read([&] {
    while (!node.complete && static_cast<int>(read.size()) < kRowsAtOnce) {
      auto child = std::make_unique<Node>();
      if (!database_.Store().NextInParent(table, node.record.oid, after, child->record)) {
        node.complete = true;
        break;
      }
      after = child->record.order;
      child->parent = &node;
      child->level = node.level + 1;
      child->row = rows();
      if (child->level == Contract)
        child->number_taken = workspace::IsNumberTaken(database_.Store(), child->record);
      read.push_back(std::move(child));
    }
  }) || node.complete;
  if (read.empty()) return;
  beginInsertRows(parent, static_cast<int>(node.children.size()), rows() - 1);
  for (auto& child : read) node.children.push_back(std::move(child));
  endInsertRows();
}

QString ContractTree::Text(const Node& node, Column column) const {
  const auto level = static_cast<std::size_t>(node.level);
  const auto text = [&](std::string_view name, CellKind kind = CellKind::Text) {
    return CellText(kind, database_.Cell(tables_[level], node.record, name));
  };
  const ColumnFields& shown = kColumns[column];
  if (column == Amount && node.level == Position) {
    const schema::Table& schema = database_.Store().Catalog().tables[tables_[level]];
    return CellText(CellKind::Money, lists::Amount({schema, node.record}));
  }
  if (column != Name) {
    const std::string_view name = shown.fields[level];
    return name.empty() ? QString() : text(name, shown.kind);
  }
  const QString blank = QStringLiteral("  ");
  switch (static_cast<Level>(node.level)) {
    case Contract: {
      QString name = Joined(text(field::Vertragnummer), blank, text(field::Bezeichnung));
      if (node.number_taken) name += QStringLiteral(" · Nummer doppelt");
      if (text(field::GeschlossenAm, CellKind::Date).isEmpty())
        name += QStringLiteral(" · nicht unterschrieben");
      return name;
    }
    case Term:
      return QStringLiteral("%1. Laufzeit").arg(node.row + 1) +
             (text(field::LaufTyp) == ToQt(schema::kRenewalTerm) ? QStringLiteral(" (Verlängerung)")
                                                                 : QString());
    case Position:
      return Joined(
          Joined(text(field::Anzahl, CellKind::Number), QStringLiteral(" "), text(field::Einheit)),
          blank, text(field::Artikel));
  }
  return {};
}

QVariant ContractTree::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const auto column = static_cast<Column>(index.column());
  const Node& node = NodeOf(index);
  switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
      return Text(node, column);
    case Qt::TextAlignmentRole:
      return static_cast<int>(CellAlignment(kColumns[column].kind));
    case Qt::FontRole:
      if (node.level == Contract && column == Name) {
        QFont font;
        font.setBold(true);
        return font;
      }
      return {};
    default:
      return {};
  }
}

QVariant ContractTree::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  const ColumnFields& column = kColumns[static_cast<std::size_t>(section)];
  if (role == Qt::DisplayRole) return QString::fromUtf8(column.title);
  if (role == Qt::TextAlignmentRole) return static_cast<int>(CellAlignment(column.kind));
  return {};
}

}  // namespace pactora::desktop
