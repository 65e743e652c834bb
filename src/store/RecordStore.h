// Where rows are kept. A store is thin: it knows rows, keys and transactions,
// and nothing of cursors, current rows or pending values.
//
// Rows of a table are found in two orders: record order within a parent, and key
// order over the whole table. The caller computes the keys; the store keeps and
// compares them byte by byte. Each operation costs one look-up or one write,
// whatever the number of rows.
//
// Unit of work: the first write (or LockForUpdate) opens it, Commit ends it.
// Until then nothing that was written is seen by other users. All operations
// raise an Error when the storage fails; see store/errors.h. When a failure made
// the storage give up the open unit, every further write and the Commit raise
// an error too, and Rollback is the only way on.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "host/Value.h"
#include "schema/Catalog.h"
#include "store/Oid.h"
#include "store/Profile.h"

namespace pactora::store {

using TableId = std::size_t;  // position in the catalogue's tables
using IndexId = std::size_t;  // position in the table's indexes

struct Record {
  Oid oid = 0;
  Oid parent = 0;                  // 0 in root tables
  std::int64_t order = 0;          // record order: ascending, unique in the table
  std::int64_t version = 0;        // 1 when inserted, one more for each update
  std::vector<host::Value> cells;  // one for each field, empty or of the field's type
  std::vector<std::string> keys;   // one for each index
};

class RecordStore {
 public:
  virtual ~RecordStore() = default;

  virtual const schema::Catalog& Catalog() const = 0;

  // Reading. Each fills record and returns true, or returns false and leaves it
  // in an unspecified state.
  virtual bool Read(TableId table, Oid oid, Record& record) = 0;
  // The first row of the parent whose order is greater than after; after 0 gives
  // the first row.
  virtual bool NextInParent(TableId table, Oid parent, std::int64_t after, Record& record) = 0;
  // The first row in the order (key, record order) that lies behind (key, after);
  // after 0 includes all rows of that key.
  virtual bool NextByKey(TableId table, IndexId index, std::string_view key, std::int64_t after,
                         Record& record) = 0;
  virtual std::int64_t CountInParent(TableId table, Oid parent) = 0;
  virtual std::int64_t Count(TableId table) = 0;

  // Writing.
  // Inserts the row with its parent, cells and keys. An oid or order of 0 is given
  // out by the store, greater than all before it, and filled in; so is version.
  // A given oid that is taken is an error.
  virtual void Insert(TableId table, Record& record) = 0;
  // Replaces cells and keys of the row with record's oid, if its version still is
  // record's; fills in the new version. Returns false and writes nothing when the
  // row has another version or is gone.
  virtual bool Update(TableId table, Record& record) = 0;
  // Replaces the keys alone; the version stays.
  virtual void UpdateKeys(TableId table, Oid oid, const std::vector<std::string>& keys) = 0;
  // Deletes the row with that version; returns false when it has another one or
  // is gone. A row with rows of child tables under it is an error.
  virtual bool Erase(TableId table, Oid oid, std::int64_t version) = 0;

  // Whether writing raises StoreError::ReadOnly.
  virtual bool IsReadOnly() { return false; }

  // The unit of work.
  // Opens the unit for writing now, so that what is read from here on can't be
  // changed by another user before Commit. Waits for other users up to the
  // store's time limit.
  virtual void LockForUpdate() = 0;
  virtual bool InUnit() const = 0;
  // Makes the unit's writes durable. Does nothing when no unit is open. On an
  // error nothing of the unit remains, except that StoreError::Uncertain says that nobody
  // knows: the store is closed then and raises the same for every further call but Rollback;
  // opened anew, the database shows what holds.
  virtual void Commit() = 0;
  // Drops the unit's writes; numbers that it gave out are given out again.
  virtual void Rollback() = 0;
  // Marks this moment of the unit, in place of the one that was marked before, and
  // opens a unit if none is open. Commit and Rollback end the mark with the unit.
  virtual void SetSavepoint() = 0;
  // Drops what the unit wrote since that moment; the mark stays. Requires: the unit
  // that is open has one. Raises StoreError::UnitLost when the storage gave up the unit.
  virtual void RollbackToSavepoint() = 0;

  // What the database knows besides rows; see store/Profile.h. Writes belong to
  // the unit of work like those of rows.
  virtual Profile ReadProfile() = 0;
  virtual void WriteProfile(const Profile& profile) = 0;  // replaces all of it
  virtual void WriteSetting(const Setting& setting) = 0;  // adds it last or replaces it
  // Changes whenever another user may have written the profile since.
  virtual std::int64_t ProfileStamp() = 0;
};

}  // namespace pactora::store
