// A takeover list carried out: each line through the new-contract dialog, as a
// person would enter it.
//
// A line is entered whole or not at all, whatever message came up on the way. Several
// lines share a unit of work; a line counts as done once that is durable. No contract is
// made twice, however a run ended: the database knows the keys of the lines.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "automation/bulk/UnitGroup.h"
#include "automation/bulk/contract_keys.h"
#include "automation/bulk/report.h"
#include "automation/takeover/DialogDriver.h"
#include "automation/takeover/list.h"
#include "automation/workspace/Session.h"
#include "platform/Clock.h"
#include "store/RecordStore.h"

namespace pactora::takeover {

class Run {
 public:
  // list_name: what the database and the report call the list. gives_way: other users may
  // wait for the database. The clock must outlive the run.
  Run(std::unique_ptr<store::RecordStore> store, const platform::Clock& clock,
      std::string list_name, bool gives_way);

  // Takes the contracts that the list's report or a setting of an earlier release knows into
  // the table of keys, as far as they are there.
  void AdoptEarlier(const std::vector<bulk::ReportedContract>& reported, const List& list);

  // Carries out the list and appends to done what became of each line, once that is
  // durable. after_line is called for each and may raise, to stop the run there; so do
  // errors that concern the database as a whole.
  void CarryOut(const List& list, std::vector<bulk::ReportLine>& done,
                const std::function<void()>& after_line);

 private:
  void ReadAddresses();
  // What becomes of a line; first is the first one of the list with its key.
  bulk::ReportLine Take(const Line& line, const Line& first);
  // What becomes of a line whose key was entered before.
  bulk::ReportLine TakeKnown(const Line& line, const Line& first,
                             const bulk::EnteredContract& entered);
  // The address of that name or Oid, or why there is none.
  struct FoundAddress {
    std::optional<store::Oid> oid;
    std::string why_not;
  };
  FoundAddress FindAddress(const std::string& name) const;
  // What becomes of a line that is new.
  bulk::ReportLine Enter(const Line& line);
  void EnterContract(const Line& line, bulk::ReportLine& result);
  // The contracts that an interrupted run of an earlier release had not yet reported.
  std::vector<bulk::ReportedContract> TakeRemembered();

  DialogDriver driver_;
  workspace::Session session_;
  const platform::Clock& clock_;
  const std::string list_name_;
  bulk::ContractKeys keys_;
  bulk::UnitGroup group_;
  std::size_t number_size_;  // characters that a contract number may have
  std::unordered_map<std::string, std::vector<store::Oid>> addresses_;  // by name
  std::unordered_set<store::Oid> address_oids_;
};

}  // namespace pactora::takeover
