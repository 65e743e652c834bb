#include "store/postgresql/PostgresqlRecordStore.h"

#include <charconv>
#include <chrono>
#include <cstring>
#include <thread>
#include <utility>

#include "store/postgresql/profile.h"
#include "store/postgresql/statements.h"
#include "store/row_numbers.h"
#include "store/sql/row_values.h"

namespace pactora::store::postgresql {
namespace {

using Lookup = UnitReads::Lookup;
using sql::Operation;

// How long a commit that got no answer may still be under way before nobody knows.
constexpr std::chrono::seconds kCommitTimeout(10);

std::int64_t NumberOf(const Result& result, int column) {
  const std::string_view text = PQgetvalue(result.get(), 0, column);
  std::int64_t number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

std::int64_t ReadNumber(Statement& statement) {
  if (!statement.Step()) return 0;
  const std::int64_t number = statement.Integer(0);
  statement.Reset();
  return number;
}

}  // namespace

PostgresqlRecordStore::OpenDatabase::OpenDatabase(std::unique_ptr<Connection> opened,
                                                  const schema::Catalog& catalog)
    : connection(std::move(opened)),
      statements(*connection, catalog, kDialect, OperationSql),
      profile_stamp(*connection, "SELECT profile_stamp FROM pactora_database") {}

PostgresqlRecordStore::PostgresqlRecordStore(std::unique_ptr<Connection> connection,
                                             schema::Catalog catalog)
    : catalog_(std::move(catalog)),
      database_(std::make_unique<OpenDatabase>(std::move(connection), catalog_)),
      reads_(catalog_.tables.size()) {}

bool PostgresqlRecordStore::Find(Statement& statement, TableId table, Record& record) {
  if (!statement.Step()) return false;
  sql::ReadRow(statement, catalog_.tables[table], record);
  statement.Reset();
  return true;
}

template <typename Reader>
bool PostgresqlRecordStore::FindOnce(TableId table, Lookup lookup, Record& record,
                                     const Reader& read) {
  return in_unit_ ? reads_.Find(table, std::move(lookup), record, read) : read(record);
}

bool PostgresqlRecordStore::Read(TableId table, Oid oid, Record& record) {
  return FindOnce(table, {Lookup::Kind::ByOid, oid}, record, [&](Record& row) {
    Statement& statement = Database().statements.Get(table, Operation::Read);
    statement.Bind(1, oid);
    return Find(statement, table, row);
  });
}

bool PostgresqlRecordStore::NextInParent(TableId table, Oid parent, std::int64_t after,
                                         Record& record) {
  return FindOnce(table, {Lookup::Kind::InParent, parent, after}, record, [&](Record& row) {
    Statement& statement = Database().statements.Get(table, Operation::NextInParent);
    int parameter = 1;
    if (catalog_.tables[table].parent) statement.Bind(parameter++, parent);
    statement.Bind(parameter, after);
    return Find(statement, table, row);
  });
}

bool PostgresqlRecordStore::NextByKey(TableId table, IndexId index, std::string_view key,
                                      std::int64_t after, Record& record) {
  Lookup lookup{Lookup::Kind::ByKey, static_cast<std::int64_t>(index), after, std::string(key)};
  return FindOnce(table, std::move(lookup), record, [&](Record& row) {
    Statement& statement = Database().statements.NextByKey(table, index);
    statement.BindKey(1, key);
    statement.Bind(2, after);
    return Find(statement, table, row);
  });
}

std::int64_t PostgresqlRecordStore::CountInParent(TableId table, Oid parent) {
  Statement& statement = Database().statements.Get(table, Operation::CountInParent);
  if (catalog_.tables[table].parent) statement.Bind(1, parent);
  return ReadNumber(statement);
}

std::int64_t PostgresqlRecordStore::Count(TableId table) {
  return ReadNumber(Database().statements.Get(table, Operation::Count));
}

template <typename Write>
auto PostgresqlRecordStore::Written(const Write& write) {
  try {
    return write();
  } catch (const platform::Error& error) {
    if (why_lost_.empty() && Database().connection->HasFailed()) why_lost_ = error.Description();
    throw;
  }
}

void PostgresqlRecordStore::Insert(TableId table, Record& record) {
  EnterUnitToWrite(table);
  const RowNumbers numbers = NumbersFor(record, last_number_);
  Statement& statement = Database().statements.Get(table, Operation::Insert);
  sql::BindNew(statement, catalog_.tables[table], record, numbers);
  if (Written([&] { return statement.Run(); }) == 0) RaiseRefused(table, record);
  last_number_ = numbers.last;
  record.oid = numbers.oid;
  record.order = numbers.order;
  record.version = 1;
}

void PostgresqlRecordStore::RaiseRefused(TableId table, const Record& record) {
  Record other;
  const auto parent = catalog_.tables[table].parent;
  if (parent && !Read(*parent, record.parent, other)) {
    Raise(StoreError::Failed, "der übergeordnete Datensatz fehlt");
  }
  const bool has_oid = record.oid != 0 && Read(table, record.oid, other);
  Raise(has_oid ? StoreError::DuplicateOid : StoreError::DuplicateKey);
}

bool PostgresqlRecordStore::Has(TableId table, Oid oid, std::int64_t version) {
  Record row;
  return Read(table, oid, row) && row.version == version;
}

bool PostgresqlRecordStore::Update(TableId table, Record& record) {
  EnterUnitToWrite(table);
  Statement& statement = Database().statements.Get(table, Operation::Update);
  statement.Bind(sql::kOidParameter, record.oid);
  statement.Bind(sql::kVersionParameter, record.version);
  sql::BindContent(statement, catalog_.tables[table], record);
  if (Written([&] { return statement.Run(); }) == 0) {
    const bool has_unique_fields = !catalog_.tables[table].unique_fields.empty();
    if (has_unique_fields && Has(table, record.oid, record.version)) {
      Raise(StoreError::DuplicateKey);
    }
    return false;
  }
  ++record.version;
  return true;
}

void PostgresqlRecordStore::UpdateKeys(TableId table, Oid oid,
                                       const std::vector<std::string>& keys) {
  EnterUnitToWrite(table);
  if (keys.empty()) return;
  Statement& statement = Database().statements.Get(table, Operation::UpdateKeys);
  statement.Bind(1, oid);
  sql::BindKeys(statement, 2, keys);
  Written([&] { return statement.Run(); });
}

bool PostgresqlRecordStore::Erase(TableId table, Oid oid, std::int64_t version) {
  EnterUnitToWrite(table);
  Statement& statement = Database().statements.Get(table, Operation::Erase);
  statement.Bind(1, oid);
  statement.Bind(2, version);
  if (Written([&] { return statement.Run(); }) != 0) return true;
  if (!catalog_.tables[table].children.empty() && Has(table, oid, version)) {
    Raise(StoreError::HasChildren);
  }
  return false;
}

void PostgresqlRecordStore::EnterUnit() {
  if (in_unit_) [[likely]] {
    if (Database().connection->HasFailed()) Raise(StoreError::UnitLost, why_lost_);
    return;
  }
  const Result begun = Database().connection->Run(
      "BEGIN; SELECT last_number, pg_current_xact_id()::text FROM pactora_database FOR UPDATE");
  in_unit_ = true;
  why_lost_.clear();
  if (PQntuples(begun.get()) != 1) Raise(StoreError::NotADatabase);
  last_number_ = saved_last_number_ = NumberOf(begun, 0);
  transaction_ = PQgetvalue(begun.get(), 0, 1);
}

void PostgresqlRecordStore::EnterUnitToWrite(TableId table) {
  EnterUnit();
  reads_.Written(table);
}

void PostgresqlRecordStore::LeaveUnit() {
  in_unit_ = has_savepoint_ = writes_profile_ = false;
  reads_.Clear();
}

bool PostgresqlRecordStore::IsReadOnly() { return Database().connection->RefusesWriting(); }

void PostgresqlRecordStore::LockForUpdate() { EnterUnit(); }

void PostgresqlRecordStore::Commit() {
  if (!in_unit_) return;
  EnterUnit();
  const bool writes_profile = writes_profile_;
  std::string sql;
  if (last_number_ != saved_last_number_ || writes_profile) {
    sql = "UPDATE pactora_database SET last_number = " + std::to_string(last_number_) +
          (writes_profile ? ", profile_stamp = profile_stamp + 1;" : ";");
  }
  Connection& connection = *Database().connection;
  try {
    const Result committed = connection.Run(sql + "COMMIT");
    // The server answers so where a statement of the transaction had failed.
    if (std::strcmp(PQcmdStatus(committed.get()), "COMMIT") != 0) {
      Raise(StoreError::UnitLost, why_lost_);
    }
  } catch (const platform::Error& error) {
    const bool is_lost = connection.InTransaction() && !connection.IsConnected();
    Rollback();
    if (!is_lost) throw;
    ResolveCommit(error);
  }
  LeaveUnit();
  if (writes_profile) ++own_profiles_;
}

void PostgresqlRecordStore::ResolveCommit(const platform::Error& error) {
  std::string status = "in progress";
  try {
    const auto until = std::chrono::steady_clock::now() + kCommitTimeout;
    while (status == "in progress" && std::chrono::steady_clock::now() < until) {
      const Result asked =
          Database().connection->Run("SELECT pg_xact_status('" + transaction_ + "'::xid8)");
      status = PQgetvalue(asked.get(), 0, 0);
      // The server's process may still be at it.
      if (status == "in progress") std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
  } catch (const platform::Error&) {
    status.clear();
  }
  if (status == "committed") return;
  if (status == "aborted") throw error;
  database_.reset();
  Raise(StoreError::Uncertain);
}

void PostgresqlRecordStore::Rollback() {
  LeaveUnit();
  if (database_ != nullptr) database_->connection->Rollback();
}

void PostgresqlRecordStore::SetSavepoint() {
  EnterUnit();
  Written([&] {
    Database().connection->Run(has_savepoint_ ? "RELEASE pactora; SAVEPOINT pactora"
                                              : "SAVEPOINT pactora");
  });
  has_savepoint_ = true;
  savepoint_last_number_ = last_number_;
  savepoint_writes_profile_ = writes_profile_;
}

// Also takes back a statement that failed, and with it the failure.
void PostgresqlRecordStore::RollbackToSavepoint() {
  Connection& connection = *Database().connection;
  if (!connection.InTransaction() || !connection.IsConnected()) {
    Raise(StoreError::UnitLost, why_lost_);
  }
  Written([&] { connection.Run("ROLLBACK TO pactora"); });
  why_lost_.clear();
  last_number_ = savepoint_last_number_;
  writes_profile_ = savepoint_writes_profile_;
}

Profile PostgresqlRecordStore::ReadProfile() {
  Connection& connection = *Database().connection;
  if (connection.InTransaction()) return postgresql::ReadProfile(connection);
  connection.Run("BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY");
  try {
    Profile profile = postgresql::ReadProfile(connection);
    connection.Rollback();
    return profile;
  } catch (...) {
    connection.Rollback();
    throw;
  }
}

void PostgresqlRecordStore::WriteProfile(const Profile& profile) {
  EnterUnit();
  writes_profile_ = true;
  Written([&] { postgresql::WriteProfile(*Database().connection, profile); });
}

void PostgresqlRecordStore::WriteSetting(const Setting& setting) {
  EnterUnit();
  writes_profile_ = true;
  Written([&] { postgresql::WriteSetting(*Database().connection, setting); });
}

// While a unit is open nobody else writes, and what others wrote before was read with its lock.
std::int64_t PostgresqlRecordStore::ProfileStamp() {
  return ReadNumber(Database().profile_stamp) - own_profiles_;
}

}  // namespace pactora::store::postgresql
