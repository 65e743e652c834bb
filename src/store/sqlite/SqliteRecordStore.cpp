#include "store/sqlite/SqliteRecordStore.h"

#include <utility>

#include "store/errors.h"
#include "store/row_numbers.h"
#include "store/sql/row_values.h"
#include "store/sqlite/profile.h"
#include "store/sqlite/statements.h"

namespace pactora::store::sqlite {
namespace {

using Lookup = UnitReads::Lookup;

std::string OperationSql(const schema::Catalog& catalog, TableId table, sql::Operation operation) {
  return sql::OperationSql(kDialect, catalog.tables[table], operation);
}

std::int64_t ReadNumber(Statement& statement) {
  if (!statement.Step()) return 0;
  const std::int64_t number = statement.Integer(0);
  statement.Reset();
  return number;
}

}  // namespace

SqliteRecordStore::OpenFile::OpenFile(std::unique_ptr<Connection> file,
                                      const schema::Catalog& catalog)
    : connection(std::move(file)),
      statements(*connection, catalog, kDialect, OperationSql),
      begin(*connection, "BEGIN IMMEDIATE"),
      read_last_number(*connection, "SELECT last_number FROM pactora_database"),
      write_last_number(*connection, "UPDATE pactora_database SET last_number = ?1"),
      commit(*connection, "COMMIT"),
      rollback(*connection, "ROLLBACK"),
      savepoint(*connection, "SAVEPOINT pactora"),
      rollback_to_savepoint(*connection, "ROLLBACK TO pactora"),
      release_savepoint(*connection, "RELEASE pactora"),
      data_version(*connection, "PRAGMA data_version") {}

SqliteRecordStore::SqliteRecordStore(std::unique_ptr<Connection> connection,
                                     schema::Catalog catalog)
    : catalog_(std::move(catalog)),
      file_(std::make_unique<OpenFile>(std::move(connection), catalog_)),
      reads_(catalog_.tables.size()) {}

bool SqliteRecordStore::Find(Statement& statement, TableId table, Record& record) {
  const ResetAtEnd reset(statement);
  if (!statement.Step()) return false;
  sql::ReadRow(statement, catalog_.tables[table], record);
  return true;
}

// A damaged index leads back to rows that lie behind; a walk over it would never end.
void SqliteRecordStore::RaiseAstray(TableId table) const {
  Raise(StoreError::NotADatabase,
        "ein Index der Tabelle „" + catalog_.tables[table].name + "“ führt zu falschen Zeilen");
}

template <typename Reader>
bool SqliteRecordStore::FindOnce(TableId table, UnitReads::Lookup lookup, Record& record,
                                 const Reader& read) {
  return in_unit_ ? reads_.Find(table, std::move(lookup), record, read) : read(record);
}

bool SqliteRecordStore::Read(TableId table, Oid oid, Record& record) {
  return FindOnce(table, {Lookup::Kind::ByOid, oid}, record, [&](Record& row) {
    Statement& statement = File().statements.Get(table, sql::Operation::Read);
    statement.Bind(1, oid);
    return Find(statement, table, row);
  });
}

bool SqliteRecordStore::NextInParent(TableId table, Oid parent, std::int64_t after,
                                     Record& record) {
  return FindOnce(table, {Lookup::Kind::InParent, parent, after}, record, [&](Record& row) {
    Statement& statement = File().statements.Get(table, sql::Operation::NextInParent);
    int parameter = 1;
    if (catalog_.tables[table].parent) statement.Bind(parameter++, parent);
    statement.Bind(parameter, after);
    if (!Find(statement, table, row)) return false;
    if (row.order <= after || row.parent != (catalog_.tables[table].parent ? parent : 0)) {
      RaiseAstray(table);
    }
    return true;
  });
}

bool SqliteRecordStore::NextByKey(TableId table, IndexId index, std::string_view key,
                                  std::int64_t after, Record& record) {
  Lookup lookup{Lookup::Kind::ByKey, static_cast<std::int64_t>(index), after, std::string(key)};
  return FindOnce(table, std::move(lookup), record, [&](Record& row) {
    Statement& statement = File().statements.NextByKey(table, index);
    statement.Bind(1, key);
    statement.Bind(2, after);
    if (!Find(statement, table, row)) return false;
    const int compared = std::string_view(row.keys[index]).compare(key);
    if (compared < 0 || (compared == 0 && row.order <= after)) RaiseAstray(table);
    return true;
  });
}

std::int64_t SqliteRecordStore::CountInParent(TableId table, Oid parent) {
  Statement& statement = File().statements.Get(table, sql::Operation::CountInParent);
  if (catalog_.tables[table].parent) statement.Bind(1, parent);
  return ReadNumber(statement);
}

std::int64_t SqliteRecordStore::Count(TableId table) {
  return ReadNumber(File().statements.Get(table, sql::Operation::Count));
}

bool SqliteRecordStore::HasWritten(int code) {
  if (code != SQLITE_DONE) FailWrite(code);
  return sqlite3_changes(File().connection->Handle()) != 0;
}

void SqliteRecordStore::FailWrite(int code) {
  try {
    File().connection->Fail(code);
  } catch (const platform::Error& error) {
    if (!File().connection->InTransaction()) why_lost_ = error.Description();
    throw;
  }
}

void SqliteRecordStore::Insert(TableId table, Record& record) {
  EnterUnitToWrite(table);
  const RowNumbers numbers = NumbersFor(record, last_number_);
  Statement& statement = File().statements.Get(table, sql::Operation::Insert);
  sql::BindNew(statement, catalog_.tables[table], record, numbers);
  HasWritten(statement.Run());
  last_number_ = numbers.last;
  record.oid = numbers.oid;
  record.order = numbers.order;
  record.version = 1;
}

bool SqliteRecordStore::UpdateWith(sql::Operation operation, TableId table, const Record& record) {
  Statement& statement = File().statements.Get(table, operation);
  statement.Bind(sql::kOidParameter, record.oid);
  statement.Bind(sql::kVersionParameter, record.version);
  sql::BindContent(statement, catalog_.tables[table], record);
  return HasWritten(statement.Run());
}

bool SqliteRecordStore::Update(TableId table, Record& record) {
  EnterUnitToWrite(table);
  const schema::Table& description = catalog_.tables[table];
  const bool has_keys = !description.indexes.empty() || !description.unique_fields.empty();
  if (!(has_keys && UpdateWith(sql::Operation::UpdateKeepingKeys, table, record)) &&
      !UpdateWith(sql::Operation::Update, table, record)) {
    return false;
  }
  ++record.version;
  return true;
}

void SqliteRecordStore::UpdateKeys(TableId table, Oid oid, const std::vector<std::string>& keys) {
  EnterUnitToWrite(table);
  if (keys.empty()) return;
  Statement& statement = File().statements.Get(table, sql::Operation::UpdateKeys);
  statement.Bind(1, oid);
  sql::BindKeys(statement, 2, keys);
  HasWritten(statement.Run());
}

bool SqliteRecordStore::Erase(TableId table, Oid oid, std::int64_t version) {
  EnterUnitToWrite(table);
  Statement& statement = File().statements.Get(table, sql::Operation::Erase);
  statement.Bind(1, oid);
  statement.Bind(2, version);
  const int code = statement.Run();
  if (code == SQLITE_CONSTRAINT_FOREIGNKEY) Raise(StoreError::HasChildren);
  return HasWritten(code);
}

void SqliteRecordStore::EnterUnit() {
  if (in_unit_) [[likely]] {
    if (!File().connection->InTransaction()) Raise(StoreError::UnitLost, why_lost_);
    return;
  }
  File().begin.Step();
  in_unit_ = true;
  why_lost_.clear();
  last_number_ = saved_last_number_ = ReadNumber(File().read_last_number);
}

void SqliteRecordStore::EnterUnitToWrite(TableId table) {
  EnterUnit();
  reads_.Written(table);
}

void SqliteRecordStore::LeaveUnit() {
  in_unit_ = has_savepoint_ = false;
  reads_.Clear();
}

bool SqliteRecordStore::IsReadOnly() {
  Statement asked(*File().connection, "PRAGMA query_only");
  return ReadNumber(asked) != 0;
}

void SqliteRecordStore::LockForUpdate() { EnterUnit(); }

void SqliteRecordStore::SaveLastNumber() {
  if (last_number_ == saved_last_number_) return;
  File().write_last_number.Bind(1, last_number_);
  File().write_last_number.Step();
}

void SqliteRecordStore::Commit() {
  if (!in_unit_) return;
  EnterUnit();
  try {
    SaveLastNumber();
    if (const int code = File().commit.Run(); code != SQLITE_DONE)
      File().connection->FailCommit(code);
  } catch (const platform::Error& error) {
    if (error.Number() == Number(StoreError::Uncertain)) file_.reset();
    Rollback();
    throw;
  }
  LeaveUnit();
}

void SqliteRecordStore::Rollback() {
  LeaveUnit();
  if (file_ != nullptr && File().connection->InTransaction()) File().rollback.Step();
}

void SqliteRecordStore::SetSavepoint() {
  EnterUnit();
  if (has_savepoint_) File().release_savepoint.Step();
  File().savepoint.Step();
  has_savepoint_ = true;
  savepoint_last_number_ = last_number_;
}

void SqliteRecordStore::RollbackToSavepoint() {
  EnterUnit();
  File().rollback_to_savepoint.Step();
  last_number_ = savepoint_last_number_;
}

Profile SqliteRecordStore::ReadProfile() {
  if (File().connection->InTransaction()) return sqlite::ReadProfile(*File().connection);
  File().connection->Run("BEGIN");
  try {
    Profile profile = sqlite::ReadProfile(*File().connection);
    File().rollback.Step();
    return profile;
  } catch (...) {
    if (File().connection->InTransaction()) File().rollback.Step();
    throw;
  }
}

void SqliteRecordStore::WriteProfile(const Profile& profile) {
  EnterUnit();
  sqlite::WriteProfile(*File().connection, profile);
}

void SqliteRecordStore::WriteSetting(const Setting& setting) {
  EnterUnit();
  sqlite::WriteSetting(*File().connection, setting);
}

// SQLite counts what other connections commit.
std::int64_t SqliteRecordStore::ProfileStamp() { return ReadNumber(File().data_version); }

}  // namespace pactora::store::sqlite
