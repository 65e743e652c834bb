// The lists of the main window: which columns they have and where their rows come
// from.
#pragma once

#include <vector>

#include "desktop/main_window/Desk.h"
#include "desktop/main_window/Feed.h"
#include "desktop/main_window/ListModel.h"

namespace pactora::desktop {

struct ListKind {
  QString things;  // what its rows are called
  std::vector<ListColumn> columns;
  ReadRows (*read)(Desk& desk);
  int sorted_by = 0;  // column
};

// All addresses with the number of their contracts.
const ListKind& AddressList();
// The cells of one address as they are now; empty when it is gone.
std::vector<host::Value> AddressCells(Desk& desk, store::Oid address);

// All contract types.
const ListKind& TypeList();

// Last days for notice and ends of the contracts of all addresses from today on. A
// row stands for the contract.
const ListKind& DeadlineList();
inline constexpr int kDeadlineDateColumn = 0;
inline constexpr int kDeadlineReceiptColumn = 2;

// The appointments of all contracts. A row stands for the appointment; it is strong
// when it is due and not done.
const ListKind& AppointmentList();
inline constexpr int kAppointmentDateColumn = 0;
inline constexpr int kAppointmentDoneColumn = 5;

// The attributes of one address, and the appointments of its contracts.
const std::vector<ListColumn>& AttributeColumns();
std::vector<ListRow> ReadAttributes(Desk& desk, store::Oid address);
std::vector<ListRow> ReadAppointments(Desk& desk, store::Oid address);

// The fields of a row that were written, by name.
const std::vector<ListColumn>& FieldColumns();
std::vector<ListRow> ReadFields(Desk& desk, store::TableId table, store::Oid oid);

}  // namespace pactora::desktop
