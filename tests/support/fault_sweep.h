// Operations of the embedded host: noted, failing once, and failing each in turn.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "embedded/Host.h"
#include "platform/Error.h"
#include "support/error_of.h"
#include "support/sanitized.h"

namespace pactora::support {

// Notes each operation while it lives: "StoreNew vv_Vertraege".
class OperationLog : public embedded::OperationProbe {
 public:
  explicit OperationLog(embedded::Host& host) : host_(host) { host_.SetProbe(this); }
  ~OperationLog() override { host_.SetProbe(nullptr); }
  OperationLog(const OperationLog&) = delete;
  OperationLog& operator=(const OperationLog&) = delete;

  void Before(std::string_view operation, std::string_view table) override {
    seen_.push_back(std::string(operation) + " " + std::string(table));
  }
  const std::vector<std::string>& Seen() const { return seen_; }

 private:
  embedded::Host& host_;
  std::vector<std::string> seen_;
};

// Raises the error at the nth operation, counted from 1, once.
class FailingProbe final : public OperationLog {
 public:
  FailingProbe(embedded::Host& host, std::size_t nth,
               platform::Error error = platform::Error(platform::ErrorNumber(0x80049999),
                                                       "Probeweise gescheitert", "Probe"))
      : OperationLog(host), left_(nth), error_(std::move(error)) {}
  // At the nth call of that operation on that table.
  FailingProbe(embedded::Host& host, std::size_t nth, const std::string& operation,
               const std::string& table, platform::Error error)
      : FailingProbe(host, nth, std::move(error)) {
    only_ = operation + " " + table;
  }

  void Before(std::string_view operation, std::string_view table) override {
    OperationLog::Before(operation, table);
    if (!only_.empty() && Seen().back() != only_) return;
    if (left_ == 0 || --left_ > 0) return;
    failed_ = Seen().back();
    throw platform::Error(error_);
  }
  bool HasFailed() const { return !failed_.empty(); }
  const std::string& Failed() const { return failed_; }

 private:
  std::size_t left_;
  const platform::Error error_;
  std::string only_;  // empty: any operation
  std::string failed_;
};

// The runs of a scenario in which nothing fails first, and then each operation of
// the host in its turn:
//
//   for (FaultSweep sweep; sweep.Next();) {
//     World world;
//     sweep.Run(world.host, [&] { world.Act(); });
//     if (!sweep.Fails()) ...
//   }
class FaultSweep {
 public:
  // Of long scenarios each seventh operation is enough under the sanitizer.
  static constexpr std::size_t kSparse = support::kSanitized ? 7 : 1;
  explicit FaultSweep(std::size_t step = 1) : step_(step) {}

  // Ends when each operation of the first run has failed.
  bool Next() {
    trace_.reset();
    if (nth_ && *nth_ + step_ > operations_.size()) return false;
    nth_ = nth_ ? *nth_ + step_ : 0;
    trace_.emplace(__FILE__, __LINE__, "operation " + std::to_string(*nth_) + " " + Failing());
    return true;
  }
  // Whether this run is one in which an operation fails.
  bool Fails() const { return nth_ > 0U; }
  // That operation, as a log names it.
  std::string Failing() const { return Fails() ? operations_[*nth_ - 1] : std::string(); }
  std::size_t Operations() const { return operations_.size(); }

  // Acts with this run's operation failing. Returns what reaches the caller.
  std::optional<platform::Error> Run(embedded::Host& host, const std::function<void()>& act) {
    FailingProbe probe(host, nth_.value());
    const auto error = ErrorOf(act);
    EXPECT_EQ(probe.Failed(), Failing());
    if (!Fails()) operations_ = probe.Seen();
    return error;
  }

 private:
  const std::size_t step_;
  std::optional<std::size_t> nth_;
  std::vector<std::string> operations_;
  std::optional<testing::ScopedTrace> trace_;
};

}  // namespace pactora::support
