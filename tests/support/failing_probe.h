// Makes one operation of the embedded host fail.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "embedded/Host.h"
#include "platform/Error.h"

namespace pactora::support {

// Raises at the operation of that number, counted from 1, once. With 0 it only
// counts.
class FailingProbe final : public embedded::OperationProbe {
 public:
  FailingProbe(embedded::Host& host, std::size_t nth,
               platform::Error error = platform::Error(platform::ErrorNumber(0x80049999),
                                                       "Probeweise gescheitert", "Probe"))
      : host_(host), nth_(nth), error_(std::move(error)) {
    host_.SetProbe(this);
  }
  // Fails at the nth call of that operation on that table.
  FailingProbe(embedded::Host& host, std::size_t nth, std::string operation, std::string table,
               platform::Error error)
      : FailingProbe(host, nth, std::move(error)) {
    operation_ = std::move(operation);
    table_ = std::move(table);
  }
  ~FailingProbe() override { host_.SetProbe(nullptr); }
  FailingProbe(const FailingProbe&) = delete;
  FailingProbe& operator=(const FailingProbe&) = delete;

  void Before(std::string_view operation, std::string_view table) override {
    if (!operation_.empty() && (operation != operation_ || table != table_)) return;
    if (++seen_ != nth_) return;
    failed_ = std::string(operation) + " " + std::string(table);
    throw error_;
  }

  std::size_t Seen() const { return seen_; }
  bool HasFailed() const { return !failed_.empty(); }
  // "StoreNew vv_Vertraege"
  const std::string& Failed() const { return failed_; }

 private:
  embedded::Host& host_;
  const std::size_t nth_;
  const platform::Error error_;
  std::string operation_;
  std::string table_;
  std::size_t seen_ = 0;
  std::string failed_;
};

}  // namespace pactora::support
