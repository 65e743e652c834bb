// Addresses, and everything about the chosen one: contracts with terms and positions,
// the timeline of a contract, attributes, appointments.
//
// The chosen address, contract, term and position are the current rows of their live
// tables: the add-on works with the rows that are chosen here, and the page shows the
// rows to which the add-on has moved.
#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QTabWidget>
#include <QTreeView>

#include "desktop/main_window/ContractTree.h"
#include "desktop/main_window/ListPage.h"
#include "desktop/main_window/ListTable.h"
#include "desktop/main_window/OpenDatabase.h"
#include "desktop/main_window/TimelineView.h"

namespace pactora::desktop {

class AddressPage final : public Page {
 public:
  // The database must outlive the page.
  explicit AddressPage(OpenDatabase& database, QWidget* parent = nullptr);

  ListPage& List() override { return addresses_; }
  void Reload() override;
  void ShowCurrent() override;
  // Adds what can be done to the menus of the addresses and of their contracts.
  void AddRowAction(QAction& action);

 private:
  QWidget* MakeRight();
  void ChooseAddress(store::Oid address);
  void ChooseRow(const QModelIndex& index);
  void ShowAddress(store::Oid address);
  void ShowContract(store::Oid contract);
  // What the chosen row of the tree says.
  void ShowDetails();

  OpenDatabase& database_;
  ListPage addresses_;
  QLabel name_;
  ContractTree contracts_;
  QTreeView tree_;
  QTabWidget tabs_;
  TimelineView timeline_;
  ListModel details_{DetailColumns()};
  ListTable detail_table_{details_, QStringLiteral("details")};
  QCheckBox stored_fields_{QStringLiteral("&gespeicherte Felder")};
  ListModel attributes_{AttributeList().columns};
  ListTable attribute_table_{attributes_, QStringLiteral("attributes")};
  ListModel appointments_{AppointmentList().columns};
  ListTable appointment_table_{appointments_, QStringLiteral("address_appointments")};
  int appointment_tab_ = 0;
  bool showing_ = false;
};

}  // namespace pactora::desktop
