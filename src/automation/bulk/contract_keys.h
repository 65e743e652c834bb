// What callers have entered in bulk, by their own keys: a row for each contract, written in
// the unit of work that makes it. The database alone knows what was entered.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "automation/bulk/report.h"
#include "platform/Date.h"
#include "store/RecordStore.h"

namespace pactora::bulk {

struct EnteredContract {
  std::string digest;  // of the values that were entered; empty where nobody knows them
  std::string list;    // the list or file that they stood in
  std::string number;  // of the contract
  store::Oid oid = 0;  // of the contract
  // Making it failed half-way: the contract lacks rows.
  bool is_incomplete = false;
};

// A fixed-length text that differs where the values do.
std::string DigestOf(std::string_view values);

class ContractKeys {
 public:
  // The store must outlive this.
  explicit ContractKeys(store::RecordStore& store);

  // What was entered under that very key.
  std::optional<EnteredContract> Find(const std::string& key);
  // Adds the key to the open unit. Requires: it is not known yet.
  void Add(const std::string& key, const EnteredContract& entered, platform::Date now);

  // What becomes of a contract with that digest whose key is known: it is skipped, or refused
  // where the values are others. Line and key are the caller's to fill in.
  ReportLine Judge(const EnteredContract& entered, const std::string& digest);
  // A contract of that very number, or 0.
  store::Oid ContractOf(const std::string& number);

 private:
  store::RecordStore& store_;
  const store::TableId keys_;
  const store::TableId contracts_;
};

}  // namespace pactora::bulk
