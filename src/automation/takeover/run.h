// A takeover list carried out: each line through the new-contract dialog, as a
// person would enter it.
//
// A line is one unit of work: either its contract is whole and durable or nothing
// of it is there, whatever message came up on the way. No contract is made twice,
// however a run ended: the database keeps the keys of the last contracts in the
// unit that made them, until the report that has them is safe on the disk.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "automation/takeover/DialogDriver.h"
#include "automation/takeover/list.h"
#include "automation/takeover/report.h"
#include "automation/workspace/Session.h"
#include "platform/Clock.h"
#include "store/RecordStore.h"

namespace pactora::takeover {

class Run {
 public:
  // The clock must outlive the run.
  Run(std::unique_ptr<store::RecordStore> store, const platform::Clock& clock);

  struct Count {
    std::size_t created = 0;
    std::size_t refused = 0;
    std::size_t failed = 0;
    std::size_t skipped = 0;

    std::size_t Rejected() const { return refused + failed; }
    // In German, for people.
    std::string Text() const;
  };

  // Carries out the list. report_name tells this report from others for the
  // database's memory. after_line is called after each line and may raise, to
  // stop the run there; so do errors that concern the database as a whole. The
  // report then holds what was done so far.
  // Raises DoorError::BadInput for a report that belongs to another database.
  Count CarryOut(const List& list, Report& report, const std::string& report_name,
                 const std::function<void()>& after_line);
  // Closes the report after the last line; from now on it alone knows the contracts.
  void Finish(Report& report);

 private:
  // What the database remembers: contracts that the report on the disk may lack.
  struct Remembered {
    std::string key;
    std::string number;  // of the contract
  };

  void ReadAddresses();
  // The contracts that there are, as far as the report's are to be found among them.
  void ReadContracts(const Report& report);
  // What becomes of a line; first is the first one of the list with its key.
  ReportLine Take(const Line& line, const Line& first, Report& report);
  // What becomes of a line whose key an earlier run entered.
  ReportLine AgainOrAnother(const Line& line, const Report& report,
                            const std::string& number) const;
  // The contract that an interrupted run made for the key, or null.
  const Remembered* Recovered(const std::string& key) const;
  // The address of that name or Oid, or why there is none.
  struct FoundAddress {
    std::optional<store::Oid> oid;
    std::string why_not;
  };
  FoundAddress FindAddress(const std::string& name) const;
  // What becomes of a line that is new; a contract that it makes is durable.
  ReportLine Enter(const Line& line);
  void EnterContract(const Line& line, ReportLine& result);

  // Those of this report; other runs, with other reports, may be under way.
  std::vector<Remembered> ReadRemembered();
  // Replaces those of this report.
  void WriteRemembered();

  DialogDriver driver_;
  workspace::Session session_;
  std::size_t number_size_;  // characters that a contract number may have
  std::string report_name_;
  std::unordered_map<std::string, std::vector<store::Oid>> addresses_;  // by name
  std::unordered_set<store::Oid> address_oids_;
  // Contract by number; numbers that people type may be there twice.
  struct Known {
    store::Oid address = 0;
    std::string type;
    platform::Date begin;
  };
  std::unordered_multimap<std::string, Known> contracts_;
  std::string remembered_;          // by the database, as last read or written
  std::string of_others_;           // the lines of other reports in it
  std::vector<Remembered> kept_;    // of an interrupted run, until this one is over
  std::vector<Remembered> recent_;  // of this run, since the report was last made safe
};

}  // namespace pactora::takeover
