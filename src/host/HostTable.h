// Live tables and their cursors.
//
// A database has one HostTable object for each table name. It is shared by
// everybody: the row that the user has open is the current row of that object.
//
// The rules that every host keeps:
//
//  1. One live table for a name. The current row is the state; nobody owns it.
//  2. A table has at most one current row. Eof() is true when there is none:
//     after moving past the last row, on an empty scope, and at the start.
//  3. Tables form parent and child chains. With no index selected a child table
//     shows only the rows of its parent's current row, in record order; the
//     scope changes as soon as the parent's current row changes, and a current
//     row outside the new scope is no longer current.
//  4. With an index selected the cursor runs over all rows of the table in key
//     order, rows of one key in record order, across all parents. The parent
//     tables follow each move to the row's parents.
//  5. A new row in a child table belongs to the row that is current in the
//     parent when NewRecordOid is called.
//  6. Every holder of the table sees a move; whoever must leave no trace saves
//     and restores the cursor.
//  7. A row that a filter hides is passed over by moves, seeks and counts until
//     FilterOff and FilterOff2 are called. FindOid finds it all the same.
//  8. An index key is the key fields' values one after the other, with no
//     separator, text parts in upper case. Seeks compare without regard to case.
//
// A new row is made by GotoRec(NewRecordOid(0)), filled, and stored with
// StoreNew; from then on it has its Oid, can take child rows, and is written
// with Store. Field writes are pending until then; reading a field gives the
// pending value. Moving the cursor drops pending values and an unsaved new row.
//
// Names of tables, fields and indexes are compared without regard to case.
// Every operation may raise an Error. A search that finds nothing is no error.
// The flags word is passed on to the host; hosts without a user interface
// ignore it.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "host/Settings.h"
#include "host/Value.h"

namespace pactora::host {

class HostFields;
class HostTable;

// The literals of the flags word.
inline constexpr std::int32_t kFlagsNone = 0;
inline constexpr std::int32_t kFlagsUsual = 256;
inline constexpr std::int32_t kFlagsRestore = 768;

// The argument True of FilterOff and FilterOff2.
inline constexpr std::int32_t kTrue = -1;

// A field of a table's current row; lives as long as its table.
class HostField {
 public:
  virtual ~HostField() = default;
  // The value in the field's type, or empty when the field was never written.
  // Raises an error when the table has no current row.
  virtual host::Value Value() const = 0;
  // Converts to the field's type and keeps the value pending until the row is
  // stored. An empty value leaves the field unwritten; the number 0 in a date
  // field means no date. Raises error 13 for a value that the type cannot take,
  // error 6 for a number out of its range, and an error for a text longer than
  // Size().
  virtual void SetValue(const host::Value& value) = 0;
  virtual std::string Name() const = 0;
  // Maximum length in characters; 0 where the type has none.
  virtual std::int32_t Size() const = 0;
  virtual HostFields& Parent() = 0;
};

class HostFields {
 public:
  virtual ~HostFields() = default;
  // Raises an error for an unknown name.
  virtual HostField& Item(std::string_view name) = 0;
  virtual bool Exists(std::string_view name) = 0;
  virtual HostTable& Parent() = 0;
};

class HostIndex {
 public:
  virtual ~HostIndex() = default;
  virtual std::string Name() const = 0;
  // The key of the table's current row in this index; at Eof a value that
  // equals no key.
  virtual host::Value KeyValue() = 0;
};

class HostIndexes {
 public:
  virtual ~HostIndexes() = default;
  // Selecting keeps the current row. Raises an error for an unknown name.
  virtual void Select(std::string_view name, std::int32_t flags) = 0;
  virtual void SelectNone(std::int32_t flags) = 0;
  // Null when no index is selected.
  virtual std::shared_ptr<HostIndex> Current() = 0;
  // Requires: the index is one of this table's.
  virtual void SetCurrent(const std::shared_ptr<HostIndex>& index) = 0;
};

class HostTable : public Object {
 public:
  virtual std::string Name() const = 0;
  virtual HostFields& Fields() = 0;
  virtual HostIndexes& Indexes() = 0;
  virtual HostSettings& Settings() = 0;

  // True when there is no current row. (The host's name is "EOF", which the C
  // library takes for itself.)
  virtual bool Eof() = 0;
  // The parent table, positioned on the parent of this table's current row.
  // Raises an error for a table without a parent.
  virtual std::shared_ptr<HostTable> ParentTable() = 0;
  // From now on child tables follow this table's current row at once, also a
  // row that was only just created.
  virtual void LinkChildren() = 0;

  virtual void MoveFirst(std::int32_t flags) = 0;
  // Requires: count is 1. At Eof it stays there.
  virtual void MoveNext(std::int32_t count, std::int32_t flags) = 0;
  // Exact search in the selected index. After False the table is at Eof.
  virtual bool SeekKey(const host::Value& key, std::int32_t flags) = 0;
  // The first row whose key is equal or greater. After False the table is at Eof.
  virtual bool SeekNear(const host::Value& key, std::int32_t flags) = 0;
  // After False the current row is what it was.
  virtual bool FindOid(std::string_view oid, std::int32_t flags) = 0;
  // As FindOid, but a row that does not exist is an error.
  virtual void GotoOid(std::string_view oid) = 0;
  // The text identity of the current row; empty at Eof and on an unsaved row.
  virtual std::string Oid() = 0;
  // Number of rows in the scope of rules 3 and 4.
  virtual std::int32_t ScopeCount() = 0;

  // The position of a new, empty row under the parent's current row; good for
  // one GotoRec. Raises an error when the parent has no stored current row. After
  // an error of either the table has no current row: a caller who goes on writes
  // the values of the new row into no other.
  virtual host::Value NewRecordOid(std::int32_t flags) = 0;
  virtual void GotoRec(const host::Value& position) = 0;
  // Opens the current row for writing; field writes work without it.
  virtual void BeginEdit() = 0;
  // Writes pending values of a row that exists. Raises an error when another
  // user changed or deleted the row since it was read; nothing is overwritten.
  virtual void Store(std::int32_t flags) = 0;
  // Inserts the new row. Requires: the current row was made by GotoRec and is
  // not stored yet.
  virtual void StoreNew(std::int32_t flags) = 0;
  // Deletes the current row; the table is then at Eof.
  virtual void DeleteRec(std::int32_t flags) = 0;

  virtual void FilterOff(std::int32_t all, std::int32_t flags) = 0;
  virtual void FilterOff2(std::int32_t all, std::int32_t flags) = 0;

  // Two modes that are only copied away and put back.
  virtual bool CursorFlagA() = 0;
  virtual void SetCursorFlagA(bool flag) = 0;
  virtual bool CursorFlagB() = 0;
  virtual void SetCursorFlagB(bool flag) = 0;
};

}  // namespace pactora::host
