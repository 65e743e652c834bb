// The lists of the main window: which columns of a list it shows, and how wide.
#pragma once

#include <vector>

#include "automation/lists/lists.h"
#include "desktop/main_window/ListLoader.h"
#include "desktop/main_window/ListModel.h"
#include "desktop/main_window/OpenDatabase.h"

namespace pactora::desktop {

struct ListKind {
  lists::List list;  // with the columns that are shown
  std::vector<ListColumn> columns;
  int sorted_by = 0;  // column
};

const ListKind& AddressList();
const ListKind& TypeList();
const ListKind& DeadlineList();
const ListKind& AppointmentList();
const ListKind& AttributeList();

// All rows of the list, bit by bit.
ReadRows ReadList(OpenDatabase& database, const ListKind& kind);
// Those that belong to one address, the list of addresses included; none for 0 and for
// an address that is gone.
std::vector<ListRow> RowsOf(OpenDatabase& database, const ListKind& kind, store::Oid address);

// A contract, a term or a position: what it says, or its fields as they are stored.
enum class Shows { Words, StoredFields };
const std::vector<ListColumn>& DetailColumns();
std::vector<ListRow> ReadDetails(OpenDatabase& database, store::TableId table, store::Oid oid,
                                 Shows shows);

}  // namespace pactora::desktop
