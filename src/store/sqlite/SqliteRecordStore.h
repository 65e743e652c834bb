// The store itself; see store/sqlite/SqliteStore.h.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "store/RecordStore.h"
#include "store/UnitReads.h"
#include "store/errors.h"
#include "store/sql/Statements.h"
#include "store/sqlite/Connection.h"
#include "store/sqlite/Statement.h"

namespace pactora::store::sqlite {

class SqliteRecordStore final : public RecordStore {
 public:
  // Requires: the connection is set up and holds the catalogue's structure.
  SqliteRecordStore(std::unique_ptr<Connection> connection, schema::Catalog catalog);

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
  // Opens the unit if none is open. Raises StoreError::UnitLost when SQLite gave
  // up the one that was.
  void EnterUnit();
  void EnterUnitToWrite(TableId table);
  void LeaveUnit();
  [[noreturn]] void FailWrite(int code);
  void SaveLastNumber();

  // Runs a statement that finds one row at most.
  bool Find(Statement& statement, TableId table, Record& record);
  // As read, once for each lookup in a unit.
  template <typename Reader>
  bool FindOnce(TableId table, UnitReads::Lookup lookup, Record& record, const Reader& read);
  [[noreturn]] void RaiseAstray(TableId table) const;
  bool UpdateWith(sql::Operation operation, TableId table, const Record& record);
  // Whether the statement that ran last wrote a row. Raises the error of code.
  bool HasWritten(int code);

  // The file and the statements on it; gone once a commit broke off.
  struct OpenFile {
    OpenFile(std::unique_ptr<Connection> file, const schema::Catalog& catalog);

    // The statements go before the connection that they belong to.
    std::unique_ptr<Connection> connection;
    sql::Statements<Statement> statements;
    Statement begin;
    Statement read_last_number;
    Statement write_last_number;
    Statement commit;
    Statement rollback;
    Statement savepoint;
    Statement rollback_to_savepoint;
    Statement release_savepoint;
    Statement data_version;
  };
  OpenFile& File() {
    if (file_ == nullptr) [[unlikely]]
      Raise(StoreError::Uncertain);
    return *file_;
  }

  schema::Catalog catalog_;
  std::unique_ptr<OpenFile> file_;

  UnitReads reads_;

  bool in_unit_ = false;
  bool has_savepoint_ = false;
  std::string why_lost_;  // the failure with which SQLite gave up the unit, where known
  // The greatest oid or order ever given out or taken in, in all tables. Kept in
  // the file, but only read and written once in a unit.
  std::int64_t last_number_ = 0;
  std::int64_t saved_last_number_ = 0;
  std::int64_t savepoint_last_number_ = 0;
};

}  // namespace pactora::store::sqlite
