// The store itself; see store/postgresql/PostgresqlStore.h.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "store/RecordStore.h"
#include "store/UnitReads.h"
#include "store/errors.h"
#include "store/postgresql/Connection.h"
#include "store/postgresql/Statement.h"
#include "store/sql/Statements.h"

namespace pactora::store::postgresql {

class PostgresqlRecordStore final : public RecordStore {
 public:
  // Requires: the connection's schema holds the catalogue's structure.
  PostgresqlRecordStore(std::unique_ptr<Connection> connection, schema::Catalog catalog);

  const schema::Catalog& Catalog() const override { return catalog_; }

  bool Read(TableId table, Oid oid, Record& record) override;
  bool NextInParent(TableId table, Oid parent, std::int64_t after, Record& record) override;
  bool NextByKey(TableId table, IndexId index, std::string_view key, std::int64_t after,
                 Record& record) override;
  std::int64_t CountInParent(TableId table, Oid parent) override;
  std::int64_t Count(TableId table) override;

  void Insert(TableId table, Record& record) override;
  bool Update(TableId table, Record& record) override;
  void UpdateKeys(TableId table, Oid oid, const std::vector<std::string>& keys) override;
  bool Erase(TableId table, Oid oid, std::int64_t version) override;

  bool IsReadOnly() override;

  void LockForUpdate() override;
  bool InUnit() const override { return in_unit_; }
  void Commit() override;
  void Rollback() override;
  void SetSavepoint() override;
  void RollbackToSavepoint() override;

  Profile ReadProfile() override;
  void WriteProfile(const Profile& profile) override;
  void WriteSetting(const Setting& setting) override;
  std::int64_t ProfileStamp() override;

 private:
  // Opens the unit if none is open. Raises StoreError::UnitLost when a failure ended the
  // transaction of the one that was.
  void EnterUnit();
  void EnterUnitToWrite(TableId table);
  void LeaveUnit();
  // Runs a write. A failure that costs the unit is kept for those that UnitLost tells of.
  template <typename Write>
  auto Written(const Write& write);
  // After a commit that got no answer: returns when it was carried out.
  void ResolveCommit(const platform::Error& error);

  // Runs a statement that finds one row at most.
  bool Find(Statement& statement, TableId table, Record& record);
  // As read, once for each lookup in a unit.
  template <typename Reader>
  bool FindOnce(TableId table, UnitReads::Lookup lookup, Record& record, const Reader& read);
  // Whether the row is there in that version, past what the unit has read.
  bool Has(TableId table, Oid oid, std::int64_t version);
  [[noreturn]] void RaiseRefused(TableId table, const Record& record);

  // The connection and the statements on it; gone once nobody knows what became of a commit.
  struct OpenDatabase {
    OpenDatabase(std::unique_ptr<Connection> opened, const schema::Catalog& catalog);

    // The statements go before the connection that they belong to.
    std::unique_ptr<Connection> connection;
    sql::Statements<Statement> statements;
    Statement profile_stamp;
  };
  OpenDatabase& Database() {
    if (database_ == nullptr) [[unlikely]]
      Raise(StoreError::Uncertain);
    return *database_;
  }

  schema::Catalog catalog_;
  std::unique_ptr<OpenDatabase> database_;

  UnitReads reads_;

  bool in_unit_ = false;
  bool has_savepoint_ = false;
  std::string why_lost_;     // the failure that ended the unit's transaction, where known
  std::string transaction_;  // the unit's number at the server
  // The greatest oid or order ever given out or taken in, in all tables. Kept in
  // the database, but only read and written once in a unit.
  std::int64_t last_number_ = 0;
  std::int64_t saved_last_number_ = 0;
  std::int64_t savepoint_last_number_ = 0;
  bool writes_profile_ = false;
  bool savepoint_writes_profile_ = false;
  std::int64_t own_profiles_ = 0;  // commits of this store that wrote the profile
};

}  // namespace pactora::store::postgresql
