// The invoice periods of a contract, one row for each, as they are offered when
// a running contract is taken over.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "platform/Date.h"

namespace pactora::contract {

// What the rows depend on. Terms and periods are whole months.
struct InvoicePeriodTerms {
  std::int32_t art = 0;  // contract kind; any number but 1 and 2 counts as unlimited
  platform::Date begin;
  std::int32_t dauer = 0;
  std::int32_t zahlungsperiode = 0;
  std::int32_t verl_zahlungsperiode = 0;
  platform::Date today;
};

struct InvoicePeriod {
  platform::Date start;
  platform::Date last_day;  // not cut at the end of the term

  friend bool operator==(const InvoicePeriod&, const InvoicePeriod&) = default;
};

struct InvoicePeriodList {
  std::vector<InvoicePeriod> rows;
  // The day before which the last row starts. Renewing contracts have none: their
  // rows go on until today.
  std::optional<platform::Date> mdtListEnde;
};

// Renewing contract: all periods of the first term, then those of the renewals
// that start before today. Contract that ends: all periods of its term. Unlimited
// contract: all periods up to the first one that starts today or later.
//
// Each start is the one before it plus one period, so a day clamped to a short
// month stays low. A period of 0 or less gives no row for its stretch. Raises
// error 5 when a row would pass 31.12.9999.
InvoicePeriodList ListInvoicePeriods(const InvoicePeriodTerms& terms);

}  // namespace pactora::contract
