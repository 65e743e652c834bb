// Which terms of a running contract are written when it is taken over, and what
// its next invoice is.
//
// The plan is worked out before the first row is written, so a date outside the
// calendar stores nothing. It holds the steps in the order in which they are to
// be performed; whoever performs it supplies the amounts.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "contract/invoice_periods.h"
#include "platform/Date.h"

namespace pactora::contract {

struct NoticeRule {
  std::int32_t frist = 0;
  std::string einheit;  // "Wochen"; any other text means months
};

struct RunningContract {
  InvoicePeriodTerms terms;
  std::int32_t verl_dauer = 0;  // months
  std::int32_t rechnung_wann = 0;
  NoticeRule notice;          // of the first term
  NoticeRule renewal_notice;  // of every later one
  std::int32_t alarm_weeks = 0;
  std::size_t selected = 0;       // row of the list of invoice periods that was invoiced last
  platform::Date mdtLetzteListe;  // start of the last row of that list
};

// An amount that is known only once positions are written.
struct TakeoverAmount {
  enum class Kind {
    FirstTerm,  // of the first term, less discount
    TermSum,    // sum over the positions of a renewal
    Zero,
  };
  Kind kind = Kind::FirstTerm;
  std::size_t term = 0;  // for TermSum, counted from 0 over all terms of the plan

  friend bool operator==(const TakeoverAmount&, const TakeoverAmount&) = default;
};

// A status row and the positions under it.
struct TakeoverTerm {
  bool renewal = false;
  platform::Date start;
  platform::Date end;
  platform::Date next_invoice;  // kNoInvoiceDate for none
  // The row is stored with the first term's amount before its own sum is known.
  bool provisional_value = false;
};

// From here on renewals are written: a discount for the first term alone ends.
struct TakeoverRenewals {};

// What the contract row takes on, and is stored with.
struct TakeoverContract {
  struct InForce {
    bool renewal = false;  // whose payment period
    TakeoverAmount amount;
    platform::Date next_invoice;
  };
  platform::Date notice;
  platform::Date end;
  std::optional<InForce> in_force;  // without it those fields stay as they are
};

// The appointment for the notice date.
struct TakeoverAlarm {
  platform::Date date;
  platform::Date notice;
  bool after_last_renewal = false;
};

using TakeoverStep = std::variant<TakeoverTerm, TakeoverRenewals, TakeoverContract, TakeoverAlarm>;

struct TakeoverPlan {
  std::vector<TakeoverStep> steps;
  platform::Date valid_until;  // last day of the last term written
};

// The steps for a renewing contract after its row was first stored: its first
// term, the renewals that the selected period and today call for, the contract
// row, one appointment. A renewal term of 0 months or less is never repeated.
//
// Requires: selected is a row of ListInvoicePeriods(terms); raises error 9
// otherwise. Raises error 5 when a date passes 31.12.9999.
TakeoverPlan PlanRenewableTakeover(const RunningContract& contract);

// For the other kinds: when the period after the selected one is invoiced, or
// kNoInvoiceDate when it would start after the end of a contract that ends.
platform::Date TakeoverNextInvoice(const RunningContract& contract);

}  // namespace pactora::contract
