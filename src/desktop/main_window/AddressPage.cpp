#include "desktop/main_window/AddressPage.h"

#include <QAction>
#include <QHeaderView>
#include <QScrollArea>
#include <QSplitter>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/binding/ChoosingView.h"
#include "desktop/main_window/shown_lists.h"
#include "desktop/text.h"
#include "schema/names.h"

namespace pactora::desktop {
namespace {

namespace table = schema::table;

// Characters of the tree's columns, in the order of ContractTree::Column.
constexpr int kWidths[] = {33, 10, 10, 12, 12, 9, 9, 8, 14, 8};
constexpr int kListWidth = 38;  // characters of the list of addresses

void Fill(ListModel& model, std::vector<ListRow> rows) {
  model.Clear();
  model.Add(std::move(rows));
  model.Publish();
}

void Prepare(QTreeView& tree, ContractTree& contracts) {
  tree.setObjectName(QStringLiteral("contracts"));
  tree.setAccessibleName(QStringLiteral("Verträge"));
  tree.setModel(&contracts);
  tree.setUniformRowHeights(true);
  tree.setItemDelegate(new RoomyDelegate(&tree));
  tree.setAlternatingRowColors(true);
  tree.setEditTriggers(QAbstractItemView::NoEditTriggers);
  tree.setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  tree.setContextMenuPolicy(Qt::ActionsContextMenu);
  tree.header()->setContextMenuPolicy(Qt::PreventContextMenu);
  tree.header()->setObjectName(QStringLiteral("contracts_columns"));
  const int character = tree.fontMetrics().horizontalAdvance(u'n');
  for (int column = 0; column < ContractTree::Columns; ++column) {
    tree.header()->resizeSection(
        column, std::max(tree.header()->sectionSizeHint(column), character * kWidths[column]));
  }
}

}  // namespace

AddressPage::AddressPage(OpenDatabase& database, QWidget* parent)
    : Page(parent),
      database_(database),
      addresses_(database, AddressList(), QStringLiteral("addresses"),
                 QStringLiteral("Adresse suchen")),
      contracts_(database) {
  addresses_.Table().Chosen = [this](const ListRow& row) { ChooseAddress(row.oid); };

  // The names get what is left, so that the list needs no scroll bar below it.
  addresses_.Table().horizontalHeader()->setStretchLastSection(false);
  addresses_.Table().horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);

  auto* split = new QSplitter(Qt::Horizontal);
  split->setObjectName(QStringLiteral("address_splitter"));
  split->addWidget(&addresses_);
  split->addWidget(MakeRight());
  split->setStretchFactor(0, 0);
  split->setStretchFactor(1, 1);
  split->setChildrenCollapsible(false);
  const int character = fontMetrics().horizontalAdvance(u'n');
  split->setSizes({character * kListWidth, character * 4 * kListWidth});
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(0, 0, 0, 0);
  all->addWidget(split);
}

QWidget* AddressPage::MakeRight() {
  name_.setObjectName(QStringLiteral("address_name"));
  name_.setTextFormat(Qt::PlainText);
  QFont large = font();
  large.setBold(true);
  large.setPointSizeF(large.pointSizeF() * 1.25);
  name_.setFont(large);

  Prepare(tree_, contracts_);
  connect(tree_.selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this](const QModelIndex& current) { ChooseRow(current); });

  auto* show_details = new QAction(QStringLiteral("&Einzelheiten zeigen"), &tree_);
  show_details->setShortcuts({Qt::Key_Return, Qt::Key_Enter});
  show_details->setShortcutContext(Qt::WidgetShortcut);
  connect(show_details, &QAction::triggered, this,
          [this] { tabs_.setCurrentWidget(detail_table_.parentWidget()); });
  // Rows with others below them fold instead.
  connect(&tree_, &QTreeView::doubleClicked, this, [this, show_details](const QModelIndex& index) {
    if (!contracts_.hasChildren(index)) show_details->trigger();
  });
  tree_.addAction(show_details);

  auto* timeline = new QScrollArea;
  timeline->setWidget(&timeline_);
  timeline->setWidgetResizable(true);
  timeline->setFrameShape(QFrame::NoFrame);
  tabs_.setObjectName(QStringLiteral("address_tabs"));
  tabs_.addTab(timeline, QStringLiteral("Zeitstrahl"));
  stored_fields_.setObjectName(QStringLiteral("stored_fields"));
  stored_fields_.setToolTip(QStringLiteral("Für die Betreuung: Namen und Werte der Datenbank"));
  connect(&stored_fields_, &QCheckBox::toggled, this, [this] { ShowDetails(); });
  auto* details = new QWidget;
  auto* detail_layout = new QVBoxLayout(details);
  detail_layout->setContentsMargins(0, 0, 0, 0);
  detail_layout->addWidget(&detail_table_, 1);
  detail_layout->addWidget(&stored_fields_);
  tabs_.addTab(details, QStringLiteral("Einzelheiten"));
  tabs_.addTab(&attribute_table_, QStringLiteral("Merkmale"));
  appointment_tab_ = tabs_.addTab(&appointment_table_, QStringLiteral("Termine"));
  detail_table_.setAccessibleName(QStringLiteral("Einzelheiten"));
  attribute_table_.setAccessibleName(QStringLiteral("Merkmale"));
  appointment_table_.setAccessibleName(QStringLiteral("Termine"));
  // All parts of the page show the same address.
  appointment_table_.hideColumn(2);

  auto* split = new QSplitter(Qt::Vertical);
  split->setObjectName(QStringLiteral("contract_splitter"));
  split->addWidget(&tree_);
  split->addWidget(&tabs_);
  split->setStretchFactor(0, 3);
  split->setStretchFactor(1, 2);
  split->setChildrenCollapsible(false);

  auto* right = new QWidget;
  auto* all = new QVBoxLayout(right);
  all->addWidget(&name_);
  all->addWidget(split, 1);
  return right;
}

