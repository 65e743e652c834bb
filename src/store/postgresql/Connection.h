// A connection to a server, which is made again when it was lost between two transactions.
#pragma once

#include <libpq-fe.h>

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "store/postgresql/Address.h"

namespace pactora::store::postgresql {

struct ClearResult {
  void operator()(PGresult* result) const { PQclear(result); }
};
using Result = std::unique_ptr<PGresult, ClearResult>;

// The values of a statement's parameters, in libpq's form; all of them binary.
struct Parameters {
  std::vector<const char*> values;  // null for NULL
  std::vector<int> lengths;
  std::vector<int> formats;
  std::vector<::Oid> types;  // 0 where the statement says it itself
};

class Connection {
 public:
  // Connects. Raises StoreError::NotReachable if that fails, OtherVersion for a server that is too
  // old. lock_timeout: how long each statement waits for other users.
  Connection(Address address, std::chrono::milliseconds lock_timeout);
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  const std::string& Schema() const { return address_.schema; }

  // Runs statements and returns the last one's result. Each that waits ends with an answer, with
  // StoreError::Locked or, when none comes within the time limit, with NotReachable.
  // Outside a transaction a lost connection is made again and the statements are run then.
  Result Run(const std::string& sql);

  // Runs one statement, as Run does; it is prepared once for each connection.
  Result Execute(const std::string& sql, const Parameters& parameters);

  // Whether a transaction is open that later statements would belong to, also where it has
  // failed and only waits for its end.
  bool InTransaction() const { return in_transaction_; }
  // Whether the transaction that was open can't be committed any more: a statement failed in it,
  // or the connection is gone.
  bool HasFailed() const;
  bool IsConnected() const { return connection_ != nullptr; }
  // Drops the transaction. Never raises; a connection that does not answer is given up.
  void Rollback();

  // From now on every write raises StoreError::ReadOnly with that detail.
  void RefuseWriting(std::string why);
  bool RefusesWriting() const { return refuses_writing_; }

 private:
  using Clock = std::chrono::steady_clock;

  void Connect();
  void Drop();
  template <typename Send>
  Result Sent(const Send& send);
  template <typename Send>
  Result SentOnce(const Send& send);
  Result Await();
  // Sleeps until the server has sent or taken something.
  void Wait(Clock::time_point since, bool to_write);
  [[noreturn]] void RaiseLost();
  [[noreturn]] void RaiseLocked();
  [[noreturn]] void Fail(const PGresult* result);

  Address address_;
  std::chrono::milliseconds lock_timeout_;
  PGconn* connection_ = nullptr;                           // null while there is none
  std::int64_t generation_ = 0;                            // of connections, from 1
  std::unordered_map<std::string, std::string> prepared_;  // the name of each statement by its SQL
  bool in_transaction_ = false;
  bool refuses_writing_ = false;
  std::string why_not_written_;
};

}  // namespace pactora::store::postgresql
