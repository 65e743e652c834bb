#include "store/postgresql/Connection.h"

#include <poll.h>

#include <algorithm>
#include <string_view>
#include <utility>

#include "store/errors.h"
#include "store/sql/row_statements.h"
#include "store/sql/waiting.h"

namespace pactora::store::postgresql {
namespace {

constexpr int kOldestServer = 150000;
// How long an answer may take beyond the time that other users are waited for.
constexpr std::chrono::seconds kAnswerTimeout(20);
// How often a person who waits is asked.
constexpr std::chrono::milliseconds kSlice(25);

StoreError ErrorOf(std::string_view state) {
  static constexpr std::pair<std::string_view, StoreError> kErrors[] = {
      {"55P03", StoreError::Locked},
      {"40P01", StoreError::Locked},
      {"23505", StoreError::DuplicateKey},
      {"25006", StoreError::ReadOnly},
      {"42501", StoreError::ReadOnly},
      {"42P01", StoreError::NotADatabase},  // a table is missing
      {"42703", StoreError::NotADatabase},  // a column
      {"3F000", StoreError::NotADatabase},  // the schema
      {"XX001", StoreError::NotADatabase},  // damaged pages
      {"XX002", StoreError::NotADatabase},
      {"57P01", StoreError::NotReachable},
      {"57P02", StoreError::NotReachable},
      {"57P03", StoreError::NotReachable},
      {"25P03", StoreError::NotReachable},
      {"53300", StoreError::NotReachable},
      {"53100", StoreError::Full},
      {"53200", StoreError::Full},
  };
  for (const auto& [known, error] : kErrors) {
    if (known == state) return error;
  }
  return StoreError::Failed;
}

std::string OneLine(const char* message) {
  std::string line = message == nullptr ? "" : message;
  while (!line.empty() && line.back() == '\n') line.pop_back();
  std::ranges::replace(line, '\n', ' ');
  return line;
}

// The server or the network closed the connection.
class LostConnection : public platform::Error {
 public:
  explicit LostConnection(const std::string& why)
      : Error(store::Number(StoreError::NotReachable),
              store::Text(StoreError::NotReachable) + " (die Verbindung ist unterbrochen: " + why +
                  ")",
              kErrorSource) {}
};

// What no statement of a store may depend on is set for the session. A store looks rows up
// through indexes alone, so no plan may be made for a table that was still small.
std::string SessionSettings(const std::string& schema, std::chrono::milliseconds lock_timeout,
                            bool refuses_writing) {
  // 0 would be no limit.
  const auto limit = std::max<std::int64_t>(lock_timeout.count(), 1);
  return "SET search_path = " + sql::Quoted(schema) +
         ", pg_temp; SET lock_timeout = " + std::to_string(limit) +
         "; SET idle_in_transaction_session_timeout = '10s';"
         "SET client_connection_check_interval = '2s'; SET enable_seqscan = off;"
         "SET enable_sort = off; SET enable_bitmapscan = off; SET jit = off;"
         "SET plan_cache_mode = force_generic_plan;"
         "SET default_transaction_isolation = 'read committed';" +
         (refuses_writing ? "SET default_transaction_read_only = on;" : "") +
         // A commit that was told waits for the disk.
         "SELECT set_config('synchronous_commit', 'on', false)"
         " WHERE current_setting('synchronous_commit') = 'off'";
}

}  // namespace

Connection::Connection(Address address, std::chrono::milliseconds lock_timeout)
    : address_(std::move(address)),
      lock_timeout_(std::min<std::chrono::milliseconds>(lock_timeout, std::chrono::hours(24))) {
  Connect();
}

Connection::~Connection() { Drop(); }

void Connection::Drop() {
  PQfinish(std::exchange(connection_, nullptr));
  prepared_.clear();
}

void Connection::Connect() {
  std::vector<const char*> names = {"fallback_application_name", "client_encoding"};
  std::vector<const char*> values = {"Pactora", "UTF8"};
  // Those of the address come later and prevail.
  const std::pair<const char*, const char*> defaults[] = {
      {"connect_timeout", "10"}, {"keepalives_idle", "30"}, {"keepalives_interval", "10"}};
  for (const auto& [name, value] : defaults) {
    names.push_back(name);
    values.push_back(value);
  }
  for (const auto& [name, value] : address_.parameters) {
    names.push_back(name.c_str());
    values.push_back(value.c_str());
  }
  names.push_back(nullptr);
  values.push_back(nullptr);
  connection_ = PQconnectdbParams(names.data(), values.data(), 0);
  if (PQstatus(connection_) != CONNECTION_OK) {
    std::string why = OneLine(PQerrorMessage(connection_));
    if (PQconnectionNeedsPassword(connection_) != 0)
      why += "; das Kennwort wird in ~/.pgpass, in der Dienstdatei oder in PGPASSWORD gesucht";
    Drop();
    Raise(StoreError::NotReachable, why);
  }
  if (PQserverVersion(connection_) < kOldestServer) {
    Drop();
    Raise(StoreError::OtherVersion, "der Server ist älter als PostgreSQL 15");
  }
  ++generation_;
  PQsetNoticeProcessor(
      connection_, [](void*, const char*) {}, nullptr);
  PQsetnonblocking(connection_, 1);
  const std::string settings = SessionSettings(address_.schema, lock_timeout_, refuses_writing_);
  try {
    SentOnce([&] { return PQsendQuery(connection_, settings.c_str()); });
  } catch (...) {
    Drop();
    throw;
  }
}

bool Connection::HasFailed() const {
  return connection_ == nullptr || PQtransactionStatus(connection_) != PQTRANS_INTRANS;
}

void Connection::RefuseWriting(std::string why) {
  Run("SET default_transaction_read_only = on");
  refuses_writing_ = true;
  why_not_written_ = std::move(why);
}

void Connection::RaiseLost() {
  const std::string why = OneLine(PQerrorMessage(connection_));
  Drop();
  throw LostConnection(why);
}

void Connection::Wait(Clock::time_point since, bool to_write) {
  pollfd socket = {PQsocket(connection_), static_cast<short>(POLLIN | (to_write ? POLLOUT : 0)), 0};
  if (poll(&socket, 1, static_cast<int>(kSlice.count())) > 0) return;
  const auto waited = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - since);
  // A transaction that is open has what it waits for; breaking it off would only lose it.
  if (!in_transaction_ && sql::IsWaitGivenUp(waited)) {
    Drop();
    Raise(StoreError::Locked);
  }
  if (waited < lock_timeout_ + kAnswerTimeout) return;
  Drop();
  Raise(StoreError::NotReachable, "der Server antwortet nicht");
}

