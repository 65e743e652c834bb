// One open SQLite database.
#pragma once

#include <sqlite3.h>

#include <chrono>
#include <cstdint>
#include <string>

namespace pactora::store::sqlite {

enum class Access { ReadOnly, ReadWrite, Create };

inline constexpr const char* kInMemory = ":memory:";

class Connection {
 public:
  // Opens the file. Raises StoreError::NotReachable if that fails; whether it is
  // a database shows with the first statement. timeout: how long each statement
  // waits for other users.
  Connection(const std::string& path, Access access, std::chrono::milliseconds timeout);
  // Drops an open transaction. Requires: all statements are gone.
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  sqlite3* Handle() const { return database_; }

  // Prepares for work on rows: references are enforced, commits are durable.
  void SetUp();

  // Runs statements whose rows don't matter.
  void Run(const char* sql);
  void Run(const std::string& sql) { Run(sql.c_str()); }

  // Runs COMMIT; raises as FailCommit does.
  void Commit();

  // From now on every write raises StoreError::ReadOnly with that detail.
  void RefuseWriting(std::string why);

  // False also when SQLite gave up the transaction by itself after a failure.
  bool InTransaction() const { return sqlite3_get_autocommit(database_) == 0; }

  // Raises the store's error for a result code of SQLite.
  [[noreturn]] void Fail(int code) const;

  // The same for a COMMIT, whose input and output errors are StoreError::Uncertain: the system
  // may have dropped what it took, and reading the file back would prove nothing. The
  // connection must then be closed; whoever opens the file next lets its journal decide.
  [[noreturn]] void FailCommit(int code);

 private:
  // Asked by SQLite while another user keeps the database; 0 gives up.
  static int OnBusy(void* connection, int times);

  sqlite3* database_ = nullptr;
  bool leaves_file_ = false;  // nothing is written any more, not even when it is closed
  std::string why_not_written_;
  std::chrono::milliseconds timeout_;
  std::chrono::steady_clock::time_point since_;  // when the wait that is under way began
};

}  // namespace pactora::store::sqlite
