#include "store/sqlite/Connection.h"

#include <algorithm>
#include <limits>
#include <thread>
#include <utility>

#include "store/errors.h"
#include "store/sql/waiting.h"
#include "store/sqlite/Statement.h"

namespace pactora::store::sqlite {
namespace {

int OpenFlags(Access access) {
  // One thread at a time uses a connection, so SQLite needs no mutex of its own.
  constexpr int kCommon = SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE;
  switch (access) {
    case Access::ReadOnly:
      return kCommon | SQLITE_OPEN_READONLY;
    case Access::ReadWrite:
      return kCommon | SQLITE_OPEN_READWRITE;
    case Access::Create:
      return kCommon | SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
  }
  return kCommon;
}

StoreError ErrorOf(int code) {
  switch (code) {
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_ROWID:
      return StoreError::DuplicateOid;
    case SQLITE_CONSTRAINT_UNIQUE:
      return StoreError::DuplicateKey;
    case SQLITE_READONLY_ROLLBACK:
    case SQLITE_READONLY_DBMOVED:
      return StoreError::NotReachable;
    default:
      break;
  }
  switch (code & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return StoreError::Locked;
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
      return StoreError::NotReachable;
    case SQLITE_READONLY:
      return StoreError::ReadOnly;
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
      return StoreError::NotADatabase;
    case SQLITE_FULL:
      return StoreError::Full;
    default:
      return StoreError::Failed;
  }
}

// What the error's own text leaves open.
std::string DetailOf(int code, const char* message) {
  if (code == SQLITE_READONLY_ROLLBACK)
    return "eine abgebrochene Änderung ist erst zurückzunehmen; das geschieht, sobald die "
           "Datenbank zum Schreiben geöffnet wird";
  if (code == SQLITE_READONLY_DBMOVED)
    return "die Datei ist gelöscht oder durch eine andere ersetzt worden";
  switch (ErrorOf(code)) {
    case StoreError::Locked:
    case StoreError::ReadOnly:
    case StoreError::Full:
    case StoreError::NotReachable:
      return {};
    default:
      return message + (", SQLite " + std::to_string(code));
  }
}

// SQLite takes a name that begins so for an address with options.
std::string PlainName(const std::string& path) {
  return path.starts_with("file:") ? "./" + path : path;
}

constexpr std::chrono::milliseconds kLongestTimeout(std::numeric_limits<int>::max());
// Milliseconds between two tries for a lock: less than a user who has just saved needs for the
// next save, so that it is those who wait who come next.
constexpr int kLongestPause = 2;

}  // namespace

Connection::Connection(const std::string& path, Access access, std::chrono::milliseconds timeout)
    : timeout_(std::min(timeout, kLongestTimeout)) {
  // SQLite takes an empty name for a temporary database.
  if (path.empty()) Raise(StoreError::NotReachable, "kein Dateiname");
  const int code = sqlite3_open_v2(PlainName(path).c_str(), &database_, OpenFlags(access), nullptr);
  if (code != SQLITE_OK) {
    sqlite3_close(database_);
    Raise(StoreError::NotReachable);
  }
  sqlite3_busy_handler(database_, OnBusy, this);
}

int Connection::OnBusy(void* connection, int times) {
  auto& waiting = *static_cast<Connection*>(connection);
  const auto now = std::chrono::steady_clock::now();
  if (times == 0) waiting.since_ = now;
  const auto waited = std::chrono::duration_cast<std::chrono::milliseconds>(now - waiting.since_);
  if (waited >= waiting.timeout_ || sql::IsWaitGivenUp(waited)) return 0;
  // Soon again at first: most units of work are short.
  const auto pause = std::chrono::milliseconds(std::min(1 + times * 2, kLongestPause));
  std::this_thread::sleep_for(pause);
  return 1;
}

Connection::~Connection() {
  // Leaves this journal mode only to have the empty journal file removed; SQLite
  // does that when no other user is writing, and it is harmless if it stays: nobody
  // is waited for.
  if (!InTransaction() && !leaves_file_) {
    sqlite3_busy_handler(database_, nullptr, nullptr);
    sqlite3_exec(database_, "PRAGMA journal_mode = DELETE", nullptr, nullptr, nullptr);
  }
  sqlite3_close(database_);
}

void Connection::SetUp() {
  Run("PRAGMA trusted_schema = OFF");
  Run("PRAGMA foreign_keys = ON");
  Run("PRAGMA temp_store = MEMORY");
  Run("PRAGMA cache_size = -32000");  // KiB: a long unit need not write before its commit
  Run("PRAGMA synchronous = FULL");
  Statement journal(*this, "PRAGMA journal_mode = TRUNCATE");
  journal.Step();
  const std::string_view mode = journal.Text(0);
  if (mode != "truncate" && mode != "memory") {
    Raise(StoreError::Locked, "journal_mode = " + std::string(mode));
  }
}

void Connection::Run(const char* sql) {
  const int code = sqlite3_exec(database_, sql, nullptr, nullptr, nullptr);
  if (code != SQLITE_OK) Fail(code);
}

void Connection::Commit() {
  const int code = sqlite3_exec(database_, "COMMIT", nullptr, nullptr, nullptr);
  if (code != SQLITE_OK) FailCommit(code);
}

void Connection::RefuseWriting(std::string why) {
  Run("PRAGMA query_only = ON");
  why_not_written_ = std::move(why);
}

void Connection::Fail(int code) const {
  const StoreError error = ErrorOf(code);
  Raise(error, error == StoreError::ReadOnly ? why_not_written_
                                             : DetailOf(code, sqlite3_errmsg(database_)));
}

void Connection::FailCommit(int code) {
  if ((code & 0xFF) != SQLITE_IOERR) Fail(code);
  leaves_file_ = true;
  Raise(StoreError::Uncertain);
}

}  // namespace pactora::store::sqlite