Result Connection::Await() {
  const auto since = Clock::now();
  for (int left = 1; (left = PQflush(connection_)) != 0;) {
    if (left < 0) RaiseLost();
    Wait(since, true);
    if (PQconsumeInput(connection_) == 0) RaiseLost();
  }
  Result last;
  while (true) {
    while (PQisBusy(connection_) != 0) {
      Wait(since, false);
      if (PQconsumeInput(connection_) == 0) RaiseLost();
    }
    Result next(PQgetResult(connection_));
    if (next == nullptr) break;
    // What follows a failure tells nothing more.
    if (last == nullptr || PQresultStatus(last.get()) != PGRES_FATAL_ERROR) last = std::move(next);
  }
  // The server says goodbye before it closes the connection.
  if (PQstatus(connection_) == CONNECTION_BAD) RaiseLost();
  in_transaction_ = PQtransactionStatus(connection_) != PQTRANS_IDLE;
  if (last == nullptr) RaiseLost();
  return last;
}

template <typename Send>
Result Connection::SentOnce(const Send& send) {
  if (connection_ == nullptr) Connect();
  if (send() == 0) RaiseLost();
  Result result = Await();
  const ExecStatusType status = PQresultStatus(result.get());
  if (status != PGRES_TUPLES_OK && status != PGRES_COMMAND_OK) Fail(result.get());
  return result;
}

template <typename Send>
Result Connection::Sent(const Send& send) {
  if (in_transaction_) {
    if (connection_ == nullptr) Raise(StoreError::NotReachable, "die Verbindung ist unterbrochen");
    return SentOnce(send);
  }
  const std::int64_t generation = generation_;
  try {
    return SentOnce(send);
  } catch (const LostConnection&) {
    // A server that was started again since the last call has closed the connection. Only one
    // that was made before this call can have been lost unnoticed.
    if (generation != generation_) throw;
  }
  return SentOnce(send);
}

Result Connection::Run(const std::string& sql) {
  return Sent([&] { return PQsendQuery(connection_, sql.c_str()); });
}

Result Connection::Execute(const std::string& sql, const Parameters& parameters) {
  const auto count = static_cast<int>(parameters.values.size());
  return Sent([&] {
    auto known = prepared_.find(sql);
    if (known == prepared_.end()) {
      const std::string name = "s" + std::to_string(prepared_.size() + 1);
      if (PQsendPrepare(connection_, name.c_str(), sql.c_str(), count, parameters.types.data()) ==
          0)
        return 0;
      const Result prepared = Await();
      if (PQresultStatus(prepared.get()) != PGRES_COMMAND_OK) Fail(prepared.get());
      known = prepared_.emplace(sql, name).first;
    }
    return PQsendQueryPrepared(connection_, known->second.c_str(), count, parameters.values.data(),
                               parameters.lengths.data(), parameters.formats.data(), 1);
  });
}

void Connection::Rollback() {
  const bool was_open = std::exchange(in_transaction_, false);
  if (!was_open || connection_ == nullptr) return;
  try {
    SentOnce([&] { return PQsendQuery(connection_, "ROLLBACK"); });
  } catch (const platform::Error&) {
    Drop();
  }
}

// Who holds the row that a unit begins with, as far as the server tells.
void Connection::RaiseLocked() {
  std::string who;
  try {
    if (in_transaction_) Rollback();
    const Result holder =
        Run("SELECT a.usename, a.application_name FROM pg_locks l, pg_stat_activity a "
            "WHERE l.locktype = 'transactionid' AND l.granted AND a.pid = l.pid AND "
            "l.transactionid = (SELECT xmax FROM pactora_database)");
    if (PQntuples(holder.get()) > 0) {
      who = PQgetvalue(holder.get(), 0, 0);
      const std::string program = PQgetvalue(holder.get(), 0, 1);
      who += program.empty() ? "" : ", " + program;
    }
  } catch (const platform::Error&) {
    who.clear();
  }
  Raise(StoreError::Locked, who);
}

void Connection::Fail(const PGresult* result) {
  const char* const state_field = PQresultErrorField(result, PG_DIAG_SQLSTATE);
  const std::string state = state_field == nullptr ? "" : state_field;
  const StoreError error = ErrorOf(state);
  if (error == StoreError::Locked) RaiseLocked();
  if (error == StoreError::ReadOnly && refuses_writing_) Raise(error, why_not_written_);
  const char* const message = PQresultErrorField(result, PG_DIAG_MESSAGE_PRIMARY);
  Raise(error, OneLine(message) + ", PostgreSQL " + state);
}

}  // namespace pactora::store::postgresql