void AddressPage::AddRowAction(QAction& action) {
  addresses_.Table().addAction(&action);
  tree_.addAction(&action);
}

void AddressPage::Reload() {
  addresses_.Reload();
  ShowCurrent();
}

void AddressPage::ChooseAddress(store::Oid address) {
  database_.Do([&] { database_.GoTo(table::Adressen, address); });
  ShowCurrent();
}

void AddressPage::ShowCurrent() {
  database_.Read([&] {
    const store::Oid address = database_.Current(table::Adressen);
    const store::Oid contract = database_.Current(table::vv_Vertraege);
    if (address != 0)
      addresses_.Table().ShowChoice(address);
    else
      addresses_.Table().ShowChoice(std::nullopt);
    if (auto rows = RowsOf(database_, AddressList(), address); !rows.empty())
      addresses_.Model().Change(address, std::move(rows[0].cells));
    ShowAddress(address);
    ShowContract(contract);
  });
  if (ChoiceChanged) ChoiceChanged();
}

void AddressPage::ShowAddress(store::Oid address) {
  const std::vector<ListRow> rows = RowsOf(database_, AddressList(), address);
  name_.setText(rows.empty() ? QStringLiteral("Keine Adresse ausgewählt")
                             : CellText(CellKind::Text, rows[0].cells[0]));
  showing_ = true;
  contracts_.SetAddress(address);
  showing_ = false;
  Fill(attributes_, RowsOf(database_, AttributeList(), address));
  std::vector<ListRow> appointments = RowsOf(database_, AppointmentList(), address);
  const auto due = std::ranges::count_if(appointments, &ListRow::strong);
  tabs_.setTabText(appointment_tab_, due == 0 ? QStringLiteral("Termine")
                                              : QStringLiteral("Termine (%1 fällig)").arg(due));
  Fill(appointments_, std::move(appointments));
}

void AddressPage::ShowContract(store::Oid contract) {
  QModelIndex index = contract == 0 ? QModelIndex() : contracts_.Find(contract);
  if (!index.isValid() && contracts_.rowCount() > 0) index = contracts_.index(0, 0);
  if (!index.isValid()) {
    timeline_.Show(std::nullopt, database_.Clock().Today());
    Fill(details_, {});
    return;
  }
  tree_.setCurrentIndex(index);
  tree_.expand(index);
  tree_.scrollTo(index);
}

void AddressPage::ChooseRow(const QModelIndex& index) {
  if (showing_ || !index.isValid()) return;
  const ContractTree::Place place = contracts_.At(index);
  database_.Read([&] {
    database_.GoTo(database_.Store().Catalog().tables[place.table].name, place.oid);
    timeline_.Show(ReadTimeline(database_.Store(), contracts_.ContractOf(index)),
                   database_.Clock().Today());
    ShowDetails();
  });
}

void AddressPage::ShowDetails() {
  const QModelIndex index = tree_.currentIndex();
  if (!index.isValid()) return;
  const ContractTree::Place place = contracts_.At(index);
  const Shows shows = stored_fields_.isChecked() ? Shows::StoredFields : Shows::Words;
  database_.Read([&] { Fill(details_, ReadDetails(database_, place.table, place.oid, shows)); });
}

}  // namespace pactora::desktop
